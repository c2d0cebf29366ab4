// Models at the door.
#include "hostapi/host/model.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>

#include "simhost/core/text.h"
#include "simhost/door/door.h"
#include "simhost/door/name_record.h"
#include "simhost/model/model_file.h"
#include "simhost/model/model_folder.h"

using namespace simhost;

namespace {

// The drive of a Windows path, and the rest of it with a separator at its end.
void PutFolder(WideView folder, ProMdldata* data) {
    const std::size_t colon = folder.find(WideChar{':'});
    const bool hasDrive = colon != WideView::npos;
    if (hasDrive) CopyCut(folder.substr(0, colon), data->device, PRO_NAME_SIZE);
    WideText path(folder.substr(hasDrive ? colon + 1 : 0));
    if (path.empty() || path.back() != WideChar{'\\'}) path += WideChar{'\\'};
    CopyCut(path, data->path, PRO_PATH_SIZE);
}

// What a record holds up to its terminator or its end.
template <std::size_t Size>
WideText TextIn(const WideChar (&record)[Size]) {
    return WideText(record, std::find(record, record + Size, WideChar{}));
}

// The folder that a record names: a path without a drive lies on the record's device.
WideText FolderIn(const ProMdldata& data) {
    WideText folder = TextIn(data.path);
    if (folder.empty()) Refuse(PRO_TK_BAD_INPUTS);
    const bool isWhole =
        folder.find(WideChar{':'}) != WideText::npos || folder.starts_with(WIDE("\\\\"));
    if (!isWhole) folder = TextIn(data.device) + WIDE(":") + folder;
    while (folder.size() > 3 && (folder.back() == '\\' || folder.back() == '/')) folder.pop_back();
    std::error_code error;
    const auto real = TheHost().disk.Real(folder);
    if (real.empty() || !std::filesystem::is_directory(real, error)) Refuse(PRO_TK_INVALID_DIR);
    return folder;
}

// Runs what may fail at a file: that is told to the user, and is this status for the plug-in.
template <class Work>
void OnDisk(ProError status, Work&& work) {
    try {
        work();
    } catch (const ModelFileError& error) {
        TheHost().Tell(error.what());
        Refuse(status);
    }
}

}  // namespace

ProError ProMdlCurrentGet(ProMdl* model) {
    return Op<"ProMdlCurrentGet">.Call(
        [&] {
            const Model* current = TheHost().session.CurrentModel();
            if (!current) Refuse(PRO_TK_BAD_CONTEXT);
            *model = current->handle;
        },
        OUT(model));
}

ProError ProMdlActiveGet(ProMdl* model) {
    return Op<"ProMdlActiveGet">.Call(
        [&] {
            const Model* active = TheHost().session.ActiveModel();
            if (!active) Refuse(PRO_TK_BAD_CONTEXT);
            *model = active->handle;
        },
        OUT(model));
}

ProError ProMdlNameGet(ProMdl model, ProName name) {
    return Op<"ProMdlNameGet">.Call([&] { PutName(TheHost().session.Require(model).name, name); },
                                    ARG(model), OUT_NAME(name));
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
            const WideText& working = TheHost().session.workingDirectory;
            PutFolder(found.folder.empty() ? working : found.folder, data);
            PutName(found.name, data->name);
            CopyCut(Upper(Wide(SuffixOf(found.type))), data->type, PRO_TYPE_SIZE);
            data->version = found.version;
        },
        ARG(model), OUT(data));
}

ProError ProMdlRetrieve(WideChar* name, ProMdlType type, ProMdl* model) {
    return Op<"ProMdlRetrieve">.Call(
        [&] {
            const std::string file = Utf8(Lower(WideView(name))) + '.' + SuffixOf(type);
            OnDisk(PRO_TK_INVALID_FILE, [&] {
                const Model* found = TheHost().session.Retrieve(file);
                if (!found) Refuse(PRO_TK_E_NOT_FOUND);
                *model = found->handle;
            });
        },
        GIVEN(name), ARG(type), OUT(model));
}

ProError ProMdlLoad(ProPath path, ProMdlType type, ProBoolean askUser, ProMdl* model) {
    return Op<"ProMdlLoad">.Call(
        [&] {
            std::string file;
            SplitVersion(Utf8(path), &file);
            const std::size_t dot = file.rfind('.');
            const bool typed =
                dot != std::string::npos && TypeOfSuffix(file.substr(dot + 1)) == type;
            if (!typed) Refuse(PRO_TK_INVALID_TYPE);
            OnDisk(PRO_TK_INVALID_FILE, [&] {
                const Model* found = TheHost().session.RetrievePath(path);
                if (!found) Refuse(PRO_TK_E_NOT_FOUND);
                *model = found->handle;
            });
        },
        GIVEN(path), ARG(type), ARG(askUser), OUT(model));
}

ProError ProMdlCopy(ProMdl model, WideChar* name, ProMdl* copy) {
    return Op<"ProMdlCopy">.Call(
        [&] {
            Session& session = TheHost().session;
            const Model& source = session.Require(model);
            OnDisk(PRO_TK_GENERAL_ERROR, [&] { *copy = session.Copy(source, name).handle; });
        },
        ARG(model), GIVEN(name), OUT(copy));
}

ProError ProMdlRename(ProMdl model, WideChar* name) {
    return Op<"ProMdlRename">.Call(
        [&] {
            Session& session = TheHost().session;
            Model& found = session.Require(model);
            OnDisk(PRO_TK_CANT_WRITE, [&] { session.Rename(found, name); });
        },
        ARG(model), GIVEN(name));
}

ProError ProMdlErase(ProMdl model) {
    // Afterwards nobody knows it any more.
    const std::string name = Operation::journalling ? Describe(model) : "";
    return Op<"ProMdlErase">.Call(
        [&] {
            Session& session = TheHost().session;
            Model& found = session.Require(model);
            if (session.IsInUse(found)) Refuse(PRO_TK_E_FOUND);
            session.Erase(found);
        },
        "model", name.c_str());
}

ProError ProMdlEraseNotDisplayed() {
    return Op<"ProMdlEraseNotDisplayed">.Call([&] {
        Session& session = TheHost().session;
        if (session.All().empty()) Refuse(PRO_TK_E_NOT_FOUND);
        const Session::Erased erased = session.EraseNotDisplayed();
        std::string line =
            fmt::format("{} models that are not displayed were erased", erased.models);
        if (!erased.unsaved.empty()) {
            line += fmt::format("; changed and never saved: {}", fmt::join(erased.unsaved, ", "));
        }
        TheHost().Tell(line);
    });
}

ProError ProMdlSave(ProMdl model) {
    return Op<"ProMdlSave">.Call(
        [&] {
            Session& session = TheHost().session;
            Model& found = session.Require(model);
            OnDisk(PRO_TK_CANT_WRITE, [&] { session.Save(found); });
        },
        ARG(model));
}

ProError ProMdlBackup(ProMdl model, ProMdldata* data) {
    return Op<"ProMdlBackup">.Call(
        [&] {
            Session& session = TheHost().session;
            Model& found = session.Require(model);
            const WideText folder = FolderIn(*data);
            OnDisk(PRO_TK_CANT_WRITE, [&] { session.Backup(found, folder); });
        },
        ARG(model), GIVEN(data));
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
