// The three ways of telling the user something in a box, and the message line.
#include "frame/services/messages.h"

#include "frame/services/text.h"
#include "hostapi/host.h"
#include "hostapi/windows.h"

void ShowNotice(const WideText& text) {
    MessageBoxW(nullptr, text.c_str(), CaptionText.data(), MB_TOPMOST);
}

void ShowQuietNotice(const WideText& text) {
    MessageBoxW(nullptr, text.c_str(), CaptionText.data(), MB_OK);
}

void ShowCompletion(const WideText& message) {
    ShowNotice(WideText(message).append(CompletionSuffix));
}

void ShowPlainError(const WideText& text) {
    MessageBoxW(nullptr, text.c_str(), nullptr, MB_OK);
}

void ShowMessage(const char* key) {
    ProMessageDisplay(HostText(kMessageFile), HostText(key));
}

void ShowMessage(const char* key, const WideText& argument) {
    ProMessageDisplay(HostText(kMessageFile), HostText(key), HostText(argument));
}
