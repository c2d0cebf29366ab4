// Pictures as PNG and PDF, by the drawing library. Not on Windows, where there is none.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "simhost/model/plot_records.h"
#include "simhost/picture/canvas.h"

namespace simhost {

// Both throw std::runtime_error: no font with Chinese characters, a file that cannot be written.
void WritePng(const Picture& picture, const std::filesystem::path& file);
// A page for each picture, of its own size, at 72 units to the inch. Fonts are embedded.
void WritePdf(const std::vector<Picture>& pages, const std::filesystem::path& file);

// The bytes of such a file with a title, in the colours that are asked for, its texts written in
// fonts or drawn as curves; the same pages give the same bytes at any time. `note`: what the user
// should know of the file.
std::string PdfOf(const std::vector<Picture>& pages, const std::string& title,
                  const PlotOptions& options, std::string* note);

}  // namespace simhost
