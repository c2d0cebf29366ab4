// Puts a dialog's form, the page's own modules and styles, and its pictures into one file.
#include "simhost/web/dialog_files.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "simhost/core/disk.h"
#include "simhost/picture/svg_canvas.h"
#include "simhost/ui/dialogs.h"
#include "simhost/ui/label.h"
#include "simhost/ui/resource.h"
#include "simhost/web/dialog_form.h"
#include "simhost/web/json_text.h"
#include "simhost/web/one_script.h"

namespace fs = std::filesystem;

namespace simhost {

namespace {

// The browser itself sees to it that the file needs nothing else.
constexpr const char* kPage =
    "<!DOCTYPE html>\n<html lang=\"zh-CN\"><head><meta charset=\"utf-8\">\n"
    "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
    "script-src 'unsafe-inline'; style-src 'unsafe-inline'; img-src data:\">\n"
    "<title>{title}</title>\n<style>\n{style}</style></head>\n<body>\n"
    "<script id=\"form\" type=\"application/json\">{form}</script>\n"
    "<script>\n{script}</script>\n</body></html>\n";

constexpr const char* kIndex =
    "<!DOCTYPE html>\n<html lang=\"zh-CN\"><head><meta charset=\"utf-8\"><title>Vorlatix</title>\n"
    "<style>\nbody {{ margin: 1.5em; font: 15px/1.6 \"Microsoft YaHei\", \"WenQuanYi Zen Hei\", "
    "sans-serif; }}\np {{ margin: 0 0 2em; break-inside: avoid; }}\na {{ color: #1d4f80; }}\n"
    "</style>\n<script src=\"frames.js\" defer></script></head>\n<body>\n{}</body></html>\n";

std::string Read(const fs::path& file) {
    bool found = false;
    std::string text = ReadFile(file, &found);
    if (!found) throw std::runtime_error("cannot read " + file.string());
    return text;
}

void Write(const fs::path& file, const std::string& text) {
    std::string reason;
    if (WriteFile(file, text, &reason)) return;
    throw std::runtime_error("cannot write " + file.string() + ": " + reason);
}

// Three bytes as four letters, the last ones filled up with =.
std::string Base64(const std::string& bytes) {
    constexpr const char* kLetters =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        unsigned three = 0;
        for (std::size_t i = at; i < at + 3; ++i) {
            three = three << 8 | (i < bytes.size() ? static_cast<std::uint8_t>(bytes[i]) : 0u);
        }
        for (std::size_t i = 0; i < 4; ++i) {
            text += at + i > bytes.size() ? '=' : kLetters[three >> (18 - 6 * i) & 63];
        }
    }
    return text;
}

// The pictures of labels lie in the file, too.
void TakePicturesIn(const fs::path& folder, Json* form) {
    for (Json& component : (*form)["components"]) {
        if (!component.contains("picture")) continue;
        const auto name = component["picture"].get<std::string>();
        const std::string bytes = Read(folder / fs::path(std::u8string(name.begin(), name.end())));
        component["picture"] = "data:image/png;base64," + Base64(bytes);
    }
}

// Nothing in it can end the script that it lies in.
std::string InScript(const std::string& json) {
    std::string text;
    for (const char c : json) c == '<' ? text += "\\u003c" : text += c;
    return text;
}

Json FormIn(const fs::path& resource) {
    const std::string file = resource.filename().string();
    DialogResource parsed = ParseResource(Read(resource), file);
    CheckPictures(parsed, file, resource.parent_path());
    Json form = FormOf(Dialog(resource.stem().string(), std::move(parsed)));
    TakePicturesIn(resource.parent_path(), &form);
    return form;
}

std::vector<fs::path> ResourcesIn(const fs::path& folder) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.path().extension() == ".res") files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace

std::vector<fs::path> WriteDialogFiles(const fs::path& page, const fs::path& resources,
                                       const fs::path& out) {
    const std::string script = OneScript(page, "alone.js");
    std::string style;
    for (const char* file : {"style.css", "forms.css", "alone.css"}) style += Read(page / file);
    fs::create_directories(out);
    std::vector<fs::path> written;
    std::string links;
    for (const fs::path& resource : ResourcesIn(resources)) {
        const Json form = FormIn(resource);
        const auto name = form["name"].get<std::string>(), title = form["title"].get<std::string>();
        written.push_back(out / (name + ".html"));
        Write(written.back(),
              fmt::format(kPage, fmt::arg("title", SvgText(title)), fmt::arg("style", style),
                          fmt::arg("script", script), fmt::arg("form", InScript(Dump(form)))));
        links += fmt::format("<p><a class=\"dialog\" href=\"{0}.html\">{0}: {1}</a></p>\n",
                             SvgText(name), SvgText(title));
    }
    Write(out / "frames.js", Read(page / "frames.js"));
    Write(out / "index.html", fmt::format(kIndex, links));
    return written;
}

}  // namespace simhost
