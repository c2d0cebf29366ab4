// The three ways of telling the user something in a box.
#include "frame/services/messages.h"

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
