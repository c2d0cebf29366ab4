// The demonstration: the gearbox is coloured in each of the three modes, data is written into its
// models, and its bill of materials becomes a spreadsheet.
#include "simhost/app/demo.h"

#include <fmt/format.h>

#include <array>
#include <map>
#include <vector>

#include "simhost/app/demo_bom.h"
#include "simhost/app/demo_data.h"
#include "simhost/app/demo_drive.h"
#include "simhost/app/demo_views.h"
#include "simhost/app/picture.h"
#include "simhost/app/picture_file.h"
#include "simhost/core/disk.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/model/model_file.h"
#include "simhost/trail/hooks.h"
#include "simhost/trail/interpreter.h"

namespace fs = std::filesystem;

namespace simhost {

namespace {

using Print = std::function<void(const std::string&)>;

constexpr const char* kModes[] = {"asUG", "Optimization", "random"};
constexpr const char* kTop = "gearbox.asm";

// Chinese characters take two columns.
std::size_t Columns(const std::string& utf8) {
    std::size_t columns = 0;
    for (const WideChar c : Wide(utf8)) columns += c >= 0x2e80 ? 2 : 1;
    return columns;
}

std::string Padded(const std::string& utf8, std::size_t columns) {
    const std::size_t used = Columns(utf8);
    return utf8 + std::string(used < columns ? columns - used : 1, ' ');
}

class Demo {
public:
    Demo(Workplace& workplace, fs::path out, const Print& print)
        : workplace_(workplace), out_(std::move(out)), print_(print) {}

    int Run() {
        Title("The plug-in starts");
        Script("@ start\n~ Activate `VxInit.res` `OK`\n");
        ShowMenu();
        Title("The gearbox is opened and coloured three times");
        Script(fmt::format("@ open {}\n", kTop));
        NoteColours();
        for (const char* mode : kModes) {
            Script(
                fmt::format("@ setting VxRandomColorOpt value {}\n~ Command `BatchColor`\n", mode));
            NoteColours();
        }
        ShowColours();
        if (!RunDataDemo(print_)) failed_ = true;
        if (!RunBomDemo(out_, print_)) failed_ = true;
        if (!RunViewsDemo(out_, print_)) failed_ = true;
        Save();
        return failed_ ? 1 : 0;
    }

private:
    void Title(const std::string& text) { print_("\n== " + text); }

    void Script(const std::string& lines) {
        const auto failures = RunScript(lines, print_);
        failed_ = failed_ || !failures.empty();
    }

    // Two commands to a line: number, name and label.
    void ShowMenu() {
        const Menu* menu = TheHost().commands.FindMenu("Menu");
        if (!menu) return;
        print_(fmt::format("\nMenu \"{}\" with {} commands:", Utf8(menu->title),
                           menu->buttons.size()));
        std::string line;
        for (std::size_t i = 0; i < menu->buttons.size(); ++i) {
            const MenuButton& button = menu->buttons[i];
            line += fmt::format("{:3} ", i + 1) + Padded(button.name, 22) +
                    Padded(Utf8(button.label), 26);
            if (i % 2 == 0 && i + 1 < menu->buttons.size()) continue;
            print_(line);
            line.clear();
        }
    }

    // Keeps the colour of each part at this moment.
    void NoteColours() {
        for (const Model* model : TheHost().session.All()) {
            if (model->type != PRO_MDL_PART) continue;
            colours_[model->FileName()].push_back(
                ColourText(model->appearance.value_or(DefaultAppearance())));
        }
    }

    void ShowColours() {
        Title("Each part's colour (red.green.blue) before and after");
        print_(Padded("part", 30) + Padded("before", 14) + Padded(kModes[0], 14) +
               Padded(kModes[1], 14) + kModes[2]);
        for (const auto& [part, colours] : colours_) {
            std::string line = Padded(part, 30);
            for (const std::string& colour : colours) line += Padded(colour, 14);
            print_(line);
        }
    }

    void Save() {
        Title("Results");
        Host& host = TheHost();
        for (Model* model : host.session.All()) {
            if (!model->modified) continue;
            try {
                host.session.Save(*model);
            } catch (const ModelFileError& error) {
                failed_ = true;
                print_(error.what());
            }
        }
        const fs::path picture = out_ / "gearbox.svg";
        const std::string wrong = SavePicture(picture.string());
        if (!wrong.empty()) {
            failed_ = true;
            print_(wrong);
        }
        print_("changed project:  " + workplace_.Real(host.session.workingDirectory).string());
        print_("picture:          " + picture.string());
    }

    Workplace& workplace_;
    fs::path out_;
    const Print& print_;
    bool failed_ = false;
    std::map<std::string, std::vector<std::string>> colours_;
};

}  // namespace

int RunDemo(WorkplaceOptions options, const fs::path& out, const Print& print) {
    const fs::path whole = fs::absolute(out);
    const DemoDrive drive(whole);
    if (const std::string kept = drive.MakeRoom(); !kept.empty()) print(kept);
    options.drive = drive.folder();
    options.newUser = true;
    Workplace workplace(std::move(options));
    TheHooks().start = [&] {
        const int status = workplace.StartPlugin();
        return status == 0 ? std::string() : "user_initialize returned " + std::to_string(status);
    };
    const int result = Demo(workplace, whole, print).Run();
    workplace.StopPlugin();
    TheHooks() = {};
    drive.NoteFiles();
    return result;
}

}  // namespace simhost
