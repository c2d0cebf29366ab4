// Dialogs as a designer would see them: grids are measured from the inside out, spare room goes to
// the rows and columns with a weight, and every component is drawn at its place.
#include "simhost/app/dialog_picture.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numeric>
#include <stdexcept>

#include "simhost/core/disk.h"
#include "simhost/core/text.h"
#include "simhost/ui/checkbutton.h"
#include "simhost/ui/dialogs.h"
#include "simhost/ui/drawingarea.h"
#include "simhost/ui/radiogroup.h"
#include "simhost/ui/table.h"
#include "simhost/ui/textfield.h"

#ifndef _WIN32
#include <cairo.h>
#endif

namespace fs = std::filesystem;

namespace simhost {

#ifdef _WIN32

std::vector<fs::path> DrawDialogs(const fs::path&, const fs::path&) {
    throw std::runtime_error("pictures of dialogs are not drawn on Windows");
}

#else

namespace {

constexpr double kFontSize = 14;
constexpr double kLine = 22;   // height of a line of text
constexpr double kGap = 8;     // between components
constexpr double kPad = 10;    // inside frames
constexpr double kMark = 18;   // a radio or check mark with its gap
constexpr double kTitle = 30;  // the window's title bar
constexpr const char* kFamilies[] = {"WenQuanYi Zen Hei", "Noto Sans CJK SC", "SimSun"};

struct Size {
    double width = 0, height = 0;
};
struct Area {
    double x = 0, y = 0, width = 0, height = 0;
};

// A surface to draw on; a small one serves for measuring.
class Canvas {
public:
    explicit Canvas(Size size)
        : surface_(cairo_image_surface_create(CAIRO_FORMAT_RGB24, int(std::lround(size.width)),
                                              int(std::lround(size.height))),
                   cairo_surface_destroy),
          cairo_(cairo_create(surface_.get()), cairo_destroy) {
        SelectFont();
        cairo_set_line_width(cairo_.get(), 1);
    }

    double Width(const std::string& text) const {
        cairo_text_extents_t extents;
        cairo_text_extents(cairo_.get(), text.c_str(), &extents);
        return extents.x_advance;
    }
    void Text(double x, double baseline, const std::string& text, double grey = 0.1) {
        cairo_set_source_rgb(cairo_.get(), grey, grey, grey);
        cairo_move_to(cairo_.get(), x, baseline);
        cairo_show_text(cairo_.get(), text.c_str());
    }
    void Fill(Area area, double grey) {
        cairo_set_source_rgb(cairo_.get(), grey, grey, grey);
        cairo_rectangle(cairo_.get(), area.x, area.y, area.width, area.height);
        cairo_fill(cairo_.get());
    }
    void Frame(Area area, double grey) {
        cairo_set_source_rgb(cairo_.get(), grey, grey, grey);
        cairo_rectangle(cairo_.get(), int(area.x) + 0.5, int(area.y) + 0.5, int(area.width),
                        int(area.height));
        cairo_stroke(cairo_.get());
    }
    void Circle(double x, double y, double radius, bool filled) {
        cairo_set_source_rgb(cairo_.get(), 0.25, 0.25, 0.25);
        cairo_new_path(cairo_.get());
        cairo_arc(cairo_.get(), x, y, radius, 0, 6.2831853);
        if (filled) {
            cairo_fill(cairo_.get());
        } else {
            cairo_stroke(cairo_.get());
        }
    }
    void Line(double x1, double y1, double x2, double y2) {
        cairo_set_source_rgb(cairo_.get(), 0.25, 0.25, 0.25);
        cairo_move_to(cairo_.get(), x1, y1);
        cairo_line_to(cairo_.get(), x2, y2);
        cairo_stroke(cairo_.get());
    }
    void Write(const fs::path& file) {
        if (cairo_surface_write_to_png(surface_.get(), file.c_str()) != CAIRO_STATUS_SUCCESS) {
            throw std::runtime_error("cannot write " + file.string());
        }
    }

private:
    // The first family that has Chinese characters.
    void SelectFont() {
        for (const char* family : kFamilies) {
            cairo_select_font_face(cairo_.get(), family, CAIRO_FONT_SLANT_NORMAL,
                                   CAIRO_FONT_WEIGHT_NORMAL);
            cairo_set_font_size(cairo_.get(), kFontSize);
            cairo_glyph_t* glyphs = nullptr;
            int count = 0;
            const std::string sample = "设";
            cairo_scaled_font_text_to_glyphs(cairo_get_scaled_font(cairo_.get()), 0, 0,
                                             sample.c_str(), int(sample.size()), &glyphs, &count,
                                             nullptr, nullptr, nullptr);
            const bool has = count == 1 && glyphs && glyphs[0].index != 0;
            cairo_glyph_free(glyphs);
            if (has) return;
        }
        throw std::runtime_error("no font with Chinese characters; install fonts-wqy-zenhei");
    }

    std::unique_ptr<cairo_surface_t, void (*)(cairo_surface_t*)> surface_;
    std::unique_ptr<cairo_t, void (*)(cairo_t*)> cairo_;
};

class Painter {
public:
    Painter(const Dialog& dialog, Canvas& canvas) : dialog_(dialog), canvas_(canvas) {}

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
            return {std::max(size.width, canvas_.Width(label)) + 2 * kPad,
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
            return {kMark + canvas_.Width(label), kLine};
        }
        if (const auto* table = dynamic_cast<const Table*>(&component)) {
            return {table->widthInCharacters() * kFontSize * 0.6 + kPad,
                    (table->visibleRows() + 1) * kLine + 2};
        }
        if (const auto* area = dynamic_cast<const DrawingArea*>(&component)) {
            return {double(area->width()), double(area->height())};
        }
        if (dynamic_cast<const PushButton*>(&component)) {
            return {std::max(canvas_.Width(label) + 2 * kPad, 30.0), kLine + 6};
        }
        return {canvas_.Width(label), kLine};
    }

    Size Marks(const RadioGroup& group) const {
        Size size;
        for (const std::string& label : group.labels()) {
            const double width = kMark + canvas_.Width(label);
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
            canvas_.Fill(mark, 1);
            canvas_.Frame(mark, 0.4);
            if (check->set) {
                canvas_.Line(mark.x + 2, mark.y + 6, mark.x + 5, mark.y + 10);
                canvas_.Line(mark.x + 5, mark.y + 10, mark.x + 11, mark.y + 2);
            }
            return canvas_.Text(area.x + kMark, Baseline(area), label);
        }
        if (const auto* table = dynamic_cast<const Table*>(&component)) {
            return DrawTable(*table, area);
        }
        if (dynamic_cast<const DrawingArea*>(&component)) return canvas_.Frame(area, 0.8);
        if (dynamic_cast<const PushButton*>(&component)) return DrawButton(component, area);
        canvas_.Text(area.x, Baseline(area), label);
    }

    void DrawGroup(const std::string& label, const Grid& inner, Area area) {
        if (label.empty()) return Draw(inner, area);
        canvas_.Frame({area.x, area.y + kLine / 2, area.width - 1, area.height - kLine / 2 - 1},
                      0.7);
        canvas_.Fill({area.x + kPad - 3, area.y, canvas_.Width(label) + 6, kLine}, 0.94);
        canvas_.Text(area.x + kPad, area.y + kLine * 0.72, label, 0.3);
        Draw(inner, {area.x + kPad, area.y + kPad + kLine * 0.75, area.width - 2 * kPad,
                     area.height - 2 * kPad - kLine * 0.75});
    }

    void DrawMarks(const RadioGroup& group, Area area) {
        const std::size_t lines = group.horizontal() ? 1 : group.labels().size();
        double x = area.x;
        double y = area.y + (area.height - double(lines) * kLine) / 2;
        for (std::size_t i = 0; i < group.labels().size(); ++i) {
            canvas_.Circle(x + 6, y + kLine / 2, 6, false);
            if (group.selected() == i) canvas_.Circle(x + 6, y + kLine / 2, 3, true);
            canvas_.Text(x + kMark, y + kLine / 2 + kFontSize * 0.36, group.labels()[i]);
            if (group.horizontal()) {
                x += kMark + canvas_.Width(group.labels()[i]) + 2 * kGap;
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
        canvas_.Fill(area, 1);
        canvas_.Frame({area.x, area.y, area.width - 1, area.height - 1}, 0.6);
        canvas_.Text(area.x + 5, area.y + kLine * 0.8, Utf8(field.value));
        if (!menu) return;
        const double x = area.x + area.width - 14;
        const double y = area.y + area.height / 2 - 2;
        canvas_.Line(x, y, x + 4, y + 5);
        canvas_.Line(x + 4, y + 5, x + 8, y);
    }

    // Columns are as wide as their longest text; the lines below the last row are empty.
    void DrawTable(const Table& table, Area area) {
        canvas_.Fill(area, 1);
        canvas_.Fill({area.x, area.y, area.width, kLine}, 0.88);
        const auto& rows = table.rows();
        const auto seen = std::min(rows.size(), std::size_t(std::max(table.visibleRows(), 0)));
        const auto end = std::next(rows.begin(), std::ptrdiff_t(seen));
        double x = area.x;
        for (std::size_t i = 0; i < table.columns().size(); ++i) {
            double width = canvas_.Width(Utf8(table.columns()[i].label));
            for (auto row = rows.begin(); row != end; ++row) {
                width = std::max(width, canvas_.Width(Utf8(row->cells[i].label)));
            }
            width += 2 * kPad;
            double y = area.y;
            for (auto row = rows.begin(); row != end; ++row) {
                const TableCell& cell = row->cells[i];
                const Area place{x, y += kLine, width, kLine};
                if (cell.colour) canvas_.Fill(place, 0.8);
                canvas_.Text(x + kPad, Baseline(place), Utf8(cell.label));
            }
            canvas_.Text(x + kPad, Baseline({x, area.y, width, kLine}),
                         Utf8(table.columns()[i].label), 0.3);
            x += width;
            canvas_.Line(x, area.y, x, area.y + area.height);
        }
        canvas_.Frame({area.x, area.y, area.width - 1, area.height - 1}, 0.6);
    }

    void DrawButton(const Component& button, Area area) {
        area = {area.x, area.y + (area.height - kLine - 6) / 2, area.width, kLine + 6};
        const std::string label = Utf8(button.label);
        canvas_.Fill(area, 0.88);
        canvas_.Frame({area.x, area.y, area.width - 1, area.height - 1}, 0.55);
        canvas_.Text(area.x + (area.width - canvas_.Width(label)) / 2, Baseline(area), label,
                     button.enabled ? 0.1 : 0.6);
    }

    const Dialog& dialog_;
    Canvas& canvas_;
};

void DrawDialog(const Dialog& dialog, const fs::path& file) {
    const auto own = dialog.resource().layouts.find("");
    if (own == dialog.resource().layouts.end()) {
        throw std::runtime_error(dialog.name() + ": the dialog has no layout");
    }
    Canvas ruler({10, 10});
    const std::string title = Utf8(dialog.title());
    Size size = Painter(dialog, ruler).Measure(own->second);
    size.width = std::max(size.width, ruler.Width(title) + 60);
    const Size whole{size.width + 4 * kPad, size.height + 4 * kPad + kTitle};
    Canvas canvas(whole);
    canvas.Fill({0, 0, whole.width, whole.height}, 0.94);
    canvas.Fill({0, 0, whole.width, kTitle}, 0.80);
    canvas.Text(2 * kPad, kTitle * 0.68, title);
    canvas.Frame({0, 0, whole.width - 1, whole.height - 1}, 0.5);
    Painter(dialog, canvas)
        .Draw(own->second, {2 * kPad, kTitle + 2 * kPad, size.width, size.height});
    canvas.Write(file);
}

}  // namespace

std::vector<fs::path> DrawDialogs(const fs::path& resources, const fs::path& out) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(resources)) {
        if (entry.path().extension() == ".res") files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    fs::create_directories(out);
    std::vector<fs::path> pictures;
    for (const fs::path& file : files) {
        const Dialog dialog(file.stem().string(),
                            ParseResource(ReadFile(file), file.filename().string()));
        pictures.push_back(out / (file.stem().string() + ".png"));
        DrawDialog(dialog, pictures.back());
    }
    return pictures;
}

#endif

}  // namespace simhost
