// Groups that the user defines, at the door.
#include "hostapi/host/group.h"

#include <fmt/format.h>

#include <filesystem>

#include "simhost/core/text.h"
#include "simhost/door/door.h"
#include "simhost/door/owned.h"
#include "simhost/model/model_file_error.h"
#include "simhost/model/model_folder.h"
#include "simhost/model/solid_features.h"
#include "simhost/model/udf.h"

using namespace simhost;

namespace fs = std::filesystem;

namespace {

Udfs& TheUdfs() {
    return TheHost().session.udfs;
}

UdfData& RequireData(ProUdfdata data) {
    return RequireOf(TheUdfs().datas, data, "data of a group");
}

// --- The group's file ---

fs::path GroupFolder() {
    const Host& host = TheHost();
    const auto option = host.configOptions.find(WIDE("pro_group_dir"));
    const bool isSet = option != host.configOptions.end() && !option->second.empty() &&
                       !option->second.front().empty();
    return host.disk.Real(isSet ? option->second.front() : host.session.workingDirectory);
}

// The newest version of the file in the folder, whatever the case of its letters; empty: none.
fs::path NewestOf(const fs::path& folder, const std::string& fileName) {
    fs::path newest;
    int version = -1;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error)) {
        const auto name = entry.path().filename().u8string();
        std::string file;
        const int number = SplitVersion(std::string(name.begin(), name.end()), &file);
        if (file != fileName || number <= version) continue;
        newest = entry.path();
        version = number;
    }
    return newest;
}

Group RequireGroup(const UdfData& data) {
    const std::string fileName = Utf8(Lower(data.name)) + ".gph";
    const fs::path path = NewestOf(GroupFolder(), fileName);
    if (path.empty()) Refuse(PRO_TK_E_NOT_FOUND);
    try {
        return ReadGroupText(ReadFile(path), fileName);
    } catch (const ModelFileError& error) {
        TheHost().Tell(error.what());
        Refuse(PRO_TK_GENERAL_ERROR);
    }
}

}  // namespace

ProError ProUdfdataAlloc(ProUdfdata* data) {
    Operation& op = Op<"ProUdfdataAlloc">;
    return op.Call([&] { *data = Give<ProUdfdata>(&TheUdfs().datas, UdfData{}, op.name()); },
                   OUT(data));
}

ProError ProUdfdataFree(ProUdfdata data) {
    return Op<"ProUdfdataFree">.Call([&] { TakeBack(&TheUdfs().datas, data, "data of a group"); },
                                     ARG(data));
}

ProError ProUdfdataNameSet(ProUdfdata data, WideChar* name, WideChar* instance) {
    return Op<"ProUdfdataNameSet">.Call(
        [&] {
            UdfData& known = RequireData(data);
            // No group here has a family table.
            if (instance && *instance) Refuse(PRO_TK_E_NOT_FOUND);
            known.name = name;
        },
        ARG(data), GIVEN(name), ARG(instance));
}

ProError ProUdfreferenceAlloc(WideChar* prompt, ProSelection selection, ProBoolean external,
                              ProUdfreference* reference) {
    Operation& op = Op<"ProUdfreferenceAlloc">;
    return op.Call(
        [&] {
            const Selections& selections = TheHost().session.selections;
            const Selection* found = selections.Find(selection);
            if (!selection) Refuse(PRO_TK_BAD_INPUTS);
            if (!found) Complain(PRO_TK_BAD_INPUTS, "not a live selection");
            *reference = Give<ProUdfreference>(&TheUdfs().references, UdfReference{prompt, *found},
                                               op.name());
        },
        GIVEN(prompt), ARG(selection), ARG(external), OUT(reference));
}

ProError ProUdfreferenceFree(ProUdfreference reference) {
    return Op<"ProUdfreferenceFree">.Call(
        [&] { TakeBack(&TheUdfs().references, reference, "a reference of a group"); },
        ARG(reference));
}

ProError ProUdfdataReferenceAdd(ProUdfdata data, ProUdfreference reference) {
    return Op<"ProUdfdataReferenceAdd">.Call(
        [&] {
            UdfData& known = RequireData(data);
            known.references.push_back(
                TakeBack(&TheUdfs().references, reference, "a reference of a group"));
        },
        ARG(data), ARG(reference));
}

ProError ProUdfvardimAlloc(WideChar* name, double value, ProUdfVardimType type,
                           ProUdfvardim* dimension) {
    Operation& op = Op<"ProUdfvardimAlloc">;
    return op.Call(
        [&] {
            if (type != PROUDFVARTYPE_DIM) Refuse(PRO_TK_BAD_INPUTS);
            *dimension =
                Give<ProUdfvardim>(&TheUdfs().dimensions, UdfDimension{name, value}, op.name());
        },
        GIVEN(name), ARG(value), ARG(type), OUT(dimension));
}

ProError ProUdfvardimFree(ProUdfvardim dimension) {
    return Op<"ProUdfvardimFree">.Call(
        [&] { TakeBack(&TheUdfs().dimensions, dimension, "a dimension of a group"); },
        ARG(dimension));
}

ProError ProUdfdataUdfvardimAdd(ProUdfdata data, ProUdfvardim dimension) {
    return Op<"ProUdfdataUdfvardimAdd">.Call(
        [&] {
            UdfData& known = RequireData(data);
            known.dimensions.push_back(
                TakeBack(&TheUdfs().dimensions, dimension, "a dimension of a group"));
        },
        ARG(data), ARG(dimension));
}

ProError ProUdfCreate(ProSolid solid, ProUdfdata data, ProUdfCreateOption* options, int count,
                      ProGroup* group) {
    return Op<"ProUdfCreate">.Call(
        [&] {
            Model& part = TheHost().session.RequireSolid(solid);
            const UdfData& known = RequireData(data);
            if (options || count != 0) Refuse(PRO_TK_NOT_IMPLEMENTED);
            if (part.type != PRO_MDL_PART) Refuse(PRO_TK_BAD_INPUTS);
            if (part.readOnly) Refuse(PRO_TK_NO_PERMISSION);
            Group placed = RequireGroup(known);
            const std::string problem = FillGroup(known, part, &placed);
            if (!problem.empty()) {
                TheHost().Tell(fmt::format("the group {} is not placed: {}", placed.name, problem));
                Refuse(PRO_TK_BAD_INPUTS);
            }
            try {
                *group = {PRO_FEATURE, PlaceGroup(part, std::move(placed)).id, part.handle};
            } catch (const ModelFileError& error) {
                TheHost().Tell(error.what());
                Refuse(PRO_TK_GENERAL_ERROR);
            }
        },
        ARG(solid), ARG(data), ARG(options), ARG(count), OUT(group));
}
