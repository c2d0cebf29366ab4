// The commands of this room: small ones that share nothing.
#pragma once

// A place-holder without an effect: asks the host for the current model and ignores the answer.
void ForTest();

// Shows the working directory in the system's file manager.
void VxOpenDir();

// Makes the folder of the current model the working directory and tells it on the message line.
void VxSetDirectory();

// Puts the name of the current part, or of the component that is selected or picked, on the
// clipboard.
void VxMdlNameCopy();

// Renames the component that is selected or picked, and the drawing of its name, and saves them and
// the current model. Asks until the host takes a name or the user leaves.
void VxMdlRename();

// Shows what the plug-in is; its OK is followed by the terms of use.
void AboutVx();

// Shows the groups in which users help each other.
void VxQQGroup();

// Tells the plug-in's version in a notice.
void VxVersion();

// Opens the page for supporters on the product's home page.
void VxVipAbout();
