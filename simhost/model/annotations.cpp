// Dimensions and notes by their ids.
#include "simhost/model/annotations.h"

#include <algorithm>

namespace simhost {

namespace {

constexpr const char* kKindNames[] = {"horizontal", "vertical", "slanted",
                                      "radius",     "diameter", "angle"};

}  // namespace

const char* KindName(DimensionKind kind) {
    return kKindNames[std::size_t(kind)];
}

Dimension* Annotations::FindDimension(int id) {
    const auto found = dimensions_.find(id);
    return found == dimensions_.end() ? nullptr : &found->second;
}

const SheetNote* Annotations::FindNote(int id) const {
    const auto found = notes_.find(id);
    return found == notes_.end() ? nullptr : &found->second;
}

int Annotations::NextId(int wanted) {
    const int id = wanted > 0 ? wanted : lastId_ + 1;
    lastId_ = std::max(lastId_, id);
    return id;
}

Dimension& Annotations::Add(Dimension dimension) {
    dimension.id = NextId(dimension.id);
    return dimensions_[dimension.id] = std::move(dimension);
}

SheetNote& Annotations::Add(SheetNote note) {
    note.id = NextId(note.id);
    return notes_[note.id] = std::move(note);
}

bool Annotations::Erase(int id) {
    return dimensions_.erase(id) + notes_.erase(id) > 0;
}

Annotations& AnnotationsOf(Model& drawing) {
    auto& annotations = drawing.drawingData.annotations;
    if (!annotations) annotations = std::make_shared<Annotations>();
    return *annotations;
}

DrawingView* ViewOf(Model& drawing, const Dimension& dimension) {
    return DrawingOf(drawing).FindView(dimension.view);
}

Vec3 PlaceOf(const DrawingView& view, const Dimension& dimension) {
    return view.at + dimension.at;
}

}  // namespace simhost
