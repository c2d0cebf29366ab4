// The menu as the user finds it after the start: its place, its 56 commands in their order, and
// what belongs to each of them.
#include <algorithm>

#include "simhost/host.h"
#include "tests/frame/expected_rows.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::Workbench;

class CommandMenu : public Workbench {
protected:
    WideText TextOf(const std::string& key) {
        return host().messages.Find(WIDE("vxMenu.txt"), Wide(key)).value_or(WIDE("(no such key)"));
    }
};

TEST_F(CommandMenu, StandsBehindHelpUnderItsTranslatedTitle) {
    Start();
    const auto& menus = host().commands.menus();
    const auto menu = std::find_if(menus.begin(), menus.end(),
                                   [](const Menu& each) { return each.name == "Menu"; });
    ASSERT_NE(menu, menus.end());
    ASSERT_NE(menu, menus.begin());
    EXPECT_EQ((menu - 1)->name, "Help");
    EXPECT_EQ(Utf8(menu->title), "岚枢工具");
}

TEST_F(CommandMenu, HoldsAll56CommandsInTheirOrder) {
    Start();
    std::vector<std::string> wanted, found;
    for (const expected::Row& row : expected::Rows()) wanted.push_back(row.name);
    const Menu* menu = host().commands.FindMenu("Menu");
    ASSERT_TRUE(menu);
    for (const MenuButton& button : menu->buttons) found.push_back(button.name);
    EXPECT_EQ(wanted.size(), 56u);
    EXPECT_EQ(found, wanted);
}

TEST_F(CommandMenu, EachButtonHasTheCommandLabelHelpIconAndPriorityOfItsRow) {
    Start();
    for (const expected::Row& row : expected::Rows()) {
        SCOPED_TRACE(row.name);
        const MenuButton* button = host().commands.FindButton("Menu", row.name);
        ASSERT_TRUE(button);
        EXPECT_EQ(button->command->name, row.name);
        EXPECT_EQ(button->label, TextOf(row.name));
        EXPECT_EQ(button->help, TextOf(row.helpKey));
        EXPECT_EQ(button->command->icon, row.icon);
        EXPECT_EQ(button->command->priority, 2);
    }
}

TEST_F(CommandMenu, AllButTheLastFourCommandsAreOfferedForTheRibbonUnderTheirTexts) {
    Start();
    int offered = 0;
    for (const expected::Row& row : expected::Rows()) {
        SCOPED_TRACE(row.name);
        const Command* command = host().commands.Newest(row.name);
        ASSERT_TRUE(command);
        EXPECT_EQ(command->designated, row.onRibbon);
        EXPECT_EQ(command->label, row.onRibbon ? TextOf(row.name) : WideText());
        EXPECT_EQ(command->help, row.onRibbon ? TextOf(row.helpKey) : WideText());
        EXPECT_EQ(command->description, row.onRibbon ? TextOf(row.name) : WideText());
        offered += command->designated;
    }
    EXPECT_EQ(offered, 52);
}

TEST_F(CommandMenu, RegistersEachNameOnceAtTheStart) {
    Start();
    EXPECT_EQ(host().commands.registrations().size(), 56u);
    EXPECT_EQ(host().commands.Names().size(), 56u);
}

// --- Texts that are installed ---

TEST_F(CommandMenu, EveryKeyOfTheMenuHasATextOfItsOwn) {
    std::vector<std::string> keys = {"Menu", "VxOpenDrw", "VxOpenDrw_Help"};
    for (const expected::Row& row : expected::Rows()) {
        keys.push_back(row.name);
        keys.push_back(row.helpKey);
    }
    for (const std::string& key : keys) {
        const auto text = host().messages.Find(WIDE("vxMenu.txt"), Wide(key));
        ASSERT_TRUE(text) << key;
        EXPECT_FALSE(text->empty()) << key;
        EXPECT_NE(Utf8(*text), key);
    }
}

TEST_F(CommandMenu, EveryKeyOfTheMessageLineIsInItsFileByteForByte) {
    // The misspelt words and the blanks at the end belong to the keys.
    const char* const keys[] = {
        "Please select parts to be transparent:",
        "Please select surfaces to be transparent:",
        "Wether change the bend table while assigning a material to a sheetmetal part",
        "USER Enter any double scale: ",
        "USER Enter a new name: ",
        "Please select parts to be merged:",
        "USER Enter a simrep name:",
        "Please select parts or assemblies for simrep:",
        "Please select a part or an assembly for coping name",
        "The model name has been copied",
        "Please select a part or an assembly for rename",
        "STP model has exported",
        "Please select entity to dim:",
        "Directory has changed to:%0w",
        "USER Enter a new name:|||%0w",
    };
    for (const char* key : keys) {
        const auto text = host().messages.Find(WIDE("vxmsg_display.txt"), Wide(key));
        ASSERT_TRUE(text) << '"' << key << '"';
        EXPECT_FALSE(text->empty()) << key;
    }
}

TEST_F(CommandMenu, MessagesWithAnArgumentShowItAndThePromptTakesItAsDefault) {
    EXPECT_NE(host()
                  .messages.Find(WIDE("vxmsg_display.txt"), WIDE("Directory has changed to:%0w"))
                  .value_or(WIDE(""))
                  .find(WIDE("%0w")),
              WideText::npos);
    EXPECT_NE(host()
                  .messages.Find(WIDE("vxmsg_display.txt"), WIDE("USER Enter a new name:|||%0w"))
                  .value_or(WIDE(""))
                  .find(WIDE("|||%0w")),
              WideText::npos);
}

}  // namespace
