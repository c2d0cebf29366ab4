// The three ways of telling the user something in a box, and the message line. Tabs that keep a
// text away from the edge of its box belong to the text; nothing is added here.
#pragma once

#include "hostapi/wide.h"

inline constexpr WideView CaptionText = WIDE("岚枢工具By墨川听雨,QQ:100200300");
inline constexpr WideView CompletionSuffix = WIDE("|岚枢QQ②群:100200301，①群:10020030\t");

// A notice: our caption, above all other windows, one OK button.
void ShowNotice(const WideText& text);

// A notice at the end of a batch, once: the message and CompletionSuffix.
void ShowCompletion(const WideText& message);

// The same without a place above all other windows.
void ShowQuietNotice(const WideText& text);

// A plain error: the system's own caption, an OK button, nothing else.
void ShowPlainError(const WideText& text);

// The message file of the message line.
inline constexpr const WideChar* kMessageFile = WIDE("vxmsg_display.txt");

// The same for the commands that begin by having the host widen it.
inline constexpr const char* kNarrowMessageFile = "vxmsg_display.txt";

// The quiet way: the text of a key on the message line, with an argument for its %0w.
void ShowMessage(const char* key);
void ShowMessage(const char* key, const WideText& argument);
