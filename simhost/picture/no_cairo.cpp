// In place of the drawing library on Windows: pictures are written as SVG there, and nothing else.
#include <stdexcept>

#include "simhost/picture/cairo_canvas.h"

namespace simhost {

namespace {

[[noreturn]] void Refuse() {
    throw std::runtime_error("on Windows pictures are written as .svg only");
}

}  // namespace

void WritePng(const Picture&, const std::filesystem::path&) {
    Refuse();
}
void WritePdf(const std::vector<Picture>&, const std::filesystem::path&) {
    Refuse();
}
std::string PdfOf(const std::vector<Picture>&, const std::string& title, const PlotOptions&,
                  std::string* note) {
    *note = "holds a line of text, because there is no PDF on Windows";
    return "In place of a PDF file of " + title + "\r\n";
}

}  // namespace simhost
