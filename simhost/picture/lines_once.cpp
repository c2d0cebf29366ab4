// Lines are sorted by their direction and by their distance from the sheet's corner. Those that
// agree in both are on one straight line, along which they are intervals.
#include "simhost/picture/lines_once.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <utility>

namespace simhost {

namespace {

// Directions closer than this are one, in radians: lines of a metre part by a thousandth of a mm.
constexpr double kSameTurn = 1e-6;

struct Interval {
    double angle;      // of the straight line, in [-0.001, pi - 0.001)
    double offset;     // of the straight line from the sheet's corner
    double from, to;   // along the straight line
    bool backwards;    // the drawn line runs against it
    std::size_t line;  // which line it was first
    double Length() const { return to - from; }
};
using Intervals = std::vector<Interval>;

// Level and upright lines must not be divided by their last digits: no direction that drawings are
// full of is where the angles begin.
double AngleOf(const DrawnLine& line) {
    constexpr double kBegin = -0.001;
    const double angle = std::atan2(line.y1 - line.y0, line.x1 - line.x0);
    if (angle < kBegin) return angle + std::numbers::pi;
    return angle < kBegin + std::numbers::pi ? angle : angle - std::numbers::pi;
}

// Puts the intervals [begin, end), whose directions are one, on straight lines of that direction:
// the longest one's, which is known best.
void Align(const std::vector<DrawnLine>& lines, Intervals::iterator begin,
           Intervals::iterator end) {
    const double angle = std::max_element(begin, end, [](const Interval& a, const Interval& b) {
                             return a.Length() < b.Length();
                         })->angle;
    const double wayX = std::cos(angle), wayY = std::sin(angle);
    for (auto each = begin; each != end; ++each) {
        const DrawnLine& line = lines[each->line];
        const double a = wayX * line.x0 + wayY * line.y0, b = wayX * line.x1 + wayY * line.y1;
        each->offset = (wayX * (line.y0 + line.y1) - wayY * (line.x0 + line.x1)) / 2;
        each->angle = angle;
        each->from = std::min(a, b);
        each->to = std::max(a, b);
        each->backwards = b < a;
    }
}

// Joins what overlaps; sorted by their beginnings.
void Join(Intervals* intervals) {
    std::sort(intervals->begin(), intervals->end(), [](const Interval& a, const Interval& b) {
        return a.from != b.from ? a.from < b.from : a.line < b.line;
    });
    std::size_t count = 0;
    for (const Interval& next : *intervals) {
        Interval* const last = count > 0 ? &(*intervals)[count - 1] : nullptr;
        const bool within = last && next.to < last->to + kSameLine;
        if (!within && (!last || next.from > last->to - kSameLine)) {
            (*intervals)[count++] = next;
            continue;
        }
        last->to = std::max(last->to, next.to);
        if (next.line < last->line) {
            last->line = next.line;
            last->backwards = next.backwards;
        }
    }
    intervals->resize(count);
}

// What the visible intervals leave of the hidden ones; both are joined.
Intervals Uncovered(const Intervals& hidden, const Intervals& visible) {
    Intervals left;
    auto first = visible.begin();
    for (Interval rest : hidden) {
        while (first != visible.end() && first->to <= rest.from) ++first;
        for (auto over = first; over != visible.end() && over->from < rest.to; ++over) {
            if (over->from - rest.from > kSameLine) {
                left.push_back(rest);
                left.back().to = over->from;
            }
            rest.from = std::max(rest.from, over->to);
        }
        if (rest.Length() > kSameLine) left.push_back(rest);
    }
    return left;
}

class OnceEach {
public:
    explicit OnceEach(const std::vector<DrawnLine>& lines) : lines_(lines) {}

    std::vector<DrawnLine> Result() {
        Intervals all;
        all.reserve(lines_.size());
        for (std::size_t i = 0; i < lines_.size(); ++i) {
            const DrawnLine& line = lines_[i];
            const double length = std::hypot(line.x1 - line.x0, line.y1 - line.y0);
            if (length > 0) all.push_back({AngleOf(line), 0, 0, length, false, i});
        }
        EachGroup(&all, &Interval::angle, kSameTurn, [&](auto begin, auto end) {
            Align(lines_, begin, end);
            Intervals parallel(begin, end);
            EachGroup(&parallel, &Interval::offset, kSameLine,
                      [&](auto first, auto last) { AddStraight(first, last); });
        });
        std::sort(made_.begin(), made_.end(),
                  [](const Made& a, const Made& b) { return a.order < b.order; });
        std::vector<DrawnLine> result;
        result.reserve(made_.size());
        for (const Made& each : made_) result.push_back(each.line);
        return result;
    }

private:
    struct Made {
        std::pair<std::size_t, double> order;
        DrawnLine line;
    };

    // Sorts by a number and hands out the groups in which it differs by no more than `apart`.
    template <class Each>
    static void EachGroup(Intervals* all, double Interval::*number, double apart, Each&& each) {
        std::sort(all->begin(), all->end(), [&](const Interval& a, const Interval& b) {
            return a.*number != b.*number ? a.*number < b.*number : a.line < b.line;
        });
        for (auto begin = all->begin(); begin != all->end();) {
            auto end = begin;
            const double limit = (*begin).*number + apart;
            while (end != all->end() && (*end).*number <= limit) ++end;
            each(begin, end);
            begin = end;
        }
    }

    // All that lies on one straight line.
    void AddStraight(Intervals::iterator begin, Intervals::iterator end) {
        if (end - begin == 1) return Add(*begin);
        Intervals visible, hidden;
        for (auto each = begin; each != end; ++each) {
            (lines_[each->line].hidden ? hidden : visible).push_back(*each);
        }
        Join(&visible);
        Join(&hidden);
        for (const Interval& each : visible) Add(each);
        for (const Interval& each : Uncovered(hidden, visible)) Add(each);
    }

    void Add(const Interval& piece) {
        const DrawnLine& from = lines_[piece.line];
        const double order = piece.backwards ? -piece.from : piece.from;
        made_.push_back({{piece.line, order}, Drawn(piece, from)});
    }

    // The line itself, to the last digit, unless it was cut or joined with others.
    static DrawnLine Drawn(const Interval& piece, const DrawnLine& first) {
        const double wayX = std::cos(piece.angle), wayY = std::sin(piece.angle);
        const double a = wayX * first.x0 + wayY * first.y0, b = wayX * first.x1 + wayY * first.y1;
        const double begin = piece.backwards ? piece.to : piece.from;
        const double end = piece.backwards ? piece.from : piece.to;
        DrawnLine line = first;
        line.x0 += (begin - a) * wayX;
        line.y0 += (begin - a) * wayY;
        line.x1 += (end - b) * wayX;
        line.y1 += (end - b) * wayY;
        return line;
    }

    const std::vector<DrawnLine>& lines_;
    std::vector<Made> made_;
};

}  // namespace

void KeepEachLineOnce(std::vector<DrawnLine>* lines) {
    *lines = OnceEach(*lines).Result();
}

}  // namespace simhost
