// The door's operations on commands, menus and popup menus.
#include "hostapi/host.h"
#include "simhost/core/text.h"
#include "simhost/door/door.h"

using namespace simhost;

namespace {

WideText TextOf(WideChar* file, char* key) {
    return TheHost().messages.Label(file, FromSystemCodePage(key));
}

WideText OriginalOf(WideChar* file, char* key) {
    return TheHost().messages.OriginalLabel(file, FromSystemCodePage(key));
}

}  // namespace

ProError ProCmdActionAdd(char* name, uiCmdCmdActFn action, uiCmdPriority priority,
                         uiCmdAccessFn access, ProBoolean inNonActiveWindow,
                         ProBoolean inAccessoryWindow, uiCmdCmdId* command) {
    return Op<"ProCmdActionAdd">.Call(
        [&] { *command = TheHost().commands.Add(name, action, priority, access).id; }, GIVEN(name),
        ARG(action), ARG(priority), ARG(access), ARG(inNonActiveWindow), ARG(inAccessoryWindow),
        OUT(command));
}

ProError ProCmdCmdIdFind(char* name, uiCmdCmdId* command) {
    return Op<"ProCmdCmdIdFind">.Call([&] { *command = TheHost().commands.RequireName(name).id; },
                                      GIVEN(name), OUT(command));
}

ProError ProCmdIconSet(uiCmdCmdId command, char* pictureFile) {
    return Op<"ProCmdIconSet">.Call(
        [&] { TheHost().commands.Require(command).icon = Utf8(FromSystemCodePage(pictureFile)); },
        ARG(command), GIVEN(pictureFile));
}

ProError ProCmdDesignate(uiCmdCmdId command, char* labelKey, char* helpKey, char* descriptionKey,
                         WideChar* messageFile) {
    return Op<"ProCmdDesignate">.Call(
        [&] {
            Command& designated = TheHost().commands.Require(command);
            designated.designated = true;
            designated.label = TextOf(messageFile, labelKey);
            designated.help = TextOf(messageFile, helpKey);
            designated.description = TextOf(messageFile, descriptionKey);
        },
        ARG(command), GIVEN(labelKey), GIVEN(helpKey), GIVEN(descriptionKey), GIVEN(messageFile));
}

ProError ProMenubarMenuAdd(char* menu, char* titleKey, char* neighbour, ProBoolean afterNeighbour,
                           WideChar* messageFile) {
    return Op<"ProMenubarMenuAdd">.Call(
        [&] {
            TheHost().commands.AddMenu(menu, TextOf(messageFile, titleKey), neighbour,
                                       afterNeighbour != PRO_B_FALSE);
        },
        GIVEN(menu), GIVEN(titleKey), ARG(neighbour), ARG(afterNeighbour), GIVEN(messageFile));
}

ProError ProMenubarmenuPushbuttonAdd(char* menu, char* button, char* labelKey, char* helpKey,
                                     char* neighbour, ProBoolean afterNeighbour, uiCmdCmdId command,
                                     WideChar* messageFile) {
    return Op<"ProMenubarmenuPushbuttonAdd">.Call(
        [&] {
            MenuButton added{button,
                             TextOf(messageFile, labelKey),
                             TextOf(messageFile, helpKey),
                             &TheHost().commands.Require(command),
                             OriginalOf(messageFile, labelKey),
                             OriginalOf(messageFile, helpKey)};
            TheHost().commands.AddButton(menu, std::move(added), neighbour,
                                         afterNeighbour != PRO_B_FALSE);
        },
        GIVEN(menu), GIVEN(button), GIVEN(labelKey), GIVEN(helpKey), ARG(neighbour),
        ARG(afterNeighbour), ARG(command), GIVEN(messageFile));
}

ProError ProPopupmenuIdGet(char* popup, ProPopupMenuId* id) {
    return Op<"ProPopupmenuIdGet">.Call([&] { *id = TheHost().commands.RequirePopup(popup).id; },
                                        GIVEN(popup), OUT(id));
}

ProError ProPopupmenuButtonAdd(ProPopupMenuId popup, int position, char* button, WideChar* label,
                               WideChar* help, uiCmdCmdId command, ProPopupmenuAccessFn access,
                               ProAppData data) {
    return Op<"ProPopupmenuButtonAdd">.Call(
        [&] {
            PopupEntry entry;
            entry.name = Utf8(FromSystemCodePage(button));
            entry.label = label;
            entry.help = help;
            entry.command = &TheHost().commands.Require(command);
            entry.access = access;
            entry.data = data;
            TheHost().commands.AddPopupEntry(popup, position, std::move(entry));
        },
        ARG(popup), ARG(position), GIVEN(button), GIVEN(label), GIVEN(help), ARG(command),
        ARG(access), ARG(data));
}
