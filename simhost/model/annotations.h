// What a drawing says in words and numbers: dimensions that are attached to what its views show,
// and notes. A dimension's value is measured on the model whenever somebody asks for it.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "hostapi/host/dimension.h"
#include "simhost/model/view_items.h"

namespace simhost {

enum class DimensionKind { Horizontal, Vertical, Slanted, Radius, Diameter, Angle };
const char* KindName(DimensionKind kind);  // "horizontal"

// An end of a dimension: an item of its view, and which point of it. Senses as in ProDimSense.
struct Attachment {
    ItemWay way;
    int senseType = 0;
    int sense = 0;
    bool operator==(const Attachment&) const = default;
};

struct Dimension {
    int id = 0;
    int view = 0;  // the id of the view
    DimensionKind kind = DimensionKind::Slanted;
    std::vector<Attachment> to;
    Vec3 at;  // its text, on the sheet from the view's place
    bool shown = false;
    double value = 0;                           // as last measured, in the model's unit or degrees
    std::optional<std::vector<WideText>> text;  // nothing: the value alone
    ProToleranceType tolerance = PRO_TOL_DEFAULT;
    double upper = 0, lower = 0;
};

struct SheetNote {
    int id = 0;
    int sheet = 1;
    Vec3 at;
    std::vector<WideText> text;
};

// Ids are those of the drawing: a dimension and a note never share one.
class Annotations {
public:
    std::map<int, Dimension>& dimensions() { return dimensions_; }  // by id
    const std::map<int, Dimension>& dimensions() const { return dimensions_; }
    const std::map<int, SheetNote>& notes() const { return notes_; }
    Dimension* FindDimension(int id);
    const SheetNote* FindNote(int id) const;
    Dimension& Add(Dimension dimension);  // an id of 0 becomes the next free one
    SheetNote& Add(SheetNote note);
    bool Erase(int id);  // a dimension or a note; its id is not given again

    // For tests: what ProDimensionTextGet answers for a dimension without a text of its own.
    enum class NoText { Status, NullArray, EmptyArray } noText = NoText::Status;

private:
    int NextId(int wanted);

    std::map<int, Dimension> dimensions_;
    std::map<int, SheetNote> notes_;
    int lastId_ = 0;
};

// The annotations of a drawing; empty ones when it has none yet.
Annotations& AnnotationsOf(Model& drawing);

// The view of a dimension; null if it is gone.
DrawingView* ViewOf(Model& drawing, const Dimension& dimension);
// Where the text stands on the sheet.
Vec3 PlaceOf(const DrawingView& view, const Dimension& dimension);

}  // namespace simhost
