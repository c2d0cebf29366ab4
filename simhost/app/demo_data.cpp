// The part of the demonstration that writes data into models: what a designer would do in the
// dialogs of relations and parameters, and what the models hold before and after.
#include "simhost/app/demo_data.h"

#include <fmt/format.h>

#include <map>
#include <vector>

#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/trail/interpreter.h"
#include "simhost/ui/text_frame.h"

namespace simhost {

namespace {

using Print = std::function<void(const std::string&)>;

struct DemoStep {
    const char* title;
    const char* script;
};
constexpr DemoStep kSteps[] = {
    {"A relation for all parts but screws, nuts and washers",
     "~ Command `VxRelations`\n"
     "~ Input `Relations` `RelTxtarea` `密度 = 7.85E-06`\n"
     "~ Select `Relations` `TypeRadio` 1 `Part`\n"
     "~ Input `Relations` `InputKeyWords` `bolt,nut，washer`\n"
     "~ Activate `Relations` `AddRelsAndNoRepeat`\n"
     "@ expect box 批量关系追加操作已完成\n"
     "@ ok\n"
     "~ Activate `Relations` `Close`\n"},
    {"A parameter for all models, changed in the assemblies",
     "~ Command `VxParams`\n"
     "~ Input `VxParams` `ParaName` `项目号`\n"
     "~ Input `VxParams` `ParaValue` `P-100`\n"
     "~ Activate `VxParams` `Add`\n"
     "~ Select `VxParams` `TypeRadio` 1 `Asm`\n"
     "~ Input `VxParams` `ParaValue` `P-101`\n"
     "~ Activate `VxParams` `Update`\n"
     "~ Activate `VxParams` `Close`\n"},
    {"Outline and sheet sizes",
     "~ Command `VxParams`\n"
     "~ Activate `VxParams` `VxOutline`\n"
     "@ expect box 外形尺寸参数批量创建/更新完成\n"
     "@ ok\n"
     "~ Activate `VxParams` `VxSheetSize`\n"
     "@ expect box 图幅大小参数批量创建/更新完成\n"
     "@ ok\n"
     "~ Activate `VxParams` `Close`\n"},
    {"The number of each model; a relation holds that of the washers",
     "~ Command `VxMdlCount`\n"
     "@ expect box WASHER_12\n"
     "@ ok\n"
     "@ expect box 批量数量参数创建/更新完毕\n"
     "@ ok\n"},
};

constexpr const char* kColumns[] = {"项目号", "外形尺寸", "图幅", "数量"};
constexpr std::size_t kWidths[] = {8, 18, 8, 6};

std::string Row(const Model& model) {
    const auto& relations = model.relations.initial;
    std::string row = Padded(fmt::format("{}", relations ? relations->size() : 0), 6);
    for (std::size_t i = 0; i < std::size(kColumns); ++i) {
        const Parameter* found = ShownParameter(model, Wide(kColumns[i]));
        row += Padded(found ? ValueText(*found) : "-", kWidths[i]);
    }
    return row;
}

// The models of the assembly by their file names.
std::map<std::string, std::string> Rows() {
    std::map<std::string, std::string> rows;
    for (const Model* model : TheHost().session.All()) {
        if (model->type != PRO_MDL_PART && model->type != PRO_MDL_ASSEMBLY) continue;
        rows[model->FileName()] = Row(*model);
    }
    return rows;
}

void PrintTable(const Print& print, const std::map<std::string, std::string>& before) {
    std::string head = Padded("rel.", 6);
    for (std::size_t i = 0; i < std::size(kColumns); ++i) {
        head += Padded(kColumns[i], kWidths[i]);
    }
    print("\n== Each model's relations and parameters before and after");
    print(Padded("model", 28) + head + "| " + head);
    for (const auto& [file, after] : Rows()) {
        const auto found = before.find(file);
        print(Padded(file, 28) + (found == before.end() ? "" : found->second) + "| " + after);
    }
}

}  // namespace

bool RunDataDemo(const Print& print) {
    const auto before = Rows();
    bool ok = true;
    for (const DemoStep& step : kSteps) {
        print(std::string("\n== ") + step.title);
        ok = RunScript(step.script, print).empty() && ok;
    }
    PrintTable(print, before);
    return ok;
}

}  // namespace simhost
