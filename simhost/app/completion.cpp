// What the Tab key offers: the words that can end a line.
#include <algorithm>
#include <cstring>

#include "simhost/app/prompt.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/trail/known_names.h"
#include "simhost/trail/picks.h"
#include "simhost/trail/words.h"

namespace simhost {
namespace {

// Where a word begins for the completion: paths and names of components hold these.
constexpr const char* kWordBreaks = " \t`,/";

// --- What may come where -----------------------------------------------------------------------

std::vector<std::string> PopupLabels() {
    std::vector<std::string> labels;
    if (const Popup* popup = TheHost().commands.popup()) {
        for (const PopupEntry& entry : popup->entries) labels.push_back(Utf8(entry.label));
    }
    return labels;
}

// The components below what the typed path leads to; an assembly ends in the slash after which
// its own components can be typed.
std::vector<std::string> PathSteps(const std::string& typed) {
    const std::size_t comma = typed.find_last_of(", \t");
    const std::string path = comma == std::string::npos ? typed : typed.substr(comma + 1);
    const std::size_t stroke = path.rfind('/');
    std::vector<std::string> names;
    const Model* model = ModelAt(stroke == std::string::npos ? "" : path.substr(0, stroke));
    if (!model) return names;
    for (const auto& [step, feature] : ComponentSteps(*model)) {
        const bool holds = feature->model && !ComponentSteps(*feature->model).empty();
        names.push_back(holds ? step + "/" : step);
    }
    return names;
}

std::vector<std::string> FilesOfTheDialog() {
    std::vector<std::string> names;
    if (const FileQuestion* open = TheHost().desk.fileQuestion) {
        for (const WideText& file : open->files) names.push_back(Utf8(file));
    }
    return names;
}

std::vector<std::string> ForWord(const Word& word, const std::string& typed) {
    const std::string name = word.name;
    if (name == "select" || name == "pick") return PathSteps(typed);
    if (name == "show" && typed.find("tree ") != std::string::npos) return PathSteps(typed);
    const bool ofModel =
        typed.find("units ") != std::string::npos || typed.find("outline ") != std::string::npos;
    if (name == "show" && ofModel) return ModelsInMemory();
    const std::string arguments = word.arguments;
    if (name == "answer") return FilesOfTheDialog();
    if (name == "option" || name == "expect option") return OptionNames();
    if (name == "open") return ModelFiles();
    if (name == "show") return ShowTopics();
    if (name == "right-click") return Commands::PopupNames();
    if (name == "choose" || arguments == "LABEL") return PopupLabels();
    if (arguments == "COMMAND") return TheHost().commands.Names();
    if (name == "expect dialog") return TheHost().dialogs.Existing();
    if (name == "picture" || arguments == "TEXT" || arguments.empty()) return {};
    return ModelsInMemory();
}

// The argument of a trail step that is being typed: 0 right after the verb.
std::vector<std::string> ForStep(const std::string& line) {
    const auto ticks = std::count(line.begin(), line.end(), '`');
    if (ticks == 0) {
        std::vector<std::string> verbs = VerbNames();
        verbs.emplace_back("Command");
        return verbs;
    }
    const std::size_t first = line.find('`');
    if (line.find("Command") < first) return TheHost().commands.Names();
    if (ticks <= 2) {
        std::vector<std::string> names = TheHost().dialogs.Existing();
        names.emplace_back(MainWindow::kName);
        return names;
    }
    const std::string dialog = line.substr(first + 1, line.find('`', first + 1) - first - 1);
    const Dialog* open = TheHost().dialogs.Find(dialog);
    return open ? open->ComponentNames() : std::vector<std::string>();
}

// The beginnings of @ words, and what may follow the one that is there.
std::vector<std::string> ForWords(const std::string& typed) {
    std::vector<std::string> found;
    for (const Word& word : Words()) {
        const std::string name = word.name;
        const std::size_t at = typed.find_last_of(' ');
        const std::string head = at == std::string::npos ? "" : typed.substr(0, at + 1);
        if (name.compare(0, typed.size(), typed) != 0) continue;
        const std::string rest = name.substr(head.size());
        found.push_back(rest.substr(0, rest.find(' ')));
    }
    const Word* word = FindWord(typed, nullptr);
    if (word && typed.size() > std::strlen(word->name)) {
        for (std::string& name : ForWord(*word, typed)) found.push_back(std::move(name));
    }
    return found;
}

}  // namespace

std::string WordAtEnd(const std::string& line) {
    const std::size_t at = line.find_last_of(kWordBreaks);
    return at == std::string::npos ? line : line.substr(at + 1);
}

std::vector<std::string> Completions(const std::string& line) {
    const std::size_t begin = std::min(line.find_first_not_of(" \t"), line.size());
    const std::string text = line.substr(begin);
    std::vector<std::string> words;
    if (!text.empty() && text[0] == '~') {
        const std::size_t semicolon = text.rfind(';');
        words = ForStep(semicolon == std::string::npos ? text : text.substr(semicolon));
    } else {
        const bool at = !text.empty() && text[0] == '@';
        const std::size_t from = at ? std::min(text.find_first_not_of(" \t", 1), text.size()) : 0;
        words = ForWords(text.substr(from));
        if (!at && text.find(' ') == std::string::npos) {
            for (std::string& name : TheHost().commands.Names()) words.push_back(std::move(name));
        }
    }
    const std::string typed = Lower(WordAtEnd(line));
    std::erase_if(words, [&](const std::string& word) {
        return Lower(word).compare(0, typed.size(), typed) != 0;
    });
    std::sort(words.begin(), words.end());
    words.erase(std::unique(words.begin(), words.end()), words.end());
    return words;
}

}  // namespace simhost
