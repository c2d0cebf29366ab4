// Dialogs as a designer would see them: grids are measured from the inside out, spare room goes to
// the rows and columns with a weight, and every component is drawn at its place.
#include "simhost/picture/dialogs.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <stdexcept>

#include "simhost/core/disk.h"
#include "simhost/core/text.h"
#include "simhost/picture/cairo_canvas.h"
#include "simhost/ui/checkbutton.h"
#include "simhost/ui/dialogs.h"
#include "simhost/ui/drawingarea.h"
#include "simhost/ui/label.h"
#include "simhost/ui/radiogroup.h"
#include "simhost/ui/table.h"
#include "simhost/ui/textfield.h"

namespace fs = std::filesystem;

namespace simhost {

namespace {

constexpr double kFontSize = 14;
constexpr double kLine = 22;   // height of a line of text
constexpr double kGap = 8;     // between components
constexpr double kPad = 10;    // inside frames
constexpr double kMark = 18;   // a radio or check mark with its gap
constexpr double kTitle = 30;  // the window's title bar

struct Size {
    double width = 0, height = 0;
};
using Area = Rectangle;

// "#rrggbb" of a grey from 0, black, to 1, white.
std::string Grey(double grey) {
    const int byte = int(std::lround(255 * grey));
    return fmt::format("#{0:02x}{0:02x}{0:02x}", byte);
}

constexpr double kInk = 0.25;  // marks and lines

// A canvas with the few things that dialogs are made of; null: only to measure with.
class Brush {
public:
    Brush(Canvas* canvas, const Ruler& ruler) : canvas_(canvas), ruler_(ruler) {}

    double Width(const std::string& text) const { return ruler_.Width(text, kFontSize); }
    void Text(double x, double baseline, const std::string& text, double grey = 0.1) {
        canvas_->Text(x, baseline, {kFontSize, Grey(grey)}, text);
    }
    void Fill(Area area, double grey) { canvas_->Box(area, Grey(grey), nullptr); }
    // On whole pixels, so that lines are sharp.
    void Frame(Area area, double grey, double width = 1) {
        const Pen pen{Grey(grey), width, {}, 1};
        canvas_->Box({std::floor(area.x) + 0.5, std::floor(area.y) + 0.5, std::floor(area.width),
                      std::floor(area.height)},
                     "", &pen);
    }
    void Circle(double x, double y, double radius, bool filled) {
        const double width = filled ? radius : 1;
        canvas_->Circle(x, y, filled ? radius / 2 : radius, {Grey(kInk), width, {}, 1});
    }
    void Image(Area area, const fs::path& png) { canvas_->Image(area, png); }
    void Line(double x1, double y1, double x2, double y2) {
        Path line;
        line.MoveTo(x1, y1);
        line.LineTo(x2, y2);
        canvas_->Stroke(line, {Grey(kInk), 1, {}, 1});
    }

private:
    Canvas* canvas_;
    const Ruler& ruler_;
};

class Painter {
public:
    // The pictures of labels are files of `pictures`.
    Painter(const Dialog& dialog, const fs::path& pictures, Brush& brush)
        : dialog_(dialog), pictures_(pictures), brush_(brush) {}

    Size Measure(const Grid& grid) const {
        if (!grid.component.empty()) return MeasureComponent(grid.component);
        const auto [widths, heights] = Natural(grid);
        return {Sum(widths) + kGap * double(widths.size() - 1),
                Sum(heights) + kGap * double(heights.size() - 1)};
    }

    void Draw(const Grid& grid, Area area) {
        if (!grid.component.empty()) return DrawComponent(grid.component, area);
        auto [widths, heights] = Natural(grid);
        Spread(grid.cols, area.width - Sum(widths) - kGap * double(widths.size() - 1), &widths);
        Spread(grid.rows, area.height - Sum(heights) - kGap * double(heights.size() - 1), &heights);
        double y = area.y;
        for (std::size_t row = 0; row < heights.size(); ++row) {
            double x = area.x;
            for (std::size_t column = 0; column < widths.size(); ++column) {
                const std::size_t i = row * widths.size() + column;
                if (i >= grid.children.size()) return;
                Draw(grid.children[i], {x, y, widths[column], heights[row]});
                x += widths[column] + kGap;
            }
            y += heights[row] + kGap;
        }
    }

private:
    using Lengths = std::vector<double>;
    static double Sum(const Lengths& lengths) {
        return std::accumulate(lengths.begin(), lengths.end(), 0.0);
    }

    std::pair<Lengths, Lengths> Natural(const Grid& grid) const {
        Lengths widths(grid.cols.size()), heights(grid.rows.size());
        for (std::size_t i = 0; i < grid.children.size(); ++i) {
            const Size size = Measure(grid.children[i]);
            double& width = widths[i % widths.size()];
            double& height = heights[i / widths.size()];
            width = std::max(width, size.width);
            height = std::max(height, size.height);
        }
        return {widths, heights};
    }

    static void Spread(const std::vector<int>& weights, double spare, Lengths* lengths) {
        const int all = std::accumulate(weights.begin(), weights.end(), 0);
        if (all <= 0 || spare <= 0) return;
        for (std::size_t i = 0; i < lengths->size(); ++i) (*lengths)[i] += spare * weights[i] / all;
    }

    // The layout of a component that holds others; null for any other component.
    const Grid* Inner(const std::string& name) const {
        const auto found = dialog_.resource().layouts.find(name);
        return found == dialog_.resource().layouts.end() ? nullptr : &found->second;
    }

    Size MeasureComponent(const std::string& name) const {
        const Component& component = *dialog_.Find(name);
        const std::string label = Utf8(component.label);
        if (const Grid* inner = Inner(name)) {
            const Size size = Measure(*inner);
            if (label.empty()) return size;
            return {std::max(size.width, brush_.Width(label)) + 2 * kPad,
                    size.height + 2 * kPad + kLine * 0.75};
        }
        if (const auto* group = dynamic_cast<const RadioGroup*>(&component)) return Marks(*group);
        if (const auto* area = dynamic_cast<const TextArea*>(&component)) {
            return {area->columns() * kFontSize * 0.6 + kPad, area->rows() * kLine * 0.8 + kPad};
        }
        if (const auto* field = dynamic_cast<const TextField*>(&component)) {
            return {field->columns() * kFontSize * 0.6 + 2 * kPad, kLine + 4};
        }
        if (dynamic_cast<const CheckButton*>(&component)) {
            return {kMark + brush_.Width(label), kLine};
        }
        if (const auto* table = dynamic_cast<const Table*>(&component)) {
            return {table->widthInCharacters() * kFontSize * 0.6 + kPad,
                    (table->visibleRows() + 1) * kLine + 2};
        }
        if (const auto* area = dynamic_cast<const DrawingArea*>(&component)) {
            return {double(area->width()), double(area->height())};
        }
        if (dynamic_cast<const PushButton*>(&component)) {
            return {std::max(brush_.Width(label) + 2 * kPad, 30.0), kLine + 6};
        }
        const auto* picture = dynamic_cast<const Label*>(&component);
        if (picture && !picture->picture().empty()) {
            const PictureSize size = PngSize(ReadFile(FileOf(*picture))).value_or(PictureSize{});
            return {double(size.width), double(size.height)};
        }
        return {brush_.Width(label), kLine};
    }

    Size Marks(const RadioGroup& group) const {
        Size size;
        for (const std::string& label : group.labels()) {
            const double width = kMark + brush_.Width(label);
            if (group.horizontal()) {
                size.width += width + (size.width > 0 ? 2 * kGap : 0);
                size.height = kLine;
            } else {
                size.width = std::max(size.width, width);
                size.height += kLine;
            }
        }
        return size;
    }

    static double Baseline(Area area) { return area.y + area.height / 2 + kFontSize * 0.36; }

    void DrawComponent(const std::string& name, Area area) {
        const Component& component = *dialog_.Find(name);
        if (!component.visible) return;
        const std::string label = Utf8(component.label);
        if (const Grid* inner = Inner(name)) return DrawGroup(label, *inner, area);
        if (const auto* group = dynamic_cast<const RadioGroup*>(&component)) {
            return DrawMarks(*group, area);
        }
        if (const auto* field = dynamic_cast<const TextField*>(&component)) {
            return DrawField(*field, area);
        }
        if (const auto* check = dynamic_cast<const CheckButton*>(&component)) {
            const Area mark{area.x, area.y + area.height / 2 - 6, 12, 12};
            brush_.Fill(mark, 1);
            brush_.Frame(mark, 0.4);
            if (check->set) {
                brush_.Line(mark.x + 2, mark.y + 6, mark.x + 5, mark.y + 10);
                brush_.Line(mark.x + 5, mark.y + 10, mark.x + 11, mark.y + 2);
            }
            return brush_.Text(area.x + kMark, Baseline(area), label);
        }
        if (const auto* table = dynamic_cast<const Table*>(&component)) {
            return DrawTable(*table, area);
        }
        if (dynamic_cast<const DrawingArea*>(&component)) return brush_.Frame(area, 0.8);
        if (dynamic_cast<const PushButton*>(&component)) return DrawButton(component, area);
        const auto* picture = dynamic_cast<const Label*>(&component);
        if (picture && !picture->picture().empty()) {
            const Size size = MeasureComponent(name);
            return brush_.Image({area.x + (area.width - size.width) / 2,
                                 area.y + (area.height - size.height) / 2, size.width, size.height},
                                FileOf(*picture));
        }
        brush_.Text(area.x, Baseline(area), label);
    }

    void DrawGroup(const std::string& label, const Grid& inner, Area area) {
        if (label.empty()) return Draw(inner, area);
        brush_.Frame({area.x, area.y + kLine / 2, area.width - 1, area.height - kLine / 2 - 1},
                     0.7);
        brush_.Fill({area.x + kPad - 3, area.y, brush_.Width(label) + 6, kLine}, 0.94);
        brush_.Text(area.x + kPad, area.y + kLine * 0.72, label, 0.3);
        Draw(inner, {area.x + kPad, area.y + kPad + kLine * 0.75, area.width - 2 * kPad,
                     area.height - 2 * kPad - kLine * 0.75});
    }

    void DrawMarks(const RadioGroup& group, Area area) {
        const std::size_t lines = group.horizontal() ? 1 : group.labels().size();
        double x = area.x;
        double y = area.y + (area.height - double(lines) * kLine) / 2;
        for (std::size_t i = 0; i < group.labels().size(); ++i) {
            brush_.Circle(x + 6, y + kLine / 2, 6, false);
            if (group.selected() == i) brush_.Circle(x + 6, y + kLine / 2, 3, true);
            brush_.Text(x + kMark, y + kLine / 2 + kFontSize * 0.36, group.labels()[i]);
            if (group.horizontal()) {
                x += kMark + brush_.Width(group.labels()[i]) + 2 * kGap;
            } else {
                y += kLine;
            }
        }
    }

    void DrawField(const TextField& field, Area area) {
        const auto* menu = dynamic_cast<const OptionMenu*>(&field);
        if (menu) area.width = std::min(area.width, MeasureComponent(field.name()).width + kMark);
        if (!dynamic_cast<const TextArea*>(&field)) {
            area = {area.x, area.y + (area.height - kLine - 4) / 2, area.width, kLine + 4};
        }
        brush_.Fill(area, 1);
        brush_.Frame({area.x, area.y, area.width - 1, area.height - 1}, 0.6);
        brush_.Text(area.x + 5, area.y + kLine * 0.8, Utf8(field.value));
        if (!menu) return;
        const double x = area.x + area.width - 14;
        const double y = area.y + area.height / 2 - 2;
        brush_.Line(x, y, x + 4, y + 5);
        brush_.Line(x + 4, y + 5, x + 8, y);
    }

    double WidthOf(const TableCell& cell) const {
        if (!cell.component) return brush_.Width(Utf8(cell.label));
        return MeasureComponent(cell.component->name()).width - 2 * kPad;
    }

    // What is in the cell fills it.
    void DrawCell(const TableCell& cell, Area place) {
        if (cell.component) return DrawComponent(cell.component->name(), place);
        brush_.Text(place.x + kPad, Baseline(place), Utf8(cell.label));
    }

    // Columns are as wide as their longest text; the lines below the last row are empty.
    void DrawTable(const Table& table, Area area) {
        brush_.Fill(area, 1);
        brush_.Fill({area.x, area.y, area.width, kLine}, 0.88);
        const auto& rows = table.rows();
        const auto seen = std::min(rows.size(), std::size_t(std::max(table.visibleRows(), 0)));
        const auto end = std::next(rows.begin(), std::ptrdiff_t(seen));
        double x = area.x;
        for (std::size_t i = 0; i < table.columns().size(); ++i) {
            double width = brush_.Width(Utf8(table.columns()[i].label));
            for (auto row = rows.begin(); row != end; ++row) {
                width = std::max(width, WidthOf(row->cells[i]));
            }
            width += 2 * kPad;
            double y = area.y;
            for (auto row = rows.begin(); row != end; ++row) {
                const TableCell& cell = row->cells[i];
                const Area place{x, y += kLine, width, kLine};
                if (cell.colour) brush_.Fill(place, 0.8);
                DrawCell(cell, place);
            }
            brush_.Text(x + kPad, Baseline({x, area.y, width, kLine}),
                        Utf8(table.columns()[i].label), 0.3);
            x += width;
            brush_.Line(x, area.y, x, area.y + area.height);
        }
        brush_.Frame({area.x, area.y, area.width - 1, area.height - 1}, 0.6);
    }

    void DrawButton(const Component& button, Area area) {
        area = {area.x, area.y + (area.height - kLine - 6) / 2, area.width, kLine + 6};
        const std::string label = Utf8(button.label);
        const auto* byEnter = dialog_.resource().Find("", "DefaultButton");
        const bool isDefault = byEnter && !byEnter->empty() && byEnter->front() == button.name();
        brush_.Fill(area, 0.88);
        brush_.Frame({area.x, area.y, area.width - 1, area.height - 1}, isDefault ? 0.2 : 0.55,
                     isDefault ? 2 : 1);
        brush_.Text(area.x + (area.width - brush_.Width(label)) / 2, Baseline(area), label,
                    button.enabled ? 0.1 : 0.6);
    }

    fs::path FileOf(const Label& label) const {
        const std::string& name = label.picture();
        return pictures_ / fs::path(std::u8string(name.begin(), name.end()));
    }

    const Dialog& dialog_;
    const fs::path& pictures_;
    Brush& brush_;
};

Picture PictureOf(const Dialog& dialog, const fs::path& pictures, const Ruler& ruler) {
    const auto own = dialog.resource().layouts.find("");
    if (own == dialog.resource().layouts.end()) {
        throw std::runtime_error(dialog.name() + ": the dialog has no layout");
    }
    Brush measuring(nullptr, ruler);
    const std::string title = Utf8(dialog.title());
    Size size = Painter(dialog, pictures, measuring).Measure(own->second);
    size.width = std::max(size.width, measuring.Width(title) + 60);
    const Size whole{std::ceil(size.width + 4 * kPad), std::ceil(size.height + 4 * kPad + kTitle)};
    Picture picture{whole.width, whole.height, whole.width, whole.height, {}};
    picture.paint = [&dialog, &pictures, &ruler, own, title, size, whole](Canvas& canvas) {
        Brush brush(&canvas, ruler);
        brush.Fill({0, 0, whole.width, whole.height}, 0.94);
        brush.Fill({0, 0, whole.width, kTitle}, 0.80);
        brush.Text(2 * kPad, kTitle * 0.68, title);
        brush.Frame({0, 0, whole.width - 1, whole.height - 1}, 0.5);
        Painter(dialog, pictures, brush)
            .Draw(own->second, {2 * kPad, kTitle + 2 * kPad, size.width, size.height});
    };
    return picture;
}

}  // namespace

std::vector<fs::path> DrawDialogs(const fs::path& resources, const fs::path& out) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(resources)) {
        if (entry.path().extension() == ".res") files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    fs::create_directories(out);
    const Ruler ruler;
    std::vector<fs::path> pictures;
    for (const fs::path& file : files) {
        const std::string name = file.filename().string();
        DialogResource resource = ParseResource(ReadFile(file), name);
        CheckPictures(resource, name, resources);
        const Dialog dialog(file.stem().string(), std::move(resource));
        pictures.push_back(out / (file.stem().string() + ".png"));
        WritePng(PictureOf(dialog, resources, ruler), pictures.back());
    }
    return pictures;
}

}  // namespace simhost
