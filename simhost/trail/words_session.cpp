// The @ words about models, windows, folders, settings and the plug-in itself.
#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <filesystem>

#include "hostapi/windows.h"
#include "simhost/app/the_plugin.h"
#include "simhost/core/text.h"
#include "simhost/system/clock.h"
#include "simhost/trail/hooks.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/picks.h"
#include "simhost/trail/words.h"
#include "simhost/ui/near_name.h"

namespace simhost {
namespace {

std::vector<std::string> FilesInMemory() {
    std::vector<std::string> names;
    for (const Model* model : TheHost().session.All()) names.push_back(model->FileName());
    return names;
}

Model* InMemory(Trail& trail, const std::string& file) {
    Model* model = TheHost().session.FindByFile(file);
    if (!model) {
        trail.Fail(fmt::format("the model {} is not in memory{}", file,
                               DidYouMean(file, FilesInMemory())));
    }
    return model;
}

void SaveOne(Trail& trail, Model& model) {
    TheHost().session.Save(model);
    trail.Say(fmt::format("saved {}.{}", model.FileName(), model.version));
}

// The first word of a text, which is cut off it.
std::string TakeWord(std::string* text) {
    const std::size_t end = std::min(text->find_first_of(" \t"), text->size());
    std::string word = text->substr(0, end);
    *text = Trimmed(text->substr(end));
    return word;
}

// The folder of the loaded plug-in; before it is loaded, the folder that the host knows of it.
WideText ModuleFolder() {
    const HMODULE module = GetModuleHandleW(the_plugin::kModule.data());
    if (!module) return TheHost().textFolder;
    WideChar buffer[MAX_PATH] = {};
    const WideText path(buffer, GetModuleFileNameW(module, buffer, MAX_PATH));
    return path.substr(0, path.find_last_of(WIDE('\\')));
}

void CallHook(Trail& trail, const std::function<std::string()>& hook, const char* what) {
    if (!hook) {
        trail.Fail(fmt::format("nothing here can {}", what));
    } else if (const std::string problem = hook(); !problem.empty()) {
        trail.Fail(problem);
    }
}

}  // namespace

void OpenModel(Trail& trail, const std::string& rest) {
    const std::string file = ParseText(rest).text;
    if (file.empty()) return trail.Fail("a file's name belongs behind open");
    Session& session = TheHost().session;
    Model* model = session.Retrieve(file);
    if (!model) {
        return trail.Fail(
            fmt::format("there is no {} in {}", file, Utf8(session.workingDirectory)));
    }
    for (const std::string& missing : session.TakeMissing()) {
        trail.Say(fmt::format("missing: {}", missing));
    }
    session.Open(*model);
}

void SwitchWindow(Trail& trail, const std::string& rest) {
    Session& session = TheHost().session;
    const std::string file = Lower(ParseText(rest).text);
    std::vector<std::string> shown;
    for (const Window& window : session.windows()) {
        if (!window.model) continue;
        shown.push_back(window.model->FileName());
        if (Lower(shown.back()) == file) {
            session.current = session.FindWindow(window.id);
            return;
        }
    }
    trail.Fail(fmt::format("no window shows {}{}", file, DidYouMean(file, shown)));
}

void CloseModel(Trail& trail, const std::string&) {
    if (!TheHost().session.current) return trail.Fail("no window is open");
    TheHost().session.CloseCurrent();
}

void ChangeDirectory(Trail& trail, const std::string& rest) {
    WideText folder = Wide(ParseText(rest).text);
    while (folder.size() > 3 && (folder.back() == '\\' || folder.back() == '/')) folder.pop_back();
    const std::filesystem::path real = TheHost().disk.Real(folder);
    std::error_code error;
    if (real.empty() || !std::filesystem::is_directory(real, error)) {
        return trail.Fail(fmt::format("there is no folder {}", rest));
    }
    TheHost().session.workingDirectory = folder;
}

void SelectItems(Trail& trail, const std::string& rest) {
    Session& session = TheHost().session;
    std::vector<Selection*> picked;
    for (const std::string& path : SplitPicks(ParseText(rest).text)) {
        std::string problem;
        Selection* selection = Pick(path, &problem);
        if (!selection) return trail.Fail(problem);
        picked.push_back(selection);
    }
    if (picked.empty()) return trail.Fail("a path belongs behind select, such as UNIT/GEAR:2");
    session.buffer = picked;
}

void ClearSelection(Trail&, const std::string&) {
    TheHost().session.buffer.clear();
}

void SaveModel(Trail& trail, const std::string& rest) {
    Model* model = TheHost().session.CurrentModel();
    if (rest.empty() && !model) return trail.Fail("no model is open");
    if (!rest.empty()) model = InMemory(trail, ParseText(rest).text);
    if (model) SaveOne(trail, *model);
}

void SaveAllModels(Trail& trail, const std::string&) {
    for (Model* model : TheHost().session.All()) {
        if (model->modified || model->version == 0) SaveOne(trail, *model);
    }
}

void WriteSetting(Trail& trail, const std::string& rest) {
    std::string left = rest;
    const std::string section = TakeWord(&left);
    const std::string key = TakeWord(&left);
    if (section.empty() || key.empty()) {
        return trail.Fail("a setting is SECTION KEY VALUE, such as RmbDisable value 0");
    }
    const WideText path = ModuleFolder() + WIDE("\\") + WideText(the_plugin::kSettingsFile);
    if (!WritePrivateProfileStringW(Wide(section).c_str(), Wide(key).c_str(),
                                    Wide(ParseText(left).text).c_str(), path.c_str())) {
        trail.Fail(fmt::format("cannot write {}", Utf8(path)));
    }
}

void WaitSeconds(Trail& trail, const std::string& rest) {
    constexpr double kMostSeconds = 1e6;
    double seconds = 0;
    const char* end = rest.data() + rest.size();
    const auto [parsed, error] = std::from_chars(rest.data(), end, seconds);
    if (error != std::errc() || parsed != end || !(seconds >= 0 && seconds <= kMostSeconds)) {
        return trail.Fail(fmt::format("\"{}\" is no number of seconds", rest));
    }
    AdvanceClock(static_cast<unsigned>(std::lround(seconds * 1000)));
    TheHost().commands.RunMacros();
}

void DrawPicture(Trail& trail, const std::string& rest) {
    const std::string file = ParseText(rest).text;
    if (file.empty()) return trail.Fail("a file's name belongs behind picture");
    const auto& hook = TheHooks().picture;
    if (!hook) return trail.Fail("nothing here can draw pictures");
    if (const std::string problem = hook(file); !problem.empty()) trail.Fail(problem);
}

void StartPlugin(Trail& trail, const std::string&) {
    CallHook(trail, TheHooks().start, "load the plug-in");
}

void StopPlugin(Trail& trail, const std::string&) {
    CallHook(trail, TheHooks().stop, "unload the plug-in");
}

}  // namespace simhost
