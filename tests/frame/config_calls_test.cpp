// VxConfig: in which order the dialog is made, filled and saved.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "tests/support/call_order.h"
#include "tests/support/observed.h"

namespace {

using workbench::CallOrder;
using workbench::Joined;
using workbench::kModuleFolder;
using workbench::Names;
using workbench::ObservedBench;

const Names kTemplates = {"A0Asm", "A0Prt", "A1Asm", "A1Prt", "A2Asm",  "A2Prt",
                          "A3Asm", "A3Prt", "A4Asm", "A4Prt", "A4HAsm", "A4HPrt"};

class SettingsDialogCalls : public ObservedBench {
protected:
    void SetUp() override { Start(); }

    // For each name its calls, which begin with these words and end with the name.
    static Names ForEach(const Names& names, const Names& calls, const std::string& before = {},
                         const std::string& after = {}) {
        Names all;
        for (const std::string& name : names) {
            for (const std::string& call : calls) {
                all.push_back(call + ' ' + before + name + after);
            }
        }
        return all;
    }
};

TEST_F(SettingsDialogCalls, ItGetsItsActionsThenItsChoicesThenItsPaths) {
    Record();
    Play("~ Command `VxConfig`\n~ Close `VxConfig`");
    Recorded();
    const std::set<std::string> calls = {"ProUIDialogCreate",
                                         "ProUIPushbuttonActivateActionSet",
                                         "ProUIDialogCloseActionSet",
                                         "GetModuleFileNameW",
                                         "GetPrivateProfileStringW",
                                         "ProUIInputpanelValueSet",
                                         "ProUIRadiogroupSelectednamesSet",
                                         "ProUIDialogActivate",
                                         "ProUIDialogDestroy"};
    EXPECT_EQ(
        CallOrder(host().journal.lines(), calls),
        Joined(
            {{"ProUIDialogCreate", "ProUIPushbuttonActivateActionSet save"},
             ForEach(kTemplates, {"ProUIPushbuttonActivateActionSet"}, "Sel"),
             {"ProUIDialogCloseActionSet", "GetModuleFileNameW"},  // the path, once for all
             ForEach({"SetLastDir", "AsmAssembly", "PrtAssembly", "SmtAssembly", "RmbDisable",
                      "TweViewsUseAutoMainView", "CompCopyAutoNum", "VxRandomColorOpt",
                      "VxExportDwgDIr", "VxExportPdfDIr", "VxExportStpDir", "VxCountForInstance"},
                     {"GetPrivateProfileStringW", "ProUIRadiogroupSelectednamesSet"}),
             ForEach(kTemplates, {"GetPrivateProfileStringW", "ProUIInputpanelValueSet"}, "",
                     "path"),
             {"ProUIDialogActivate", "ProUIDialogDestroy"}}));
}

TEST_F(SettingsDialogCalls, EachComponentIsReadAndWrittenBeforeTheNext) {
    Record();
    Play("~ Command `VxConfig`\n~ Activate `VxConfig` `save`\n~ Close `VxConfig`");
    Recorded();
    const std::set<std::string> calls = {"ProUIRadiogroupSelectednamesGet",
                                         "ProUIInputpanelValueGet", "WritePrivateProfileStringW"};
    EXPECT_EQ(CallOrder(host().journal.lines(), calls),
              Joined({ForEach({"SetLastDir", "AsmAssembly", "PrtAssembly", "SmtAssembly",
                               "CompCopyAutoNum", "VxExportDwgDIr", "VxExportPdfDIr",
                               "VxExportStpDir", "VxRandomColorOpt", "VxCountForInstance",
                               "RmbDisable", "TweViewsUseAutoMainView"},
                              {"ProUIRadiogroupSelectednamesGet", "WritePrivateProfileStringW"}),
                      ForEach(kTemplates, {"ProUIInputpanelValueGet", "WritePrivateProfileStringW"},
                              "", "path")}));
}

TEST_F(SettingsDialogCalls, ABlankInAChoiceIsNotDeleted) {
    // Deleted, the value would be a choice that the dialog has.
    Setting("VxRandomColorOpt", "as UG");
    Play("~ Command `VxConfig`\n~ Activate `VxConfig` `save`\n~ Close `VxConfig`");
    EXPECT_NE(
        ReadSettings(kModuleFolder + WIDE("\\VXconfig\\VxConfig.ini")).find("value=Optimization"),
        std::string::npos);
}

TEST_F(SettingsDialogCalls, APickedTemplateLeavesTheOtherPanelsAsTheyAre) {
    Write(WIDE("C:\\Work\\t.drw"), "x");
    Record();
    Play(
        "~ Command `VxConfig`\n~ Activate `VxConfig` `SelA1Prt`\n@ answer t.drw\n"
        "~ Close `VxConfig`");
    Recorded();
    Names set = CallOrder(host().journal.lines(), {"ProFileOpen", "ProUIInputpanelValueSet"});
    ASSERT_EQ(set.size(), 12u + 2u);
    EXPECT_EQ(Names(set.end() - 2, set.end()),
              (Names{"ProFileOpen", "ProUIInputpanelValueSet A1Prtpath"}));
}

}  // namespace
