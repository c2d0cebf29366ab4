// The preparations as a table, each from what the simulated host offers a test.
#include "bench/preparations.h"

#include <fmt/format.h>

#include <filesystem>
#include <utility>
#include <vector>

#include "simhost/app/workplace.h"
#include "simhost/core/disk.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/model/annotations.h"
#include "simhost/model/constraints.h"
#include "simhost/model/model_file.h"
#include "simhost/model/parameters.h"
#include "simhost/model/picking.h"
#include "simhost/model/selections.h"
#include "simhost/model/shown.h"
#include "simhost/model/view_items.h"

namespace bench {

namespace {

using namespace simhost;
namespace fs = std::filesystem;

constexpr int kFew = 1'000;

// So many parts on the screen, from the first in the order of the tree; from the start again where
// there are fewer.
std::vector<Selection> Parts(std::size_t count) {
    Model& top = *TheHost().session.CurrentModel();
    std::vector<Selection> shown;
    VisitShown(top, Sight::Screen, [&](const ShownPart& part) {
        if (shown.size() < count) {
            shown.push_back({{PRO_PART, -1, part.part->handle}, &top, *part.path});
        }
    });
    std::vector<Selection> parts;
    parts.reserve(count);
    for (std::size_t i = 0; i < count; ++i) parts.push_back(shown.at(i % shown.size()));
    return parts;
}

void SelectAHundred(const Workplace&, int) {
    TheHost().session.selections.SetBuffer(Parts(100));
}

void SelectOneAgainAndAgain(const Workplace&, int size) {
    std::vector<Selection> picks(std::size_t(size), Parts(1).at(0));
    TheHost().session.selections.SetBuffer(std::move(picks));
}

void AddCsys(Model& model) {
    Feature csys;
    csys.type = PRO_FEAT_CSYS;
    model.AddFeature(csys);
}

void MakeTemplate(Session& session) {
    AddCsys(session.Create(WIDE("TEMPLATE"), PRO_MDL_PART));
    TheHost().configOptions[WIDE("template_solidpart")] = {WIDE("C:\\Work\\template.prt")};
}

// Parts in memory whose names are in the way of NewPart, and its template.
void TakeNames(const Workplace&, int size) {
    Session& session = TheHost().session;
    for (int i = 1; i <= size; ++i) {
        session.Create(Wide("LARGE-" + std::to_string(i)), PRO_MDL_PART);
    }
    MakeTemplate(session);
}

// A folder with what SetMat and SetBendTable ask for; all parts are of sheet metal.
void WriteMaterials(const Workplace& workplace, int) {
    const fs::path folder = workplace.Real(WIDE("C:\\Files"));
    fs::create_directories(folder);
    WriteFile(folder / "steel.mtl", "[material]\ndensity = 7850\ndensity_unit = \"kg/m^3\"\n");
    WriteFile(folder / "soft.bnd",
              "[bend_table]\nthickness = [2]\nradius = [2]\nlength = [[4.42]]\n");
    for (Model* model : TheHost().session.All()) {
        if (model->type == PRO_MDL_PART) model->subtype = PROMDLSTYPE_PART_SHEETMETAL;
    }
}

// The model is of no matter.
void Nothing(const Workplace&, int) {}

// A folder for what goes out, which the host only thinks through.
void MakeFolderWithoutWriters(const Workplace& workplace, int) {
    fs::create_directories(workplace.Real(WIDE("C:\\Files")));
    TheHost().writesOutput = false;
}

// Each component has one constraint.
void ConstrainAll(const Workplace&, int) {
    Constraint fixed;
    fixed.type = PRO_ASM_FIX;
    for (Model* model : TheHost().session.All()) {
        std::vector<int> components;
        for (const Feature& feature : model->features()) {
            if (feature.model) components.push_back(feature.id);
        }
        for (const int id : components) model->FindFeature(id)->constraints = {{fixed}};
    }
}

// Whoever picks these parts, and confirms boxes.
class Picker : public User {
public:
    std::vector<Selection> picks;

    int AnswerBox(const Box&) override { return 1; }
    std::optional<WideText> AnswerPrompt(const WideText&, const WideText&) override {
        return std::nullopt;
    }
    void UseDialog(Dialog&) override {}
    void Pick(Picking& picking) override { picking.Take(picks); }
};

void WillPick(std::vector<Selection> picks) {
    static Picker picker;
    picker.picks = std::move(picks);
    TheHost().user = &picker;
}

// Parts of 17 boxes, so of 102 surfaces.
void PickPartsOfManySurfaces(const Workplace&, int size) {
    constexpr int kBoxes = 17;
    Session& session = TheHost().session;
    for (Model* model : session.All()) {
        if (model->type != PRO_MDL_PART) continue;
        std::vector<Solid>& solids = model->partData.solids;
        solids.assign(kBoxes, {});
        for (std::size_t i = 0; i < solids.size(); ++i) {
            solids[i].id = 10 * int(i + 1);
            solids[i].size = {10, 20, 30};
            solids[i].at.x = 100.0 * double(i);
        }
    }
    MakeTemplate(session);
    AddCsys(*session.CurrentModel());
    WillPick(Parts(std::size_t(size)));
}

// The active part is the last of the tree, so that all lines of the listing are read.
void ActivateTheLastPart(const Workplace&, int) {
    Session& session = TheHost().session;
    Model& top = *session.CurrentModel();
    Model& last = session.Create(WIDE("LAST"), PRO_MDL_PART);
    Feature component;
    component.type = PRO_FEAT_COMPONENT;
    component.model = &last;
    session.current->activated = {top.AddFeature(component).id};
    WillPick(Parts(1));
}

// --- Drawings ---

constexpr int kHandful = 10;

Model& SomePart() {
    Model& part = TheHost().session.Create(WIDE("BLOCK"), PRO_MDL_PART);
    Solid solid;
    solid.id = 10;
    solid.size = {10, 20, 30};
    part.partData.solids.push_back(solid);
    return part;
}

Model& MakeDrawing(const std::string& name, int sheets) {
    Model& drawing = TheHost().session.Create(Wide(name), PRO_MDL_DRAWING);
    drawing.drawingData.sheets.assign(std::size_t(sheets), Sheet(WIDE("A3")));
    return drawing;
}

// So many drawings of 4 sheets, each with a view, and a format for them.
void WriteDrawings(const Workplace& workplace, int size) {
    constexpr int kSheets = 4;
    Session& session = TheHost().session;
    Model& part = SomePart();
    session.Save(part);
    for (int i = 0; i < size; ++i) {
        Model& drawing = MakeDrawing("SHEETS_" + std::to_string(i), kSheets);
        for (int sheet = 1; sheet <= kSheets; ++sheet) {
            DrawingOf(drawing).AddGeneral(part, sheet, {100, 100, 0}, 1, {});
        }
        session.Save(drawing);
    }
    const fs::path folder = workplace.Real(WIDE("C:\\Files"));
    fs::create_directories(folder);
    WriteFile(folder / "a3.frm.1", "[model]\ntype = \"format\"\n\n[[sheet]]\nsize = \"A3\"\n");
}

// So many drawings of one sheet, all of one part, beside so many parts: those of their names first.
void WriteFolder(int drawings, int parts) {
    Session& session = TheHost().session;
    Model& part = SomePart();
    part.parameters.Set(TextParameter(WIDE("NAME"), WIDE("block")));
    session.Save(part);
    Model& drawing = MakeDrawing("SHEET", 1);
    DrawingOf(drawing).AddGeneral(part, 1, {100, 100, 0}, 1, {});
    const fs::path folder = TheHost().disk.Real(session.workingDirectory);
    const std::string sheet = ModelText(drawing), solid = ModelText(part);
    for (int i = 0; i < drawings; ++i) WriteFile(folder / fmt::format("d{}.drw.1", i), sheet);
    for (int i = 0; i < parts; ++i) WriteFile(folder / fmt::format("d{}.prt.1", i), solid);
}

void WriteManyDrawings(const Workplace&, int size) {
    WriteFolder(size, 0);
}

// Ten times as many models as rows.
void WriteManyModels(const Workplace&, int size) {
    WriteFolder(size, 10 * size);
}

// The host checks its files and writes none.
void WriteNothing(const Workplace&, int size) {
    WriteFolder(size, 0);
    TheHost().writesOutput = false;
}

// A drawing with one view, open, on its first sheet; the view is on the sheet that is named.
DrawingView& OpenDrawing(int sheetOfView) {
    Model& part = SomePart();
    Model& drawing = MakeDrawing("SHEET", sheetOfView);
    DrawingView& view = DrawingOf(drawing).AddGeneral(part, sheetOfView, {100, 100, 0}, 1, {});
    TheHost().session.Open(drawing);
    return view;
}

// The dimensions are on a sheet that is not looked at, so that bringing it up to date is no part of
// the work.
void SelectDimensions(const Workplace&, int size) {
    const DrawingView& view = OpenDrawing(2);
    Model& drawing = *TheHost().session.CurrentModel();
    std::vector<Selection> picks;
    for (int i = 0; i < size; ++i) {
        Dimension made;
        made.view = view.id;
        made.to = {{ItemsOfView(view, {PRO_EDGE}).at(0)}};
        made.at = {0, -20, 0};
        made.shown = true;
        const int id = AnnotationsOf(drawing).Add(made).id;
        picks.push_back({{PRO_DIMENSION, id, drawing.handle}, &drawing, {}});
    }
    TheHost().session.selections.SetBuffer(std::move(picks));
}

// Whoever dimensions so many edges by one pick and a click each, and then ends.
class Draughtsman : public Picker {
public:
    Selection edge;
    int left = 0;

    void Pick(Picking& picking) override {
        second_ = !second_;
        if (!second_) return picking.TakeNothing();
        if (left-- > 0) {
            picking.Take({edge});
        } else {
            picking.Leave();
        }
    }
    std::optional<Click> AnswerClick() override { return Click{150, 40, 1}; }

private:
    bool second_ = false;
};

void PickEdges(const Workplace&, int size) {
    const DrawingView& view = OpenDrawing(1);
    const ItemWay way = ItemsOfView(view, {PRO_EDGE}).at(0);
    static Draughtsman draughtsman;
    draughtsman.edge = SelectionOf(view, way, UsualPointOf(*SeenIn(view, way)));
    draughtsman.left = size;
    TheHost().user = &draughtsman;
}

constexpr Preparation kPreparations[] = {
    {"SetMat", WriteMaterials},
    {"SetBendTable", WriteMaterials},
    {"VxIsolate", SelectAHundred},
    {"IsolatePicks", SelectOneAgainAndAgain, kFew, "VxIsolate"},
    {"FreeNames", TakeNames, kFew, "NewPart"},
    {"VxRemoveCons", ConstrainAll},
    {"VxExStp", MakeFolderWithoutWriters},
    {"VxBackup", MakeFolderWithoutWriters},
    {"VxBox", PickPartsOfManySurfaces, kFew},
    {"VxMergeTo", ActivateTheLastPart},
    {"VxDrwScaleCheck", WriteDrawings, kHandful},
    {"VxFrmReplace", WriteDrawings, kHandful},
    {"ExportOpen", WriteManyDrawings, kHandful},
    {"ExportParams", WriteManyModels, kHandful},
    {"ExportApply", WriteNothing, kHandful},
    {"DimTolerance", SelectDimensions, kHandful},
    {"VxSingleDim", PickEdges, kHandful},
    {"RenameLoad", Nothing, kFew},
    {"RenameCheck", Nothing, kFew},
};

}  // namespace

const Preparation* PreparationOf(const std::string& job) {
    for (const Preparation& row : kPreparations) {
        if (job == row.job) return &row;
    }
    return nullptr;
}

}  // namespace bench
