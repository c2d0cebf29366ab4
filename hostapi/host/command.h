// Commands, menus and popup menus.
#pragma once

#include "hostapi/host/types.h"

typedef struct VxHostCommand* uiCmdCmdId;
typedef struct VxHostCommandValue* uiCmdValue;
typedef int uiCmdPriority;
typedef int uiCmdAccessMode;

// What an access function answers.
// Assumed (codes, 75 %): 0 removed, 1 invisible, 2 unavailable, 3 available
typedef enum : int {
    ACCESS_REMOVE = 0,
    ACCESS_INVISIBLE = 1,
    ACCESS_UNAVAILABLE = 2,
    ACCESS_AVAILABLE = 3
} uiCmdAccessState;

typedef int (*uiCmdCmdActFn)(uiCmdCmdId command, uiCmdValue* value, void* data);
typedef uiCmdAccessState (*uiCmdAccessFn)(uiCmdAccessMode mode);

typedef int ProPopupMenuId;
// Assumed (names, 35 %): the type has this name, and its function takes command id, application
//   data and the selection buffer untyped; the kit may name a ProSelection*
typedef uiCmdAccessState (*ProPopupmenuAccessFn)(uiCmdCmdId command, ProAppData data,
                                                 void* selection);

// Registers a command, or gives a known name a new action, priority and access function for the
// buttons added with this id. Receives the command's id.
// Assumed (behaviour, 50 %): a command name may be registered again; the id handed out then carries
//   the new action, priority and access function. If the first ones stay, the popup's rule never
//   applies
HOST_API ProError ProCmdActionAdd(char* name, uiCmdCmdActFn action, uiCmdPriority priority,
                                  uiCmdAccessFn access, ProBoolean inNonActiveWindow,
                                  ProBoolean inAccessoryWindow, uiCmdCmdId* command);

// The id of a registered command. PRO_TK_E_NOT_FOUND: no such name.
HOST_API ProError ProCmdCmdIdFind(char* name, uiCmdCmdId* command);

// Gives the command's buttons a picture, a file of the plug-in's resource folder.
// Assumed (parameters, 80 %): takes the command id and a narrow picture file name
HOST_API ProError ProCmdIconSet(uiCmdCmdId command, char* pictureFile);

// Offers the command for the customising of the ribbon. The keys are of the message file.
HOST_API ProError ProCmdDesignate(uiCmdCmdId command, char* labelKey, char* helpKey,
                                  char* descriptionKey, WideChar* messageFile);

// Adds a menu to the menu bar before or after a neighbour. PRO_TK_E_FOUND: it is there already.
HOST_API ProError ProMenubarMenuAdd(char* menu, char* titleKey, char* neighbour,
                                    ProBoolean afterNeighbour, WideChar* messageFile);

// Adds a push-button to a menu; with no neighbour (null) at its end.
// PRO_TK_E_NOT_FOUND: no such menu. PRO_TK_E_FOUND: the menu has a button of this name.
HOST_API ProError ProMenubarmenuPushbuttonAdd(char* menu, char* button, char* labelKey,
                                              char* helpKey, char* neighbour,
                                              ProBoolean afterNeighbour, uiCmdCmdId command,
                                              WideChar* messageFile);

// The id of the popup menu that is being created. PRO_TK_E_NOT_FOUND: no popup of this name.
// Assumed (parameters, 70 %): takes the popup's name as narrow text and fills an int id
HOST_API ProError ProPopupmenuIdGet(char* popup, ProPopupMenuId* id);

// Adds a button to a popup menu; position -1 is its end.
// Assumed (parameters, 70 %): in the order id, position, button name (narrow), label (wide), help
//   (wide), command id, access function, application data
HOST_API ProError ProPopupmenuButtonAdd(ProPopupMenuId popup, int position, char* button,
                                        WideChar* label, WideChar* help, uiCmdCmdId command,
                                        ProPopupmenuAccessFn access, ProAppData data);
