// The @ words about what is picked in views of drawings, and about dimensions and notes.
#include <fmt/format.h>

#include <charconv>
#include <cmath>

#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/model/dimension_measure.h"
#include "simhost/model/dimension_text.h"
#include "simhost/model/picking.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/words.h"
#include "simhost/ui/text_frame.h"

namespace simhost {
namespace {

Model* CurrentDrawing(Trail& trail) {
    Model* model = TheHost().session.CurrentModel();
    if (model && model->type == PRO_MDL_DRAWING) return model;
    trail.Fail("the current window shows no drawing");
    return nullptr;
}

bool TakeNumber(std::string* rest, double* number) {
    const std::string word = TakeWord(rest);
    const char* end = word.data() + word.size();
    const auto [parsed, error] = std::from_chars(word.data(), end, *number);
    return error == std::errc() && parsed == end && std::isfinite(*number);
}

bool TakeWhole(std::string* rest, int* number) {
    double value = 0;
    if (!TakeNumber(rest, &value) || value != std::floor(value) || std::fabs(value) > 1e9) {
        return false;
    }
    *number = int(value);
    return true;
}

Wait* OpenWait(Trail& trail, Wait::Kind kind, const char* none) {
    Wait* wait = trail.waiting();
    if (wait && wait->kind == kind && !wait->answered) return wait;
    trail.Fail(none);
    return nullptr;
}

Picking* PickThatWaits(Trail& trail) {
    Wait* wait = OpenWait(trail, Wait::Kind::Pick, "no command waits for a pick");
    return wait ? wait->picking : nullptr;
}

// "2/17" as a view and the way to an item of it. The failure has been told.
struct Named {
    const DrawingView* view;
    ItemWay way;
    SeenItem seen;
};
std::optional<Named> FindNamed(Trail& trail, Model& drawing, const std::string& words) {
    const std::size_t slash = words.find('/');
    std::string number = words.substr(0, slash);
    int id = 0;
    const auto way = slash == std::string::npos ? std::nullopt : ParseWay(words.substr(slash + 1));
    if (!way || !TakeWhole(&number, &id)) {
        trail.Fail(fmt::format("\"{}\" is no VIEW/ID such as 2/17 or 2/start#17", words));
        return std::nullopt;
    }
    const DrawingView* view = DrawingOf(drawing).FindView(id);
    if (!view) {
        trail.Fail(fmt::format("the drawing has no view {}", id));
        return std::nullopt;
    }
    const auto seen = SeenIn(*view, *way);
    if (!seen) {
        trail.Fail(fmt::format("view {} shows no {}", id, WordsOf(*way)));
        return std::nullopt;
    }
    return Named{view, *way, *seen};
}

const char* ShapeWord(const SeenItem& item) {
    switch (item.kind) {
        case SeenItem::Kind::Point: return "point";
        case SeenItem::Kind::Line: return "line";
        case SeenItem::Kind::Circle: break;
    }
    return "circle";
}

std::string PlaceText(const DrawingView& view, const SeenItem& item) {
    const auto at = [&](Vec3 point) {
        const Vec3 on = OntoSheet(view, point);
        return fmt::format("{:.1f} {:.1f}", on.x + 0.0, on.y + 0.0);
    };
    if (item.kind == SeenItem::Kind::Line) return at(item.from) + " to " + at(item.to);
    if (item.kind == SeenItem::Kind::Point) return at(item.from);
    return fmt::format("{} radius {:.1f}", at(item.circle.origin),
                       Drawing::ScaleOf(view) * item.radius);
}

}  // namespace

void PickInView(Trail& trail, const std::string& rest) {
    Picking* picking = PickThatWaits(trail);
    Model* drawing = picking ? CurrentDrawing(trail) : nullptr;
    if (!drawing) return;
    std::string words = rest;
    const auto named = FindNamed(trail, *drawing, TakeWord(&words));
    if (!named) return;
    Vec3 point = UsualPointOf(named->seen);
    if (!words.empty()) {
        Vec3 at;
        if (TakeWord(&words) != "at" || !TakeNumber(&words, &at.x) || !TakeNumber(&words, &at.y) ||
            !words.empty()) {
            return trail.Fail("what follows the item is: at X Y");
        }
        point = NearestOf(named->seen, *named->view, at);
    }
    const std::string problem = picking->Take({SelectionOf(*named->view, named->way, point)});
    if (!problem.empty()) trail.Fail(problem);
}

void PickAt(Trail& trail, const std::string& rest) {
    Picking* picking = PickThatWaits(trail);
    if (!picking) return;
    std::string words = rest;
    double x = 0, y = 0;
    if (!TakeNumber(&words, &x) || !TakeNumber(&words, &y) || !words.empty()) {
        return trail.Fail("a point of the sheet is X Y");
    }
    const std::string problem = picking->TakeAt(x, y);
    if (!problem.empty()) return trail.Fail(problem);
    const Selection& taken = picking->taken().front();
    const DrawingView* view = FindView(taken.view);
    trail.Say(fmt::format("picked {}/{}", view ? view->id : 0, WordsOf(WayOf(taken))));
}

void ClickSheet(Trail& trail, const std::string& rest) {
    Wait* wait = OpenWait(trail, Wait::Kind::Click, "no command waits for a click");
    if (!wait) return;
    std::string words = rest;
    Click click;
    if (!TakeNumber(&words, &click.x) || !TakeNumber(&words, &click.y)) {
        return trail.Fail("a click is X Y, and a button if it is not the left one");
    }
    const std::string button = words.empty() ? "left" : words;
    if (button != "left" && button != "middle" && button != "right") {
        return trail.Fail(fmt::format("\"{}\" is no button: left, middle, right", button));
    }
    click.button = button == "left" ? 1 : button == "middle" ? 2 : 4;
    wait->click = click;
    wait->answered = true;
}

void ExpectDimension(Trail& trail, const std::string& rest) {
    Model* drawing = CurrentDrawing(trail);
    if (!drawing) return;
    std::string words = rest;
    int id = 0;
    if (!TakeWhole(&words, &id)) return trail.Fail("a dimension is told by its number");
    Dimension* dimension = AnnotationsOf(*drawing).FindDimension(id);
    const std::string expected = ParseText(words).text;
    std::string found = "none";
    if (dimension && dimension->shown) {
        Remeasure(*drawing, dimension);
        found = PlainText(*dimension, dimension->value);
    }
    if (found != expected) trail.Fail(fmt::format("dimension {} says {}", id, found));
}

void ExpectDimensions(Trail& trail, const std::string& rest) {
    std::string words = rest;
    int expected = 0;
    if (!TakeWhole(&words, &expected) || !words.empty()) {
        return trail.Fail(fmt::format("\"{}\" is no number of dimensions", rest));
    }
    Model* drawing = CurrentDrawing(trail);
    if (!drawing) return;
    const std::size_t found = AnnotationsOf(*drawing).dimensions().size();
    if (found != std::size_t(expected)) {
        trail.Fail(fmt::format("the drawing has {} dimensions", found));
    }
}

void EraseDimension(Trail& trail, const std::string& rest) {
    Model* drawing = CurrentDrawing(trail);
    std::string words = rest;
    int id = 0;
    if (!drawing) return;
    if (!TakeWhole(&words, &id) || !words.empty() || !AnnotationsOf(*drawing).Erase(id)) {
        return trail.Fail(fmt::format("the drawing has no dimension or note {}", rest));
    }
    drawing->modified = true;
}

void AddNote(Trail& trail, const std::string& rest) {
    Model* drawing = CurrentDrawing(trail);
    if (!drawing) return;
    std::string words = rest;
    SheetNote note;
    if (!TakeNumber(&words, &note.at.x) || !TakeNumber(&words, &note.at.y) || words.empty()) {
        return trail.Fail("a note is X Y and its text");
    }
    note.sheet = DrawingOf(*drawing).currentSheet;
    note.text = {Wide(ParseText(words).text)};
    trail.Say(fmt::format("note {}", AnnotationsOf(*drawing).Add(note).id));
    drawing->modified = true;
}

void ShowEdges(Trail& trail, const std::string& rest) {
    Model* drawing = CurrentDrawing(trail);
    if (!drawing) return;
    std::string words = rest;
    int id = 0;
    const bool number = TakeWhole(&words, &id) && words.empty();
    const DrawingView* view = number ? DrawingOf(*drawing).FindView(id) : nullptr;
    if (!view) return trail.Fail(fmt::format("the drawing has no view {}", rest));
    const auto ways =
        ItemsOfView(*view, {PRO_EDGE, kAxis, kSilhouette, PRO_CSYS, kDatumPlane, kPoint});
    for (const ItemWay& way : ways) {
        const SeenItem seen = *SeenIn(*view, way);
        trail.Say(fmt::format("{} {} {}", Padded(fmt::format("{}/{}", id, WordsOf(way)), 24),
                              Padded(ShapeWord(seen), 6), PlaceText(*view, seen)));
    }
    trail.Say(fmt::format("{} items; the ends of an edge are start#ID and end#ID", ways.size()));
}

void ShowDimensions(Trail& trail) {
    Model* drawing = CurrentDrawing(trail);
    if (!drawing) return;
    Annotations& all = AnnotationsOf(*drawing);
    for (auto& [id, dimension] : all.dimensions()) {
        const bool measured = Measure(*drawing, dimension).has_value();
        Remeasure(*drawing, &dimension);
        const DrawingView* view = ViewOf(*drawing, dimension);
        const Vec3 at = view ? PlaceOf(*view, dimension) : dimension.at;
        trail.Say(fmt::format("{:>3} {} view {} at {:.1f} {:.1f}  {}{}{}", id,
                              Padded(KindName(dimension.kind), 10), dimension.view, at.x + 0.0,
                              at.y + 0.0, PlainText(dimension, dimension.value),
                              dimension.shown ? "" : "  (not shown)",
                              measured ? "" : "  (what it measured is gone)"));
    }
    for (const auto& [id, note] : all.notes()) {
        const std::string text = note.text.empty() ? "" : WithSigns(note.text.front());
        trail.Say(fmt::format("{:>3} note       sheet {} at {:.1f} {:.1f}  {}", id, note.sheet,
                              note.at.x, note.at.y, text));
    }
    trail.Say(fmt::format("{} dimensions, {} notes", all.dimensions().size(), all.notes().size()));
}

}  // namespace simhost
