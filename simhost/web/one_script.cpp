// Puts modules into one script: an import becomes a look at what the other module has handed out.
#include "simhost/web/one_script.h"

#include <fmt/format.h>

#include <set>
#include <sstream>
#include <stdexcept>

#include "simhost/core/disk.h"

namespace simhost {

namespace {

constexpr const char* kHead = "'use strict';\nconst modules = {};\n";

class Writer {
public:
    explicit Writer(const std::filesystem::path& folder) : folder_(folder) {}

    void Add(const std::string& file) {
        if (!added_.insert(file).second) return;
        bool found = false;
        const std::string text = ReadFile(folder_ / file, &found);
        if (!found) throw std::runtime_error("cannot read " + (folder_ / file).string());
        // In a page it would end the script.
        if (text.find("</script") != std::string::npos) Refuse(file, "</script");
        std::string body, exported;
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with("import")) {
                line = TakeImport(file, RestOf(lines, line));
            } else if (line.starts_with("export")) {
                line = TakeExport(file, line, &exported);
            }
            body += line;
            body += '\n';
        }
        script_ += fmt::format("modules['{}'] = (() => {{\n{}return {{ {} }};\n}})();\n", file,
                               body, exported);
    }

    const std::string& script() const { return script_; }

private:
    [[noreturn]] static void Refuse(const std::string& file, const std::string& line) {
        throw std::runtime_error(file + ": this cannot be put into one script: " + line);
    }

    // An import may take several lines.
    static std::string RestOf(std::istringstream& lines, std::string text) {
        for (std::string line; text.find(';') == std::string::npos && std::getline(lines, line);) {
            text += line;
        }
        return text;
    }

    // What is imported comes before.
    std::string TakeImport(const std::string& file, const std::string& text) {
        const std::size_t open = text.find('{'), close = text.find('}');
        constexpr std::string_view kFrom = "} from './";
        const std::size_t end = text.rfind("';");
        const bool isUsual = open == text.find_first_not_of(' ', 6) && close != std::string::npos &&
                             text.compare(close, kFrom.size(), kFrom) == 0 &&
                             end != std::string::npos && end + 2 == text.size() &&
                             text.find(" as ") == std::string::npos;
        if (!isUsual) Refuse(file, text);
        const std::size_t from = close + kFrom.size();
        const std::string other = text.substr(from, end - from);
        Add(other);
        return fmt::format("const {} = modules['{}'];", text.substr(open, close + 1 - open), other);
    }

    static std::string TakeExport(const std::string& file, const std::string& line,
                                  std::string* exported) {
        for (const std::string_view kind : {"class ", "function ", "async function ", "const "}) {
            const std::string head = "export " + std::string(kind);
            if (!line.starts_with(head)) continue;
            const std::size_t end = line.find_first_of(" ({=;", head.size());
            const std::string name = line.substr(head.size(), end - head.size());
            *exported += (exported->empty() ? "" : ", ") + name;
            return line.substr(std::string("export ").size());
        }
        Refuse(file, line);
    }

    const std::filesystem::path& folder_;
    std::set<std::string> added_;
    std::string script_ = kHead;
};

}  // namespace

std::string OneScript(const std::filesystem::path& folder, const std::string& entry) {
    Writer writer(folder);
    writer.Add(entry);
    return writer.script();
}

}  // namespace simhost
