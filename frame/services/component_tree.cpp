// A listing of all components below an assembly.
#include "frame/services/component_tree.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "frame/services/assembly_walk.h"
#include "frame/services/fixed_text.h"
#include "frame/services/guard.h"
#include "frame/services/models.h"
#include "frame/services/numbers.h"

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

void AddNumber(WideChar before, int number) {
    char digits[12];
    const char* const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    ComponentTreeText += before;
    for (const char* digit = digits; digit < end; ++digit) ComponentTreeText += WideChar(*digit);
}

// Piece by piece: large assemblies have many lines.
void AddLine(WideView name, WideView type, int id) {
    ComponentTreeText += name;
    ComponentTreeText += WideChar{'.'};
    ComponentTreeText += type;
    AddNumber(':', id);
    AddNumber(':', ComponentTreeDepth);
    ComponentTreeText += WideChar{'\n'};
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
    if (!IsShown(feature)) return PRO_TK_NO_ERROR;
    ProMdl model = nullptr;
    if (ProAsmcompMdlGet(feature, &model) != PRO_TK_NO_ERROR) return PRO_TK_NO_ERROR;
    ProMdldata about = {};
    ProMdlDataGet(model, &about);
    const WideView type = ViewIn(about.type);
    if (type == WIDE("PRT") || type == WIDE("ASM")) {
        AddLine(ViewIn(about.name), type, feature->id);
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

bool TakeTreeLine(WideView* listing, TreeLine* line) {
    while (!listing->empty()) {
        const std::size_t end = std::min(listing->find(WideChar{'\n'}), listing->size());
        const WideView text = listing->substr(0, end);
        listing->remove_prefix(std::min(end + 1, listing->size()));
        const std::size_t first = text.find(WideChar{':'});
        const std::size_t last = text.rfind(WideChar{':'});
        if (first == WideView::npos || first == last) continue;
        *line = {text.substr(0, first), WholeNumber(text.substr(first + 1)),
                 WholeNumber(text.substr(last + 1))};
        if (line->depth >= 0) return true;
    }
    return false;
}
