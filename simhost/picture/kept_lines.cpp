// What the lines of a view follow from is kept beside them, by value: a model may be changed,
// erased or fetched again meanwhile.
#include "simhost/picture/kept_lines.h"

#include <cstddef>
#include <deque>
#include <unordered_map>
#include <utility>

namespace simhost {

namespace {

constexpr std::size_t kMostKept = 2'000'000;  // lines, of 40 bytes each

bool AreSame(const Placement& a, const Placement& b) {
    return a.axes == b.axes && a.origin == b.origin;
}

// A part in its place: the number of its solids in Source::solids.
struct Use {
    std::size_t solids;
    Placement placement;
    bool operator==(const Use& other) const {
        return solids == other.solids && AreSame(placement, other.placement);
    }
};

struct Source {
    Placement frame;
    Vec3 at;
    double scale;
    ProDisplayStyle style;
    std::vector<Use> uses;
    std::vector<std::vector<Solid>> solids;

    bool operator==(const Source& other) const {
        return AreSame(frame, other.frame) && at == other.at && scale == other.scale &&
               style == other.style && uses == other.uses && solids == other.solids;
    }
};

Source SourceOf(const Drawing& drawing, const DrawingView& view,
                const std::vector<ShownPart>& parts) {
    Source source{drawing.FrameOf(view), view.at, Drawing::ScaleOf(view),
                  view.display.style,    {},      {}};
    std::unordered_map<const Model*, std::size_t> numbers;
    source.uses.reserve(parts.size());
    for (const ShownPart& part : parts) {
        const auto [number, isNew] = numbers.try_emplace(part.part, numbers.size());
        if (isNew) source.solids.push_back(part.part->partData.solids);
        source.uses.push_back({number->second, part.placement});
    }
    return source;
}

struct Kept {
    Source source;
    std::vector<DrawnLine> lines;
};

}  // namespace

std::vector<DrawnLine> KeptLines(const Drawing& drawing, const DrawingView& view,
                                 const std::vector<ShownPart>& parts,
                                 const std::function<std::vector<DrawnLine>()>& draw) {
    static thread_local std::deque<Kept> all;
    static thread_local std::size_t count = 0;
    Source source = SourceOf(drawing, view, parts);
    for (const Kept& kept : all) {
        if (kept.source == source) return kept.lines;
    }
    std::vector<DrawnLine> lines = draw();
    // A view counts at least as much as its source weighs.
    const auto weightOf = [](const Kept& kept) {
        return kept.lines.size() + 4 * kept.source.uses.size() + 10 * kept.source.solids.size();
    };
    all.push_back({std::move(source), lines});
    count += weightOf(all.back());
    while (count > kMostKept) {
        count -= weightOf(all.front());
        all.pop_front();
    }
    return lines;
}

}  // namespace simhost
