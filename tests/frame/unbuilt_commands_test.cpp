// The commands that are in the menu but not built yet, as the command table has them. Each says so
// in a notice when it is pressed, and no other command does.
#include <algorithm>
#include <set>

#include "frame/command_table.h"
#include "simhost/host.h"
#include "simhost/trail/robot.h"
#include "tests/frame/expected_rows.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::Workbench;

// As the table says; the popups' own command is the last.
std::set<std::string> NotBuiltByTheTable() {
    std::set<std::string> names;
    for (const CommandRow& row : kCommandTable) {
        if (!row.built) names.insert(row.name);
    }
    if (!kOpenDrawingRow.built) names.insert(kOpenDrawingRow.name);
    return names;
}

class UnbuiltCommands : public Workbench {
protected:
    void SetUp() override {
        TextFolderSetting("RmbDisable", "0");
        Start();
        Model& unit = Assembly("UNIT");
        Use(unit, Part("PLATE"));
        windows_ = {&unit, host().session.FindByFile("plate.prt"),
                    &host().session.Create(WIDE("SHEET"), PRO_MDL_DRAWING)};
        host().user = &robot_;
    }
    void TearDown() override {
        host().user = nullptr;
        Workbench::TearDown();
    }

    static std::string NoticeOf(const std::string& command) {
        return "\t命令 " + command + " 尚未完成，敬请期待\t";
    }
    // Whether the boxes of a press are this command's notice and nothing else.
    bool SaysThatItIsNotBuilt(const std::string& command) {
        const std::vector<Box> boxes = AllBoxes();
        return boxes.size() == 1 && Utf8(boxes[0].text) == NoticeOf(command) &&
               Utf8(boxes[0].caption) == "岚枢工具By墨川听雨,QQ:100200300" &&
               boxes[0].flags == 0x40000;
    }
    // Goes to the first window in which the command can be pressed.
    bool OpenAWindowFor(const std::string& command) {
        return std::any_of(windows_.begin(), windows_.end(), [&](Model* model) {
            Open(*model);
            return host().commands.Access(command) == ACCESS_AVAILABLE;
        });
    }

    const std::set<std::string> notBuilt_ = NotBuiltByTheTable();
    std::vector<Model*> windows_;
    RobotUser robot_;
};

TEST_F(UnbuiltCommands, AreThoseOfTheTableAndNoOthers) {
    std::set<std::string> unbuilt;
    for (const expected::Row& row : expected::Rows()) {
        ASSERT_TRUE(OpenAWindowFor(row.name)) << row.name;
        host().shown.clear();
        ASSERT_TRUE(host().commands.Press(row.name)) << row.name;
        if (SaysThatItIsNotBuilt(row.name)) unbuilt.insert(row.name);
    }
    host().commands.OpenPopup("Sel Obj Menu");
    host().commands.OpenPopup("Sel Obj Menu");
    host().commands.ClosePopup();
    Open(*windows_[0]);
    host().shown.clear();
    ASSERT_TRUE(host().commands.PressButton("ActionMenu", "VxOpenDrw"));
    if (SaysThatItIsNotBuilt("VxOpenDrw")) unbuilt.insert("VxOpenDrw");
    EXPECT_EQ(unbuilt, notBuilt_);
}

TEST_F(UnbuiltCommands, SayTheSameFromThePopupsAsFromTheMenu) {
    host().commands.OpenPopup("Sel Obj Menu");
    Open(*windows_[0]);
    for (const char* button :
         {"独立显示", "反向隐藏", "全部显示", "复制模型名称(vx)", "快速重命名(vx)"}) {
        const MenuButton* found = host().commands.FindButton("ActionMenu", button);
        ASSERT_TRUE(found) << button;
        const std::string command = found->command->name;
        host().shown.clear();
        ASSERT_TRUE(host().commands.PressButton("ActionMenu", button));
        EXPECT_EQ(SaysThatItIsNotBuilt(command), notBuilt_.count(command) > 0) << command;
    }
}

TEST_F(UnbuiltCommands, ChangeNothing) {
    for (const std::string& command : notBuilt_) {
        if (command == "VxOpenDrw") continue;
        ASSERT_TRUE(OpenAWindowFor(command)) << command;
        host().journal.Clear();
        host().journal.Start();
        ASSERT_TRUE(host().commands.Press(command));
        host().journal.Stop();
        for (const std::string& call : host().journal.Names()) {
            EXPECT_TRUE(call == "MessageBoxW" || call == "ProStringToWstring" ||
                        call == "ProModeCurrentGet")
                << command << " calls " << call;
        }
    }
}

}  // namespace
