// What the page is told of trees, models, sheets, files and faults: each answer worked out by hand
// from a small project.
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "hostapi/host/array.h"
#include "simhost/host.h"
#include "simhost/model/annotations.h"
#include "simhost/model/drawing.h"
#include "simhost/model/simprep.h"
#include "tests/support/models.h"
#include "tests/web/web_ground.h"

namespace {

namespace fs = std::filesystem;
using namespace simhost;
using web_tests::Json;
using web_tests::Painted;

class WebAnswers : public web_tests::WebBench {
protected:
    // The row of the tree with this path.
    Json Row(const std::string& path) {
        const Json tree = Get("/tree");
        for (const Json& row : tree["rows"]) {
            if (row["path"] == path) return row;
        }
        ADD_FAILURE() << "no row " << path;
        return {};
    }
};

// --- The tree -----------------------------------------------------------------------------------

TEST_F(WebAnswers, TheTreeTellsWhyAComponentIsNotSeen) {
    OpenModels("top: a, b!hidden, c!suppressed, d!invisible, e!missing, sub!hidden(f), a");
    Do([] { workbench::ModelNamed("a").title = "底板"; });
    EXPECT_EQ(Get("/tree"), Json::parse(R"({"top": "top.asm", "title": "", "representation": "",
        "rows": [
            {"path": "a", "file": "a.prt", "title": "底板"},
            {"path": "b", "file": "b.prt", "hidden": true, "unseen": true},
            {"path": "c", "file": "c.prt", "absent": true, "unseen": true},
            {"path": "d", "file": "d.prt", "absent": true, "unseen": true},
            {"path": "e", "file": "e.prt", "missing": true},
            {"path": "sub", "file": "sub.asm", "hidden": true, "unseen": true},
            {"path": "sub/f", "file": "f.prt", "unseen": true},
            {"path": "a:2", "file": "a.prt", "title": "底板"}]})"));
}

TEST_F(WebAnswers, TheTreeTellsColoursAsStyleSheetsTakeThem) {
    OpenModels("top: a, b, c");
    Do([] {
        workbench::ModelNamed("top.asm").title = "总装";
        workbench::ModelNamed("a").appearance = Painted(1, 0.5, 0.0625, 0.25);
        workbench::ModelNamed("b").appearance = Painted(-1, 2, 0.6);
    });
    EXPECT_EQ(Get("/tree")["title"], "总装");
    // 127.5 is rounded up to 128, 15.9 to 16; what is below 0 or above 1 counts as that.
    EXPECT_EQ(Row("a")["colour"], "#ff8010");
    EXPECT_EQ(Row("a")["transparency"], 0.25);
    EXPECT_EQ(Row("b")["colour"], "#00ff99");
    EXPECT_FALSE(Row("b").contains("transparency"));
    EXPECT_FALSE(Row("c").contains("colour"));
}

TEST_F(WebAnswers, TheTreeFollowsTheSimplifiedRepresentation) {
    OpenModels("top: a, sub(b, c)");
    Do([] {
        Model& top = workbench::ModelNamed("top.asm");
        const int sub = top.features()[1].id;
        const int c = workbench::ModelNamed("sub.asm").features()[1].id;
        Simprep simprep;
        simprep.id = 7;
        simprep.name = WIDE("简化");
        simprep.items = {{{sub, c}, kSimprepInclude}};
        top.assemblyData.simpreps = {simprep};
        top.assemblyData.activeSimprep = 7;
    });
    EXPECT_EQ(Get("/tree")["representation"], "简化");
    EXPECT_EQ(Row("a")["absent"], true);
    EXPECT_FALSE(Row("sub").contains("absent")) << "something of it is there";
    EXPECT_EQ(Row("sub/b")["unseen"], true);
    EXPECT_FALSE(Row("sub/c").contains("unseen"));
}

TEST_F(WebAnswers, ThereIsNoTreeWhereNothingIsOpen) {
    Start();
    EXPECT_EQ(Get("/tree"),
              Json::parse(R"({"top": null, "title": "", "representation": "", "rows": []})"));
}

// --- One model ----------------------------------------------------------------------------------

TEST_F(WebAnswers, AModelTellsItsParametersRelationsSizeAndMaterial) {
    OpenModels("top: sub(plate)");
    Do([] {
        Model& plate = workbench::ModelNamed("plate");
        plate.title = "板";
        plate.version = 3;
        plate.modified = true;
        plate.partData.material = WIDE("STEEL");
        plate.relations.initial = {WIDE("d1 = 2"), WIDE("/* 备注")};
        Parameter mass;
        mass.name = WIDE("MASS");
        mass.type = PRO_PARAM_DOUBLE;
        mass.number = 12.5;
        mass.unit = WIDE("kg");
        plate.parameters.Set(mass);
        Parameter name;
        name.name = WIDE("名称");
        name.text = WIDE("盖板");
        plate.parameters.Set(name);
    });
    const Json plate = Get("/model?path=sub/plate");
    const Json expected = Json::parse(R"({"file": "plate.prt", "title": "板", "version": 3,
        "changed": true, "size": "10 x 20 x 30 mm", "material": "STEEL",
        "parameters": [{"name": "MASS", "value": "12.5", "unit": "kg"},
                       {"name": "名称", "value": "盖板", "unit": ""}],
        "relations": ["d1 = 2", "/* 备注"]})");
    for (const auto& [key, value] : expected.items()) {
        if (key == "parameters") continue;
        EXPECT_EQ(plate[key], value) << key;
    }
    ASSERT_EQ(plate["parameters"].size(), 2u);
    for (std::size_t i = 0; i < 2; ++i) {
        Json one = plate["parameters"][i];
        EXPECT_EQ(one["type"], ParameterTypeName(i == 0 ? PRO_PARAM_DOUBLE : PRO_PARAM_STRING));
        one.erase("type");
        EXPECT_EQ(one, expected["parameters"][i]);
    }
    const Json top = Get("/model");
    EXPECT_EQ(top["file"], "top.asm");
    EXPECT_EQ(top["relations"], Json::array());
    EXPECT_EQ(top["changed"], false);
    EXPECT_EQ(Get("/model?path=sub/nothing"), nullptr);
}

TEST_F(WebAnswers, ThereIsNoModelWhereNothingIsOpen) {
    Start();
    EXPECT_EQ(Get("/model"), nullptr);
}

// --- Sheets -------------------------------------------------------------------------------------

TEST_F(WebAnswers, ASheetTellsWhereItsNotesAndDimensionsLie) {
    OpenModels("plate.drw: A3, A4");
    Do([] {
        Model& drawing = workbench::ModelNamed("plate.drw");
        DrawingView view;
        view.id = 5;
        view.file = "plate.prt";
        view.at = {100, 50, 0};
        DrawingOf(drawing).Add(view);
        Annotations& annotations = AnnotationsOf(drawing);
        Dimension shown;
        shown.id = 11;
        shown.view = 5;
        shown.at = {1, 2, 0};
        shown.shown = true;
        annotations.Add(shown);
        Dimension hidden = shown;
        hidden.id = 12;
        hidden.shown = false;
        annotations.Add(hidden);
        Dimension lost = shown;
        lost.id = 13;
        lost.view = 99;
        annotations.Add(lost);
        DrawingView overleaf = view;
        overleaf.id = 6;
        overleaf.sheet = 2;
        DrawingOf(drawing).Add(overleaf);
        Dimension next = shown;
        next.id = 14;
        next.view = 6;
        annotations.Add(next);
        annotations.Add(SheetNote{21, 1, {30, 40, 0}, {WIDE("技术要求"), WIDE("1.")}});
        annotations.Add(SheetNote{22, 1, {3, 4, 0}, {}});
        annotations.Add(SheetNote{23, 2, {5, 6, 0}, {WIDE("第二页")}});
    });
    Json sheet = Get("/sheet");
    EXPECT_NE(sheet["svg"].get<std::string>().find("<svg"), std::string::npos);
    sheet.erase("svg");
    EXPECT_EQ(sheet, Json::parse(R"({"sheet": 1, "sheets": 2, "width": 420.0, "height": 297.0,
        "items": [{"path": "dimension#11", "x": 101.0, "y": 52.0, "text": ""},
                  {"path": "note#21", "x": 30.0, "y": 40.0, "text": "技术要求"},
                  {"path": "note#22", "x": 3.0, "y": 4.0, "text": ""}]})"));
    Play("@ sheet 2");
    sheet = Get("/sheet");
    EXPECT_EQ(sheet["sheet"], 2);
    EXPECT_EQ(sheet["width"], 210.0) << "A4 stands upright";
    EXPECT_EQ(sheet["height"], 297.0);
    EXPECT_EQ(sheet["items"], Json::parse(R"([
        {"path": "dimension#14", "x": 101.0, "y": 52.0, "text": ""},
        {"path": "note#23", "x": 5.0, "y": 6.0, "text": "第二页"}])"));
    const std::string picture = sheet["svg"];
    EXPECT_NE(picture.find("第二页"), std::string::npos);
    EXPECT_EQ(picture.find("技术要求"), std::string::npos) << "that is on the first sheet";
}

TEST_F(WebAnswers, ASheetAloneIsOneOfOne) {
    Start();
    Do([] { TheHost().session.Open(workbench::MakeModels("plate.drw: A3")); });
    EXPECT_EQ(Get("/sheet")["sheet"], 1);
    EXPECT_EQ(Get("/sheet")["sheets"], 1);
}

TEST_F(WebAnswers, ThereIsNoSheetOfAModelOrOfNothing) {
    Start();
    const auto problem = [&] {
        const auto answer = Client().Get("/sheet", Token());
        EXPECT_EQ(answer->status, 404);
        return Json::parse(answer->body)["problem"];
    };
    EXPECT_EQ(problem(), "no drawing is open");
    Do([] { TheHost().session.Open(workbench::MakeModels("plate")); });
    EXPECT_EQ(problem(), "no drawing is open");
}

// --- Files --------------------------------------------------------------------------------------

TEST_F(WebAnswers, FilesAreThoseThatWereWrittenOrAll) {
    Start();
    const Json before = Get("/files");
    EXPECT_EQ(before["files"], Json::array());
    EXPECT_EQ(before["temporary"], true);
    const fs::path drive = before["drive"].get<std::string>();
    EXPECT_TRUE(drive.is_absolute());
    fs::create_directories(drive / "Work" / "新");
    std::ofstream(drive / "Work" / "新" / "a.txt") << "12345";
    const Json one = Json::parse(R"([{"path": "Work/新/a.txt", "windows": "C:\\Work\\新\\a.txt",
        "size": 5, "written": true}])");
    EXPECT_EQ(Get("/files")["files"], one);
    EXPECT_EQ(Get("/files?all=0")["files"], one);
    bool wasThere = false;
    const Json all = Get("/files?all=1");
    EXPECT_GT(all["files"].size(), 50u);
    for (const Json& file : all["files"]) {
        EXPECT_TRUE(fs::is_regular_file(drive / file["path"].get<std::string>())) << file;
        EXPECT_EQ(file["written"], file["path"] == "Work/新/a.txt") << file;
        wasThere = wasThere || file["path"] == "Work/gearbox.asm.1";
    }
    EXPECT_TRUE(wasThere);
}

TEST_F(WebAnswers, AFileComesAsItLies) {
    Start();
    const fs::path drive = Get("/files")["drive"].get<std::string>();
    const std::string bytes("a\0\r\n\xff", 5);
    std::ofstream(drive / "Work" / "a.bin", std::ios::binary) << bytes;
    const auto answer = Client().Get("/file?path=Work/a.bin", Token());
    EXPECT_EQ(answer->status, 200);
    EXPECT_EQ(answer->body, bytes);
    EXPECT_EQ(answer->get_header_value("Content-Type"), "application/octet-stream");
    const auto none = Client().Get("/file?path=Work", Token());
    EXPECT_EQ(Json::parse(none->body)["problem"], "there is no such file on the drive");
}

// --- Records ------------------------------------------------------------------------------------

TEST_F(WebAnswers, TheRecordingIsAFileToKeep) {
    Start();
    const auto answer = Client().Get("/recording", Token());
    EXPECT_EQ(answer->status, 200);
    EXPECT_EQ(answer->get_header_value("Content-Type"), "text/plain; charset=utf-8");
    EXPECT_EQ(answer->get_header_value("Content-Disposition"),
              "attachment; filename*=UTF-8''recording.trail");
}

TEST_F(WebAnswers, FaultsAreComplaintsFailuresAndWhatIsHeld) {
    Start();
    EXPECT_EQ(Get("/faults"), Json::parse(R"({"complaints": [], "failures": [], "held": []})"));
    EXPECT_EQ(Get("/state")["complaints"], 0);
    Do([] {
        ProArray array = nullptr;
        EXPECT_EQ(ProArrayAlloc(2, 4, 1, &array), PRO_TK_NO_ERROR);
        EXPECT_EQ(ProArrayAlloc(2, 4, 1, nullptr), PRO_TK_BAD_INPUTS);
    });
    Play("@ expect message nothing of that kind");
    const Json faults = Get("/faults");
    const std::string complaint = "ProArrayAlloc: the place for the array is null";
    EXPECT_EQ(faults["complaints"], Json::array({complaint}));
    EXPECT_EQ(faults["failures"],
              Json({"the message line says \"\"", "the host complains: " + complaint}));
    ASSERT_EQ(faults["held"].size(), 1u);
    EXPECT_NE(faults["held"][0].get<std::string>().find("2 objects of 4 bytes"), std::string::npos);
    EXPECT_EQ(Get("/state")["complaints"], 1);
}

TEST_F(WebAnswers, TheJournalBeginsWithTheFirstQuestionAndEndsWhenItIsToldTo) {
    const Json empty = Json::parse(R"({"running": true, "all": 0, "from": 0, "lines": []})");
    Start();
    EXPECT_EQ(Get("/journal"), empty);
    Do([] {
        for (int i = 0; i < 2001; ++i) ProArraySizeGet(nullptr, nullptr);
    });
    const Json first = Get("/journal");
    EXPECT_EQ(first["all"], 2001);
    EXPECT_EQ(first["from"], 0);
    EXPECT_EQ(first["lines"].size(), 2000u) << "at once";
    EXPECT_EQ(first["lines"][0].get<std::string>().find("ProArraySizeGet("), 0u);
    const Json rest = Get("/journal?from=1999");
    EXPECT_EQ(rest["from"], 1999);
    EXPECT_EQ(rest["lines"].size(), 2u);
    const Json beyond = Get("/journal?from=5000");
    EXPECT_EQ(beyond["from"], 2001);
    EXPECT_EQ(beyond["lines"], Json::array());
    for (const char* none : {"1x", "x", "-1", "99999999999999999999999"}) {
        EXPECT_EQ(Get(std::string("/journal?from=") + none)["from"], 0) << none;
    }
    const Json ended = Get("/journal?on=0");
    EXPECT_EQ(ended["running"], false);
    EXPECT_EQ(ended["all"], 0);
    Do([] { ProArraySizeGet(nullptr, nullptr); });
    EXPECT_EQ(Get("/journal?on=0")["all"], 0) << "nothing is written down any more";
    EXPECT_EQ(Get("/journal?on=1"), empty) << "it begins anew";
}

}  // namespace
