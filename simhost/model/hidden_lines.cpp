// A grid on the sheet holds the facets of each cell from the front to the back. An edge goes
// through the cells that it crosses, and leaves each as soon as it is hidden there, or the facets
// to come are all behind it: so what lies deep in a large model costs no more than what lies at its
// front.
#include "simhost/model/hidden_lines.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>

namespace simhost {

namespace {

using Cover = HiddenLineScene::Cover;
using Edge = HiddenLineScene::Edge;

// The part of an edge between two of its points; 0 is its beginning, 1 its end.
struct Span {
    double from, to;
};

// Keeps the part of the span where a value that runs evenly from `a` to `b` is not below 0.
bool Clip(double a, double b, Span* span) {
    if (a < 0 && b < 0) return false;
    if (a >= 0 && b >= 0) return true;
    const double at = a / (a - b);
    if (a < 0) {
        span->from = std::max(span->from, at);
    } else {
        span->to = std::min(span->to, at);
    }
    return span->from < span->to;
}

// The covered parts of one edge, apart from each other and in their order.
class CoveredSpans {
public:
    void Clear() { spans_.clear(); }
    const std::vector<Span>& all() const { return spans_; }

    void Add(Span span) {
        const auto first = std::lower_bound(spans_.begin(), spans_.end(), span.from,
                                            [](Span one, double from) { return one.to < from; });
        auto last = first;
        for (; last != spans_.end() && last->from <= span.to; ++last) {
            span.from = std::min(span.from, last->from);
            span.to = std::max(span.to, last->to);
        }
        if (first == last) {
            spans_.insert(first, span);
        } else {
            *first = span;
            spans_.erase(first + 1, last);
        }
    }

    bool Holds(Span span) const {
        const auto at = std::lower_bound(spans_.begin(), spans_.end(), span.to,
                                         [](Span one, double to) { return one.to < to; });
        return at != spans_.end() && at->from <= span.from;
    }

private:
    std::vector<Span> spans_;
};

// Equal cells along one direction of the sheet.
struct Cells {
    double low = 0, size = 1;
    int count = 1;

    Cells(double from, double to, double wanted) : low(from) {
        constexpr int kMost = 4096;
        if (!(to > from)) return;
        count = std::clamp(int((to - from) / wanted), 1, kMost);
        size = (to - from) / count;
    }
    int Of(double value) const { return std::clamp(int((value - low) / size), 0, count - 1); }
    double Begin(int cell) const { return low + cell * size; }
};

// The covers by their place on the sheet; `touch` is the distance below which things meet.
class CoverGrid {
public:
    CoverGrid(const HiddenLineScene& scene, double touch)
        : scene_(scene), touch_(touch), columns_(0, 0, 1), rows_(0, 0, 1) {
        ChooseCells();
        std::vector<std::size_t> order(scene.covers.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
            const auto &one = scene.covers[a], &other = scene.covers[b];
            return one.top != other.top ? one.top > other.top : a < b;
        });
        // How many covers each cell has, where they begin, and then the covers themselves.
        begins_.assign(std::size_t(columns_.count) * std::size_t(rows_.count) + 1, 0);
        for (const auto& cover : scene.covers) {
            EachCellOf(cover, [&](std::size_t cell) { ++begins_[cell + 1]; });
        }
        std::partial_sum(begins_.begin(), begins_.end(), begins_.begin());
        std::vector<std::size_t> ends(begins_.begin(), begins_.end() - 1);
        inCells_.resize(begins_.back());
        for (const std::size_t index : order) {
            const auto& cover = scene.covers[index];
            EachCellOf(cover, [&](std::size_t cell) { inCells_[ends[cell]++] = &cover; });
        }
    }

    // Calls each(first, last, span) for the cells that an edge crosses: the covers there, from the
    // front to the back, and the part of the edge that is there.
    template <class Each>
    void EachCellAlong(const Edge& edge, Each&& each) const {
        const auto [low, high] = std::minmax(edge.from.y, edge.to.y);
        const int lastRow = rows_.Of(high);
        for (int row = rows_.Of(low); row <= lastRow; ++row) {
            const Span there = Within(edge.from.y, edge.to.y, rows_, row);
            const double x0 = edge.from.x + there.from * (edge.to.x - edge.from.x);
            const double x1 = edge.from.x + there.to * (edge.to.x - edge.from.x);
            const auto [left, right] = std::minmax(x0, x1);
            const int lastColumn = columns_.Of(right);
            for (int column = columns_.Of(left); column <= lastColumn; ++column) {
                Span span = Within(edge.from.x, edge.to.x, columns_, column);
                span = {std::max(span.from, there.from), std::min(span.to, there.to)};
                if (span.from > span.to) continue;
                const std::size_t cell = CellAt(column, row);
                each(inCells_.data() + begins_[cell], inCells_.data() + begins_[cell + 1], span);
            }
        }
    }

private:
    std::size_t CellAt(int column, int row) const {
        return std::size_t(row) * std::size_t(columns_.count) + std::size_t(column);
    }

    // About as large as a cover; larger where large covers are among small ones, so that the
    // entries of all cells stay a small multiple of the covers.
    void ChooseCells() {
        constexpr double kEntries = 8;
        const double count = std::max(1.0, double(scene_.covers.size()));
        double wide = 0, high = 0;
        for (const auto& cover : scene_.covers) {
            wide += (cover.right - cover.left) / count;
            high += (cover.high - cover.low) / count;
        }
        const Extents& box = scene_.box;
        for (double factor = 1;; factor *= 1.5) {
            columns_ = Cells(box.low.x, box.high.x, factor * std::max(wide, touch_));
            rows_ = Cells(box.low.y, box.high.y, factor * std::max(high, touch_));
            double entries = 0;
            for (const auto& cover : scene_.covers) {
                entries += ((cover.right - cover.left) / columns_.size + 1) *
                           ((cover.high - cover.low) / rows_.size + 1);
            }
            if (entries <= kEntries * count || columns_.count * rows_.count == 1) return;
        }
    }

    // What only touches a cell is in it, too.
    template <class Each>
    void EachCellOf(const Cover& cover, Each&& each) const {
        const int right = columns_.Of(cover.right + touch_), top = rows_.Of(cover.high + touch_);
        for (int row = rows_.Of(cover.low - touch_); row <= top; ++row) {
            for (int column = columns_.Of(cover.left - touch_); column <= right; ++column) {
                each(CellAt(column, row));
            }
        }
    }

    // The part of an edge, whose ends have these coordinates, that lies in a row or column.
    Span Within(double from, double to, const Cells& cells, int cell) const {
        if (std::fabs(to - from) < touch_) return {0, 1};
        const double begin = (cells.Begin(cell) - from) / (to - from);
        const double end = (cells.Begin(cell + 1) - from) / (to - from);
        // The border cells reach as far as the edge does, whatever the last digits say.
        const bool up = to > from;
        const double lower = cell == 0 ? (up ? 0 : 1) : begin;
        const double upper = cell == cells.count - 1 ? (up ? 1 : 0) : end;
        const auto [first, last] = std::minmax(lower, upper);
        return {std::max(0.0, first), std::min(1.0, last)};
    }

    const HiddenLineScene& scene_;
    double touch_;
    Cells columns_, rows_;
    std::vector<std::size_t> begins_;  // of each cell in inCells_, and the end of the last one
    std::vector<const Cover*> inCells_;
};

// Cuts edges where they go under covers.
class EdgeSplitter {
public:
    EdgeSplitter(const HiddenLineScene& scene, double touch, bool withHidden)
        : scene_(scene), grid_(scene, touch), touch_(touch), withHidden_(withHidden) {}

    void AddPieces(const Edge& edge, std::vector<DrawnLine>* lines) {
        if (std::hypot(edge.to.x - edge.from.x, edge.to.y - edge.from.y) < Least()) return;
        covered_.Clear();
        grid_.EachCellAlong(edge, [&](auto* const* cover, auto* const* end, Span span) {
            const double depth = std::min(DepthAt(edge, span.from), DepthAt(edge, span.to));
            for (; cover != end && (*cover)->top > depth + touch_; ++cover) {
                if (covered_.Holds(span)) return;
                if (const auto under = CoveredBy(edge, **cover)) covered_.Add(*under);
            }
        });
        double at = 0;
        for (const Span& under : covered_.all()) {
            AddLine(edge, {at, under.from}, /*hidden=*/false, lines);
            if (withHidden_) AddLine(edge, under, /*hidden=*/true, lines);
            at = under.to;
        }
        AddLine(edge, {at, 1}, /*hidden=*/false, lines);
    }

private:
    double Least() const { return 10 * touch_; }

    static double DepthAt(const Edge& edge, double at) {
        return edge.from.z + at * (edge.to.z - edge.from.z);
    }

    std::optional<Span> CoveredBy(const Edge& edge, const Cover& cover) const {
        Span span{0, 1};
        const auto before = [&](Vec3 p) {
            return cover.level + cover.slopeX * p.x + cover.slopeY * p.y - p.z - touch_;
        };
        if (!Clip(before(edge.from), before(edge.to), &span)) return std::nullopt;
        for (std::size_t i = 0; i < cover.sideCount; ++i) {
            const auto& side = scene_.sides[cover.firstSide + i];
            const auto inside = [&](Vec3 p) {
                return side.inX * (p.x - side.x) + side.inY * (p.y - side.y) + touch_;
            };
            if (!Clip(inside(edge.from), inside(edge.to), &span)) return std::nullopt;
        }
        return span;
    }

    void AddLine(const Edge& edge, Span span, bool hidden, std::vector<DrawnLine>* lines) const {
        const Vec3 way = edge.to - edge.from;
        if (std::hypot(way.x, way.y) * (span.to - span.from) < Least()) return;
        const Vec3 a = edge.from + span.from * way, b = edge.from + span.to * way;
        lines->push_back({a.x, a.y, b.x, b.y, hidden});
    }

    const HiddenLineScene& scene_;
    CoverGrid grid_;
    double touch_;
    bool withHidden_;
    CoveredSpans covered_;
};

}  // namespace

void HiddenLineScene::AddEdge(Vec3 from, Vec3 to) {
    box.Add(from);
    box.Add(to);
    edges.push_back({from, to});
}

void HiddenLineScene::AddCover(const std::vector<Vec3>& corners, Vec3 normal) {
    Cover cover{};
    cover.slopeX = -normal.x / normal.z;
    cover.slopeY = -normal.y / normal.z;
    cover.level = corners[0].z - cover.slopeX * corners[0].x - cover.slopeY * corners[0].y;
    cover.firstSide = sides.size();
    Extents around;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Vec3 a = corners[i], b = corners[(i + 1) % corners.size()];
        around.Add(a);
        const double length = std::hypot(b.x - a.x, b.y - a.y);
        if (length > 0) sides.push_back({a.x, a.y, (a.y - b.y) / length, (b.x - a.x) / length});
    }
    box.Add(around.low);
    box.Add(around.high);
    cover.sideCount = sides.size() - cover.firstSide;
    cover.left = around.low.x;
    cover.low = around.low.y;
    cover.right = around.high.x;
    cover.high = around.high.y;
    cover.top = around.high.z;
    covers.push_back(cover);
}

std::vector<DrawnLine> PiecesOf(const HiddenLineScene& scene, bool withHidden) {
    const Vec3 size = scene.box.high - scene.box.low;
    const double touch = 1e-6 * (1 + std::sqrt(Dot(size, size)));
    std::vector<DrawnLine> lines;
    EdgeSplitter splitter(scene, touch, withHidden);
    for (const Edge& edge : scene.edges) splitter.AddPieces(edge, &lines);
    return lines;
}

}  // namespace simhost
