// Writes the page about a script.
#include "simhost/app/report.h"

#include <fmt/format.h>

#include "simhost/core/text.h"
#include "simhost/picture/svg_canvas.h"

namespace simhost {

namespace {

constexpr const char* kStyle =
    "body { margin: 2em auto; max-width: 80em; padding: 0 1em; color: #222;"
    " font: 15px/1.6 \"Microsoft YaHei\", \"WenQuanYi Zen Hei\", sans-serif; }\n"
    "section { border-top: 1px solid #cbd3da; padding: .5em 0 1.5em; }\n"
    "img { max-width: 48%; max-height: 42em; margin: .5em 1em .5em 0; vertical-align: top; }\n"
    "pre { background: #f3f5f7; padding: 1em; overflow-x: auto;"
    " font: 13px/1.45 \"WenQuanYi Zen Hei Mono\", Consolas, monospace; }\n";

bool IsPicture(const std::string& file) {
    const std::string ending = Lower(file.substr(std::min(file.rfind('.'), file.size())));
    return ending == ".svg" || ending == ".png";
}

// The dialog that a step of a transcript uses; empty if it uses none.
std::string DialogOf(const std::string& line) {
    for (const char* verb : {"~ Activate `", "~ Select `", "~ Input `"}) {
        if (line.rfind(verb, 0) != 0) continue;
        const std::size_t from = std::string(verb).size();
        return line.substr(from, line.find('`', from) - from);
    }
    return {};
}

std::string ImageOf(const std::string& file) {
    return fmt::format("<a href=\"{0}\"><img src=\"{0}\" alt=\"{0}\"></a>\n", SvgText(file));
}

std::string FrameOf(const std::string& dialog) {
    return fmt::format("<p><a class=\"dialog\" href=\"dialogs/{0}.html\">{0}</a></p>\n",
                       SvgText(dialog));
}

}  // namespace

void Report::Begin(const std::string& title) {
    parts_.push_back({title, {}, {}});
}

void Report::Line(const std::string& line) {
    if (parts_.empty()) Begin("");
    parts_.back().lines.push_back(line);
}

void Report::Add(const std::string& file) {
    if (parts_.empty()) Begin("");
    parts_.back().files.push_back(file);
}

std::string Report::Html(const std::string& title, const std::set<std::string>& dialogs) const {
    std::string html = fmt::format(
        "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>{0}</title>\n<style>\n{1}"
        "</style>{2}</head>\n<body><h1>{0}</h1>\n",
        SvgText(title), kStyle,
        dialogs.empty() ? "" : "\n<script src=\"dialogs/frames.js\" defer></script>");
    std::set<std::string> left = dialogs;
    for (const Part& part : parts_) {
        html += "<section>\n";
        if (!part.title.empty()) html += "<h2>" + SvgText(part.title) + "</h2>\n";
        for (const std::string& line : part.lines) {
            const std::string dialog = DialogOf(line);
            if (left.erase(dialog) > 0) html += FrameOf(dialog);
        }
        for (const std::string& file : part.files) {
            html += IsPicture(file)
                        ? ImageOf(file)
                        : fmt::format("<p><a href=\"{0}\">{0}</a></p>\n", SvgText(file));
        }
        if (!part.lines.empty()) {
            html += "<details open><summary>…</summary><pre>";
            for (const std::string& line : part.lines) html += SvgText(line) + '\n';
            html += "</pre></details>\n";
        }
        html += "</section>\n";
    }
    return html + "</body></html>\n";
}

}  // namespace simhost
