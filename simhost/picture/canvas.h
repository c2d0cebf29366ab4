// What pictures are painted on. A picture is painted in lengths of its own, x to the right and y
// down from its upper left corner, and comes out as SVG text on every system, or as PNG and PDF
// where there is a drawing library.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace simhost {

// Lines one after the other, in pieces that may be closed.
class Path {
public:
    enum class Step { Move, Line, Close };
    struct Point {
        Step step;
        double x, y;  // of no use to Close
    };

    void MoveTo(double x, double y) { points_.push_back({Step::Move, x, y}); }
    void LineTo(double x, double y) { points_.push_back({Step::Line, x, y}); }
    void Close() { points_.push_back({Step::Close, 0, 0}); }
    void Append(const Path& other) {
        points_.insert(points_.end(), other.points_.begin(), other.points_.end());
    }
    bool empty() const { return points_.empty(); }
    const std::vector<Point>& points() const { return points_; }

private:
    std::vector<Point> points_;
};

// Colours are "#rrggbb". Widths and dashes are lengths of the picture.
struct Pen {
    std::string colour;
    double width = 1;
    std::vector<double> dashes;  // and the gaps after them, in turn; empty: a whole line
    double opacity = 1;
};

struct Rectangle {
    double x = 0, y = 0, width = 0, height = 0;
};

struct Letters {
    enum class Anchor { Start, Middle, End };
    double size;
    std::string colour;
    Anchor anchor = Anchor::Start;
    bool bold = false;
    double turn = 0;  // degrees, counter-clockwise, about the point that they are written at
};

class Canvas {
public:
    Canvas() = default;
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    virtual ~Canvas() = default;

    // What is painted until EndGroup belongs together: it has an id, and shows the title when it is
    // pointed at, where the format knows such things. Either may be empty.
    virtual void BeginGroup(const std::string& id, const std::string& title) = 0;
    virtual void EndGroup() = 0;

    // An area without an edge of its own. Opaque areas that touch show no gap between them.
    virtual void Area(const Path& path, const std::string& fill, double opacity) = 0;
    virtual void Stroke(const Path& path, const Pen& pen) = 0;
    virtual void Circle(double x, double y, double radius, const Pen& pen) = 0;
    // Without a pen only filled; with an empty fill only its edge.
    virtual void Box(const Rectangle& box, const std::string& fill, const Pen* pen) = 0;
    // `y` is the line that the letters are written on. UTF-8.
    virtual void Text(double x, double y, const Letters& letters, const std::string& text) = 0;
};

// A picture that can be painted on any canvas, as often as one likes.
struct Picture {
    double width = 0, height = 0;              // in the lengths it is painted in
    double widthPixels = 0, heightPixels = 0;  // how large it is shown
    std::function<void(Canvas&)> paint;
};

}  // namespace simhost
