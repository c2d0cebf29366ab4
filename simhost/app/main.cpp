// The simulated host as a program: runs trail scripts, or sits at a prompt where the same lines can
// be typed; shows what the plug-in does; makes large assemblies for measuring.
#include <CLI/CLI.hpp>

#include <cerrno>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <iostream>
#include <limits>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "simhost/app/demo.h"
#include "simhost/app/faults.h"
#include "simhost/app/generate.h"
#include "simhost/app/picture_file.h"
#include "simhost/app/progress_line.h"
#include "simhost/app/prompt.h"
#include "simhost/app/session_words.h"
#include "simhost/app/signals.h"
#include "simhost/app/workplace.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/kernel/import.h"
#include "simhost/trail/hooks.h"
#include "simhost/trail/interpreter.h"
#include "simhost/ui/near_name.h"
#include "simhost/user/language.h"
#ifndef _WIN32
#include "simhost/web/dialog_files.h"
#include "simhost/web/workbench.h"
#endif

namespace fs = std::filesystem;
using namespace simhost;

namespace {

struct Options {
    WorkplaceOptions workplace;
    std::string script, journal, recording, import;
    int port = 0;
    fs::path out = "out/demo";
    std::vector<std::string> faults;
    bool noPlugin = false;
    std::string hostVersion;  // empty: the usual one
    int occurrences = 10000, models = 200, depth = 4, seed = 1;
    int seconds = Bounds().seconds, megabytes = 0;
};

// What the command line asks for and cannot be done.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Why the first line that was lost could not be written; 0: all were.
int transcriptError = 0;

void PrintLine(const std::string& line) {
    ClearProgressLine();
    errno = 0;
    std::cout << line << '\n' << std::flush;
    if (!std::cout && transcriptError == 0) transcriptError = errno != 0 ? errno : EIO;
}

// Whoever reads only the status must not take a lost transcript for a good one.
void CheckTranscript() {
    errno = 0;
    if (!std::cout.flush() && transcriptError == 0) transcriptError = errno != 0 ? errno : EIO;
    if (transcriptError == 0) return;
    throw std::runtime_error("what is printed cannot be written: " +
                             std::generic_category().message(transcriptError));
}

// Runs the lines of `source` at a workplace; 0 if nothing failed. A session is one that somebody
// types.
int RunTrail(const Options& options, Source& source, bool session) {
    std::vector<Fault> faults;
    for (const std::string& text : options.faults) faults.push_back(ParseFault(text));
    Workplace workplace(options.workplace);
    Host& host = TheHost();
    SetHooks(workplace, [&] { return TellUnsaved(workplace, IsTyped()); });
    if (!options.journal.empty()) host.journal.StartFile(options.journal);
    for (const Fault& fault : faults) Operation::Fail(fault);

    if (session) TellWhereItWorks(workplace, PrintLine);
    Trail trail(source, PrintLine);
    if (!options.noPlugin) trail.Begin("@ start " + options.hostVersion);
    bool ok = trail.Run();
    for (const std::string& held : host.arrays.HeldByMistake()) {
        PrintLine("still held: " + held);
    }
    TellWhatIsWritten(workplace, PrintLine);
    workplace.StopPlugin();
    if (!options.journal.empty()) {
        host.journal.Stop();
        PrintLine("journal: " + options.journal);
    }
    if (const int held = trail.held(); held > 0) {
        PrintLine(std::to_string(held) + (held == 1 ? " expectation held" : " expectations held"));
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
    return RunTrail(options, *source, /*session=*/false);
}

int RunPrompt(const Options& options) {
    const std::unique_ptr<Source> source = PromptSource();
    return RunTrail(options, *source, /*session=*/true);
}

// --- The command line -------------------------------------------------------------------------

fs::path PathOf(const std::string& utf8) {
    return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

template <class Path>
CLI::Option* FolderOption(CLI::App* command, const char* name, Path* folder, const char* help) {
    const auto take = [name, folder](const std::string& value) {
        if (value.empty()) throw UsageError(std::string(name) + " needs the name of a folder");
        *folder = PathOf(value);
    };
    return command->add_option_function<std::string>(name, take, help);
}

void NumberOption(CLI::App* command, const char* name, int* number, int most, const char* help) {
    const auto take = [name, number, most](const std::string& value) {
        const char* end = value.data() + value.size();
        const auto [parsed, error] = std::from_chars(value.data(), end, *number);
        if (error == std::errc() && parsed == end && *number >= 0 && *number <= most) return;
        throw UsageError(std::string(name) + " " + value + ": a whole number from 0 to " +
                         std::to_string(most) + " belongs there");
    };
    command->add_option_function<std::string>(name, take, help);
}

// Makes the folder that an option names, so that what follows can write into it.
void MakeFolder(const char* option, const fs::path& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    std::error_code ignored;
    if (fs::is_directory(folder, ignored)) return;
    throw UsageError(std::string(option) + " " + folder.string() + ": cannot make this folder: " +
                     (error ? error.message() : "a file has its name"));
}

std::string NearestQuoted(const std::string& name, const std::vector<std::string>& names) {
    const std::string near = NearName(name, names);
    return near.empty() ? std::string() : "; did you mean '" + near + "'?";
}

// What is wrong with the first word that nothing could be made of.
std::string UnknownWord(const CLI::App& app) {
    const auto parsed = app.get_subcommands();
    const CLI::App& command = parsed.empty() ? app : *parsed[0];
    const std::vector<std::string> words = app.remaining(/*recurse=*/true);
    const std::string word = words.empty() ? std::string() : words[0];
    std::vector<std::string> names;
    if (word.size() > 1 && word[0] == '-') {
        for (const CLI::Option* option : command.get_options()) names.push_back(option->get_name());
        return "no option '" + word + "'" + NearestQuoted(word, names);
    }
    if (&command != &app) return command.get_name() + " has no use for '" + word + "'";
    for (const CLI::App* each : app.get_subcommands({})) names.push_back(each->get_name());
    return "no command '" + word + "'" + NearestQuoted(word, names);
}

// The library's sentences about missing words, in ours.
std::string MissingWord(const CLI::ParseError& error) {
    const std::string said = error.what();
    const std::string name = said.substr(0, said.find_first_of(": "));
    return (name.substr(0, 2) == "--" ? name : "a " + name) + " " +
           (error.get_name() == "RequiredError" ? "is missing" : "needs a value after it");
}

void Parse(CLI::App* app, int argc, char* argv[]) {
    try {
        app->parse(argc, argv);
    } catch (const CLI::ExtrasError&) {
        throw UsageError(UnknownWord(*app));
    } catch (const CLI::RequiredError& error) {
        throw UsageError(MissingWord(error));
    } catch (const CLI::ArgumentMismatch& error) {
        throw UsageError(MissingWord(error));
    }
}

void AddWorkplaceOptions(CLI::App* command, Options* options) {
    command->add_option("--module", options->workplace.module, "The plug-in's module");
    FolderOption(command, "--project", &options->workplace.project,
                 "Folder of model files to work on (copied; default: the sample gearbox)");
    FolderOption(command, "--drive", &options->workplace.drive,
                 "Folder that plays drive C and stays (default: a temporary one)");
    command->add_option("--journal", options->journal, "Write every call through the door here");
    command->add_option(
        "--fail", options->faults,
        "OPERATION[:N]=STATUS[+done]: the N-th such call fails (without N, every one), "
        "with +done after it has done its work");
    command
        ->add_option("--code-page", options->workplace.codePage,
                     "Code page of the simulated Windows (default: 936, Chinese)")
        ->check(CLI::IsMember({936, 1252, 65001}));
    command->add_flag("--new-user", options->workplace.newUser,
                      "The first-run notice has not been seen yet");
    command->add_option("--host-version", options->hostVersion,
                        "Version of the host, as the plug-in is told: 5.0, Creo 2.0");
    command->add_flag("--no-plugin", options->noPlugin, "Do not start the plug-in (see @ start)");
}

struct CommandLine {
    CLI::App app{"The simulated host of Vorlatix. Without a command: a prompt."};
    CLI::App *workbench = nullptr, *run = nullptr, *demo = nullptr, *generate = nullptr,
             *dialogs = nullptr, *import = nullptr;

    explicit CommandLine(Options* options) {
        app.set_version_flag("--version", "simhost " VX_VERSION);
        AddWorkplaceOptions(&app, options);
        workbench = app.add_subcommand("workbench", "Work with the plug-in in a browser");
        AddWorkplaceOptions(workbench, options);
        NumberOption(workbench, "--port", &options->port, 65535,
                     "Port of this computer to listen at (default: any that is free)");
        workbench->add_option("--recording", options->recording,
                              "At the end write what was done here, as a script");
        workbench->add_option("--import", options->import,
                              "A STEP file to make the project of, in place of --project");
        run = app.add_subcommand("run", "Run a trail script and print a transcript");
        run->add_option("script", options->script, "The script")->required();
        AddWorkplaceOptions(run, options);
        demo = app.add_subcommand(
            "demo", "Work on the sample gearbox as a designer would, and show what happened");
        FolderOption(demo, "--out", &options->out, "Folder for the results");
        generate = app.add_subcommand("generate", "Write the files of a large assembly");
        FolderOption(generate, "--out", &options->out, "Folder for the files")->required();
        NumberOption(generate, "--occurrences", &options->occurrences, 10'000'000,
                     "Components in the whole tree");
        NumberOption(generate, "--models", &options->models, 1'000'000,
                     "Different models below the top");
        NumberOption(generate, "--depth", &options->depth, 1000, "Levels");
        NumberOption(generate, "--seed", &options->seed, std::numeric_limits<int>::max(),
                     "Start of the random numbers");
        import = app.add_subcommand("import", "Make a project of a STEP file of another system");
        import->add_option("file", options->script, "The STEP file")->required();
        FolderOption(import, "--out", &options->out, "Folder for the project, still empty")
            ->required();
        NumberOption(import, "--seconds", &options->seconds, 1'000'000,
                     "Give up a file that takes longer to read (default: 600)");
        NumberOption(import, "--memory", &options->megabytes, 1'000'000,
                     "Give up a file that takes more MB (default: 3/4 of the machine's)");
        dialogs = app.add_subcommand("dialogs", "Write a page with each dialog of the plug-in");
        FolderOption(dialogs, "--out", &options->out, "Folder for the pages")->required();
    }
};

int Generate(const Options& options) {
    MakeFolder("--out", options.out);
    GenerateAssembly(options.out.string(), options.occurrences, options.models, options.depth,
                     unsigned(options.seed));
    PrintLine("written: " + (options.out / "large.asm.1").string());
    return 0;
}

int Import(const Options& options) {
    const Imported made =
        ImportStep(PathOf(options.script), options.out,
                   {.seconds = options.seconds, .bytes = std::uint64_t(options.megabytes) << 20});
    for (const std::string& line : TextOf(made)) PrintLine(line);
    PrintLine("open it with: simhost --project " + options.out.string());
    return 0;
}

#ifdef _WIN32

int Dialogs(const Options&) {
    throw UsageError("the pages of dialogs are not to be had on Windows");
}

std::set<std::string> DialogsForDemo(const fs::path&) {
    return {};
}

int Workbench(const Options&) {
    throw UsageError("the workbench is not to be had on Windows");
}

#else

std::vector<fs::path> WriteDialogs(const fs::path& out) {
    const fs::path source = VX_SOURCE_DIR;
    return WriteDialogFiles(source / "simhost" / "web" / "page", source / "text" / "resource", out);
}

int Dialogs(const Options& options) {
    MakeFolder("--out", options.out);
    for (const fs::path& file : WriteDialogs(options.out)) PrintLine("written: " + file.string());
    PrintLine("all of them: " + (options.out / "index.html").string());
    return 0;
}

std::set<std::string> DialogsForDemo(const fs::path& out) {
    std::set<std::string> names;
    for (const fs::path& file : WriteDialogs(out)) names.insert(file.stem().string());
    return names;
}

int Workbench(Options options) {
    Board board;
    WatchSignals([&board] {
        if (board.ending()) return std::string();  // it did not end: now it is ended
        board.End();
        return StopWork().empty() ? std::string()
                                  : std::string(Either("ending; Ctrl-C again ends it at once",
                                                       "正在结束；再按一次 Ctrl-C 立即结束"));
    });
    std::optional<TemporaryDrive> imported;
    if (!options.import.empty()) {
        imported.emplace();
        options.workplace.project = imported->path() / "project";
        const Imported made = ImportStep(PathOf(options.import), options.workplace.project);
        for (const std::string& note : made.notes) PrintLine("note: " + note);
    }
    WorkbenchOptions workbench;
    workbench.workplace = options.workplace;
    const fs::path source = VX_SOURCE_DIR;
    workbench.server = {source / "simhost" / "web" / "page", "/usr/share/javascript/three",
                        source / "text" / "resource", options.port};
    workbench.keepRecording = PathOf(options.recording);
    PrintLine(Either("Open this address in a browser of this computer; Ctrl-C ends:",
                     "请在本机浏览器中打开下面的地址；按 Ctrl-C 结束："));
    return RunWorkbench(workbench, board, PrintLine);
}

#endif

int Demo(const Options& options) {
    MakeFolder("--out", options.out);
    const fs::path trail = fs::path(VX_SOURCE_DIR) / "samples" / "trails" / "demo.trail";
    return RunDemo(options.workplace, trail, options.out, PrintLine, DialogsForDemo);
}

int Do(const CommandLine& line, const Options& options) {
    const bool prompt = line.app.get_subcommands().empty() && IsTyped();
    if (line.workbench->parsed()) return Workbench(options);
    WatchSignals(prompt ? StopWork : std::function<std::string()>());
    ShowProgress();
    if (line.demo->parsed()) return Demo(options);
    if (line.generate->parsed()) return Generate(options);
    if (line.import->parsed()) return Import(options);
    if (line.dialogs->parsed()) return Dialogs(options);
    if (!options.workplace.drive.empty()) MakeFolder("--drive", options.workplace.drive);
    return line.run->parsed() ? RunScriptFile(options) : RunPrompt(options);
}

}  // namespace

int main(int argc, char* argv[]) {
    Options options;
    options.workplace.installed = VX_SOURCE_DIR;
    options.workplace.module = fs::path(argv[0]).parent_path() / VX_MODULE_NAME;
    options.workplace.project = fs::path(VX_SOURCE_DIR) / "samples" / "gearbox";
    try {
        CommandLine line(&options);
        int status = 0;
        try {
            Parse(&line.app, argc, argv);
            status = Do(line, options);
        } catch (const CLI::ParseError& error) {
            status = line.app.exit(error) == 0 ? 0 : 2;  // help and version end here
        }
        CheckTranscript();
        return status;
    } catch (const std::exception& error) {
        std::cerr << "simhost: " << error.what() << '\n';
        return 2;
    }
}
