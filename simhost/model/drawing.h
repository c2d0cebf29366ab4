// What a drawing holds: views, which are projections of models onto its sheets. The sheets are in
// DrawingData.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hostapi/host/drawing_view.h"
#include "simhost/model/geometry.h"
#include "simhost/model/model.h"

namespace simhost {

// Where a projection shows what: with first angle, the view from above is placed below.
enum class ProjectionRule { FirstAngle, ThirdAngle };

// The side of its parent on which a projected view is placed.
enum class Side { None, Below, Above, Left, Right };
const char* SideName(Side side);  // "below"
bool ParseSide(const std::string& word, Side* side);

struct DrawingView {
    int id = 0;
    ProView handle = nullptr;
    Model* drawing = nullptr;
    ProMdl model = nullptr;  // what it shows; see ModelOf
    std::string file;        // the same, "housing.prt"; empty in templates
    int sheet = 1;
    DrawingView* parent = nullptr;  // general views have none
    Side side = Side::None;
    Vec3 pivot;             // the middle of the model when the view was made, in the model, in mm
    Vec3 at;                // where the pivot is on the sheet
    double scale = 1;       // general views with a scale of their own; see ScaleOf
    bool ownScale = false;  // general views: their scale is not the sheet's
    Placement orientation;  // general views; its axes say where the model's axes point
    bool exploded = false;
    Vec3 room;  // in templates: how large it may become; 0: as large as it is
    ProDrawingViewDisplay display{};
    std::optional<Extents> outline;  // on the sheet, as last regenerated

    bool IsGeneral() const { return parent == nullptr; }
};

// The size of a sheet by the name of its size; an unknown name is as large as A0.
struct SheetSize {
    double width, height;
};
SheetSize SizeOfSheet(const WideText& name);

class Drawing {
public:
    explicit Drawing(Model& model) : model_(model) {}
    ~Drawing();
    Drawing(const Drawing&) = delete;

    ProjectionRule rule = ProjectionRule::FirstAngle;
    int currentSheet = 1;

    const std::vector<std::unique_ptr<DrawingView>>& views() const { return views_; }
    DrawingView& Add(DrawingView view);  // an id of 0 becomes the next free one
    DrawingView* FindView(int id) const;

    // A general view of the model with its middle at a place; and a projection beside a view, on
    // the side of it that the place lies on (null: on no side).
    DrawingView& AddGeneral(Model& shown, int sheet, Vec3 at, double scale,
                            const Placement& orientation);
    DrawingView* AddProjected(DrawingView& parent, Vec3 at);

    // Moves a view and the projections that hang on it. Outlines stay until regenerated.
    void Move(DrawingView& view, Vec3 by);
    void Regenerate(DrawingView& view);  // and the projections that hang on it
    void RegenerateSheet(int sheet);

    // The view turned as it is drawn, and its scale, which is its own or its sheet's for what it
    // shows; a projection's follow from its parent's.
    Placement OrientationOf(const DrawingView& view) const;
    static double ScaleOf(const DrawingView& view);
    // Takes points of the model, in mm, to the sheet, but for the scale about `at`: see ToSheet.
    Placement FrameOf(const DrawingView& view) const;
    Vec3 ToSheet(const DrawingView& view, Vec3 framed) const;
    // As last regenerated; a view read from a file is regenerated at the first question.
    const Extents& OutlineOf(DrawingView& view);

private:
    Model& model_;
    std::vector<std::unique_ptr<DrawingView>> views_;
};

// The drawing of a model of that type; an empty one when it has none yet.
Drawing& DrawingOf(Model& model);

// The model that a view shows, fetched from the working folder if need be; null if it is gone.
Model* ModelOf(const DrawingView& view);

// A live view by its handle, whatever drawing it is of; null for any other handle.
DrawingView* FindView(const void* handle);
std::string DescribeView(const void* handle);  // for the journal: "view 2 of gearbox-12.drw"

}  // namespace simhost
