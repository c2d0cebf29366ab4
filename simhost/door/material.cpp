// Materials of parts at the door.
#include "hostapi/host/material.h"

#include <algorithm>

#include "simhost/core/file_names.h"
#include "simhost/core/text.h"
#include "simhost/door/door.h"
#include "simhost/door/part_file.h"
#include "simhost/model/model_file_error.h"

using namespace simhost;

ProError ProMaterialfileRead(ProSolid part, WideChar* name) {
    return Op<"ProMaterialfileRead">.Call(
        [&] {
            Model& model = RequireChangeablePart(part);
            const WideText wanted = RequireBaseName(name);
            const std::filesystem::path folder =
                TheHost().disk.Real(TheHost().session.workingDirectory);
            std::filesystem::path file = NewestFileOf(folder, wanted + WIDE(".mtl"));
            if (file.empty()) file = NewestFileOf(folder, wanted + WIDE(".mat"));
            Material material = ReadPartFile(file, ReadMaterialText);
            material.name = wanted;
            PutMaterial(&model, std::move(material));
            model.modified = true;
        },
        ARG(part), GIVEN(name));
}

ProError ProMaterialCurrentSet(ProMaterial* material) {
    return Op<"ProMaterialCurrentSet">.Call(
        [&] {
            Model& model = RequireChangeablePart(material->part);
            const WideChar* begin = material->matl_name;
            const WideText name(begin, std::find(begin, begin + PRO_NAME_SIZE, WideChar{}));
            const Material* found = FindMaterial(model, name);
            if (!found) Refuse(PRO_TK_E_NOT_FOUND);
            model.partData.material = found->name;
            model.modified = true;
        },
        GIVEN(material));
}
