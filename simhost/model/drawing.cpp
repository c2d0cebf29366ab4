// Views of drawings: where they are, what they show, and how projections follow their parents.
#include "simhost/model/drawing.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "simhost/core/handles.h"
#include "simhost/core/text.h"
#include "simhost/model/model_file.h"
#include "simhost/model/projection.h"
#include "simhost/model/screen_view.h"
#include "simhost/model/session.h"

namespace simhost {

namespace {

constexpr const char* kSideNames[] = {"", "below", "above", "left", "right"};

struct NamedSize {
    const char* name;
    SheetSize size;
};
constexpr NamedSize kSizes[] = {
    {"A0", {1189, 841}}, {"A1", {841, 594}}, {"A2", {594, 420}},
    {"A3", {420, 297}},  {"A4", {210, 297}}, {"A4H", {297, 210}},
};

// For all drawings of the process: handles are never given twice, and views leave it when they go.
HandleTable<DrawingView>& Views() {
    static auto* views = new HandleTable<DrawingView>(HandleKind::View);
    return *views;
}

// How what the parent shows has to be turned for a view on this side. By the third-angle rule the
// view above shows the top: what points up in the parent comes towards the viewer. The first-angle
// rule shows the opposite.
Placement TurnedTo(Side side, ProjectionRule rule, const Placement& parent) {
    const double way = rule == ProjectionRule::ThirdAngle ? 90 : -90;
    switch (side) {
        case Side::Above: return Turned(parent, 0, way);
        case Side::Below: return Turned(parent, 0, -way);
        case Side::Left: return Turned(parent, 1, way);
        case Side::Right: return Turned(parent, 1, -way);
        case Side::None: break;
    }
    return parent;
}

bool IsUpright(Side side) {
    return side == Side::Below || side == Side::Above;
}

Vec3 MiddleOf(const Model& model) {
    const Extents box = ExtentsIn(model, Placement(), Sight::Views);
    return 0.5 * (box.low + box.high);
}

}  // namespace

const char* SideName(Side side) {
    return kSideNames[std::size_t(side)];
}

bool ParseSide(const std::string& word, Side* side) {
    for (std::size_t i = 1; i < std::size(kSideNames); ++i) {
        if (word != kSideNames[i]) continue;
        *side = Side(i);
        return true;
    }
    return false;
}

SheetSize SizeOfSheet(const WideText& name) {
    const std::string utf8 = Utf8(name);
    for (const NamedSize& row : kSizes) {
        if (utf8 == row.name) return row.size;
    }
    return kSizes[0].size;
}

Drawing::~Drawing() {
    for (const auto& view : views_) Views().Drop(view->handle);
}

DrawingView& Drawing::Add(DrawingView view) {
    if (view.id == 0) {
        for (const auto& other : views_) view.id = std::max(view.id, other->id);
        ++view.id;
    }
    views_.push_back(std::make_unique<DrawingView>(std::move(view)));
    DrawingView& added = *views_.back();
    added.drawing = &model_;
    added.handle = static_cast<ProView>(Views().Add(&added));
    if (!added.file.empty()) model_.drawingData.AddSolid(added.file);
    return added;
}

DrawingView* Drawing::FindView(int id) const {
    for (const auto& view : views_) {
        if (view->id == id) return view.get();
    }
    return nullptr;
}

DrawingView& Drawing::AddGeneral(Model& shown, int sheet, Vec3 at, double scale,
                                 const Placement& orientation) {
    DrawingView view;
    view.model = shown.handle;
    view.file = shown.FileName();
    view.sheet = sheet;
    view.pivot = MiddleOf(shown);
    view.at = at;
    view.scale = scale;
    view.ownScale = true;
    view.orientation = orientation;
    view.orientation.origin = {};
    DrawingView& added = Add(std::move(view));
    Regenerate(added);
    return added;
}

DrawingView* Drawing::AddProjected(DrawingView& parent, Vec3 at) {
    constexpr double kApart = 1e-6;
    const Vec3 off = at - parent.at;
    if (std::hypot(off.x, off.y) < kApart) return nullptr;
    DrawingView view;
    if (std::fabs(off.x) >= std::fabs(off.y)) {
        view.side = off.x > 0 ? Side::Right : Side::Left;
    } else {
        view.side = off.y > 0 ? Side::Above : Side::Below;
    }
    view.model = parent.model;
    view.file = parent.file;
    view.sheet = parent.sheet;
    view.parent = &parent;
    view.pivot = parent.pivot;
    view.at = IsUpright(view.side) ? Vec3{parent.at.x, at.y, 0} : Vec3{at.x, parent.at.y, 0};
    view.display = parent.display;
    DrawingView& added = Add(std::move(view));
    Regenerate(added);
    return &added;
}

void Drawing::Move(DrawingView& view, Vec3 by) {
    if (view.parent) by = IsUpright(view.side) ? Vec3{0, by.y, 0} : Vec3{by.x, 0, 0};
    const auto hangsOn = [&](const DrawingView* one) {
        while (one && one != &view) one = one->parent;
        return one != nullptr;
    };
    for (const auto& one : views_) {
        if (hangsOn(one.get())) one->at = one->at + Vec3{by.x, by.y, 0};
    }
}

void Drawing::Regenerate(DrawingView& view) {
    Extents outline;
    const Model* model = ModelOf(view);
    const Extents framed = model ? ExtentsIn(*model, FrameOf(view), Sight::Views) : Extents();
    outline.Add(ToSheet(view, framed.empty ? Vec3() : framed.low));
    outline.Add(ToSheet(view, framed.empty ? Vec3() : framed.high));
    view.outline = outline;
    for (const auto& one : views_) {
        if (one->parent == &view) Regenerate(*one);
    }
}

void Drawing::RegenerateSheet(int sheet) {
    for (const auto& view : views_) {
        if (view->IsGeneral() && view->sheet == sheet) Regenerate(*view);
    }
}

Placement Drawing::OrientationOf(const DrawingView& view) const {
    if (!view.parent) return view.orientation;
    return TurnedTo(view.side, rule, OrientationOf(*view.parent));
}

double Drawing::ScaleOf(const DrawingView& view) {
    if (view.parent) return ScaleOf(*view.parent);
    if (view.ownScale) return view.scale;
    const Sheet* sheet = view.drawing->drawingData.Find(view.sheet);
    return sheet ? sheet->ScaleOf(view.file) : 1;
}

Placement Drawing::FrameOf(const DrawingView& view) const {
    Placement frame = OrientationOf(view);
    frame.origin = -1 * frame.Direction(view.pivot);
    return frame;
}

Vec3 Drawing::ToSheet(const DrawingView& view, Vec3 framed) const {
    const double scale = ScaleOf(view);
    return {view.at.x + scale * framed.x, view.at.y + scale * framed.y, 0};
}

const Extents& Drawing::OutlineOf(DrawingView& view) {
    if (!view.outline) Regenerate(view);
    return *view.outline;
}

Drawing& DrawingOf(Model& model) {
    if (!model.drawingData.views) model.drawingData.views = std::make_shared<Drawing>(model);
    return *model.drawingData.views;
}

Model* ModelOf(const DrawingView& view) {
    Session* session = view.drawing->session;
    if (!session || view.file.empty()) return nullptr;
    if (Model* model = session->Find(view.model)) return model;
    return session->RetrieveOrTell(view.file);
}

DrawingView* FindView(const void* handle) {
    return Views().Find(handle);
}

std::string DescribeView(const void* handle) {
    const DrawingView* view = FindView(handle);
    if (!view) return "dangling view";
    return fmt::format("view {} of {}", view->id, view->drawing->FileName());
}

}  // namespace simhost
