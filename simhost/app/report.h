// A page that shows what a script did: its titles, what was pressed and what came of it, with the
// pictures, sheets, tables and dialogs beside it.
#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace simhost {

class Report {
public:
    // What comes next belongs under this title.
    void Begin(const std::string& title);
    // A line of the transcript.
    void Line(const std::string& line);
    // A file in the folder of the page: a picture is shown, another one can be opened.
    void Add(const std::string& file);

    // The page as HTML in UTF-8. `dialogs` are the names of those of which dialogs/NAME.html is
    // there, with frames.js; each is shown in the first part that uses it.
    std::string Html(const std::string& title, const std::set<std::string>& dialogs) const;

private:
    struct Part {
        std::string title;
        std::vector<std::string> lines;
        std::vector<std::string> files;
    };
    std::vector<Part> parts_;
};

}  // namespace simhost
