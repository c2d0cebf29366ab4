// Reading pictures back, so that a test can ask what is painted where.
#include "tests/simhost/picture_reader.h"

#include <cmath>
#include <cstdlib>

namespace picture {

int Count(const std::string& text, const std::string& what) {
    int count = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) {
        ++count;
    }
    return count;
}

std::string Between(const std::string& text, const char* from, const char* to, std::size_t* at) {
    const std::size_t start = text.find(from, *at);
    *at = std::string::npos;
    if (start == std::string::npos) return "";
    const std::size_t first = start + std::string(from).size();
    const std::size_t end = text.find(to, first);
    if (end == std::string::npos) return "";
    *at = end;
    return text.substr(first, end - first);
}
std::string Between(const std::string& text, const char* from, const char* to) {
    std::size_t at = 0;
    return Between(text, from, to, &at);
}

namespace {

// The closed polygons of a path.
std::vector<std::vector<Point>> PolygonsOf(const std::string& path) {
    std::vector<std::vector<Point>> polygons;
    for (const char* at = path.c_str(); *at;) {
        if (*at == 'Z') {
            ++at;
            continue;
        }
        if (*at == 'M') polygons.emplace_back();
        char* next = nullptr;
        const double x = std::strtod(at + 1, &next);
        const double y = std::strtod(next, &next);
        polygons.back().push_back({x, y});
        at = next;
    }
    return polygons;
}

}  // namespace

std::vector<Area> AreasOf(const std::string& svg) {
    std::vector<Area> areas;
    std::string part;
    for (std::size_t at = 0; at != std::string::npos;) {
        const std::string tag = Between(svg, "<", ">", &at);
        if (tag == "title") part = Between(svg.substr(at, 500), ">", "<");
        if (tag.rfind("path fill=\"#", 0) != 0) continue;
        for (const auto& polygon : PolygonsOf(Between(tag, " d=\"", "\""))) {
            areas.push_back({part, Between(tag, "fill=\"", "\""), polygon});
        }
    }
    return areas;
}

Vec3 Seen(Vec3 v) {
    const double h = std::sqrt(0.5), s = std::sqrt(1.0 / 6), t = std::sqrt(1.0 / 3);
    return {h * (v.x + v.y), s * (-v.x + v.y + 2 * v.z), t * (v.x - v.y + v.z)};
}

}  // namespace picture
