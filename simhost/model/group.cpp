// The solids of a group: once its expressions are worked out, each is read like one of a part, so
// that the same sizes are refused.
#include "simhost/model/group.h"

#include "simhost/model/expression.h"
#include "simhost/model/model_file_group.h"
#include "simhost/model/model_file_sections.h"

namespace simhost {

using namespace model_text;

namespace {

NamedNumbers NumbersOf(const Group& group) {
    NamedNumbers names;
    for (const GroupDimension& each : group.dimensions) names[each.name] = each.value;
    return names;
}

// The text of a solid with numbers in the place of expressions.
std::string WorkedOut(const toml::table& solid, const NamedNumbers& names) {
    return GroupSolidText(solid, [&](const toml::node& node, std::string_view key) {
        const std::string text = Text(node, key);
        try {
            return NumberText(Evaluate(text, names));
        } catch (const ExpressionError& error) {
            Fail(node.source(), error.what());
        }
    });
}

}  // namespace

std::vector<Solid> SolidsOf(const Group& group, const Placement& frame) {
    const NamedNumbers names = NumbersOf(group);
    std::vector<Solid> solids;
    try {
        for (const std::string& text : group.solids) {
            const toml::table written = toml::parse(text, group.name);
            const toml::table table =
                toml::parse("id = 1\n" + WorkedOut(written, names), group.name);
            solids.push_back(Moved(ReadSolid(table), frame));
            solids.back().id = 0;
        }
    } catch (const toml::parse_error& error) {
        Fail(error.source(), std::string(error.description()));
    }
    return solids;
}

Solid Moved(Solid solid, const Placement& frame) {
    const Placement place = Compose(frame, PlacementFrom(solid.at, solid.turn));
    solid.at = place.origin;
    solid.turn = TidyTurnOf(place);
    return solid;
}

}  // namespace simhost
