// Parts and assemblies in the formats of other systems, at the door.
#include "hostapi/host/export_3d.h"

#include <fmt/format.h>

#include <utility>

#include "simhost/core/text.h"
#include "simhost/door/door.h"
#include "simhost/door/output_file.h"
#include "simhost/door/owned.h"
#include "simhost/model/shown.h"

using namespace simhost;

namespace {

OutputRecords& Records() {
    return TheHost().outputRecords;
}

OutputInclusion& RequireInclusion(ProOutputInclusion inclusion) {
    return RequireOf(Records().inclusions, inclusion, "an inclusion record");
}

OutputLayers& RequireLayers(ProOutputLayerOptions layers) {
    return RequireOf(Records().layers, layers, "a record of layers");
}

// A part or an assembly with something in it that can be written.
const Model& RequireContents(const void* handle) {
    const Model& model = TheHost().session.Require(const_cast<void*>(handle));
    if (model.type != PRO_MDL_PART && model.type != PRO_MDL_ASSEMBLY) Refuse(PRO_TK_BAD_INPUTS);
    if (ShownParts(model, Sight::Measures).empty()) Refuse(PRO_TK_GENERAL_ERROR);
    return model;
}

void WriteSolid(const Model& model, const WideChar* path, const char* format) {
    if (*path == 0) Refuse(PRO_TK_BAD_INPUTS);
    WriteOutput(path, [&] {
        if (!std::exchange(TheHost().toldOfNoKernel, true)) {
            TheHost().Tell("files for other systems hold no shapes here: there is no kernel");
        }
        return fmt::format("{} of {}, without its shape: no kernel was there to write it\n", format,
                           model.FileName());
    });
}

}  // namespace

ProError ProOutputFileWrite(ProMdl model, ProFileName file, ProImportExportFile format,
                            ProAppData first, ProAppData second, ProAppData third,
                            ProAppData fourth) {
    return Op<"ProOutputFileWrite">.Call(
        [&] {
            const Model& written = RequireContents(model);
            if (format != PRO_STEP_FILE && format != PRO_IGES_3D_FILE) Refuse(PRO_TK_BAD_INPUTS);
            WriteSolid(written, file, format == PRO_STEP_FILE ? "STEP" : "IGES");
        },
        ARG(model), GIVEN(file), ARG(format), ARG(first), ARG(second), ARG(third), ARG(fourth));
}

ProError ProIntf3DFileWrite(ProSolid solid, ProIntf3DFileType format, ProPath file,
                            ProOutputAssemblyConfiguration configuration, ProSelection csys,
                            ProOutputBrepRepresentation representation,
                            ProOutputInclusion inclusion, ProOutputLayerOptions layers) {
    return Op<"ProIntf3DFileWrite">.Call(
        [&] {
            const Model& written = RequireContents(solid);
            if (format != PRO_INTF_EXPORT_IGES) Refuse(PRO_TK_BAD_INPUTS);
            if (csys || representation) Refuse(PRO_TK_NOT_IMPLEMENTED);
            if (inclusion) RequireInclusion(inclusion);
            if (layers) RequireLayers(layers);
            WriteSolid(written, file, "IGES");
        },
        ARG(solid), ARG(format), GIVEN(file), ARG(configuration), ARG(csys), ARG(representation),
        ARG(inclusion), ARG(layers));
}

ProError ProOutputInclusionAlloc(ProOutputInclusion* inclusion) {
    return Op<"ProOutputInclusionAlloc">.Call(
        [&] {
            *inclusion = Give<ProOutputInclusion>(&Records().inclusions, OutputInclusion{},
                                                  "ProOutputInclusionAlloc");
        },
        OUT(inclusion));
}

ProError ProOutputInclusionFlagsSet(ProOutputInclusion inclusion, ProBoolean datums,
                                    ProBoolean blanked, ProBoolean facetted) {
    return Op<"ProOutputInclusionFlagsSet">.Call(
        [&] {
            RequireInclusion(inclusion) = {datums != PRO_B_FALSE, blanked != PRO_B_FALSE,
                                           facetted != PRO_B_FALSE};
        },
        ARG(inclusion), ARG(datums), ARG(blanked), ARG(facetted));
}

ProError ProOutputLayerOptionsAlloc(ProOutputLayerOptions* layers) {
    return Op<"ProOutputLayerOptionsAlloc">.Call(
        [&] {
            *layers = Give<ProOutputLayerOptions>(&Records().layers, OutputLayers{},
                                                  "ProOutputLayerOptionsAlloc");
        },
        OUT(layers));
}

ProError ProOutputLayerOptionsAutoidSet(ProOutputLayerOptions layers, ProBoolean autoId) {
    return Op<"ProOutputLayerOptionsAutoidSet">.Call(
        [&] { RequireLayers(layers).autoId = autoId != PRO_B_FALSE; }, ARG(layers), ARG(autoId));
}
