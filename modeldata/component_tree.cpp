// A listing of all components below an assembly.
#include "modeldata/component_tree.h"

#include <string>
#include <utility>

#include "frame/fixed_text.h"
#include "frame/numbers.h"
#include "frame/services.h"
#include "modeldata/keyword_filter.h"
#include "modeldata/parameters.h"

WideText ComponentTreeText;
int ComponentTreeDepth = 0;

namespace {

// Lowers the depth again however the descent ends.
class Descent {
public:
    Descent() { ++ComponentTreeDepth; }
    ~Descent() { --ComponentTreeDepth; }
    Descent(const Descent&) = delete;
    Descent& operator=(const Descent&) = delete;
};

class Listing {
public:
    Listing() { Reset(); }
    ~Listing() { Reset(); }
    Listing(const Listing&) = delete;
    Listing& operator=(const Listing&) = delete;

private:
    static void Reset() {
        ComponentTreeText.clear();
        ComponentTreeDepth = 0;
    }
};

void AddLine(const WideText& name, const WideText& type, int id) {
    ComponentTreeText += name + WIDE(".") + type + WIDE(":") + Digits(id) + WIDE(":") +
                         Digits(ComponentTreeDepth) + WIDE("\n");
}

void VisitBelow(ProMdl assembly, ProAppData outer) {
    ComponentArray components;
    // Without an array of its own this level goes into the caller's: the lines are what counts.
    const ProAppData place = components.Allocate() == PRO_TK_NO_ERROR ? components.Place() : outer;
    const Descent descent;
    ProSolidFeatVisit(static_cast<ProSolid>(assembly), Guarded<ComponentTreeVisitor>,
                      ComponentFilter, place);
}

}  // namespace

ProError ComponentTreeVisitor(ProFeature* feature, ProError, ProAppData data) {
    ProFeatStatus status = PRO_FEAT_ACTIVE;
    ProBoolean visible = PRO_B_FALSE;
    ProFeatureStatusGet(feature, &status);
    ProFeatureVisibilityGet(feature, &visible);
    if (visible != PRO_B_TRUE || status != PRO_FEAT_ACTIVE) return PRO_TK_NO_ERROR;
    ProMdl model = nullptr;
    if (ProAsmcompMdlGet(feature, &model) != PRO_TK_NO_ERROR) return PRO_TK_NO_ERROR;
    ProMdldata about = {};
    ProMdlDataGet(model, &about);
    const WideText type = TextIn(about.type);
    if (type == WIDE("PRT") || type == WIDE("ASM")) {
        AddLine(TextIn(about.name), type, feature->id);
    }
    if (type == WIDE("ASM")) VisitBelow(model, data);
    AppendTo(data, feature);
    return PRO_TK_NO_ERROR;
}

std::optional<WideText> ListComponents(ProMdl assembly) {
    const Listing listing;
    ComponentArray components;
    if (components.Allocate() != PRO_TK_NO_ERROR) return std::nullopt;
    ProSolidFeatVisit(static_cast<ProSolid>(assembly), Guarded<ComponentTreeVisitor>,
                      ComponentFilter, components.Place());
    return std::exchange(ComponentTreeText, {});
}

std::vector<TreeLine> ParseTree(const WideText& listing) {
    std::vector<TreeLine> lines;
    for (const WideText& text : SplitText(listing, '\n')) {
        const std::size_t first = text.find(WideChar{':'});
        const std::size_t last = text.rfind(WideChar{':'});
        if (first == WideText::npos || first == last) continue;
        const WideView line = text;
        lines.push_back({WholeNumber(line.substr(first + 1)), WholeNumber(line.substr(last + 1))});
    }
    return lines;
}
