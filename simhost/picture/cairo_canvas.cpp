// Paints pictures with cairo.
#include "simhost/picture/cairo_canvas.h"

#include <cairo-pdf.h>

#include <cairo.h>
#include <cmath>
#include <cstdlib>
#include <stdexcept>

namespace simhost {

namespace {

using CairoSurface = std::unique_ptr<cairo_surface_t, void (*)(cairo_surface_t*)>;
using Context = std::unique_ptr<cairo_t, void (*)(cairo_t*)>;

// The first of these that has Chinese characters is used.
const double kDegree = std::acos(-1.0) / 180;
constexpr const char* kFamilies[] = {"WenQuanYi Zen Hei", "Noto Sans CJK SC", "SimSun"};

bool HasChinese(cairo_t* cairo) {
    cairo_glyph_t* glyphs = nullptr;
    int count = 0;
    const std::string sample = "设";
    cairo_scaled_font_text_to_glyphs(cairo_get_scaled_font(cairo), 0, 0, sample.c_str(),
                                     int(sample.size()), &glyphs, &count, nullptr, nullptr,
                                     nullptr);
    const bool has = count == 1 && glyphs && glyphs[0].index != 0;
    cairo_glyph_free(glyphs);
    return has;
}

const char* Family(cairo_t* cairo) {
    for (const char* family : kFamilies) {
        cairo_select_font_face(cairo, family, CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
        if (HasChinese(cairo)) return family;
    }
    throw std::runtime_error("no font with Chinese characters; install fonts-wqy-zenhei");
}

class CairoCanvas : public Canvas {
public:
    explicit CairoCanvas(cairo_t* cairo, const PlotOptions& options = {})
        : cairo_(cairo), family_(Family(cairo)), options_(options) {
        cairo_set_line_join(cairo_, CAIRO_LINE_JOIN_ROUND);
        cairo_set_line_cap(cairo_, CAIRO_LINE_CAP_ROUND);
    }

    void BeginGroup(const std::string&, const std::string&) override {}
    void EndGroup() override {}

    void Area(const Path& path, const std::string& fill, double opacity) override {
        Follow(path);
        SetColour(fill, opacity);
        if (opacity < 1) return cairo_fill(cairo_);
        cairo_fill_preserve(cairo_);
        cairo_set_dash(cairo_, nullptr, 0, 0);
        cairo_set_line_width(cairo_, 0.5);
        cairo_stroke(cairo_);
    }
    void Stroke(const Path& path, const Pen& pen) override {
        Follow(path);
        Draw(pen);
    }
    void Circle(double x, double y, double radius, const Pen& pen) override {
        cairo_new_path(cairo_);
        cairo_arc(cairo_, x, y, radius, 0, 2 * std::acos(-1.0));
        Draw(pen);
    }
    void Box(const Rectangle& box, const std::string& fill, const Pen* pen) override {
        cairo_new_path(cairo_);
        cairo_rectangle(cairo_, box.x, box.y, box.width, box.height);
        if (!fill.empty()) {
            SetColour(fill, 1);
            cairo_fill_preserve(cairo_);
        }
        if (pen) Draw(*pen);
        cairo_new_path(cairo_);
    }
    void Text(double x, double y, const Letters& letters, const std::string& text) override {
        cairo_select_font_face(cairo_, family_, CAIRO_FONT_SLANT_NORMAL,
                               letters.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
        cairo_set_font_size(cairo_, letters.size);
        SetColour(letters.colour, 1);
        cairo_text_extents_t extents;
        cairo_text_extents(cairo_, text.c_str(), &extents);
        double back = 0;
        if (letters.anchor == Letters::Anchor::Middle) back = extents.x_advance / 2;
        if (letters.anchor == Letters::Anchor::End) back = extents.x_advance;
        cairo_save(cairo_);
        cairo_translate(cairo_, x, y);
        cairo_rotate(cairo_, -letters.turn * kDegree);
        cairo_move_to(cairo_, -back, 0);
        if (options_.strokes) {
            cairo_text_path(cairo_, text.c_str());
            cairo_fill(cairo_);
        } else {
            cairo_show_text(cairo_, text.c_str());
        }
        cairo_restore(cairo_);
    }

private:
    void SetColour(const std::string& colour, double opacity) {
        const long rgb = std::strtol(colour.c_str() + 1, nullptr, 16);
        double red = double(rgb >> 16 & 255) / 255, green = double(rgb >> 8 & 255) / 255,
               blue = double(rgb & 255) / 255;
        const double grey = 0.299 * red + 0.587 * green + 0.114 * blue;
        if (options_.colours == PlotColours::Grey) red = green = blue = grey;
        // Only what is as white as the paper stays so.
        if (options_.colours == PlotColours::Black) red = green = blue = grey < 1 ? 0 : 1;
        cairo_set_source_rgba(cairo_, red, green, blue, opacity);
    }
    void Follow(const Path& path) {
        cairo_new_path(cairo_);
        for (const Path::Point& point : path.points()) {
            switch (point.step) {
                case Path::Step::Move: cairo_move_to(cairo_, point.x, point.y); break;
                case Path::Step::Line: cairo_line_to(cairo_, point.x, point.y); break;
                case Path::Step::Close: cairo_close_path(cairo_); break;
            }
        }
    }
    void Draw(const Pen& pen) {
        SetColour(pen.colour, pen.opacity);
        cairo_set_line_width(cairo_, pen.width);
        cairo_set_dash(cairo_, pen.dashes.data(), int(pen.dashes.size()), 0);
        cairo_stroke(cairo_);
    }

    cairo_t* cairo_;
    const char* family_;
    PlotOptions options_;
};

void PaintOn(cairo_t* cairo, const Picture& picture, const PlotOptions& options = {}) {
    cairo_scale(cairo, picture.widthPixels / picture.width, picture.heightPixels / picture.height);
    CairoCanvas canvas(cairo, options);
    picture.paint(canvas);
}

void PaintPages(cairo_surface_t* surface, const std::vector<Picture>& pages,
                const PlotOptions& options = {}) {
    for (const Picture& page : pages) {
        cairo_pdf_surface_set_size(surface, page.widthPixels, page.heightPixels);
        const Context cairo(cairo_create(surface), cairo_destroy);
        PaintOn(cairo.get(), page, options);
        cairo_show_page(cairo.get());
    }
    cairo_surface_finish(surface);
}

cairo_status_t Append(void* bytes, const unsigned char* data, unsigned length) {
    static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

void CheckWritten(cairo_status_t status, const std::filesystem::path& file) {
    if (status == CAIRO_STATUS_SUCCESS) return;
    throw std::runtime_error("cannot write " + file.string() + ": " +
                             cairo_status_to_string(status));
}

}  // namespace

void WritePng(const Picture& picture, const std::filesystem::path& file) {
    const CairoSurface surface(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, int(std::lround(picture.widthPixels)),
                                   int(std::lround(picture.heightPixels))),
        cairo_surface_destroy);
    const Context cairo(cairo_create(surface.get()), cairo_destroy);
    PaintOn(cairo.get(), picture);
    CheckWritten(cairo_surface_write_to_png(surface.get(), file.c_str()), file);
}

void WritePdf(const std::vector<Picture>& pages, const std::filesystem::path& file) {
    const CairoSurface surface(cairo_pdf_surface_create(file.c_str(), 1, 1), cairo_surface_destroy);
    PaintPages(surface.get(), pages);
    CheckWritten(cairo_surface_status(surface.get()), file);
}

std::string PdfOf(const std::vector<Picture>& pages, const std::string& title,
                  const PlotOptions& options, std::string*) {
    std::string bytes;
    const CairoSurface surface(cairo_pdf_surface_create_for_stream(Append, &bytes, 1, 1),
                               cairo_surface_destroy);
    cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_TITLE, title.c_str());
    // Of the day of its making a file would differ from the one before.
    cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_CREATE_DATE,
                                   "2000-01-01T00:00:00Z");
    PaintPages(surface.get(), pages, options);
    return bytes;
}

}  // namespace simhost
