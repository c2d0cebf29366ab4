// Pictures as PNG and PDF, and the widths of texts, by the drawing library. Not on Windows, where
// there is none.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "simhost/picture/canvas.h"

namespace simhost {

// Both throw std::runtime_error: no font with Chinese characters, a file that cannot be written.
void WritePng(const Picture& picture, const std::filesystem::path& file);
// A page for each picture, of its own size, at 72 units to the inch. Fonts are embedded.
void WritePdf(const std::vector<Picture>& pages, const std::filesystem::path& file);

// Tells how wide a text is.
class Ruler {
public:
    Ruler();
    ~Ruler();
    double Width(const std::string& text, double size) const;

private:
    struct Inside;
    std::unique_ptr<Inside> inside_;
};

}  // namespace simhost
