// The simulated host's sheets: what files of drawings and formats say of them, what the door
// answers about sheets, tables, scales and formats, and what templates bring.
#include <algorithm>
#include <filesystem>
#include <utility>

#include "simhost/model/drawing_template.h"
#include "simhost/model/model_file.h"
#include "simhost/picture/dxf.h"
#include "simhost/picture/sheet.h"
#include "simhost/picture/sheet_furniture.h"
#include "tests/drawing/sheet_bench.h"

namespace {

using namespace simhost;
using workbench::GeneralView;
using workbench::ProjectedView;
using workbench::SheetBench;
namespace fs = std::filesystem;

// The text that comes of a text, or the mistake in it.
std::string RoundTrip(const std::string& text, ProMdlType type) {
    Model model;
    model.type = type;
    try {
        ReadModelText(text, "t", &model);
        return ModelText(model);
    } catch (const ModelFileError& error) {
        return error.what();
    }
}

const std::string kDrawing = "[model]\ntype = \"drawing\"\n";
const std::string kFormat = "[model]\ntype = \"format\"\n";

// --- Files ---

TEST(SheetFiles, KeepAllThatASheetATableAndADrawingHold) {
    const std::string drawing =
        kDrawing +
        "\n[[sheet]]\nsize = \"A3\"\nscale = 0.5\nformat = \"a3.frm\"\nformat_sheet = 2\n"
        "about = \"shaft.prt\"\n[[sheet.model_scale]]\nmodel = \"pin.prt\"\nscale = 2\n"
        "\n[[sheet]]\nsize = \"A4\"\n"
        "\n[[table]]\nid = 3\nsheet = 2\nat = [10, 20.5]\ncolumns = [30, 40]\nheights = [8]\n"
        "cells = [[\"名称\", \"&model_name\"]]\ntext_height = 5\nfrom_format = true\n"
        "about = \"pin.prt\"\n"
        "\n[drawing]\nprojection = \"first-angle\"\nmodels = [\"shaft.prt\", \"pin.prt\"]\n"
        "current_model = \"pin.prt\"\n";
    EXPECT_EQ(RoundTrip(drawing, PRO_MDL_DRAWING), drawing);
    const std::string format =
        kFormat +
        "\n[[sheet]]\nsize = \"A3\"\n[[sheet.line]]\npoints = [0, 0, 420, 0, 420, 297]\n"
        "width = 0.7\n[[sheet.text]]\nat = [30, 10]\nheight = 5\ncentred = true\n"
        "text = \"&dwg_name\"\n";
    EXPECT_EQ(RoundTrip(format, PRO_MDL_DWGFORM), format);
}

TEST(SheetFiles, TellAMistakeWithItsLine) {
    struct Row {
        const char* rest;
        const char* told;
    };
    for (const Row& row : {
             Row{"[sheets]\nsizes = [\"A3\"]\n[[sheet]]\nsize = \"A3\"\n",
                 "t:3: there are [[sheet]] tables, too"},
             Row{"[[sheet]]\nscale = 1\n", "t:3: \"size\" is missing"},
             Row{"[[sheet]]\nsize = \"A3\"\nscale = 0\n", "t:5: \"scale\" must be more than 0"},
             Row{"[[sheet]]\nsize = \"A3\"\n[[sheet.line]]\npoints = [0, 0, 1, 1]\n",
                 "\"line\" belongs only in a model of type \"format\""},
             Row{"[[table]]\nid = 1\nat = [0, 0]\ncolumns = [1]\nheights = [1]\n",
                 "there is no sheet 1"},
             Row{"[sheets]\nsizes = [\"A3\"]\n[[table]]\nid = 1\nat = [0, 0]\ncolumns = [1]\n"
                 "heights = [1]\ncells = [[\"a\", \"b\"]]\n",
                 "more cells than columns in a row"},
             Row{"[sheets]\nsizes = [\"A3\"]\n[[table]]\nid = 1\nat = [0, 0]\ncolumns = []\n"
                 "heights = [1]\n",
                 "\"columns\" must be a list of numbers"},
             Row{"[sheets]\nsizes = [\"A3\"]\n[[table]]\nid = 1\nat = [0, 0]\ncolumns = [1]\n"
                 "heights = [-1]\n",
                 "\"heights\" must be more than 0"},
         }) {
        const std::string told = RoundTrip(kDrawing + row.rest, PRO_MDL_DRAWING);
        EXPECT_NE(told.find(row.told), std::string::npos) << told;
    }
    EXPECT_NE(RoundTrip("[model]\ntype = \"part\"\n[[sheet]]\nsize = \"A3\"\n", PRO_MDL_PART)
                  .find("\"sheet\" belongs only in a model of type \"drawing\""),
              std::string::npos);
    EXPECT_NE(RoundTrip(kFormat + "[[sheet]]\nsize = \"A3\"\nformat = \"a.frm\"\n", PRO_MDL_DWGFORM)
                  .find("\"format\" belongs only in a model of type \"drawing\""),
              std::string::npos);
}

// --- The door ---

class SheetsAtTheDoor : public SheetBench {
protected:
    // D.DRW with two sheets, a view of its own scale, its projection, and one of the sheet's scale.
    void SetUp() override {
        SheetBench::SetUp();
        box_ = &SavedBox("BOX");
        WriteDrawing("d.drw.1",
                     "[sheets]\nsizes = [\"A3\", \"A3\"]\n\n[drawing]\nprojection = "
                     "\"first-angle\"\n" +
                         GeneralView(1, "box.prt", 1, "0.5") + ProjectedView(2, 1) +
                         GeneralView(3, "box.prt", 2));
        Play("@ open d.drw");
        drawing_ = static_cast<ProDrawing>(Drawn("D").handle);
        solid_ = static_cast<ProSolid>(box_->handle);
    }
    ProView View(std::size_t at) { return Views("D").at(at)->handle; }
    ProMdl Format() {
        WriteFormat("f.frm.1", "A4", WIDE("C:\\Work"));
        return host().session.Retrieve("f.frm")->handle;
    }

    Model* box_ = nullptr;
    ProDrawing drawing_ = nullptr;
    ProSolid solid_ = nullptr;
};

TEST_F(SheetsAtTheDoor, AViewSaysItsTypeSheetModelScaleAndChildren) {
    ProViewType type = PRO_VIEW_PROJECTION;
    EXPECT_EQ(ProDrawingViewTypeGet(drawing_, View(0), &type), PRO_TK_NO_ERROR);
    EXPECT_EQ(type, PRO_VIEW_GENERAL);
    ProDrawingViewTypeGet(drawing_, View(1), &type);
    EXPECT_EQ(type, PRO_VIEW_PROJECTION);
    int sheet = 0;
    ProDrawingViewSheetGet(drawing_, View(2), &sheet);
    EXPECT_EQ(sheet, 2);
    ProSolid solid = nullptr;
    ProDrawingViewSolidGet(drawing_, View(1), &solid);
    EXPECT_EQ(solid, solid_);
    double scale = 0;
    ProDrawingViewScaleGet(drawing_, View(1), &scale);
    EXPECT_EQ(scale, 0.5);  // its parent's
    ProBoolean own = PRO_B_TRUE;
    ProDrawingViewScaleIsUserdefined(drawing_, View(1), &own);
    EXPECT_EQ(own, PRO_B_FALSE);
    ProView* children = nullptr;
    ASSERT_EQ(ProDrawingViewChildrenGet(drawing_, View(0), &children), PRO_TK_NO_ERROR);
    EXPECT_EQ(host().arrays.Size(children), 1);
    EXPECT_EQ(children[0], View(1));
    ProArray array = children;
    ProArrayFree(&array);
    EXPECT_EQ(ProDrawingViewChildrenGet(drawing_, View(1), &children), PRO_TK_E_NOT_FOUND);
}

TEST_F(SheetsAtTheDoor, OnlyAScaleOfItsOwnCanBeSetForAView) {
    EXPECT_EQ(ProDrawingViewScaleSet(drawing_, View(0), 2), PRO_TK_NO_ERROR);
    EXPECT_EQ(Views("D")[0]->scale, 2);
    EXPECT_EQ(ProDrawingViewScaleSet(drawing_, View(0), 0), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProDrawingViewScaleSet(drawing_, View(0), -2), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProDrawingViewScaleSet(drawing_, View(1), 2), PRO_TK_BAD_CONTEXT);
    EXPECT_EQ(ProDrawingViewScaleSet(drawing_, View(2), 2), PRO_TK_BAD_CONTEXT);
    EXPECT_EQ(Views("D")[0]->scale, 2);
    EXPECT_FALSE(Views("D")[2]->ownScale);
}

TEST_F(SheetsAtTheDoor, ASheetHasAScaleForEachModelOfTheDrawing) {
    double scale = 0;
    EXPECT_EQ(ProDrawingScaleSet(drawing_, solid_, 2, 4), PRO_TK_NO_ERROR);
    EXPECT_EQ(ProDrawingScaleGet(drawing_, solid_, 2, &scale), PRO_TK_NO_ERROR);
    EXPECT_EQ(scale, 4);
    ProDrawingViewScaleGet(drawing_, View(2), &scale);
    EXPECT_EQ(scale, 4);
    EXPECT_EQ(ProDrawingScaleSet(drawing_, solid_, 2, 0), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProDrawingScaleSet(drawing_, solid_, 3, 1), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProDrawingScaleGet(drawing_, nullptr, 1, &scale), PRO_TK_BAD_INPUTS);
    const auto other = static_cast<ProSolid>(BoxPart("PIN", 1, 1, 1).handle);
    EXPECT_EQ(ProDrawingScaleGet(drawing_, other, 1, &scale), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(ProDrawingScaleSet(drawing_, other, 1, 2), PRO_TK_E_NOT_FOUND);
}

TEST_F(SheetsAtTheDoor, TheCurrentSheetIsOneOfTheDrawings) {
    EXPECT_EQ(ProDrawingCurrentSheetSet(drawing_, 2), PRO_TK_NO_ERROR);
    EXPECT_EQ(ProDrawingCurrentSheetSet(drawing_, 3), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProDrawingCurrentSheetSet(drawing_, 0), PRO_TK_BAD_INPUTS);
    int sheet = 0;
    ProDrawingCurrentSheetGet(drawing_, &sheet);
    EXPECT_EQ(sheet, 2);
    EXPECT_EQ(ProDwgSheetRegenerate(drawing_, 3), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProDrawingCurrentsolidSet(drawing_, solid_), PRO_TK_NO_ERROR);
    EXPECT_EQ(
        ProDrawingCurrentsolidSet(drawing_, static_cast<ProSolid>(BoxPart("PIN", 1, 1, 1).handle)),
        PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(Drawn("D").drawingData.currentSolid, "box.prt");
}

TEST_F(SheetsAtTheDoor, ASheetKeepsToItsOwnOnRegeneration) {
    OutlineText(*Views("D")[2]);
    ProDrawingScaleSet(drawing_, solid_, 2, 2);
    ProDwgSheetRegenerate(drawing_, 1);
    EXPECT_EQ(OutlineText(*Views("D")[2]), "250 70 350 130");
    ProDwgSheetRegenerate(drawing_, 2);
    EXPECT_EQ(OutlineText(*Views("D")[2]), "200 40 400 160");
}

TEST_F(SheetsAtTheDoor, AFormatBringsItsSizeAndItsTables) {
    const ProMdl format = Format();
    EXPECT_EQ(ProDrawingFormatAdd(drawing_, 2, solid_, format, 0), PRO_TK_NO_ERROR);
    const SheetSet& set = Drawn("D").drawingData;
    EXPECT_EQ(set.sheets[1].format, "f.frm");
    EXPECT_EQ(set.sheets[1].size, WIDE("A4"));
    ASSERT_EQ(set.tables.size(), 1u);
    EXPECT_EQ(set.tables[0].sheet, 2);
    EXPECT_TRUE(set.tables[0].fromFormat);
    EXPECT_EQ(set.tables[0].about, "box.prt");
}

TEST_F(SheetsAtTheDoor, WhatIsNoFormatSheetOrModelOfTheDrawingChangesNothing) {
    const ProMdl format = Format();
    const std::string before = ModelText(Drawn("D"));
    const auto pin = static_cast<ProSolid>(BoxPart("PIN", 1, 1, 1).handle);
    EXPECT_EQ(ProDrawingFormatAdd(drawing_, 1, solid_, nullptr, 0), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProDrawingFormatAdd(drawing_, 1, solid_, solid_, 0), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProDrawingFormatAdd(drawing_, 3, solid_, format, 0), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProDrawingFormatAdd(drawing_, 1, nullptr, format, 0), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProDrawingFormatAdd(drawing_, 1, pin, format, 0), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(ProDrawingFormatAdd(drawing_, 1, solid_, format, 2), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ModelText(Drawn("D")), before);
    EXPECT_FALSE(Drawn("D").modified);
}

TEST_F(SheetsAtTheDoor, ATableIsAnsweredByItsNumberAndGoesAlone) {
    ProDrawingFormatAdd(drawing_, 1, solid_, Format(), 0);
    ProDrawingFormatAdd(drawing_, 2, solid_, Format(), 0);
    ProDwgtable* tables = nullptr;
    ASSERT_EQ(ProDrawingTablesCollect(drawing_, &tables), PRO_TK_NO_ERROR);
    ASSERT_EQ(host().arrays.Size(tables), 2);
    int sheet = 0;
    EXPECT_EQ(ProDwgtableSegSheetGet(&tables[1], -1, &sheet), PRO_TK_NO_ERROR);
    EXPECT_EQ(sheet, 2);
    EXPECT_EQ(ProDwgtableSegSheetGet(&tables[1], 5, &sheet), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProDwgtableDelete(&tables[0], 1), PRO_TK_NO_ERROR);
    ASSERT_EQ(Drawn("D").drawingData.tables.size(), 1u);
    EXPECT_EQ(Drawn("D").drawingData.tables[0].sheet, 2);
    // A record that was never filled is refused quietly, one of a table that is gone is a mistake.
    ProDwgtable none = {};
    EXPECT_EQ(ProDwgtableDelete(&none, 1), PRO_TK_BAD_INPUTS);
    EXPECT_TRUE(Complaints().empty());
    EXPECT_EQ(ProDwgtableDelete(&tables[0], 1), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints().size(), 1u);
    ProArray array = tables;
    ProArrayFree(&array);
    Drawn("D").drawingData.tables.clear();
    EXPECT_EQ(ProDrawingTablesCollect(drawing_, &tables), PRO_TK_E_NOT_FOUND);
}

TEST_F(SheetsAtTheDoor, ADrawingHasEachModelOnceAndLeavesOutThoseThatAreGone) {
    Drawn("D").drawingData.AddSolid("lost.prt");
    ProSolid* solids = nullptr;
    ASSERT_EQ(ProDrawingSolidsCollect(drawing_, &solids), PRO_TK_NO_ERROR);
    EXPECT_EQ(host().arrays.Size(solids), 1);
    EXPECT_EQ(solids[0], solid_);
    ProArray array = solids;
    ProArrayFree(&array);
    Drawn("D").drawingData.solids.clear();
    EXPECT_EQ(ProDrawingSolidsCollect(drawing_, &solids), PRO_TK_E_NOT_FOUND);
}

TEST_F(SheetsAtTheDoor, AModelOfTheWrongKindHasNoSheets) {
    const auto wrong = static_cast<ProDrawing>(box_->handle);
    int sheet = 0;
    EXPECT_EQ(ProDrawingCurrentSheetGet(wrong, &sheet), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProDrawingCurrentSheetGet(nullptr, &sheet), PRO_TK_BAD_INPUTS);
    EXPECT_TRUE(Complaints().empty());
}

TEST_F(SheetsAtTheDoor, WhatADrawingNamesFollowsARename) {
    ProDrawingFormatAdd(drawing_, 1, solid_, Format(), 0);
    ProDrawingScaleSet(drawing_, solid_, 1, 3);
    ProDrawingCurrentsolidSet(drawing_, solid_);
    host().session.Rename(*box_, WIDE("CRATE"));
    host().session.Rename(*host().session.FindByFile("f.frm"), WIDE("G"));
    const SheetSet& set = Drawn("D").drawingData;
    EXPECT_EQ(set.sheets[0].format, "g.frm");
    EXPECT_EQ(set.sheets[0].about, "crate.prt");
    EXPECT_EQ(set.tables[0].about, "crate.prt");
    EXPECT_EQ(set.solids, std::vector<std::string>{"crate.prt"});
    EXPECT_EQ(set.currentSolid, "crate.prt");
    EXPECT_EQ(Drawing::ScaleOf(*Views("D")[0]), 0.5);
    EXPECT_EQ(set.sheets[0].ScaleOf("crate.prt"), 3);
}

TEST_F(SheetsAtTheDoor, FilesAreListedByNameInTheirNewestVersionWithTheirFolders) {
    for (const char* name : {"c.drw.2", "B.drw.1", "c.drw.10"}) WriteDrawing(name, "");
    ProPath* files = nullptr;
    ProPath* folders = nullptr;
    WideText filter = WIDE("*.drw");
    ASSERT_EQ(ProFilesList(nullptr, filter.data(), PRO_FILE_LIST_LATEST, &files, &folders),
              PRO_TK_NO_ERROR);
    std::vector<std::string> found;
    for (int i = 0; i < host().arrays.Size(files); ++i) found.push_back(Utf8(files[i]));
    EXPECT_EQ(found, (std::vector<std::string>{"C:\\Work\\B.drw.1", "C:\\Work\\c.drw.10",
                                               "C:\\Work\\d.drw.1"}));
    for (ProPath* list : {files, folders}) {
        ProArray array = list;
        ProArrayFree(&array);
    }
    filter = WIDE("*.xyz");
    EXPECT_EQ(ProFilesList(nullptr, filter.data(), PRO_FILE_LIST_LATEST, &files, &folders),
              PRO_TK_E_NOT_FOUND);
}

TEST_F(SheetsAtTheDoor, ANumberMustLieInTheRangeThatIsAskedFor) {
    double range[2] = {1, 2};
    double value = 0;
    PlayDuring([&] { EXPECT_EQ(ProMessageDoubleRead(range, &value), PRO_TK_NO_ERROR); },
               "@ answer 0.5\n@ answer 3\n@ answer nan\n@ answer 1e0");
    EXPECT_EQ(value, 1);
    PlayDuring([&] { EXPECT_EQ(ProMessageDoubleRead(range, &value), PRO_TK_MSG_USER_QUIT); },
               "@ quit");
}

// --- Templates ---

class Templates : public SheetBench {
protected:
    ProError Create(const WideText& name, const WideText& from, const WideText& model = WIDE("BOX"),
                    const WideText& type = WIDE("PRT")) {
        ProModel shown = {};
        std::copy(model.begin(), model.end(), shown.name);
        std::copy(type.begin(), type.end(), shown.type);
        ProDrawing drawing = nullptr;
        ProDwgcreateErrs errors = nullptr;
        WideText nameCopy = name, fromCopy = from;
        return ProDrawingFromTmpltCreate(nameCopy.data(), fromCopy.data(), &shown, 1, &drawing,
                                         &errors);
    }
    void SetUp() override {
        SheetBench::SetUp();
        BoxPart("BOX", 100, 60, 40);
    }
};

TEST_F(Templates, FillTheirViewsWithTheModelAtTheLargestUsualScale) {
    // Room for 60 x 60 and 60 x 30: 100 x 60 fits at 0.6, 100 x 40 below it at 0.6; the usual 0.5.
    WriteDrawing("t.drw.1",
                 "[sheets]\nsizes = [\"A3\"]\n[drawing]\nprojection = \"first-angle\"\n" +
                     GeneralView(1, "", 1) + "room = [60, 60]\n" + ProjectedView(2, 1) +
                     "room = [60, 30]\n");
    ASSERT_EQ(Create(WIDE("NEW"), WIDE("t")), PRO_TK_NO_ERROR);
    const auto views = Views("NEW");
    ASSERT_EQ(views.size(), 2u);
    EXPECT_EQ(views[0]->file, "box.prt");
    EXPECT_EQ(views[1]->parent, views[0]);
    EXPECT_EQ(OutlineText(*views[0]), "75 85 125 115");
    EXPECT_EQ(OutlineText(*views[1]), "75 10 125 30");
    EXPECT_EQ(Drawn("NEW").drawingData.sheets[0].scale, 0.5);
    EXPECT_TRUE(views[0]->room == Vec3{});
    EXPECT_TRUE(Drawn("NEW").modified);
}

TEST_F(Templates, TheUsualScales) {
    EXPECT_EQ(UsualScale(1), 1);
    EXPECT_EQ(UsualScale(0.99), 1 / 1.5);
    EXPECT_EQ(UsualScale(0.5), 0.5);
    EXPECT_EQ(UsualScale(3), 2.5);
    EXPECT_EQ(UsualScale(1000), 50);
    EXPECT_EQ(UsualScale(1e-9), 0.001);
}

TEST_F(Templates, BringTheirFormatsWithTablesAboutTheModel) {
    WriteFormat("f.frm", "A4", WIDE("C:\\Work"));
    WriteDrawing("t.drw.1", "[[sheet]]\nsize = \"A3\"\nformat = \"f.frm\"\n");
    ASSERT_EQ(Create(WIDE("NEW"), WIDE("t.drw")), PRO_TK_NO_ERROR);
    const SheetSet& set = Drawn("NEW").drawingData;
    EXPECT_EQ(set.sheets[0].size, WIDE("A4"));
    EXPECT_EQ(set.sheets[0].about, "box.prt");
    ASSERT_EQ(set.tables.size(), 1u);
    EXPECT_TRUE(set.tables[0].fromFormat);
    EXPECT_EQ(set.solids, std::vector<std::string>{"box.prt"});
}

TEST_F(Templates, EachRefusalHasItsStatusAndLeavesNoDrawing) {
    WriteDrawing("t.drw.1", "[sheets]\nsizes = [\"A3\"]\n");
    WriteDrawing("none.drw.1", "");
    WriteDrawing("formless.drw.1", "[[sheet]]\nsize = \"A3\"\nformat = \"lost.frm\"\n");
    Write(WIDE("C:\\Work\\broken.drw.1"), "no drawing");
    WriteDrawing("taken.drw.1", "[sheets]\nsizes = [\"A3\"]\n");
    EXPECT_EQ(Create(WIDE("TAKEN"), WIDE("t")), PRO_TK_E_FOUND);
    EXPECT_EQ(Create(WIDE("NEW"), WIDE("lost")), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(Create(WIDE("NEW"), WIDE("t"), WIDE("LOST")), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(Create(WIDE("NEW"), WIDE("t"), WIDE("BOX"), WIDE("DRW")), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(Create(WIDE("NEW"), WIDE("none")), PRO_TK_DWGCREATE_ERRORS);
    EXPECT_EQ(Create(WIDE("NEW"), WIDE("broken")), PRO_TK_DWGCREATE_ERRORS);
    EXPECT_EQ(Create(WIDE("NEW"), WIDE("formless")), PRO_TK_DWGCREATE_ERRORS);
    EXPECT_EQ(Create(WIDE(""), WIDE("t")), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Create(WideText(33, WideChar{'A'}), WIDE("t")), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(FindDrawing("NEW"), nullptr);
    EXPECT_EQ(Create(WIDE("NEW"), WIDE("t")), PRO_TK_NO_ERROR);
    EXPECT_EQ(Create(WIDE("NEW"), WIDE("t")), PRO_TK_E_FOUND);
}

TEST_F(Templates, AreTakenFromMemoryByTheirBaseName) {
    WriteTemplate(WIDE("C:\\Elsewhere\\mine.drw.1"), "A1");
    ASSERT_NE(host().session.RetrievePath(WIDE("C:\\Elsewhere\\mine.drw")), nullptr);
    EXPECT_EQ(Create(WIDE("NEW"), WIDE("Mine")), PRO_TK_NO_ERROR);
    EXPECT_EQ(Drawn("NEW").drawingData.sheets[0].size, WIDE("A1"));
}

#ifndef _WIN32
TEST_F(Templates, ThatNobodyMayReadAreAMatterOfPermission) {
    WriteTemplate(WIDE("C:\\Work\\t.drw.1"));
    fs::permissions(host().disk.Real(WIDE("C:\\Work\\t.drw.1")), fs::perms::none);
    EXPECT_EQ(Create(WIDE("NEW"), WIDE("t")), PRO_TK_NO_PERMISSION);
}
#endif

// --- What is drawn ---

class DrawnSheets : public SheetsAtTheDoor {
protected:
    std::string Filled(const WideText& text) { return FilledFields(text, Drawn("D"), 2, box_); }
};

TEST_F(DrawnSheets, FieldsAreFilledFromSheetModelAndDrawing) {
    box_->parameters.Set(TextParameter(WIDE("代号"), WIDE("JX-1")));
    Drawn("D").parameters.Set(TextParameter(WIDE("代号"), WIDE("of the drawing")));
    box_->title = "盒";
    ProDrawingScaleSet(drawing_, solid_, 2, 0.4);
    EXPECT_EQ(Filled(WIDE("&model_name-&dwg_name")), "BOX-D");
    EXPECT_EQ(Filled(WIDE("第 &current_sheet 张，共 &total_sheets 张")), "第 2 张，共 2 张");
    EXPECT_EQ(Filled(WIDE("&scale &format &type")), "1:2.5 A3 PART");
    EXPECT_EQ(Filled(WIDE("&代号 &代号:d")), "JX-1 of the drawing");
    EXPECT_EQ(Filled(WIDE("&PTC_Common_Name")), "盒");
    EXPECT_EQ(Filled(WIDE("[&nobody] & [&]")), "[] & [&]");
    ProDrawingScaleSet(drawing_, solid_, 2, 2);
    EXPECT_EQ(Filled(WIDE("&scale")), "2:1");
}

TEST_F(DrawnSheets, AFormatsLinesAndTablesAreInPictureAndExchangeText) {
    ProDrawingFormatAdd(drawing_, 1, solid_, Format(), 0);
    const SheetFurniture all = FurnitureOf(Drawn("D"), 1);
    EXPECT_TRUE(all.hasFormat);
    // The format's line and the table's edge.
    ASSERT_EQ(all.strokes.size(), 2u);
    EXPECT_EQ(all.strokes[0].points[1].x, 200);
    ASSERT_EQ(all.words.size(), 1u);
    EXPECT_EQ(all.words[0].text, "BOX");
    EXPECT_EQ(all.words[0].at.x, 120);  // the middle of 100 to 140
    EXPECT_TRUE(all.words[0].centred);
    const std::string svg = SheetSvg(Drawn("D"), 1, 800);
    EXPECT_NE(svg.find(">BOX</text>"), std::string::npos);
    EXPECT_EQ(svg.find(">主视图</text>"), std::string::npos);  // a workshop's sheet names no views
    const std::string dxf = SheetDxf(Drawn("D"), 1);
    EXPECT_NE(dxf.find("\r\nBOX\r\n"), std::string::npos);
    // The other sheet has no format, and tells about its views.
    EXPECT_FALSE(FurnitureOf(Drawn("D"), 2).hasFormat);
}

TEST_F(DrawnSheets, AFormatThatIsGoneIsToldUnderTheSheet) {
    Drawn("D").drawingData.sheets[0].format = "lost.frm";
    EXPECT_EQ(FurnitureOf(Drawn("D"), 1).missing, "lost.frm");
    EXPECT_NE(SheetSvg(Drawn("D"), 1, 800).find("找不到图框 lost.frm"), std::string::npos);
}

TEST_F(DrawnSheets, ALongTextBecomesSmallEnoughForItsCell) {
    SheetTable table;
    table.at = {0, 20, 0};
    table.columns = {23};
    table.heights = {10};
    table.cells = {{WIDE("TWENTY LETTERS LONG!")}};
    Drawn("D").drawingData.AddTable(table);
    const SheetFurniture all = FurnitureOf(Drawn("D"), 1);
    ASSERT_EQ(all.words.size(), 1u);
    // 20 letters, each 0.62 of the height wide, in 23 less 1.5 at both ends.
    EXPECT_NEAR(all.words[0].height, 20 / (20 * 0.62), 1e-9);
}

}  // namespace
