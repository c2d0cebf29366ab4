// Models at the door.
#include "hostapi/host/model.h"

#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/model/model_file.h"

using namespace simhost;

ProError ProMdlCurrentGet(ProMdl* model) {
    static Operation op("ProMdlCurrentGet");
    return op.Call(
        [&] {
            Need(model, "the place for the model");
            const Model* current = TheHost().session.CurrentModel();
            if (!current) Refuse(PRO_TK_BAD_CONTEXT);
            *model = current->handle;
            return PRO_TK_NO_ERROR;
        },
        "model", Out(model));
}

ProError ProMdlNameGet(ProMdl model, ProName name) {
    static Operation op("ProMdlNameGet");
    return op.Call(
        [&] {
            Need(name, "the place for the name");
            CopyCut(TheHost().session.Require(model).name, name, PRO_NAME_SIZE);
            return PRO_TK_NO_ERROR;
        },
        "model", model, "name", Out(name));
}

ProError ProMdlTypeGet(ProMdl model, ProMdlType* type) {
    static Operation op("ProMdlTypeGet");
    return op.Call(
        [&] {
            Need(type, "the place for the type");
            *type = TheHost().session.Require(model).type;
            return PRO_TK_NO_ERROR;
        },
        "model", model, "type", Out(type));
}

ProError ProMdlSubtypeGet(ProMdl model, ProMdlsubtype* subtype) {
    static Operation op("ProMdlSubtypeGet");
    return op.Call(
        [&] {
            Need(subtype, "the place for the subtype");
            *subtype = TheHost().session.Require(model).subtype;
            return PRO_TK_NO_ERROR;
        },
        "model", model, "subtype", Out(subtype));
}

ProError ProMdlDataGet(ProMdl model, ProMdldata* data) {
    static Operation op("ProMdlDataGet");
    return op.Call(
        [&] {
            Need(data, "the place for the data");
            const Model& found = TheHost().session.Require(model);
            *data = {};
            CopyCut(TheHost().session.workingDirectory, data->path, PRO_PATH_SIZE);
            CopyCut(found.name, data->name, PRO_NAME_SIZE);
            CopyCut(Upper(Wide(SuffixOf(found.type))), data->type, PRO_TYPE_SIZE);
            data->version = found.version;
            return PRO_TK_NO_ERROR;
        },
        "model", model);
}

ProError ProMdlRetrieve(WideChar* name, ProMdlType type, ProMdl* model) {
    static Operation op("ProMdlRetrieve");
    return op.Call(
        [&] {
            Need(name, "the name");
            Need(model, "the place for the model");
            const std::string file = Utf8(Lower(WideView(name))) + '.' + SuffixOf(type);
            try {
                const Model* found = TheHost().session.Retrieve(file);
                if (!found) Refuse(PRO_TK_E_NOT_FOUND);
                *model = found->handle;
            } catch (const ModelFileError& error) {
                TheHost().Tell(error.what());
                Refuse(PRO_TK_INVALID_FILE);
            }
            return PRO_TK_NO_ERROR;
        },
        "name", name, "type", type, "model", Out(model));
}

ProError ProMdlIsModifiable(ProMdl model, ProBoolean checkAll, ProBoolean* modifiable) {
    static Operation op("ProMdlIsModifiable");
    return op.Call(
        [&] {
            Need(modifiable, "the place for the answer");
            *modifiable = TheHost().session.Require(model).readOnly ? PRO_B_FALSE : PRO_B_TRUE;
            return PRO_TK_NO_ERROR;
        },
        "model", model, "checkAll", checkAll, "modifiable", Out(modifiable));
}

ProError ProMdlIsSkeleton(ProMdl model, ProBoolean* skeleton) {
    static Operation op("ProMdlIsSkeleton");
    return op.Call(
        [&] {
            Need(skeleton, "the place for the answer");
            *skeleton = TheHost().session.Require(model).skeleton ? PRO_B_TRUE : PRO_B_FALSE;
            return PRO_TK_NO_ERROR;
        },
        "model", model, "skeleton", Out(skeleton));
}

ProError ProMdlToModelitem(ProMdl model, ProModelitem* item) {
    static Operation op("ProMdlToModelitem");
    return op.Call(
        [&] {
            Need(item, "the place for the item");
            const Model& found = TheHost().session.Require(model);
            *item = {ProType(found.type), -1, found.handle};
            return PRO_TK_NO_ERROR;
        },
        "model", model, "item", Out(item));
}

ProError ProMfgAssemGet(ProMfg manufacturing, ProAssembly* assembly) {
    static Operation op("ProMfgAssemGet");
    return op.Call(
        [&] {
            Need(assembly, "the place for the assembly");
            const Model& model = TheHost().session.Require(manufacturing);
            if (model.type != PRO_MDL_MFG) {
                Complain(PRO_TK_BAD_INPUTS, model.FileName() + " is not a manufacturing model");
            }
            if (!model.manufactured) Refuse(PRO_TK_E_NOT_FOUND);
            *assembly = static_cast<ProAssembly>(model.manufactured->handle);
            return PRO_TK_NO_ERROR;
        },
        "manufacturing", manufacturing, "assembly", Out(assembly));
}
