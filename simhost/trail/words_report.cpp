// The @ words that make a script's transcript a report: titles, tables of what changed, and files
// that are handed out.
#include <fmt/format.h>

#include "simhost/core/text.h"
#include "simhost/trail/hooks.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/words.h"
#include "simhost/ui/near_name.h"

namespace simhost {
namespace {

std::vector<std::string> SplitAtCommas(const std::string& text) {
    std::vector<std::string> pieces;
    for (std::size_t from = 0; from <= text.size();) {
        const std::size_t comma = std::min(text.find(',', from), text.size());
        const std::string piece(Trimmed(std::string_view(text).substr(from, comma - from)));
        if (!piece.empty()) pieces.push_back(piece);
        from = comma + 1;
    }
    return pieces;
}

}  // namespace

void ShowTitle(Trail& trail, const std::string& rest) {
    trail.Say(fmt::format("== {}", rest));
    if (TheHooks().title) TheHooks().title(rest);
}

void RememberFacts(Trail& trail, const std::string& rest) {
    const std::size_t colon = rest.find(':');
    const auto facts = SplitAtCommas(colon == std::string::npos ? "" : rest.substr(colon + 1));
    if (facts.empty()) {
        return trail.Fail("a label, a colon and facts must follow remember: before: colour, 数量");
    }
    std::string label(Trimmed(std::string_view(rest).substr(0, colon)));
    std::vector<Model*> models;
    constexpr std::string_view kOf = " of ";
    if (const std::size_t of = label.rfind(kOf); of != std::string::npos) {
        for (const std::string& file : SplitAtCommas(label.substr(of + kOf.size()))) {
            models.push_back(InMemory(trail, file));
            if (!models.back()) return;
        }
        label.erase(of);
    }
    trail.facts.Take(models.empty() ? TheHost().session.All() : models, label, facts);
}

void ShowFactTable(Trail& trail, const std::string&) {
    if (trail.facts.empty()) return trail.Fail("nothing was remembered; remember comes first");
    trail.SayAll(trail.facts.Lines());
}

void EraseModel(Trail& trail, const std::string& rest) {
    Session& session = TheHost().session;
    const std::string file = ParseText(rest).text;
    Model* model = session.FindByFile(file);
    if (model) return session.Erase(*model);
    std::vector<std::string> names;
    for (const Model* other : session.All()) names.push_back(other->FileName());
    trail.Fail(fmt::format("the model {} is not in memory{}", file, DidYouMean(file, names)));
}

void HandOut(Trail& trail, const std::string& rest) {
    if (!TheHooks().handOut) return trail.Fail("nothing here takes files");
    const auto real = TheHost().disk.Real(Wide(ParseText(rest).text));
    if (real.empty()) return trail.Fail(fmt::format("{} is no file of drive C", rest));
    if (const std::string problem = TheHooks().handOut(real); !problem.empty()) {
        trail.Fail(problem);
    }
}

void RunScriptFile(Trail& trail, const std::string& rest) {
    if (!TheHooks().script) return trail.Fail("nothing here runs scripts");
    std::string file = rest;
    const std::string script = TakeWord(&file);
    const auto real = TheHost().disk.Real(Wide(ParseText(file).text));
    if (real.empty()) return trail.Fail(fmt::format("{} is no file of drive C", file));
    if (const std::string problem = TheHooks().script(script, real); !problem.empty()) {
        trail.Fail(problem);
    }
}

}  // namespace simhost
