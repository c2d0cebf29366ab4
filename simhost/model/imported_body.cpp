// The record of an imported solid as text: "p" a point, "f" a face with its triangles, "l" a
// straight edge, "c" a circle, "v" the volume.
#include "simhost/model/imported_body.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

namespace simhost {

namespace {

using Out = std::back_insert_iterator<std::string>;

void Put(Out out, Vec3 v) {
    fmt::format_to(out, " {} {} {}", v.x, v.y, v.z);
}

// The numbers of one line, one after the other.
class NumberReader {
public:
    explicit NumberReader(std::string_view line) : at_(line.data()), end_(at_ + line.size()) {}
    double Real() { return Next<double>(); }
    int Whole() { return Next<int>(); }
    Vec3 Vector() {
        const double x = Real(), y = Real(), z = Real();
        return {x, y, z};
    }
    bool AreWell() const { return well_; }
    bool AtEnd() const { return at_ == end_; }

private:
    template <class Number>
    Number Next() {
        Number number{};
        if (at_ != end_ && *at_ == ' ') ++at_;
        const auto [next, error] = std::from_chars(at_, end_, number);
        well_ = well_ && error == std::errc();
        at_ = next;
        if constexpr (std::is_same_v<Number, double>) well_ = well_ && std::isfinite(number);
        return number;
    }
    const char* at_;
    const char* end_;
    bool well_ = true;
};

ImportedFace ReadFace(NumberReader& numbers) {
    ImportedFace face;
    face.kind = FaceKind(std::clamp(numbers.Whole(), 0, int(FaceKind::Other)));
    face.origin = numbers.Vector();
    face.axis = numbers.Vector();
    face.radius = numbers.Real();
    face.slope = numbers.Real();
    face.hollow = numbers.Whole() != 0;
    face.box.Add(numbers.Vector());
    face.box.Add(numbers.Vector());
    while (numbers.AreWell() && !numbers.AtEnd()) {
        const int a = numbers.Whole(), b = numbers.Whole(), c = numbers.Whole();
        face.triangles.push_back({a, b, c});
    }
    return face;
}

ImportedEdge ReadEdge(NumberReader& numbers, EdgeKind kind) {
    ImportedEdge edge;
    edge.kind = kind;
    for (int& face : edge.faces) face = numbers.Whole();
    edge.from = numbers.Vector();
    if (kind == EdgeKind::Line) {
        edge.to = numbers.Vector();
        return edge;
    }
    edge.frame.origin = edge.from;
    for (Vec3& axis : edge.frame.axes) axis = numbers.Vector();
    edge.radius = numbers.Real();
    edge.from = edge.to = edge.frame.Point({edge.radius, 0, 0});
    return edge;
}

bool ReadLine(std::string_view line, ImportedBody* body) {
    NumberReader numbers(line.substr(std::min<std::size_t>(line.size(), 1)));
    switch (line.empty() ? '\0' : line[0]) {
        case 'p': body->points.push_back(numbers.Vector()); break;
        case 'f': body->faces.push_back(ReadFace(numbers)); break;
        case 'l': body->edges.push_back(ReadEdge(numbers, EdgeKind::Line)); break;
        case 'c': body->edges.push_back(ReadEdge(numbers, EdgeKind::Circle)); break;
        case 'v': body->volume = numbers.Real(); break;
        default: return false;
    }
    return numbers.AreWell() && numbers.AtEnd();
}

// Whether whatever a number leads to is there.
bool HoldsTogether(const ImportedBody& body) {
    const auto isOf = [](int i, std::size_t count) { return i >= 0 && std::size_t(i) < count; };
    for (const ImportedFace& face : body.faces) {
        for (const auto& triangle : face.triangles) {
            for (const int point : triangle) {
                if (!isOf(point, body.points.size())) return false;
            }
        }
        if (face.triangles.empty()) return false;
    }
    for (const ImportedEdge& edge : body.edges) {
        for (const int face : edge.faces) {
            if (!isOf(face, body.faces.size())) return false;
        }
    }
    return !body.faces.empty();
}

}  // namespace

int NumbersTaken(const ImportedBody& body) {
    return int(std::max(body.faces.size(), body.edges.size() / 10 + 1)) + 1;
}

std::string RecordText(const ImportedBody& body) {
    std::string text;
    const Out out(text);
    for (const Vec3& point : body.points) {
        text += 'p';
        Put(out, point);
        text += '\n';
    }
    for (const ImportedFace& face : body.faces) {
        fmt::format_to(out, "f {}", int(face.kind));
        Put(out, face.origin);
        Put(out, face.axis);
        fmt::format_to(out, " {} {} {}", face.radius, face.slope, int(face.hollow));
        Put(out, face.box.low);
        Put(out, face.box.high);
        for (const auto& [a, b, c] : face.triangles) fmt::format_to(out, " {} {} {}", a, b, c);
        text += '\n';
    }
    for (const ImportedEdge& edge : body.edges) {
        const bool isLine = edge.kind == EdgeKind::Line;
        fmt::format_to(out, "{} {} {}", isLine ? 'l' : 'c', edge.faces[0], edge.faces[1]);
        Put(out, isLine ? edge.from : edge.frame.origin);
        if (isLine) Put(out, edge.to);
        for (const Vec3& axis : edge.frame.axes) {
            if (!isLine) Put(out, axis);
        }
        if (!isLine) fmt::format_to(out, " {}", edge.radius);
        text += '\n';
    }
    fmt::format_to(out, "v {}\n", body.volume);
    return text;
}

bool ReadRecord(std::string_view text, ImportedBody* body) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        if (!ReadLine(text.substr(0, end), body)) return false;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return HoldsTogether(*body);
}

}  // namespace simhost
