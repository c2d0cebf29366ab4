// One measured run: a large generated assembly is opened in the simulated host, and the walk or a
// command runs once. Prints one line of figures. tools/bench.py starts it for each size, and under
// callgrind for the instructions.
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <new>
#include <string>

#include "bench/bom_export.h"
#include "bench/growth.h"
#include "bench/preparations.h"
#include "simhost/app/generate.h"
#include "simhost/app/workplace.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/spreadsheet/book.h"
#include "simhost/trail/interpreter.h"

namespace {

// Bytes that are allocated with new, in this program and all of its modules.
std::size_t liveBytes = 0;
std::size_t peakBytes = 0;

struct Header {
    std::size_t size;
    std::size_t padding;
};

void* Counted(std::size_t size) {
    auto* header = static_cast<Header*>(std::malloc(size + sizeof(Header)));
    if (!header) throw std::bad_alloc();
    header->size = size;
    liveBytes += size;
    if (liveBytes > peakBytes) peakBytes = liveBytes;
    return header + 1;
}

void Uncount(void* place) {
    if (!place) return;
    Header* header = static_cast<Header*>(place) - 1;
    liveBytes -= header->size;
    std::free(header);
}

}  // namespace

void* operator new(std::size_t size) {
    return Counted(size);
}
void* operator new[](std::size_t size) {
    return Counted(size);
}
void operator delete(void* place) noexcept {
    Uncount(place);
}
void operator delete[](void* place) noexcept {
    Uncount(place);
}
void operator delete(void* place, std::size_t) noexcept {
    Uncount(place);
}
void operator delete[](void* place, std::size_t) noexcept {
    Uncount(place);
}

namespace {

using namespace simhost;
namespace fs = std::filesystem;

struct Figures {
    std::uint64_t calls = 0;
    double seconds = 0;
    std::size_t bytes = 0;
};

// A function of its own, so that callgrind can count from here only.
template <class Work>
[[gnu::noinline]] Figures Measure(Work&& work) {
    Operation::ResetCounts();
    const std::size_t before = liveBytes;
    peakBytes = liveBytes;
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    return {Operation::TotalCalls(), taken.count(), peakBytes - before};
}

// Jobs that are done in a dialog: what the user does there. Keywords leave out what is not
// measured.
struct DialogJob {
    const char* name;
    const char* script;
};
constexpr DialogJob kDialogJobs[] = {
    {"CoverRels",
     "~ Command `VxRelations`\n~ Input `Relations` `RelTxtarea` `x = 1`\n"
     "~ Select `Relations` `OptionRadio` 1 `after`\n"
     "~ Activate `Relations` `CoverRels`\n@ ok\n~ Activate `Relations` `Close`"},
    {"Add",
     "~ Command `VxParams`\n~ Input `VxParams` `ParaName` `P`\n"
     "~ Input `VxParams` `ParaValue` `1`\n~ Activate `VxParams` `Add`\n"
     "~ Activate `VxParams` `Close`"},
    {"OutlineParts",
     "~ Command `VxParams`\n~ Select `VxParams` `TypeRadio2` 1 `Part`\n"
     "~ Activate `VxParams` `VxOutline`\n@ ok\n~ Activate `VxParams` `Close`"},
    {"OutlineTop",
     "~ Command `VxParams`\n~ Select `VxParams` `TypeRadio2` 1 `Asm`\n"
     "~ Input `VxParams` `InputKeyWords2` `unit`\n"
     "~ Activate `VxParams` `VxOutline`\n@ ok\n~ Activate `VxParams` `Close`"},
    {"VxMdlCount", "~ Command `VxMdlCount`\n@ ok"},
    {"VxDrwScaleCheck", "~ Command `VxDrwScaleCheck`\n@ ok"},
    {"VxFrmReplace",
     "~ Command `VxFrmReplace`\n~ Activate `VxFrmReplace` `VxFrmReplaceAct`\n"
     "@ answer C:\\Files\\a3.frm.1\n@ ok\n~ Close `VxFrmReplace`"},
    {"ExportOpen", "~ Command `VxExport`\n~ Close `VxExport`"},
    {"ExportParams",
     "~ Command `VxExport`\n~ Activate `VxExport` `VxLoadParams`\n~ Close `VxExport`"},
    {"ExportApply",
     "~ Command `VxExport`\n~ Activate `VxExport` `DXFCheck` 1\n"
     "~ Input `VxExport` `Export_name` `NAME,图纸名称`\n~ Activate `VxExport` `selAll`\n"
     "~ Activate `VxExport` `ApplyBt`\n@ ok\n~ Close `VxExport`"},
    {"DimTolerance",
     "~ Command `VxDimModify`\n~ Activate `VxDimModify` `upTolBt1`\n~ Close `VxDimModify`"},
    {"VxRemoveCons",
     "~ Command `VxRemoveCons`\n~ Activate `VxRemoveCons` `OK`\n@ ok\n"
     "~ Activate `VxRemoveCons` `Cancel`"},
    {"SetUnit",
     "~ Command `SetUnit`\n~ Select `SetUnit` `UnitRadio` 1 `IPS`\n"
     "~ Activate `SetUnit` `ApplyBt`\n@ ok\n~ Activate `SetUnit` `Close`"},
    {"SetMat", "~ Command `SetMat`\n@ answer C:\\Files\\steel.mtl\n@ ok"},
    {"SetBendTable", "~ Command `SetBendTable`\n@ answer C:\\Files\\soft.bnd\n@ ok"},
    {"VxExStp", "~ Command `VxExStp`\n@ answer C:\\Files\n@ ok"},
    {"VxBackup", "~ Command `VxBackup`\n@ answer C:\\Files\n@ ok"},
    {"RenameOpen", "~ Command `VxRename`\n~ Close `VxRename`"},
    {"TweViews",
     "~ Command `TweViews`\n~ Select `TweViews` `ViewsRadio` 1 `twelve`\n"
     "~ Activate `TweViews` `ApplyBt`"},
};

// Opens the bill of materials and measures the loading of its table alone.
class BomReader : public User {
public:
    explicit BomReader(const char* mode) : mode_(mode) {}
    Figures figures;

    int AnswerBox(const Box&) override { return 1; }
    std::optional<WideText> AnswerPrompt(const WideText&, const WideText&) override {
        return std::nullopt;
    }
    void UseDialog(Dialog& dialog) override {
        dialog.Use(Verb::Select, "BomRadio", {mode_});
        figures = Measure([&] { dialog.Press("VxLoadBom"); });
        std::printf("%s; ", dialog.Find("bom_list")->State().c_str());
        dialog.Press("Close");
    }

private:
    std::string mode_;
};

Figures LoadBom(const char* mode) {
    BomReader reader(mode);
    TheHost().user = &reader;
    TheHost().commands.Press("VxBom");
    TheHost().user = nullptr;
    return reader.figures;
}

// Opens VxRename and measures the loading of a table, or the checking of its names, of which the
// last cannot be had, so that nothing is renamed.
class Renamer : public User {
public:
    Renamer(int rows, bool checks) : rows_(rows), checks_(checks) {}
    Figures figures;

    int AnswerBox(const Box&) override { return 1; }
    std::optional<WideText> AnswerPrompt(const WideText&, const WideText&) override {
        return std::nullopt;
    }
    std::optional<WideText> AnswerFile(const FileQuestion&) override { return kNames; }
    void UseDialog(Dialog& dialog) override {
        WriteSheet();
        const auto load = [&] { dialog.Press("VxLoadTab"); };
        if (checks_) {
            load();
            figures = Measure([&] { dialog.Press("StartRename"); });
        } else {
            figures = Measure(load);
        }
        std::printf("%s; ", dialog.Find("mdl_list")->State().c_str());
        dialog.CloseWindow();
    }

private:
    void WriteSheet() const {
        Book book;
        book.sheets.push_back(std::make_unique<BookSheet>());
        const auto put = [&](int row, int column, const std::string& text) {
            PutTyped(&book.sheets[0]->At(row, column), text, 2026);
        };
        for (int i = 1; i <= rows_; ++i) {
            const std::string number = std::to_string(i);
            const std::string name = i < rows_ ? "NEW_" + number : "NEW*";
            const std::string cells[] = {number, "OLD_" + number, "prt", name};
            for (int column = 1; column <= 4; ++column) put(i + 2, column, cells[column - 1]);
        }
        // The count of used rows begins with the first one that is used.
        put(1, 1, "names");
        WriteXlsx(book, TheHost().disk.Real(kNames).string());
    }

    const WideText kNames = WIDE("C:\\Work\\names.xlsx");
    int rows_;
    bool checks_;
};

Figures LoadNames(int rows, bool checks) {
    Renamer renamer(rows, checks);
    TheHost().user = &renamer;
    TheHost().commands.Press("VxRename");
    TheHost().user = nullptr;
    return renamer.figures;
}

// The steps of a job; a command that has no entry is just pressed.
void Do(const std::string& job) {
    for (const DialogJob& row : kDialogJobs) {
        if (job != row.name) continue;
        for (const std::string& failure : RunScript(row.script)) {
            throw std::runtime_error(failure);
        }
        return;
    }
    TheHost().commands.Press(job);
}

// The walk alone, from its own module.
void Walk(const fs::path& module) {
    void* loaded = dlopen(module.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!loaded) throw std::runtime_error(dlerror());
    auto* walk = reinterpret_cast<int (*)(int*)>(dlsym(loaded, "bench_walk"));
    int components = 0;
    const int models = walk(&components);
    std::printf("%d components, %d models; ", components, models);
}

// The size that means one part: there is no assembly of fewer components to measure.
constexpr int kPartAlone = 50;

void OpenSomePart(Session* session) {
    for (Model* model : session->All()) {
        if (model->type == PRO_MDL_PART) {
            session->Open(*model);
            return;
        }
    }
}

int Run(const std::string& job, int occurrences, const fs::path& modules) {
    WorkplaceOptions options;
    options.installed = VX_SOURCE_DIR;
    options.module = modules / "vorlatix5.1.so";
    Workplace workplace(options);
    constexpr int kLevels = 5;
    const bench::Preparation* const needs = bench::PreparationOf(job);
    const int components = needs && needs->components ? needs->components : occurrences;
    const int models = std::max(components / 50, 2 * kLevels);
    GenerateAssembly(workplace.Real(WIDE("C:\\Work")), components, models, kLevels, 1);
    if (workplace.StartPlugin() != 0) return 1;
    Session& session = TheHost().session;
    session.Open(*session.Retrieve("large.asm"));
    if (job == "TweViews" && occurrences == kPartAlone) OpenSomePart(&session);
    if (needs) needs->prepare(workplace, occurrences);
    Figures figures;
    if (job == "BomFlat" || job == "BomLevels") {
        figures = LoadBom(job == "BomFlat" ? "SumBom" : "LevelBom");
    } else if (job == "RenameLoad" || job == "RenameCheck") {
        figures = LoadNames(occurrences, job == "RenameCheck");
    } else {
        figures = Measure([&] {
            if (job == "walk") {
                Walk(modules / "walk_module.so");
            } else {
                Do(needs && needs->command ? needs->command : job);
            }
        });
    }
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("%s: calls=%llu seconds=%.4f bytes=%zu peak_rss_kib=%ld\n", job.c_str(),
                static_cast<unsigned long long>(figures.calls), figures.seconds, figures.bytes,
                usage.ru_maxrss);
    return TheHost().complaints.empty() ? 0 : 1;
}

}  // namespace

int main(int argc, char* argv[]) {
    if (argc != 3) {
        std::fprintf(stderr,
                     "use: bench walk|JOB|COMMAND OCCURRENCES, or bench BomExport|SaveModels|"
                     "LookForModels|OpenParameters|InsertRows|DrawSheet PIECES\n");
        return 2;
    }
    try {
        if (std::string(argv[1]) == "BomExport") {
            return MeasureBomExport(std::atoi(argv[2]), fs::path(argv[0]).parent_path());
        }
        if (MeasureGrowth(argv[1], std::atoi(argv[2]))) return 0;
        return Run(argv[1], std::atoi(argv[2]), fs::path(argv[0]).parent_path());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench: %s\n", error.what());
        return 2;
    }
}
