// Models at the door.
#include "hostapi/host/model.h"

#include "simhost/core/text.h"
#include "simhost/door/door.h"
#include "simhost/model/model_file.h"

using namespace simhost;

ProError ProMdlCurrentGet(ProMdl* model) {
    return Op<"ProMdlCurrentGet">.Call(
        [&] {
            const Model* current = TheHost().session.CurrentModel();
            if (!current) Refuse(PRO_TK_BAD_CONTEXT);
            *model = current->handle;
        },
        OUT(model));
}

ProError ProMdlNameGet(ProMdl model, ProName name) {
    return Op<"ProMdlNameGet">.Call(
        [&] { CopyCut(TheHost().session.Require(model).name, name, PRO_NAME_SIZE); }, ARG(model),
        OUT(name));
}

ProError ProMdlTypeGet(ProMdl model, ProMdlType* type) {
    return Op<"ProMdlTypeGet">.Call([&] { *type = TheHost().session.Require(model).type; },
                                    ARG(model), OUT(type));
}

ProError ProMdlSubtypeGet(ProMdl model, ProMdlsubtype* subtype) {
    return Op<"ProMdlSubtypeGet">.Call([&] { *subtype = TheHost().session.Require(model).subtype; },
                                       ARG(model), OUT(subtype));
}

ProError ProMdlDataGet(ProMdl model, ProMdldata* data) {
    return Op<"ProMdlDataGet">.Call(
        [&] {
            const Model& found = TheHost().session.Require(model);
            *data = {};
            CopyCut(TheHost().session.workingDirectory, data->path, PRO_PATH_SIZE);
            CopyCut(found.name, data->name, PRO_NAME_SIZE);
            CopyCut(Upper(Wide(SuffixOf(found.type))), data->type, PRO_TYPE_SIZE);
            data->version = found.version;
        },
        ARG(model), OUT(data));
}

ProError ProMdlRetrieve(WideChar* name, ProMdlType type, ProMdl* model) {
    return Op<"ProMdlRetrieve">.Call(
        [&] {
            const std::string file = Utf8(Lower(WideView(name))) + '.' + SuffixOf(type);
            try {
                const Model* found = TheHost().session.Retrieve(file);
                if (!found) Refuse(PRO_TK_E_NOT_FOUND);
                *model = found->handle;
            } catch (const ModelFileError& error) {
                TheHost().Tell(error.what());
                Refuse(PRO_TK_INVALID_FILE);
            }
        },
        GIVEN(name), ARG(type), OUT(model));
}

ProError ProMdlIsModifiable(ProMdl model, ProBoolean checkAll, ProBoolean* modifiable) {
    return Op<"ProMdlIsModifiable">.Call(
        [&] { *modifiable = TheHost().session.Require(model).readOnly ? PRO_B_FALSE : PRO_B_TRUE; },
        ARG(model), ARG(checkAll), OUT(modifiable));
}

ProError ProMdlIsSkeleton(ProMdl model, ProBoolean* skeleton) {
    return Op<"ProMdlIsSkeleton">.Call(
        [&] {
            *skeleton =
                TheHost().session.Require(model).partData.skeleton ? PRO_B_TRUE : PRO_B_FALSE;
        },
        ARG(model), OUT(skeleton));
}

ProError ProMdlToModelitem(ProMdl model, ProModelitem* item) {
    return Op<"ProMdlToModelitem">.Call(
        [&] {
            const Model& found = TheHost().session.Require(model);
            *item = {ProType(found.type), -1, found.handle};
        },
        ARG(model), OUT(item));
}

ProError ProMfgAssemGet(ProMfg manufacturing, ProAssembly* assembly) {
    return Op<"ProMfgAssemGet">.Call(
        [&] {
            const Model& model = TheHost().session.Require(manufacturing);
            if (model.type != PRO_MDL_MFG) Refuse(PRO_TK_BAD_INPUTS);
            if (!model.manufacturingData.assembly) Refuse(PRO_TK_E_NOT_FOUND);
            *assembly = static_cast<ProAssembly>(model.manufacturingData.assembly->handle);
        },
        ARG(manufacturing), OUT(assembly));
}
