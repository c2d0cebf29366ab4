// What the page is told that the user can do: menus, windows, the selection, and whatever waits for
// an answer.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "simhost/host.h"
#include "simhost/model/session.h"
#include "simhost/ui/dialogs.h"
#include "tests/support/models.h"
#include "tests/web/web_ground.h"

namespace {

namespace fs = std::filesystem;
using namespace simhost;
using web_tests::Json;

class WebState : public web_tests::WebBench {
protected:
    Json Now(const std::string& key) { return Get("/state")[key]; }
    // What waits, without what is not asked for.
    void ExpectWait(const char* expected) {
        const Json wait = Now("wait"), wanted = Json::parse(expected);
        ASSERT_TRUE(wait.is_object()) << wait;
        for (const auto& [key, value] : wanted.items()) {
            EXPECT_EQ(wait.value(key, Json("missing")), value) << key;
        }
    }
    // The menu of this name.
    Json Menu(const std::string& name) {
        const Json menus = Now("menus");
        for (const Json& menu : menus) {
            if (menu["name"] == name) return menu;
        }
        ADD_FAILURE() << "no menu " << name;
        return {};
    }
    // The button of a command in any menu of the bar.
    Json Button(const std::string& command) {
        const Json menus = Now("menus");
        for (const Json& menu : menus) {
            for (const Json& button : menu["buttons"]) {
                if (menu["onBar"] == true && button["command"] == command) return button;
            }
        }
        ADD_FAILURE() << "no button for " << command;
        return {};
    }
};

TEST_F(WebState, OfANewSessionIsThatNothingIsOpen) {
    Start();
    const Json state = Get("/state");
    const Json expected = Json::parse(R"({"waitingFor": "vx", "wait": null, "message": "",
        "popup": null, "current": null, "windows": [], "selection": [], "unsaved": [],
        "folder": "C:\\Work", "complaints": 0})");
    for (const auto& [key, value] : expected.items()) {
        EXPECT_EQ(state.value(key, Json("missing")), value) << key;
    }
    // Each once, without its version, in order; what is no model is not among them.
    const auto openable = state["openable"].get<std::vector<std::string>>();
    ASSERT_GT(openable.size(), 40u);
    EXPECT_EQ(openable[0], "base_plate.asm");
    EXPECT_EQ(openable[1], "bearing_unit_45.asm");
    EXPECT_EQ(std::count(openable.begin(), openable.end(), "gear_z60.drw"), 1);
    EXPECT_EQ(std::count(openable.begin(), openable.end(), "config.pro"), 0);
}

// --- Menus --------------------------------------------------------------------------------------

TEST_F(WebState, HasTheTextsOfTheMenusInBothLanguages) {
    Start();
    EXPECT_EQ(Button("AboutVx"), Json::parse(R"({"name": "AboutVx", "command": "AboutVx",
        "label": "关于岚枢", "help": "显示岚枢工具的介绍和使用条款。", "english": "About Vorlatix",
        "englishHelp": "Show what Vorlatix is and the terms of use.",
        "icon": "AboutVorlatix.png", "state": "available"})"));
    const Json menus = Now("menus");
    ASSERT_EQ(menus.size(), 1u) << "those of the host have nothing to press";
    EXPECT_EQ(menus[0]["name"], "Menu");
    EXPECT_EQ(menus[0]["title"], "岚枢工具");
    EXPECT_EQ(menus[0]["onBar"], true);
    EXPECT_GT(menus[0]["buttons"].size(), 50u);
}

TEST_F(WebState, AsksTheRulesOfCommandsUnlessSomethingWaits) {
    Start();
    EXPECT_EQ(Button("VxBackup")["state"], "absent") << "nothing is open";
    Play("@ open gearbox.asm");
    EXPECT_EQ(Button("VxBackup")["state"], "available");
    Play("~ Command `AboutVx`");
    EXPECT_EQ(Button("VxBackup")["state"], "greyed");
    EXPECT_EQ(Button("AboutVx")["state"], "greyed");
}

// --- Models -------------------------------------------------------------------------------------

TEST_F(WebState, HasTheWindowsAndWhatIsNotSaved) {
    OpenModels("top: plate");
    Do([] {
        workbench::ModelNamed("top.asm").title = "总装";
        workbench::ModelNamed("plate").modified = true;
        TheHost().session.Open(workbench::ModelNamed("plate"));
        for (Model* model : TheHost().session.All()) {
            model->modified = model->FileName() == "plate.prt";
        }
    });
    const Json state = Get("/state");
    EXPECT_EQ(state["current"],
              Json::parse(R"({"file": "plate.prt", "title": "", "changed": true})"));
    EXPECT_EQ(state["windows"], Json::parse(R"([
        {"file": "top.asm", "title": "总装", "changed": false, "current": false},
        {"file": "plate.prt", "title": "", "changed": true, "current": true}])"));
    EXPECT_EQ(state["unsaved"], Json::array({"plate.prt"}));
    Do([] { TheHost().session.Open(workbench::ModelNamed("top.asm")); });
    EXPECT_EQ(Now("current")["title"], "总装");
}

TEST_F(WebState, HasThePopupAsLongAsItIsOpen) {
    OpenModels("top: plate");
    Play("@ select plate\n@ right-click\n@ quit\n@ right-click");
    EXPECT_EQ(Now("waitingFor"), "popup");
    bool found = false;
    const Json popup = Now("popup");
    for (const Json& entry : popup) {
        if (entry["label"] != "快速重命名(vx)") continue;
        found = true;
        EXPECT_EQ(entry["state"], "available");
        EXPECT_TRUE(entry["help"].is_string());
    }
    EXPECT_TRUE(found) << popup;
    Play("@ quit");
    EXPECT_EQ(Now("popup"), nullptr);
    // With the first popup the plug-in made its buttons in the host's menu for them.
    EXPECT_EQ(Menu("ActionMenu")["onBar"], false);
    EXPECT_EQ(Menu("ActionMenu")["title"], "操作");
}

// --- What waits ---------------------------------------------------------------------------------

TEST_F(WebState, ABoxWaitsWithItsTextAndItsCaption) {
    Start();
    Play("@ open gearbox.asm\n~ Command `VxRelations`");
    ExpectWait(R"({"kind": "dialog", "name": "Relations", "title": "批量关系"})");
    EXPECT_EQ(Now("waitingFor"), "dialog Relations");
    Play("~ Activate `Relations` `AddRels`");
    ExpectWait(R"({"kind": "box"})");
    EXPECT_EQ(Now("waitingFor"), "box");
    const Json box = Now("wait");
    EXPECT_EQ(box["text"].get<std::string>().find("\t批量关系创建操作已完成|"), 0u) << box;
    EXPECT_EQ(box["caption"], "岚枢工具By墨川听雨,QQ:100200300");
}

TEST_F(WebState, APromptWaitsWithItsText) {
    OpenModels("top: plate");
    Play("@ select plate\n~ Command `VxMdlRename`");
    EXPECT_EQ(Now("waitingFor"), "answer");
    ExpectWait(
        R"({"kind": "prompt", "text": "请输入新名称：", "byDefault": "PLATE", "file": null})");
    EXPECT_EQ(Now("message"), "请输入新名称：");
}

TEST_F(WebState, AFileDialogWaitsWithTheFilesThatFit) {
    Start();
    Play(
        "@ open gearbox.asm\n@ option pro_format_dir C:\\Work\n~ Command `VxConfig`\n"
        "~ Activate `VxConfig` `SelA3Asm`");
    ExpectWait(R"({"kind": "prompt", "byDefault": ""})");
    const Json file = Now("wait")["file"];
    EXPECT_EQ(file["filter"], "*.drw");
    EXPECT_EQ(file["folder"], "C:\\Work");
    EXPECT_EQ(file["title"], "请选择A3组件模板");
    EXPECT_EQ(file["proposed"], "");
    EXPECT_EQ(file["toWrite"], false);
    EXPECT_EQ(file["mayBeMissing"], false);
    EXPECT_EQ(file["forFolder"], false);
    EXPECT_EQ(file["files"], Json({"gear_z60.drw", "gearbox.drw", "housing.drw", "output_shaft.drw",
                                   "输入轴.drw"}));
}

TEST_F(WebState, AFolderDialogWaitsWithTheFolders) {
    OpenModels("top: plate");
    Play("~ Command `VxBackup`");
    ExpectWait(R"({"kind": "prompt"})");
    const Json file = Now("wait")["file"];
    EXPECT_EQ(file["title"], "请选择模型备份目录");
    EXPECT_EQ(file["forFolder"], true);
    EXPECT_EQ(file["toWrite"], false);
    EXPECT_EQ(file["filter"], "");
}

TEST_F(WebState, APickWaitsWithItsQuestionThenAClick) {
    Start();
    const fs::path work = fs::path(Get("/files")["drive"].get<std::string>()) / "Work";
    std::ofstream(work / "disc.prt.1") << R"([model]
type = "part"
[[solid]]
id = 10
shape = "box"
size = [40, 20, 10]
)";
    std::ofstream(work / "sheet.drw.1") << R"([model]
type = "drawing"
[sheets]
sizes = ["A3"]
[[view]]
id = 1
model = "disc.prt"
sheet = 1
at = [100, 100]
pivot = [20, 10, 0]
scale = 1
)";
    Play("@ open sheet.drw\n~ Command `VxSingleDim`");
    ExpectWait(R"({"kind": "pick", "question": "edge_end,point,dtl_axis,datum,csys,edge,curve,)"
               R"(sldedge,qltedge,silhedge, at most 1", "takes": [], "most": 1,
                   "byBox": false})");
    EXPECT_EQ(Now("waitingFor"), "pick");
    Play("@ pick at 90 90\n@ pick nothing");
    ExpectWait(R"({"kind": "click"})");
    EXPECT_EQ(Now("waitingFor"), "click");
}

TEST_F(WebState, APickTellsThatAnAssemblyMayBeClickedToo) {
    OpenModels("top: plate");
    Play("~ Command `VxMdlRename`");
    ExpectWait(R"({"kind": "pick", "takes": ["part", "assembly"], "most": 1})");
}

TEST_F(WebState, AQuestionOfTheHostWaits) {
    Start();
    Play(
        "@ open gearbox.asm\n~ Select `main_dlg_cur` `ProCmdViewGallery.view`\n"
        "~ Select `main_dlg_cur` "
        "`ProCmdViewGallery_layoutph.palette_holder.clearAppearance`\n"
        "~ Activate `main_dlg_cur` `clearAllAppearance`");
    ExpectWait(R"({"kind": "question", "name": "UI Message Dialog"})");
}

}  // namespace
