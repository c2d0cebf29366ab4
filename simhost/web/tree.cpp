// The components of the current model as a flat list in tree order, with the paths that select
// takes.
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

#include "simhost/host.h"
#include "simhost/model/shown.h"
#include "simhost/model/simprep.h"
#include "simhost/picture/isometric.h"
#include "simhost/trail/picks.h"
#include "simhost/web/answers.h"
#include "simhost/web/json_text.h"

namespace simhost {
namespace {

// "#3f66f1": what a style sheet takes.
std::string ColourOf(const ProdbSurfaceProps& props) {
    const auto part = [](double value) {
        return int(std::lround(255 * std::min(1.0, std::max(0.0, value))));
    };
    return fmt::format("#{:02x}{:02x}{:02x}", part(props.colour[0]), part(props.colour[1]),
                       part(props.colour[2]));
}

struct TreeWalk {
    Json* rows;

    void Below(const Model& model, const std::string& path, Membership::At at, bool shown) {
        for (const auto& [step, feature] : ComponentSteps(model)) {
            const Model* below = feature->model;
            const std::string here = path.empty() ? step : path + "/" + step;
            const Membership::At member = Membership::Below(at, feature->id);
            const bool there = feature->status == PRO_FEAT_ACTIVE && feature->visible &&
                               Membership::IsThere(member);
            const bool seen = shown && there && !feature->hidden;
            Json row = {{"path", here}, {"file", feature->file}};
            if (below && !below->title.empty()) row["title"] = below->title;
            if (!below) row["missing"] = true;
            if (!there) row["absent"] = true;
            if (feature->hidden) row["hidden"] = true;
            if (!seen) row["unseen"] = true;
            if (below && below->appearance) {
                row["colour"] = ColourOf(*below->appearance);
                if (below->appearance->transparency > 0)
                    row["transparency"] = below->appearance->transparency;
            }
            rows->push_back(std::move(row));
            if (below) Below(*below, here, member, seen);
        }
    }
};

}  // namespace

Reply TreeNow(const Seat&, const Query&) {
    Json rows = Json::array();
    const Model* current = ModelAt("");
    std::string representation;
    if (current) {
        const Simprep* active = current->ActiveSimprep();
        if (active) representation = Text(active->name);
        const Membership membership(active);
        TreeWalk{&rows}.Below(*current, "", membership.Top(), /*shown=*/true);
    }
    const Json tree = {{"top", current ? Json(current->FileName()) : Json(nullptr)},
                       {"title", current ? current->title : std::string()},
                       {"representation", representation},
                       {"rows", std::move(rows)}};
    return {200, Reply().type, Dump(tree), {}};
}

}  // namespace simhost
