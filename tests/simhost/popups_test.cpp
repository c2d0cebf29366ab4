// Popup menus of the simulated host: made at a right click, filled by the plug-in, pressed by
// label.
#include <string>

#include "hostapi/host.h"
#include "tests/support/workbench.h"

using namespace simhost;

namespace {

int runs = 0;
std::string created;
int idStatus = 0;
uiCmdAccessState answer = ACCESS_AVAILABLE;
int selectionsSeen = -1;
int dataSeen = 0;

int CountRun(uiCmdCmdId, uiCmdValue*, void*) {
    return ++runs;
}
uiCmdAccessState Answer(uiCmdCmdId, ProAppData data, void* selections) {
    selectionsSeen = 0;
    if (selections) ProArraySizeGet(selections, &selectionsSeen);
    if (data) dataSeen = *static_cast<int*>(data);
    return answer;
}

ProError AddAt(ProPopupMenuId id, int position, const char* name, const WideChar* label,
               ProAppData data = nullptr) {
    uiCmdCmdId command = nullptr;
    ProCmdCmdIdFind(const_cast<char*>("Go"), &command);
    return ProPopupmenuButtonAdd(id, position, const_cast<char*>(name),
                                 const_cast<WideChar*>(label), const_cast<WideChar*>(WIDE("help")),
                                 command, Answer, data);
}

ProError AddsOne(char* popup) {
    created += std::string(popup) + " ";
    ProPopupMenuId id = 0;
    idStatus = ProPopupmenuIdGet(popup, &id);
    return AddAt(id, -1, "Go", WIDE("去"));
}

void SetHandler(ProError (*handler)(char*)) {
    ProNotificationSet(PRO_POPUPMENU_CREATE_POST,
                       reinterpret_cast<ProFunction>(reinterpret_cast<void (*)()>(handler)));
}

class PopupsOfTheHost : public workbench::Workbench {
protected:
    void SetUp() override {
        runs = 0;
        created.clear();
        idStatus = 1;
        answer = ACCESS_AVAILABLE;
        uiCmdCmdId id = nullptr;
        ProCmdActionAdd(const_cast<char*>("Go"), CountRun, 5, nullptr, PRO_B_FALSE, PRO_B_FALSE,
                        &id);
    }
    static std::string Labels(const Popup* popup) {
        std::string labels;
        for (const PopupEntry& entry : popup->entries) labels += Utf8(entry.label) + " ";
        return labels;
    }
};

TEST_F(PopupsOfTheHost, APopupHasItsOwnEntriesBeforeAnyPlugInComes) {
    EXPECT_EQ(Labels(host().commands.OpenPopup("Sel Obj Menu")), "打开 隐藏 取消隐藏 ");
    EXPECT_EQ(Labels(host().commands.OpenPopup("Graphic Area Menu")), "重画 清除选择 ");
}

TEST_F(PopupsOfTheHost, ANameThatIsNoPopupOpensNothing) {
    EXPECT_EQ(host().commands.OpenPopup("sel obj menu"), nullptr);
    EXPECT_EQ(host().commands.popup(), nullptr);
}

TEST_F(PopupsOfTheHost, TheHandlerIsToldOfEachCreationAndItsButtonComesLast) {
    SetHandler(AddsOne);
    EXPECT_EQ(Labels(host().commands.OpenPopup("Sel Obj Menu")), "打开 隐藏 取消隐藏 去 ");
    EXPECT_EQ(idStatus, PRO_TK_NO_ERROR);
    EXPECT_EQ(Labels(host().commands.OpenPopup("Sel Obj Menu")), "打开 隐藏 取消隐藏 去 ");
    host().commands.OpenPopup("Model Tree Menu");
    EXPECT_EQ(created, "Sel Obj Menu Sel Obj Menu Model Tree Menu ");
}

TEST_F(PopupsOfTheHost, ALaterHandlerReplacesTheEarlierOne) {
    SetHandler(AddsOne);
    SetHandler([](char*) { return PRO_TK_NO_ERROR; });
    EXPECT_EQ(Labels(host().commands.OpenPopup("Sel Obj Menu")), "打开 隐藏 取消隐藏 ");
    EXPECT_EQ(created, "");
}

TEST_F(PopupsOfTheHost, OnlyAPopupThatIsOpenHasAnId) {
    ProPopupMenuId id = 77;
    char name[] = "Sel Obj Menu";
    EXPECT_EQ(ProPopupmenuIdGet(name, &id), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(id, 77);
    host().commands.OpenPopup("Sel Obj Menu");
    EXPECT_EQ(ProPopupmenuIdGet(name, &id), PRO_TK_NO_ERROR);
    char other[] = "Model Tree Menu";
    EXPECT_EQ(ProPopupmenuIdGet(other, &id), PRO_TK_E_NOT_FOUND);
    host().commands.ClosePopup();
    EXPECT_EQ(ProPopupmenuIdGet(name, &id), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(AddAt(id, -1, "Go", WIDE("去")), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints().size(), 1u);
}

TEST_F(PopupsOfTheHost, AvailableCanBePressedUnavailableIsGreyedTheRestIsNotShown) {
    SetHandler(AddsOne);
    host().commands.OpenPopup("Sel Obj Menu");
    EXPECT_TRUE(host().commands.PressPopup("去"));
    EXPECT_EQ(runs, 1);

    answer = ACCESS_UNAVAILABLE;
    const Popup* popup = host().commands.OpenPopup("Sel Obj Menu");
    ASSERT_EQ(popup->entries.size(), 4u);
    EXPECT_EQ(popup->entries.back().state, ACCESS_UNAVAILABLE);
    EXPECT_NE(host().commands.PressPopup("去").reason.find("greyed"), std::string::npos);

    for (const auto hidden : {ACCESS_REMOVE, ACCESS_INVISIBLE}) {
        answer = hidden;
        EXPECT_EQ(host().commands.OpenPopup("Sel Obj Menu")->entries.size(), 3u);
        EXPECT_FALSE(host().commands.PressPopup("去"));
    }
    EXPECT_EQ(runs, 1);
}

TEST_F(PopupsOfTheHost, APressClosesThePopup) {
    SetHandler(AddsOne);
    host().commands.OpenPopup("Sel Obj Menu");
    host().commands.PressPopup("去");
    EXPECT_EQ(host().commands.popup(), nullptr);
    EXPECT_EQ(host().commands.PressPopup("去").reason, "no popup is open");
}

TEST_F(PopupsOfTheHost, APositionPutsTheButtonBetweenOthersAndOneOutsideIsRefused) {
    host().commands.OpenPopup("Sel Obj Menu");
    const ProPopupMenuId id = host().commands.popup()->id;
    EXPECT_EQ(AddAt(id, 1, "A", WIDE("甲")), PRO_TK_NO_ERROR);
    EXPECT_EQ(AddAt(id, 4, "B", WIDE("乙")), PRO_TK_NO_ERROR);  // the end of four
    EXPECT_EQ(AddAt(id, 6, "C", WIDE("丙")), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(AddAt(id, -2, "C", WIDE("丙")), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(AddAt(id, -1, "A", WIDE("甲")), PRO_TK_E_FOUND);
    EXPECT_EQ(Labels(host().commands.popup()), "打开 甲 隐藏 取消隐藏 乙 ");
}

TEST_F(PopupsOfTheHost, TheAccessFunctionGetsItsDataAndTheSelections) {
    static int data = 4711;
    Model& part = Part("SHAFT");
    Model& top = Assembly("TOP");
    const int first = Use(top, part).id;
    Open(top);
    ProModelitem item;
    ASSERT_TRUE(Session::Follow(top, {first}, &item));
    SetHandler([](char* popup) {
        ProPopupMenuId id = 0;
        ProPopupmenuIdGet(popup, &id);
        return AddAt(id, -1, "Go", WIDE("去"), &data);
    });
    host().commands.OpenPopup("Sel Obj Menu");
    EXPECT_EQ(selectionsSeen, 0);
    EXPECT_EQ(dataSeen, 4711);
    host().session.selections.SetBuffer({{item, &top, {first}}});
    host().commands.OpenPopup("Sel Obj Menu");
    EXPECT_EQ(selectionsSeen, 1);
}

TEST_F(PopupsOfTheHost, TheOwnEntriesHideShowAndOpenWhatIsSelected) {
    Model& part = Part("SHAFT");
    Model& top = Assembly("TOP");
    const int id = Use(top, part).id;
    Open(top);
    ProModelitem item;
    ASSERT_TRUE(Session::Follow(top, {id}, &item));
    host().session.selections.SetBuffer({{item, &top, {id}}});
    host().commands.OpenPopup("Sel Obj Menu");
    EXPECT_TRUE(host().commands.PressPopup("隐藏"));
    EXPECT_TRUE(top.FindFeature(id)->hidden);
    host().commands.OpenPopup("Model Tree Menu");
    EXPECT_TRUE(host().commands.PressPopup("取消隐藏"));
    EXPECT_FALSE(top.FindFeature(id)->hidden);
    EXPECT_EQ(host().session.current->repaints, 2);
    host().commands.OpenPopup("Sel Obj Menu");
    EXPECT_TRUE(host().commands.PressPopup("打开"));
    EXPECT_EQ(host().session.CurrentModel(), &part);
    host().commands.OpenPopup("Graphic Area Menu");
    EXPECT_TRUE(host().commands.PressPopup("清除选择"));
    EXPECT_TRUE(host().session.selections.buffer().empty());
}

}  // namespace
