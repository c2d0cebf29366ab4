// The demonstration: a script at a workplace of its own, told as a page.
#include "simhost/app/demo.h"

#include <cstdlib>
#include <set>
#include <sstream>
#include <stdexcept>

#include "simhost/app/demo_drive.h"
#include "simhost/app/picture_file.h"
#include "simhost/app/report.h"
#include "simhost/core/disk.h"
#include "simhost/host.h"
#include "simhost/trail/hooks.h"
#include "simhost/trail/interpreter.h"

namespace fs = std::filesystem;

namespace simhost {

namespace {

constexpr const char* kStart =
    "@ title The plug-in starts\n@ start\n~ Activate `VxInit.res` `OK`\n@ show menu\n";

// A picture without a folder goes where the results are.
std::string Draw(const std::string& file, bool asOnScreen, const fs::path& out, Report* report) {
    const fs::path name(std::u8string(file.begin(), file.end()));
    const fs::path place = name.is_absolute() ? name : out / name;
    const std::string wrong = SavePicture(place.string(), asOnScreen);
    if (wrong.empty() && !name.is_absolute()) report->Add(file);
    return wrong;
}

std::string CopyTo(const fs::path& out, const fs::path& file, Report* report) {
    std::error_code error;
    fs::copy_file(file, out / file.filename(), fs::copy_options::overwrite_existing, error);
    if (error) return "cannot copy " + file.string() + ": " + error.message();
    report->Add(file.filename().string());
    return {};
}

// A person would do this in another program. Quoted for the shell; the system's own Python, which
// has the libraries.
// `told` is where its output lies meanwhile.
std::string WorkOn(const fs::path& script, const fs::path& file, const fs::path& told) {
    if (!fs::is_regular_file(script)) return "there is no script " + script.string();
    std::string command = "/usr/bin/python3";
    const auto append = [&command](const char* before, const fs::path& path) {
        command += before;
        for (const char c : path.string())
            command += c == '\'' ? std::string("'\\''") : std::string(1, c);
        command += '\'';
    };
    append(" '", script);
    append(" '", file);
    append(" > '", told);
    return std::system(command.c_str()) == 0 ? "" : script.filename().string() + " has failed";
}

}  // namespace

int RunDemo(WorkplaceOptions options, const fs::path& script, const fs::path& out,
            const std::function<void(const std::string&)>& print, const DialogWriter& dialogs) {
    bool found = false;
    const std::string lines = ReadFile(script, &found);
    if (!found) throw std::runtime_error("cannot read " + script.string());
    const fs::path whole = fs::absolute(out);
    const DemoDrive drive(whole);
    if (const std::string kept = drive.MakeRoom(); !kept.empty()) print(kept);
    options.drive = drive.folder();
    options.newUser = true;
    Workplace workplace(std::move(options));
    Report report;
    TheHooks().start = [&] {
        const int status = workplace.StartPlugin();
        return status == 0 ? std::string() : "user_initialize returned " + std::to_string(status);
    };
    TheHooks().picture = [&](const std::string& file, bool asOnScreen) {
        return Draw(file, asOnScreen, whole, &report);
    };
    TheHooks().handOut = [&](const fs::path& file) { return CopyTo(whole, file, &report); };
    const auto tell = [&](const std::string& line) {
        print(line);
        report.Line(line);
    };
    TheHooks().script = [&](const std::string& name, const fs::path& file) {
        const fs::path told = whole / "script.out";
        const std::string problem = WorkOn(script.parent_path() / name, file, told);
        std::istringstream output(ReadFile(told));
        for (std::string line; std::getline(output, line);) tell("    " + line);
        std::error_code ignored;
        fs::remove(told, ignored);
        return problem;
    };
    TheHooks().title = [&](const std::string& title) { report.Begin(title); };
    const auto failures = RunScript(kStart + lines, tell);
    workplace.StopPlugin();
    TheHooks() = {};
    drive.NoteFiles();
    const fs::path page = whole / "index.html";
    const auto written = dialogs ? dialogs(whole / "dialogs") : std::set<std::string>();
    if (!WriteFile(page, report.Html("Vorlatix: " + script.stem().string(), written))) {
        throw std::runtime_error("cannot write " + page.string());
    }
    print("");
    print("changed project:  " + (whole / "drive_c" / "Work").string());
    print("all of it:        " + page.string());
    return failures.empty() ? 0 : 1;
}

}  // namespace simhost
