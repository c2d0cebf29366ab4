// The door's operations on commands, menus and popup menus.
#include "hostapi/host.h"
#include "simhost/core/operation.h"
#include "simhost/core/text.h"
#include "simhost/host.h"

using namespace simhost;

namespace {

WideText TextOf(WideChar* file, char* key) {
    return TheHost().messages.Label(file, FromSystemCodePage(key));
}

}  // namespace

ProError ProCmdActionAdd(char* name, uiCmdCmdActFn action, uiCmdPriority priority,
                         uiCmdAccessFn access, ProBoolean inNonActiveWindow,
                         ProBoolean inAccessoryWindow, uiCmdCmdId* command) {
    static Operation op("ProCmdActionAdd");
    return op.Call(
        [&] {
            Need(name, "the command's name");
            Need(command, "the place for the command's id");
            *command = TheHost().commands.Add(name, action, priority, access).id;
            return PRO_TK_NO_ERROR;
        },
        "name", name, "action", action, "priority", priority, "access", access, "inNonActiveWindow",
        inNonActiveWindow, "inAccessoryWindow", inAccessoryWindow, "command", Out(command));
}

ProError ProCmdCmdIdFind(char* name, uiCmdCmdId* command) {
    static Operation op("ProCmdCmdIdFind");
    return op.Call(
        [&] {
            Need(name, "the command's name");
            Need(command, "the place for the command's id");
            *command = TheHost().commands.RequireName(name).id;
            return PRO_TK_NO_ERROR;
        },
        "name", name, "command", Out(command));
}

ProError ProCmdIconSet(uiCmdCmdId command, char* pictureFile) {
    static Operation op("ProCmdIconSet");
    return op.Call(
        [&] {
            Need(pictureFile, "the picture's file name");
            TheHost().commands.Require(command).icon = Utf8(FromSystemCodePage(pictureFile));
            return PRO_TK_NO_ERROR;
        },
        "command", command, "pictureFile", pictureFile);
}

ProError ProCmdDesignate(uiCmdCmdId command, char* labelKey, char* helpKey, char* descriptionKey,
                         WideChar* messageFile) {
    static Operation op("ProCmdDesignate");
    return op.Call(
        [&] {
            Need(labelKey, "the label's key");
            Need(helpKey, "the help's key");
            Need(descriptionKey, "the description's key");
            Need(messageFile, "the message file");
            Command& designated = TheHost().commands.Require(command);
            designated.designated = true;
            designated.label = TextOf(messageFile, labelKey);
            designated.help = TextOf(messageFile, helpKey);
            designated.description = TextOf(messageFile, descriptionKey);
            return PRO_TK_NO_ERROR;
        },
        "command", command, "labelKey", labelKey, "helpKey", helpKey, "descriptionKey",
        descriptionKey, "messageFile", messageFile);
}

ProError ProMenubarMenuAdd(char* menu, char* titleKey, char* neighbour, ProBoolean afterNeighbour,
                           WideChar* messageFile) {
    static Operation op("ProMenubarMenuAdd");
    return op.Call(
        [&] {
            Need(menu, "the menu's name");
            Need(titleKey, "the title's key");
            Need(messageFile, "the message file");
            TheHost().commands.AddMenu(menu, TextOf(messageFile, titleKey), neighbour,
                                       afterNeighbour != PRO_B_FALSE);
            return PRO_TK_NO_ERROR;
        },
        "menu", menu, "titleKey", titleKey, "neighbour", neighbour, "afterNeighbour",
        afterNeighbour, "messageFile", messageFile);
}

ProError ProMenubarmenuPushbuttonAdd(char* menu, char* button, char* labelKey, char* helpKey,
                                     char* neighbour, ProBoolean afterNeighbour, uiCmdCmdId command,
                                     WideChar* messageFile) {
    static Operation op("ProMenubarmenuPushbuttonAdd");
    return op.Call(
        [&] {
            Need(menu, "the menu's name");
            Need(button, "the button's name");
            Need(labelKey, "the label's key");
            Need(helpKey, "the help's key");
            Need(messageFile, "the message file");
            MenuButton added{button, TextOf(messageFile, labelKey), TextOf(messageFile, helpKey),
                             &TheHost().commands.Require(command)};
            TheHost().commands.AddButton(menu, std::move(added), neighbour,
                                         afterNeighbour != PRO_B_FALSE);
            return PRO_TK_NO_ERROR;
        },
        "menu", menu, "button", button, "labelKey", labelKey, "helpKey", helpKey, "neighbour",
        neighbour, "afterNeighbour", afterNeighbour, "command", command, "messageFile",
        messageFile);
}

ProError ProPopupmenuIdGet(char* popup, ProPopupMenuId* id) {
    static Operation op("ProPopupmenuIdGet");
    return op.Call(
        [&] {
            Need(popup, "the popup's name");
            Need(id, "the place for the popup's id");
            *id = TheHost().commands.RequirePopup(popup).id;
            return PRO_TK_NO_ERROR;
        },
        "popup", popup, "id", Out(id));
}

ProError ProPopupmenuButtonAdd(ProPopupMenuId popup, int position, char* button, WideChar* label,
                               WideChar* help, uiCmdCmdId command, ProPopupmenuAccessFn access,
                               ProAppData data) {
    static Operation op("ProPopupmenuButtonAdd");
    return op.Call(
        [&] {
            Need(button, "the button's name");
            Need(label, "the button's label");
            Need(help, "the button's help");
            PopupEntry entry;
            entry.name = Utf8(FromSystemCodePage(button));
            entry.label = label;
            entry.help = help;
            entry.command = &TheHost().commands.Require(command);
            entry.access = access;
            entry.data = data;
            TheHost().commands.AddPopupEntry(popup, position, std::move(entry));
            return PRO_TK_NO_ERROR;
        },
        "popup", popup, "position", position, "button", button, "label", label, "help", help,
        "command", command, "access", access, "data", data);
}
