// The @ words about models, windows, folders, settings and the plug-in itself.
#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <filesystem>

#include "hostapi/windows.h"
#include "simhost/app/the_plugin.h"
#include "simhost/core/text.h"
#include "simhost/model/model_file.h"
#include "simhost/system/clock.h"
#include "simhost/trail/hooks.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/known_names.h"
#include "simhost/trail/picks.h"
#include "simhost/trail/words.h"
#include "simhost/ui/near_name.h"
#include "simhost/ui/replace_dialog.h"
#include "simhost/user/progress.h"

namespace simhost {

Model* InMemory(Trail& trail, const std::string& file) {
    Model* model = TheHost().session.FindByFile(file);
    if (!model) {
        trail.Fail(fmt::format("the model {} is not in memory{}", file,
                               DidYouMean(file, ModelsInMemory())));
    }
    return model;
}

namespace {

void SaveOne(Trail& trail, Model& model) {
    TheHost().session.Save(model);
    trail.Say(fmt::format("saved {}.{}", model.FileName(), model.version));
}

// The folder of the loaded plug-in; before it is loaded, the folder that the host knows of it.
WideText ModuleFolder() {
    const HMODULE module = GetModuleHandleW(the_plugin::kModule.data());
    if (!module) return TheHost().textFolder;
    WideChar buffer[MAX_PATH] = {};
    const WideText path(buffer, GetModuleFileNameW(module, buffer, MAX_PATH));
    return path.substr(0, path.find_last_of(WIDE('\\')));
}

// Whether the hook did it.
bool CallHook(Trail& trail, const std::function<std::string()>& hook, const char* what) {
    const std::string problem = hook ? hook() : fmt::format("nothing here can {}", what);
    if (!problem.empty()) trail.Fail(problem);
    return problem.empty();
}

// What can be opened: files, and models that are only in memory.
std::vector<std::string> ModelsToOpen() {
    std::vector<std::string> names = ModelFiles();
    for (std::string& name : ModelsInMemory()) names.push_back(std::move(name));
    return names;
}

std::string Listed(const std::vector<std::string>& names) {
    std::string all;
    for (const std::string& name : names) all += (all.empty() ? "" : ", ") + name;
    return all;
}

// Whether the plug-in can ask for this setting; what is wrong has been told.
bool IsSetting(Trail& trail, const WideText& path, const std::string& section,
               const std::string& key) {
    const auto names = IniNames(path);
    if (names.empty()) return true;  // the file was deleted: any section is a new one
    std::vector<std::string> sections;
    for (const auto& [name, keys] : names) {
        sections.push_back(name);
        if (Lower(name) != Lower(section)) continue;
        for (const std::string& each : keys) {
            if (Lower(each) == Lower(key)) return true;
        }
        trail.Fail(fmt::format("the section {} has no key {}; it has {}", name, key, Listed(keys)));
        return false;
    }
    trail.Fail(
        fmt::format("VxConfig.ini has no section {}{}", section, DidYouMean(section, sections)));
    return false;
}

// A value that the settings dialog does not offer is legal: its reader takes it for another.
void NoteUnknownValue(Trail& trail, const std::string& section, const std::string& value) {
    const std::vector<std::string> known = SettingValues(section);
    if (known.empty() || std::find(known.begin(), known.end(), value) != known.end()) return;
    trail.Say(fmt::format("note: \"{}\" is no usual value of {} ({}){}", value, section,
                          Listed(known), DidYouMean(value, known)));
}

void Draw(Trail& trail, const std::string& rest, bool asOnScreen) {
    const std::string file = ParseText(rest).text;
    if (file.empty()) return trail.Fail("a file's name belongs after picture");
    const auto& hook = TheHooks().picture;
    if (!hook) return trail.Fail("nothing here can draw pictures");
    if (const std::string problem = hook(file, asOnScreen); !problem.empty()) trail.Fail(problem);
}

}  // namespace

void OpenModel(Trail& trail, const std::string& rest) {
    const std::string file = ParseText(rest).text;
    if (file.empty()) return trail.Fail("a file's name belongs after open");
    Session& session = TheHost().session;
    Model* model = session.Retrieve(
        file, [](std::size_t done, std::size_t all) { WorkStep("opening", done, all); });
    if (!model) {
        return trail.Fail(fmt::format("there is no {} in {}{}", file,
                                      Utf8(session.workingDirectory),
                                      DidYouMean(file, ModelsToOpen())));
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
    if (folder.empty()) return trail.Fail("a folder's name belongs after directory");
    while (folder.size() > 3 && (folder.back() == '\\' || folder.back() == '/')) folder.pop_back();
    const std::filesystem::path real = TheHost().disk.Real(folder);
    std::error_code error;
    if (real.empty() || !std::filesystem::is_directory(real, error)) {
        return trail.Fail(fmt::format("there is no folder {}", rest));
    }
    TheHost().session.workingDirectory = folder;
}

void SaveModel(Trail& trail, const std::string& rest) {
    Model* model = TheHost().session.CurrentModel();
    if (rest.empty() && !model) return trail.Fail("no model is open");
    if (!rest.empty()) model = InMemory(trail, ParseText(rest).text);
    if (model) SaveOne(trail, *model);
}

// One that cannot be saved does not keep the others from it.
void SaveAllModels(Trail& trail, const std::string&) {
    std::string left;
    std::size_t count = 0;
    const std::vector<Model*> models = TheHost().session.All();
    for (std::size_t i = 0; i < models.size(); ++i) {
        WorkStep("saving", i, models.size());
        if (!models[i]->modified && !models[i]->folder.empty()) continue;
        try {
            SaveOne(trail, *models[i]);
        } catch (const ModelFileError& error) {
            trail.Say(error.what());
            left += (left.empty() ? "" : ", ") + models[i]->FileName();
            ++count;
        }
    }
    if (count > 0) trail.Fail(fmt::format("not saved: {} ({} in all)", left, count));
}

void WriteSetting(Trail& trail, const std::string& rest) {
    std::string left = rest;
    const std::string section = TakeWord(&left);
    const std::string key = TakeWord(&left);
    if (section.empty() || key.empty()) {
        return trail.Fail("a setting is SECTION KEY VALUE, such as RmbDisable value 0");
    }
    const WideText path = ModuleFolder() + WIDE("\\") + WideText(the_plugin::kSettingsFile);
    if (!IsSetting(trail, path, section, key)) return;
    const std::string value = ParseText(left).text;
    NoteUnknownValue(trail, section, value);
    if (!WritePrivateProfileStringW(Wide(section).c_str(), Wide(key).c_str(), Wide(value).c_str(),
                                    path.c_str())) {
        trail.Fail(fmt::format("cannot write {}", Utf8(path)));
    }
}

void WaitSeconds(Trail& trail, const std::string& rest) {
    constexpr double kMostSeconds = 1e6;
    double seconds = 0;
    const char* end = rest.data() + rest.size();
    const auto [parsed, error] = std::from_chars(rest.data(), end, seconds);
    if (rest.empty()) return trail.Fail("a number of seconds belongs after wait");
    if (error != std::errc() || parsed != end || !(seconds >= 0 && seconds <= kMostSeconds)) {
        return trail.Fail(fmt::format("\"{}\" is no number of seconds", rest));
    }
    AdvanceClock(static_cast<unsigned>(std::lround(seconds * 1000)));
    TheHost().commands.RunMacros();
}

void SetTime(Trail& trail, const std::string& rest) {
    if (rest.empty()) return SetClock(std::nullopt);
    std::int64_t seconds = 0;
    const char* end = rest.data() + rest.size();
    const auto [parsed, error] = std::from_chars(rest.data(), end, seconds);
    if (error != std::errc() || parsed != end || seconds < 0) {
        return trail.Fail(fmt::format("\"{}\" is no number of seconds since 1970", rest));
    }
    SetClock(seconds);
}

void DrawPicture(Trail& trail, const std::string& rest) {
    Draw(trail, rest, /*asOnScreen=*/false);
}

void DrawScreen(Trail& trail, const std::string& rest) {
    Draw(trail, rest, /*asOnScreen=*/true);
}

void StartPlugin(Trail& trail, const std::string& rest) {
    if (IsLoaded() == true) return trail.Say("the plug-in is loaded already");
    const std::string version = ParseText(rest).text;
    if (!version.empty()) HostVersion() = version;
    // Without the plug-in each line of a script that follows would fail as well.
    if (!CallHook(trail, TheHooks().start, "load the plug-in") && !trail.patient()) trail.Stop();
}

void StopPlugin(Trail& trail, const std::string&) {
    if (IsLoaded() == false) return trail.Say("the plug-in is not loaded");
    CallHook(trail, TheHooks().stop, "unload the plug-in");
}

}  // namespace simhost
