// The appearance gallery of the main window. Only the way that a user goes leads to the clearing:
// gallery, its drop-down, the entry, and yes to the question.
#include "simhost/ui/host_dialogs.h"

#include <fmt/format.h>

#include <set>
#include <vector>

#include "simhost/core/text.h"
#include "simhost/model/session.h"
#include "simhost/ui/component.h"
#include "simhost/ui/near_name.h"
#include "simhost/user/desk.h"

namespace simhost {
namespace {

constexpr const char* kGallery = "ProCmdViewGallery.view";
constexpr const char* kClearMenu = "ProCmdViewGallery_layoutph.palette_holder.clearAppearance";
constexpr const char* kClearAll = "clearAllAppearance";

void CollectBelow(Model* model, std::set<Model*>* models) {
    if (!model || !models->insert(model).second) return;
    CollectBelow(model->manufacturingData.assembly, models);
    for (const Feature& feature : model->features()) CollectBelow(feature.model, models);
}

void ClearAllAppearances(Session& session, Model& top) {
    std::set<Model*> models;
    CollectBelow(&top, &models);
    for (Model* model : models) {
        if (!model->appearance && model->partData.surfaceAppearances.empty()) continue;
        model->appearance.reset();
        model->partData.surfaceAppearances.clear();
        model->modified = true;
    }
    if (session.current) ++session.current->repaints;
}

std::string NoComponent(const std::string& component, const char* dialog,
                        const std::vector<std::string>& names) {
    return fmt::format("no component {} in {}{}", component, dialog, DidYouMean(component, names));
}

std::string CannotDo(Verb verb, const std::string& component) {
    return fmt::format("{} cannot be done to {}", VerbName(verb), component);
}

}  // namespace

std::string MainWindow::OpenGallery() {
    if (!session_.CurrentModel()) return "the appearance gallery needs an open model";
    galleryOpen_ = true;
    return {};
}

std::string MainWindow::OpenClearMenu() {
    if (!galleryOpen_) return fmt::format("{} is not shown: the gallery is not open", kClearMenu);
    clearMenuOpen_ = true;
    return {};
}

std::string MainWindow::AskClearAll() {
    if (!clearMenuOpen_ && !clearMenuJustClosed_) {
        return fmt::format("{} is not shown: its drop-down is not open", kClearAll);
    }
    clearMenuOpen_ = clearMenuJustClosed_ = false;
    questionOpen_ = true;
    desk_.shown.push_back({Shown::Kind::Dialog, Wide(kQuestionName), {}});
    return {};
}

std::string MainWindow::Use(Verb verb, const std::string& component) {
    const bool close = verb == Verb::Close;
    const bool focus = verb == Verb::FocusIn || verb == Verb::FocusOut;
    if (component != kGallery && component != kClearMenu && component != kClearAll) {
        return NoComponent(component, kName, {kGallery, kClearMenu, kClearAll});
    }
    // The drop-downs close behind an open question; nothing else moves there.
    if (questionOpen_ && !close) return fmt::format("{} waits for an answer", kQuestionName);
    if (focus) return {};
    if (component == kClearAll) {
        return verb == Verb::Activate ? AskClearAll() : CannotDo(verb, component);
    }
    if (!close && verb != Verb::Select) return CannotDo(verb, component);
    const bool wasOpen = clearMenuOpen_;
    clearMenuJustClosed_ = false;
    if (component == kClearMenu) {
        if (!close) return OpenClearMenu();
        clearMenuOpen_ = false;
        clearMenuJustClosed_ = wasOpen;
        return {};
    }
    if (!close) return OpenGallery();
    galleryOpen_ = clearMenuOpen_ = false;
    return {};
}

std::string MainWindow::UseQuestion(Verb verb, const std::string& component) {
    if (!questionOpen_) return fmt::format("no {} is open", kQuestionName);
    if (component != "yes" && component != "no") {
        return NoComponent(component, kQuestionName, {"yes", "no"});
    }
    if (verb == Verb::FocusIn || verb == Verb::FocusOut) return {};
    if (verb != Verb::Activate) return CannotDo(verb, component);
    questionOpen_ = false;
    Model* model = session_.CurrentModel();
    if (component == "yes" && model) ClearAllAppearances(session_, *model);
    return {};
}

}  // namespace simhost
