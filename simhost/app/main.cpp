// The simulated host as a program: runs trail scripts, or sits at a prompt where the same lines can
// be typed; shows what the plug-in does; makes large assemblies for measuring.
#include <CLI/CLI.hpp>

#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "simhost/app/demo.h"
#include "simhost/app/dialog_picture.h"
#include "simhost/app/faults.h"
#include "simhost/app/generate.h"
#include "simhost/app/picture_file.h"
#include "simhost/app/prompt.h"
#include "simhost/app/workplace.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/trail/hooks.h"
#include "simhost/trail/interpreter.h"

namespace fs = std::filesystem;
using namespace simhost;

namespace {

struct Options {
    WorkplaceOptions workplace;
    std::string script, journal, out = "out/demo";
    std::vector<std::string> faults;
    bool noPlugin = false;
    int occurrences = 10000, models = 200, depth = 4;
    unsigned seed = 1;
};

void PrintLine(const std::string& line) {
    std::cout << line << '\n' << std::flush;
}

std::string StartPlugin(Workplace& workplace) {
    const int status = workplace.StartPlugin();
    if (status == 0) return {};
    return "the plug-in did not start: user_initialize returned " + std::to_string(status);
}

void SetHooks(Workplace& workplace) {
    TheHooks().start = [&] { return StartPlugin(workplace); };
    TheHooks().stop = [&] {
        workplace.StopPlugin();
        return std::string();
    };
    TheHooks().picture = [](const std::string& file) { return SavePicture(file); };
}

// Runs the lines of `source` at a workplace; 0 if nothing failed.
int RunTrail(const Options& options, Source& source) {
    std::vector<Fault> faults;
    for (const std::string& text : options.faults) faults.push_back(ParseFault(text));
    Workplace workplace(options.workplace);
    Host& host = TheHost();
    SetHooks(workplace);
    if (!options.journal.empty()) host.journal.StartFile(options.journal);
    for (const Fault& fault : faults) Operation::Fail(fault);

    Trail trail(source, PrintLine);
    if (!options.noPlugin) trail.Begin("@ start");
    bool ok = trail.Run();
    for (const std::string& held : host.arrays.HeldByMistake()) {
        PrintLine("still held: " + held);
    }
    workplace.StopPlugin();
    if (!options.journal.empty()) {
        host.journal.Stop();
        PrintLine("journal: " + options.journal);
    }
    if (!ok) PrintLine(std::to_string(trail.failures().size()) + " failed");
    for (const std::string& unreached : UnreachedFaultLines()) {
        PrintLine(unreached);
        ok = false;
    }
    return ok ? 0 : 1;
}

int RunScriptFile(const Options& options) {
    std::optional<TextSource> source = FileSource(options.script);
    if (!source) throw std::runtime_error("cannot read " + options.script);
    return RunTrail(options, *source);
}

int RunPrompt(const Options& options) {
    const std::unique_ptr<Source> source = PromptSource();
    return RunTrail(options, *source);
}

void AddWorkplaceOptions(CLI::App* command, Options* options) {
    command->add_option("--project", options->workplace.project,
                        "Folder of model files to work on (copied; default: the sample gearbox)");
    command->add_option("--drive", options->workplace.drive,
                        "Folder that plays drive C and stays (default: a temporary one)");
    command->add_option("--journal", options->journal, "Write every call through the door here");
    command->add_option(
        "--fail", options->faults,
        "OPERATION[:N]=STATUS[+done]: the N-th such call fails (without N, every one), "
        "with +done after it has done its work");
    command->add_flag("--new-user", options->workplace.newUser,
                      "The first-run notice has not been seen yet");
    command->add_flag("--no-plugin", options->noPlugin, "Do not start the plug-in (see @ start)");
}

}  // namespace

int main(int argc, char* argv[]) {
    Options options;
    options.workplace.installed = VX_SOURCE_DIR;
    options.workplace.module = fs::path(argv[0]).parent_path() / VX_MODULE_NAME;
    options.workplace.project = fs::path(VX_SOURCE_DIR) / "samples" / "gearbox";

    CLI::App app{"The simulated host of Vorlatix. Without a command: a prompt."};
    app.add_option("--module", options.workplace.module, "The plug-in's module");
    AddWorkplaceOptions(&app, &options);
    CLI::App* run = app.add_subcommand("run", "Run a trail script and print a transcript");
    run->add_option("script", options.script, "The script")->required();
    AddWorkplaceOptions(run, &options);
    CLI::App* demo = app.add_subcommand(
        "demo", "Work on the sample gearbox as a designer would, and show what happened");
    demo->add_option("--out", options.out, "Folder for the results");
    CLI::App* generate = app.add_subcommand("generate", "Write the files of a large assembly");
    generate->add_option("--out", options.out, "Folder for the files")->required();
    generate->add_option("--occurrences", options.occurrences, "Components in the whole tree");
    generate->add_option("--models", options.models, "Different models below the top");
    generate->add_option("--depth", options.depth, "Levels");
    generate->add_option("--seed", options.seed, "Start of the random numbers");
    CLI::App* dialogs = app.add_subcommand("dialogs", "Draw every dialog of the plug-in");
    dialogs->add_option("--out", options.out, "Folder for the pictures")->required();
    CLI11_PARSE(app, argc, argv);

    try {
        if (run->parsed()) return RunScriptFile(options);
        if (demo->parsed()) return RunDemo(options.workplace, options.out, PrintLine);
        if (generate->parsed()) {
            GenerateAssembly(options.out, options.occurrences, options.models, options.depth,
                             options.seed);
            PrintLine("written: " + options.out + "/large.asm.1");
            return 0;
        }
        if (dialogs->parsed()) {
            const fs::path resources = fs::path(VX_SOURCE_DIR) / "text" / "resource";
            for (const fs::path& picture : DrawDialogs(resources, options.out)) {
                PrintLine("drawn: " + picture.string());
            }
            return 0;
        }
        return RunPrompt(options);
    } catch (const std::exception& error) {
        std::cerr << "simhost: " << error.what() << '\n';
        return 2;
    }
}
