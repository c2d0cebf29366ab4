// Reads the stories that are told in files.
#include "tests/sweep/told_story.h"

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <tuple>
#include <utility>

#include "simhost/core/disk.h"
#include "simhost/core/text.h"
#include "simhost/trail/lexer.h"
#include "tests/support/desk.h"
#include "tests/support/models.h"
#include "tests/support/places.h"

namespace sweep {

using namespace simhost;
namespace fs = std::filesystem;

namespace {

std::vector<std::string> SplitBy(const std::string& text, const std::string& separator) {
    std::vector<std::string> pieces;
    std::size_t at = 0;
    while (true) {
        const std::size_t end = text.find(separator, at);
        pieces.emplace_back(Trimmed(text.substr(at, end - at)));
        if (end == std::string::npos) return pieces;
        at = end + separator.size();
    }
}

// The first word and the rest.
std::pair<std::string, std::string> FirstWord(const std::string& text) {
    const std::size_t end = std::min(text.find(' '), text.size());
    return {text.substr(0, end), std::string(Trimmed(text.substr(end)))};
}

void WriteRelations(const std::string& rest) {
    const auto [file, lines] = FirstWord(rest);
    Model& model = workbench::ModelNamed(file);
    model.relations.initial.emplace();
    for (const std::string& line : SplitBy(lines, "/")) {
        model.relations.initial->push_back(Wide(line));
    }
}

void AddCsys(const std::string& file) {
    Feature csys;
    csys.type = PRO_FEAT_CSYS;
    csys.placement = PlacementFrom({100, 0, 0}, {90, 0, 0});
    workbench::ModelNamed(file).AddFeature(csys);
}

void WriteTemplate(const std::string& rest) {
    const auto [option, windowsPath] = FirstWord(rest);
    const fs::path path = TheHost().disk.Real(Wide(windowsPath + ".1"));
    fs::create_directories(path.parent_path());
    const bool part = windowsPath.ends_with(".prt");
    WriteFile(path, std::string("[model]\ntype = \"") + (part ? "part" : "assembly") +
                        "\"\n\n[[feature]]\nid = 1\ntype = 979\nat = [0, 0, 5]\n");
    TheHost().configOptions[Wide(option)] = {Wide(windowsPath)};
}

void WriteEmptyFile(const std::string& windowsPath) {
    const fs::path path = TheHost().disk.Real(Wide(windowsPath));
    fs::create_directories(path.parent_path());
    WriteFile(path, "");
}

void WriteLines(const std::string& rest) {
    const auto [windowsPath, lines] = FirstWord(rest);
    std::string text;
    for (const std::string& line : SplitBy(lines, " / ")) text += line + '\n';
    const fs::path path = TheHost().disk.Real(Wide(windowsPath));
    fs::create_directories(path.parent_path());
    WriteFile(path, text);
}

void WriteColumns(const std::string& rest) {
    const std::vector<std::string> lists = SplitBy(rest, "|");
    workbench::WriteBomColumns(lists[0], lists.size() > 1 ? lists[1] : std::string());
}

void WriteSetting(World& world, const std::string& rest) {
    const auto [section, value] = FirstWord(rest);
    world.Setting(section, value);
}

void WriteIni(const std::string& rest) {
    const auto [file, behindFile] = FirstWord(rest);
    const auto [section, behindSection] = FirstWord(behindFile);
    const auto [key, value] = FirstWord(behindSection);
    workbench::WriteIni(file, section, key, value);
}

// The words of a story. Settings and files are there before the plug-in starts.
struct StoryWord {
    const char* name;
    bool beforeStart;
    void (*perform)(World& world, const std::string& rest);
};
const StoryWord kWords[] = {
    {"setting", true, WriteSetting},
    {"ini", true, [](World&, const std::string& rest) { WriteIni(rest); }},
    {"columns", true, [](World&, const std::string& rest) { WriteColumns(rest); }},
    {"file", true, [](World&, const std::string& rest) { WriteEmptyFile(rest); }},
    {"template", false, [](World&, const std::string& rest) { WriteTemplate(rest); }},
    {"csys", false, [](World&, const std::string& rest) { AddCsys(rest); }},
    {"text", true, [](World&, const std::string& rest) { WriteLines(rest); }},
    {"models", false, [](World&, const std::string& rest) { workbench::MakeModels(rest); }},
    {"relations", false, [](World&, const std::string& rest) { WriteRelations(rest); }},
};

const StoryWord* FindWord(const std::string& name) {
    for (const StoryWord& word : kWords) {
        if (name == word.name) return &word;
    }
    return nullptr;
}

// The lines of a story, sorted.
struct Parts {
    std::vector<std::string> preparation;  // % and @ lines as they are
    std::vector<std::string> mustCall;
    std::vector<std::string> fresh;  // files that are removed before the steps
    std::string steps;
};

void TakeLine(const std::string& line, Parts* parts) {
    if (!parts->steps.empty() || line.front() == '~') {
        parts->steps += line + '\n';
    } else if (line.front() == '@') {
        parts->preparation.push_back(line);
    } else if (line.front() == '%') {
        const auto [word, rest] = FirstWord(std::string(Trimmed(line.substr(1))));
        if (word == "reaches") {
            for (const std::string& name : SplitBy(rest, " ")) parts->mustCall.push_back(name);
        } else if (word == "forced") {
            return;  // see ForcedIn
        } else if (word == "fresh") {
            parts->fresh.push_back(rest);
        } else if (FindWord(word)) {
            parts->preparation.push_back(line);
        } else {
            throw std::invalid_argument("a story has no word % " + word);
        }
    } else if (line.front() != '!') {
        throw std::invalid_argument("a line of a story begins with !, %, @ or ~: " + line);
    }
}

Parts Sorted(const std::string& text) {
    Parts parts;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (!Trimmed(line).empty()) TakeLine(line, &parts);
    }
    return parts;
}

void PrepareLines(World& world, const Parts& parts, bool beforeStart) {
    for (const std::string& line : parts.preparation) {
        if (line.front() == '@') {
            if (!beforeStart) world.Play(line);
            continue;
        }
        const auto [name, rest] = FirstWord(std::string(Trimmed(line.substr(1))));
        const StoryWord* word = FindWord(name);
        if (word->beforeStart == beforeStart) word->perform(world, rest);
    }
}

// The commands that a story presses, in the order of their names.
std::vector<std::string> CommandsIn(const std::string& text) {
    const std::string pressing = "~ Command `";
    std::vector<std::string> commands;
    for (std::size_t at = text.find(pressing); at != std::string::npos;
         at = text.find(pressing, at)) {
        at += pressing.size();
        commands.push_back(text.substr(at, text.find('`', at) - at));
    }
    std::sort(commands.begin(), commands.end());
    commands.erase(std::unique(commands.begin(), commands.end()), commands.end());
    return commands;
}

std::vector<Forced> ForcedIn(const std::string& text) {
    std::vector<Forced> forced;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.empty() || line.front() != '%') continue;
        const auto [word, rest] = FirstWord(std::string(Trimmed(line.substr(1))));
        if (word != "forced") continue;
        const auto [failed, complaint] = FirstWord(rest);
        forced.push_back({failed, complaint, "told in the story"});
    }
    return forced;
}

std::vector<ToldStory> ReadStories() {
    std::vector<ToldStory> stories;
    std::error_code none;
    for (const auto& room :
         fs::directory_iterator(fs::path(workbench::kSourceFolder) / "tests", none)) {
        for (const auto& file : fs::directory_iterator(room.path() / "stories", none)) {
            if (file.path().extension() != ".trail") continue;
            const std::string text = ReadFile(file.path());
            stories.push_back({room.path().filename().string(), file.path().stem().string(),
                               CommandsIn(text), text, ForcedIn(text)});
        }
    }
    std::sort(stories.begin(), stories.end(), [](const ToldStory& a, const ToldStory& b) {
        return std::tie(a.room, a.name) < std::tie(b.room, b.name);
    });
    return stories;
}

}  // namespace

const std::vector<ToldStory>& ToldStories() {
    static const std::vector<ToldStory> stories = ReadStories();
    return stories;
}

Story StoryOf(const ToldStory& told) {
    const Parts parts = Sorted(told.text);
    Story story;
    story.name = told.room + "/" + told.name;
    story.prepare = [parts](World& world) {
        PrepareLines(world, parts, /*beforeStart=*/true);
        world.Start();
        PrepareLines(world, parts, /*beforeStart=*/false);
    };
    story.act = [parts](World& world) {
        for (const std::string& file : parts.fresh) {
            fs::remove(world.host().disk.Real(Wide(file)));
        }
        world.Play(parts.steps);
    };
    story.mustCall = parts.mustCall;
    return story;
}

}  // namespace sweep
