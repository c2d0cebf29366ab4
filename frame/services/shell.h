// The shell of Windows: where the user's files lie, the system's dialogs for files, whether a file
// is held by another program, and opening things in the programs that are made for them.
#pragma once

#include <optional>

#include "hostapi/wide.h"

// The folder of the user's desktop; empty on failure.
WideText DesktopFolder();

// The path that the user chooses for a file to be written, nothing if there is none. `filter` has a
// bar after each label and pattern and one more at its end: "Text (*.txt)|*.txt||". The dialog asks
// by itself before a file that is there is chosen.
std::optional<WideText> AskSavePath(WideView filter, const WideChar* defaultExtension,
                                    const WideText& folder);

// The path that the user chooses for a file to be read, nothing if there is none. The file need not
// be there. `filter` as above, but the last label may be without a pattern.
std::optional<WideText> AskOpenPath(WideView filter, const WideChar* defaultExtension,
                                    const WideChar* title);

// Whether another program has the file open, so that it cannot be written. False for a file that is
// not there.
bool IsHeldOpen(const WideText& path);

// Opens a file in the program that is registered for it; a failure is not reported.
void OpenFile(const WideText& path);

// Opens a file beside the module in the system's plain editor and does not wait. Does nothing where
// the module is not found under its name.
void OpenInNotepad(WideView fileBesideModule);

// Opens the product's home page, or a page of it by its path ("/?Vip/"), in the user's browser; a
// failure is not reported.
void OpenHomePage(const char* path = "/");
