// The host's own dialogs as macros use them: the main window with its appearance gallery, and the
// question box that the gallery's clear-all entry asks.
#pragma once

#include <string>

namespace simhost {

enum class Verb;

class MainWindow {
public:
    static constexpr const char* kName = "main_dlg_cur";
    static constexpr const char* kQuestionName = "UI Message Dialog";

    // What a trail step does here; empty, or the reason why it cannot be done.
    std::string Use(Verb verb, const std::string& component);
    std::string UseQuestion(Verb verb, const std::string& component);

    bool questionOpen() const { return questionOpen_; }
    void CloseQuestion() { questionOpen_ = false; }

private:
    std::string OpenGallery();
    std::string OpenClearMenu();
    std::string AskClearAll();

    bool galleryOpen_ = false;
    bool clearMenuOpen_ = false;
    // A press on an entry closes its drop-down first, so the entry can be reached just after the
    // close, and until something else happens.
    bool clearMenuJustClosed_ = false;
    bool questionOpen_ = false;
};

}  // namespace simhost
