// The host's own dialogs as macros use them: the main window with its appearance gallery, and the
// question box that the gallery's clear-all entry asks.
#pragma once

#include <string>

namespace simhost {

class Desk;
class Session;
enum class Verb;

class MainWindow {
public:
    MainWindow(Desk& desk, Session& session) : desk_(desk), session_(session) {}

    static constexpr const char* kName = "main_dlg_cur";
    static constexpr const char* kQuestionName = "UI Message Dialog";

    // What a trail step does here; empty, or the reason why it cannot be done.
    std::string Use(Verb verb, const std::string& component);
    std::string UseQuestion(Verb verb, const std::string& component);

    bool questionOpen() const { return questionOpen_; }
    void CloseQuestion() { questionOpen_ = false; }
    void CloseAll() {
        questionOpen_ = galleryOpen_ = clearMenuOpen_ = clearMenuJustClosed_ = false;
    }

private:
    std::string OpenGallery();
    std::string OpenClearMenu();
    std::string AskClearAll();

    Desk& desk_;
    Session& session_;
    bool galleryOpen_ = false;
    bool clearMenuOpen_ = false;
    // A press on an entry closes its drop-down first, so the entry can be reached just after the
    // close, and until something else happens.
    bool clearMenuJustClosed_ = false;
    bool questionOpen_ = false;
};

}  // namespace simhost
