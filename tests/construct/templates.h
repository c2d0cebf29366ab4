// The ground of the tests of new models: templates in a folder of their own, and an assembly with a
// coordinate system that is off its origin and turned.
#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "frame/services/messages.h"
#include "hostapi/windows.h"
#include "simhost/model/frames.h"
#include "tests/support/observed.h"

namespace construct_tests {

using namespace simhost;
using Names = std::vector<std::string>;

inline const WideText kTemplates = WIDE("C:\\模板 库\\");

// A coordinate system as a template has it: (0, 0, 5) in its model, its x along the model's y.
inline const std::string kCsys =
    "\n[[feature]]\nid = 4\ntype = 979\nname = \"CS0\"\nat = [0, 0, 5]\nturn = [0, 0, 90]\n";

// Our caption, above all other windows.
inline bool IsNotice(const Box& box) {
    return box.caption == CaptionText && (box.flags & MB_TOPMOST) != 0;
}

class TemplateBench : public workbench::ObservedBench {
protected:
    void WriteTemplate(const WideText& file, const std::string& type, const std::string& rest) {
        std::filesystem::create_directories(host().disk.Real(kTemplates));
        Write(kTemplates + file, "[model]\ntype = \"" + type + "\"\n" + rest);
    }
    // All three, with the options that name them.
    void WriteTemplates() {
        WriteTemplate(WIDE("起始 零件.prt.1"), "part", kCsys);
        WriteTemplate(WIDE("start.asm.1"), "assembly", kCsys);
        WriteTemplate(WIDE("sheet.prt.1"), "part", "subtype = \"sheetmetal\"\n" + kCsys);
        Option("template_solidpart", kTemplates + WIDE("起始 零件.prt"));
        Option("template_designasm", kTemplates + WIDE("start.asm"));
        Option("template_sheetmetalpart", kTemplates + WIDE("sheet.prt"));
    }
    void Option(const std::string& name, const WideText& value) {
        host().configOptions[Wide(name)] = {value};
    }
    void NoOption(const std::string& name) { host().configOptions.erase(Wide(name)); }
    // At (100, 0, 0), turned by a quarter about x.
    static void AddCsys(Model& model, Vec3 at = {100, 0, 0}, Vec3 turn = {90, 0, 0}) {
        Feature csys;
        csys.type = PRO_FEAT_CSYS;
        csys.placement = PlacementFrom(at, turn);
        model.AddFeature(csys);
    }
    // The files of the working folder, sorted.
    Names Files() {
        Names names;
        const auto folder = host().disk.Real(WIDE("C:\\Work"));
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            const auto name = entry.path().filename().u8string();
            names.emplace_back(name.begin(), name.end());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    // The components of an assembly, by the files of their models.
    static Names Components(const Model& assembly) {
        Names names;
        for (const Feature& feature : assembly.features()) {
            if (feature.model) names.push_back(feature.model->FileName());
        }
        return names;
    }
    Model* InMemory(const std::string& file) { return host().session.FindByFile(file); }
};

}  // namespace construct_tests
