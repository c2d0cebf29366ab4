// VxConfig: the dialog, what it writes and what it leaves.
#include <gtest/gtest.h>

#include <filesystem>

#include "hostapi/windows.h"
#include "simhost/trail/interpreter.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::kModuleFolder;
using workbench::Workbench;

class SettingsDialog : public Workbench {
protected:
    void SetUp() override { Start(); }

    void Run(const std::string& steps) {
        Play("~ Command `VxConfig`\n" + steps + "\n~ Close `VxConfig`");
    }
    std::string Ini() { return ReadSettings(kModuleFolder + WIDE("\\VXconfig\\VxConfig.ini")); }
    void WriteIni(const std::string& text) {
        Write(kModuleFolder + WIDE("\\VXconfig\\VxConfig.ini"), ToSystemCodePage(Wide(text)));
    }
    std::string ValueOf(const std::string& section, const std::string& key = "value") {
        WideChar buffer[255];
        const WideText path = kModuleFolder + WIDE("\\VXconfig\\VxConfig.ini");
        GetPrivateProfileStringW(Wide(section).c_str(), Wide(key).c_str(), WIDE("(missing)"),
                                 buffer, 255, path.c_str());
        return Utf8(buffer);
    }
    std::string Picture() {
        std::string picture;
        RunScript("~ Command `VxConfig`\n@ show dialog\n~ Close `VxConfig`",
                  [&](const std::string& line) { picture += line + '\n'; });
        return picture;
    }
    void Expect(const std::string& text, const std::string& piece) {
        EXPECT_NE(text.find(piece), std::string::npos) << piece << '\n' << text;
    }

    static constexpr const char* kSave = "~ Activate `VxConfig` `save`\n";
};

TEST_F(SettingsDialog, ShowsTheValuesOfTheFile) {
    WriteIni(
        "[SetLastDir]\r\nvalue=1\r\n[CompCopyAutoNum]\r\nvalue=byUser\r\n"
        "[A4HPrtpath]\r\npath=C:\\my templates\\a4.drw\r\n");
    const std::string picture = Picture();
    Expect(picture, "SetLastDir = 1 (of 1, 0)");
    Expect(picture, "CompCopyAutoNum = byUser");
    Expect(picture, "A4HPrtpath = \"C:\\my templates\\a4.drw\"");
    Expect(picture, "A0Asmpath = \"\"");
}

TEST_F(SettingsDialog, SavingWritesEverySectionOnceAndStaysOpen) {
    WriteIni("");
    Run("~ Select `VxConfig` `SetLastDir` 1 `1`\n"
        "~ Select `VxConfig` `VxExportStpDir` 1 `byUser`\n"
        "~ Input `VxConfig` `A3Prtpath` `D:\\tp\\a3 part.drw`\n" +
        std::string(kSave) + "@ expect dialog VxConfig\n@ expect no box");
    EXPECT_EQ(ValueOf("SetLastDir"), "1");
    EXPECT_EQ(ValueOf("VxExportStpDir"), "byUser");
    EXPECT_EQ(ValueOf("A3Prtpath", "path"), "D:\\tp\\a3 part.drw");
    EXPECT_EQ(ValueOf("A0Asmpath", "path"), "");
    // The order of saving is not that of showing.
    const std::string ini = Ini();
    std::size_t last = 0;
    for (const char* name :
         {"SetLastDir",       "AsmAssembly",        "PrtAssembly",    "SmtAssembly",
          "CompCopyAutoNum",  "VxExportDwgDIr",     "VxExportPdfDIr", "VxExportStpDir",
          "VxRandomColorOpt", "VxCountForInstance", "RmbDisable",     "TweViewsUseAutoMainView",
          "A0Asmpath",        "A0Prtpath",          "A1Asmpath",      "A1Prtpath",
          "A2Asmpath",        "A2Prtpath",          "A3Asmpath",      "A3Prtpath",
          "A4Asmpath",        "A4Prtpath",          "A4HAsmpath",     "A4HPrtpath"}) {
        const std::size_t at = ini.find("[" + std::string(name) + "]");
        ASSERT_NE(at, std::string::npos) << name;
        EXPECT_GE(at, last) << name;
        last = at;
    }
}

TEST_F(SettingsDialog, ClosingWithoutSavingChangesNothing) {
    Write(WIDE("C:\\Work\\a.drw"), "x");
    const std::string before = Ini();
    Run("~ Select `VxConfig` `SetLastDir` 1 `1`\n"
        "~ Activate `VxConfig` `SelA0Asm`\n@ answer C:\\Work\\a.drw");
    EXPECT_EQ(Ini(), before);
}

TEST_F(SettingsDialog, APickedTemplateShowsInItsPanelAndIsSaved) {
    std::filesystem::create_directories(host().disk.Real(WIDE("C:\\My Formats")));
    Write(WIDE("C:\\My Formats\\a2 part.drw"), "x");
    Play("@ option pro_format_dir C:\\My Formats");
    host().journal.Start();
    Run("~ Activate `VxConfig` `SelA2Prt`\n@ answer a2 part.drw\n" + std::string(kSave));
    EXPECT_EQ(ValueOf("A2Prtpath", "path"), "C:\\My Formats\\a2 part.drw");
    std::string call;
    for (const std::string& line : host().journal.lines()) {
        if (line.find("ProFileOpen(") != std::string::npos) call = line;
    }
    Expect(call, "title=\"请选择A2零件模板\"");
    Expect(call, "filter=\"*.drw\"");
    Expect(call, "folder=\"C:\\My Formats\"");
}

TEST_F(SettingsDialog, EachPickButtonHasItsTitleAndItsPanel) {
    Write(WIDE("C:\\Work\\t.drw"), "x");
    struct Row {
        const char* size;
        const char* words;
    };
    for (const Row& row : {Row{"A0", "A0"}, Row{"A1", "A1"}, Row{"A2", "A2"}, Row{"A3", "A3"},
                           Row{"A4", "A4"}, Row{"A4H", "A4横向"}}) {
        for (const char* kind : {"Asm", "Prt"}) {
            const std::string name = std::string(row.size) + kind;
            Run("~ Activate `VxConfig` `Sel" + name + "`\n@ answer t.drw\n" + kSave);
            EXPECT_EQ(ValueOf(name + "path", "path"), "C:\\Work\\t.drw");
            const std::string title = "请选择" + std::string(row.words) +
                                      (std::string(kind) == "Asm" ? "组件" : "零件") + "模板";
            bool asked = false;
            for (const Shown& shown : host().shown) asked |= Utf8(shown.text) == title;
            EXPECT_TRUE(asked) << title;
        }
    }
}

TEST_F(SettingsDialog, LeavingTheFileDialogKeepsThePath) {
    WriteIni("[A0Asmpath]\r\npath=C:\\old.drw\r\n");
    Run("~ Activate `VxConfig` `SelA0Asm`\n@ quit\n" + std::string(kSave));
    EXPECT_EQ(ValueOf("A0Asmpath", "path"), "C:\\old.drw");
}

TEST_F(SettingsDialog, WithoutAFileEveryGroupHasTheChoiceOfTheDialog) {
    std::filesystem::remove(host().disk.Real(kModuleFolder + WIDE("\\VXconfig\\VxConfig.ini")));
    const std::string picture = Picture();
    EXPECT_EQ(picture.find("nothing selected"), std::string::npos) << picture;
    Expect(picture, "VxRandomColorOpt = Optimization");
}

TEST_F(SettingsDialog, AnUnknownValueLeavesTheChoiceOfTheDialog) {
    WriteIni("[VxRandomColorOpt]\r\nvalue=rainbow\r\n");
    Expect(Picture(), "VxRandomColorOpt = Optimization");
}

TEST_F(SettingsDialog, AGroupThatCannotBeReadLeavesItsSectionAndTheOthersAreSaved) {
    WriteIni("[SetLastDir]\r\nvalue=odd\r\n");
    Fail("ProUIRadiogroupSelectednamesGet");
    Run(kSave);
    EXPECT_EQ(ValueOf("SetLastDir"), "odd");
    EXPECT_EQ(ValueOf("AsmAssembly"), "1");
}

TEST_F(SettingsDialog, APanelThatCannotBeReadLeavesItsPath) {
    WriteIni("[A0Asmpath]\r\npath=C:\\old.drw\r\n");
    Fail("ProUIInputpanelValueGet");
    Run("~ Input `VxConfig` `A0Asmpath` `C:\\new.drw`\n" + std::string(kSave));
    EXPECT_EQ(ValueOf("A0Asmpath", "path"), "C:\\old.drw");
    EXPECT_EQ(ValueOf("A0Prtpath", "path"), "");
}

TEST_F(SettingsDialog, TheResourceOffersEveryValueThatTheCommandsKnow) {
    const std::string picture = Picture();
    for (const char* group : {"SetLastDir = 0 (of 1, 0)", "AsmAssembly = 1 (of 1, 0)",
                              "PrtAssembly = 1 (of 1, 0)", "SmtAssembly = 1 (of 1, 0)",
                              "RmbDisable = 0 (of 0, 1)", "TweViewsUseAutoMainView = 1 (of 1, 0)",
                              "CompCopyAutoNum = byAsm (of byComp, byAsm, byUser)",
                              "VxRandomColorOpt = Optimization (of asUG, Optimization, random)",
                              "VxExportDwgDIr = deskTop (of deskTop, byUser, none)",
                              "VxExportPdfDIr = deskTop (of deskTop, byUser, none)",
                              "VxExportStpDir = deskTop (of deskTop, byUser)",
                              "VxCountForInstance = true (of true, false)"}) {
        Expect(picture, group);
    }
}

TEST_F(SettingsDialog, TheComponentsAreFilledInTheOrderOfTheirTable) {
    host().journal.Start();
    Run("");
    std::vector<std::string> groups;
    for (const std::string& line : host().journal.lines()) {
        if (line.find("ProUIRadiogroupSelectednamesSet(") == std::string::npos) continue;
        const std::size_t at = line.find("component=\"") + 11;
        groups.push_back(line.substr(at, line.find('"', at) - at));
    }
    EXPECT_EQ(groups,
              (std::vector<std::string>{"SetLastDir", "AsmAssembly", "PrtAssembly", "SmtAssembly",
                                        "RmbDisable", "TweViewsUseAutoMainView", "CompCopyAutoNum",
                                        "VxRandomColorOpt", "VxExportDwgDIr", "VxExportPdfDIr",
                                        "VxExportStpDir", "VxCountForInstance"}));
}

}  // namespace
