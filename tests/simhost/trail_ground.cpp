// The commands that the tests of scripts press.
#include "tests/simhost/trail_ground.h"

#include "hostapi/host.h"
#include "simhost/core/disk.h"
#include "tests/support/places.h"

using namespace simhost;

namespace trails {

std::string seen;
std::vector<simhost::Model*> changed;

namespace {

int ShowsABox(uiCmdCmdId, uiCmdValue*, void*) {
    Box box;
    box.text = WIDE("\t材料设置完成\t");
    box.caption = WIDE("标题");
    box.hasCaption = true;
    TheHost().ShowBox(box);
    seen += "box answered ";
    return 0;
}
int ShowsAPlainBox(uiCmdCmdId, uiCmdValue*, void*) {
    TheHost().ShowBox(Box{WIDE("plain"), {}, false, 0});
    return 0;
}
int ShowsABoxOfTwoLines(uiCmdCmdId, uiCmdValue*, void*) {
    TheHost().ShowBox(Box{WIDE("first\nsecond"), {}, false, 0});
    return 0;
}
int ShowsTwoBoxes(uiCmdCmdId, uiCmdValue*, void*) {
    TheHost().ShowBox(Box{WIDE("one"), {}, false, 0});
    TheHost().ShowBox(Box{WIDE("two"), {}, false, 0});
    return 0;
}
int Asks(uiCmdCmdId, uiCmdValue*, void*) {
    TheHost().messages.Display(WIDE("Name:|||OLD"));
    WideChar text[32] = WIDE("untouched");
    const ProError status = ProMessageStringRead(32, text);
    seen += "asked " + std::to_string(status) + " " + Utf8(text) + " ";
    return 0;
}
void Ends(char* dialog, char*, ProAppData) {
    ProUIDialogExit(dialog, 1);
}
void BoxInDialog(char*, char*, ProAppData) {
    ShowsABox(nullptr, nullptr, nullptr);
}
int OpensADialog(uiCmdCmdId, uiCmdValue*, void*) {
    char name[] = "Settings";
    char ok[] = "OK";
    char apply[] = "Apply";
    ProUIDialogCreate(name, name);
    ProUIPushbuttonActivateActionSet(name, ok, Ends, nullptr);
    ProUIPushbuttonActivateActionSet(name, apply, BoxInDialog, nullptr);
    int status = 99;
    ProUIDialogActivate(name, &status);
    ProUIDialogDestroy(name);
    seen += "dialog " + std::to_string(status) + " ";
    return 0;
}
int Tells(uiCmdCmdId, uiCmdValue*, void*) {
    for (const WideView each : {WIDE("one"), WIDE("two"), WIDE("two"), WIDE("two"), WIDE("one")}) {
        TheHost().messages.Display(WideText(each));
    }
    return 0;
}
int Runs(uiCmdCmdId, uiCmdValue*, void*) {
    seen += "ran ";
    return 0;
}
int ChangesModels(uiCmdCmdId, uiCmdValue*, void*) {
    for (Model* model : changed) {
        model->appearance = DefaultAppearance();
        model->parameters.Set(WholeParameter(WIDE("N"), 1));
    }
    changed.at(0)->relations.initial = {WIDE("x = 1")};
    TheHost().session.Create(WIDE("NEW"), PRO_MDL_PART);
    return 0;
}
int Complains(uiCmdCmdId, uiCmdValue*, void*) {
    TheHost().Complain("a dangling handle");
    return 0;
}
uiCmdAccessState NotHere(uiCmdAccessMode) {
    return ACCESS_INVISIBLE;
}
uiCmdAccessState InPopup(uiCmdCmdId, ProAppData, void*) {
    return ACCESS_AVAILABLE;
}
void Add(const char* name, uiCmdCmdActFn action, uiCmdAccessFn access = nullptr) {
    uiCmdCmdId id = nullptr;
    ProCmdActionAdd(const_cast<char*>(name), action, 2, access, PRO_B_FALSE, PRO_B_FALSE, &id);
}

}  // namespace

ProError FillsPopup(char* popup) {
    ProPopupMenuId id = 0;
    uiCmdCmdId command = nullptr;
    ProPopupmenuIdGet(popup, &id);
    ProCmdCmdIdFind(const_cast<char*>("Runs"), &command);
    return ProPopupmenuButtonAdd(id, -1, const_cast<char*>("Runs"),
                                 const_cast<WideChar*>(WIDE("独立显示")),
                                 const_cast<WideChar*>(WIDE("help")), command, InPopup, nullptr);
}

void Scripts::SetUp() {
    seen.clear();
    bool found = false;
    Write(workbench::kTextFolder + WIDE("\\text\\resource\\Settings.res"),
          ReadFile(std::string(workbench::kSourceFolder) + "/tests/simhost/data/Settings.res",
                   &found));
    ASSERT_TRUE(found);
    Add("ShowsABox", ShowsABox);
    Add("ShowsAPlainBox", ShowsAPlainBox);
    Add("ShowsABoxOfTwoLines", ShowsABoxOfTwoLines);
    Add("ShowsTwoBoxes", ShowsTwoBoxes);
    Add("Asks", Asks);
    Add("OpensADialog", OpensADialog);
    Add("Runs", Runs);
    Add("Tells", Tells);
    Add("Changes", ChangesModels);
    Add("Complains", Complains);
    Add("NotHere", Runs, NotHere);
}

void ModelScripts::SetUp() {
    Scripts::SetUp();
    shaft_ = &Part("SHAFT");
    unit_ = &Assembly("箱体");
    top_ = &Assembly("TOP");
    Use(*unit_, *shaft_);
    Use(*unit_, *shaft_);
    Use(*top_, *unit_);
    Use(*top_, *shaft_);
    Open(*top_);
}

std::string ModelScripts::Picked(std::size_t i) {
    const Selection& selection = host().session.selections.buffer().at(i);
    std::string text = host().session.Find(selection.item.owner)->FileName() + " " +
                       std::to_string(selection.item.type) + " " +
                       std::to_string(selection.item.id) + " at";
    for (const int id : selection.path) text += " " + std::to_string(id);
    return text;
}

}  // namespace trails
