// Saving and finding models, models with many parameters, tables that grow row by row, and sheets
// of large assemblies.
#include "bench/growth.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

#include "simhost/app/generate.h"
#include "simhost/app/workplace.h"
#include "simhost/core/disk.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/model/drawing.h"
#include "simhost/model/model_file.h"
#include "simhost/picture/sheet.h"
#include "simhost/ui/dialogs.h"
#include "simhost/ui/table.h"

namespace {

using namespace simhost;
namespace fs = std::filesystem;

constexpr int kRounds = 5;

double Seconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

Model& MakePart(Session& session, int number) {
    Model& part = session.Create(Wide(fmt::format("PART_{}", number)), PRO_MDL_PART);
    for (int i = 0; i < 10; ++i) {
        part.parameters.Set(TextParameter(Wide(fmt::format("P{}", i)), WIDE("a text of a part")));
    }
    return part;
}

// As plain as files can be written beside and renamed.
void WritePlainly(const fs::path& folder, const std::vector<std::string>& texts, int round) {
    const fs::path beside = folder / "beside";
    for (std::size_t i = 0; i < texts.size(); ++i) {
        std::FILE* file = std::fopen(beside.c_str(), "wb");
        if (!file) throw std::runtime_error("cannot write " + beside.string());
        std::fwrite(texts[i].data(), 1, texts[i].size(), file);
        std::fclose(file);
        fs::rename(beside, folder / fmt::format("part_{}.prt.{}", i, round));
    }
}

// Both take turns, each with the same number of files in its folder; the best of each counts.
void SaveModels(Workplace& workplace, int count) {
    Session& session = TheHost().session;
    std::vector<Model*> models;
    std::vector<std::string> texts;
    for (int i = 0; i < count; ++i) {
        models.push_back(&MakePart(session, i));
        texts.push_back(ModelText(*models.back()));
    }
    const fs::path plain = workplace.drive() / "Plain";
    fs::create_directories(plain);
    double saved = 1e9, written = 1e9;
    for (int round = 1; round <= kRounds; ++round) {
        saved = std::min(saved, Seconds([&] {
                             for (Model* model : models) session.Save(*model);
                         }));
        written = std::min(written, Seconds([&] { WritePlainly(plain, texts, round); }));
    }
    std::printf("SaveModels: pieces=%d seconds=%.4f plain=%.4f\n", count, saved, written);
}

void LookForModels(Workplace&, int count) {
    Session& session = TheHost().session;
    for (int i = 0; i < count; ++i) session.Save(MakePart(session, i));
    const double seconds = Seconds([&] {
        for (int i = 0; i < count; ++i) session.Retrieve(fmt::format("part_{}.drw", i));
    });
    std::printf("LookForModels: pieces=%d seconds=%.4f\n", count, seconds);
}

void OpenParameters(Workplace&, int count) {
    Session& session = TheHost().session;
    Model& part = session.Create(WIDE("PART"), PRO_MDL_PART);
    for (int i = 0; i < count; ++i) {
        part.parameters.Set(WholeParameter(Wide(fmt::format("P{}", i)), i));
    }
    session.Save(part);
    session.Erase(part);
    const double seconds = Seconds([&] { session.Retrieve("part.prt"); });
    std::printf("OpenParameters: pieces=%d seconds=%.4f\n", count, seconds);
}

void InsertRows(Workplace& workplace, int count) {
    const fs::path folder =
        workplace.Real(workplace.options().textFolder + WIDE("\\text\\resource"));
    fs::create_directories(folder);
    WriteFile(folder / "Rows.res",
              "(Dialog Rows (Components (Table list)) (Resources (list.ColumnNames \"a\")"
              " (.Layout (Grid (Rows 1) (Cols 1) list))))\n");
    TheHost().dialogs.Create("Rows", "Rows");
    Table& table = *dynamic_cast<Table*>(TheHost().dialogs.Find("Rows")->Find("list"));
    const double seconds = Seconds([&] {
        for (int i = 0; i < count; ++i) table.InsertRows("", {std::to_string(i)});
    });
    std::printf("InsertRows: pieces=%d seconds=%.4f\n", count, seconds);
}

// Twelve views of an assembly, all with hidden lines, from twelve sides. All sizes are made of as
// many models: only the occurrences grow.
void DrawSheet(Workplace& workplace, int count) {
    constexpr int kModels = 20, kLevels = 5, kViews = 12;
    Session& session = TheHost().session;
    GenerateAssembly(workplace.Real(WIDE("C:\\Work")), count, kModels, kLevels, 1);
    Model& top = *session.Retrieve("large.asm");
    const int rounds = std::clamp(5000 / count, 2, kRounds);
    double seconds = 1e9;
    for (int round = 0; round < rounds; ++round) {
        Model& sheet = session.Create(Wide(fmt::format("SHEET_{}", round)), PRO_MDL_DRAWING);
        sheet.drawingData.sheets.assign(1, Sheet(WIDE("A0")));
        for (int i = 0; i < kViews; ++i) {
            // Each round has a scale of its own, so that no lines of the last one can be kept.
            const int row = i / 4;
            const Vec3 at{150.0 + 300 * (i % 4), 150.0 + 250 * row, 0};
            DrawingView& view = DrawingOf(sheet).AddGeneral(
                top, 1, at, 0.1 + 0.001 * round, PlacementFrom({}, {90.0 * (i % 4), 30.0 * i, 0}));
            view.display.style = PRO_DISPSTYLE_HIDDEN_LINE;
        }
        seconds = std::min(seconds, Seconds([&] { SheetSvg(sheet, 1, 1600); }));
    }
    std::printf("DrawSheet: pieces=%d seconds=%.4f\n", count, seconds);
}

struct Job {
    const char* name;
    void (*run)(Workplace&, int);
};
constexpr Job kJobs[] = {
    {"SaveModels", SaveModels},         {"LookForModels", LookForModels},
    {"OpenParameters", OpenParameters}, {"InsertRows", InsertRows},
    {"DrawSheet", DrawSheet},
};

}  // namespace

bool MeasureGrowth(const std::string& job, int pieces) {
    for (const Job& row : kJobs) {
        if (job != row.name) continue;
        WorkplaceOptions options;
        options.installed = VX_SOURCE_DIR;
        Workplace workplace(options);
        row.run(workplace, pieces);
        return true;
    }
    return false;
}
