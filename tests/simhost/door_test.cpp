// What all operations of the door have in common: what they refuse and what they complain about,
// how they are told to fail, and how their arguments look in the journal.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "hostapi/host.h"
#include "simhost/app/faults.h"
#include "simhost/model/drawing.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using Lines = std::vector<std::string>;

class Door : public workbench::Workbench {
protected:
    // The journal of what `act` calls.
    template <class Act>
    Lines Recorded(Act act) {
        host().journal.Clear();
        host().journal.Start();
        act();
        host().journal.Stop();
        return host().journal.lines();
    }
};

// --- What is refused, and what is a complaint ---

TEST_F(Door, ANullHandleIsRefusedQuietly) {
    ProMdlType type = PRO_MDL_UNUSED;
    EXPECT_EQ(ProMdlTypeGet(nullptr, &type), PRO_TK_BAD_INPUTS);
    ProModelitem item = {};
    EXPECT_EQ(ProSelectionModelitemGet(nullptr, &item), PRO_TK_BAD_INPUTS);
    ProGeomitemdata* data = nullptr;
    EXPECT_EQ(ProSurfaceDataGet(nullptr, &data), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(prodb_unset_surface_props(nullptr, PRODB_WHOLE_OBJECT, -1, 0), PRO_TK_BAD_INPUTS);
    char icon[] = "x.png";
    EXPECT_EQ(ProCmdIconSet(nullptr, icon), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(), Lines{});
}

TEST_F(Door, AZeroedRecordIsRefusedQuietly) {
    ProFeature feature = {};
    ProFeattype type = 0;
    EXPECT_EQ(ProFeatureTypeGet(&feature, &type), PRO_TK_BAD_INPUTS);
    ProParameter parameter = {};
    EXPECT_EQ(ProParameterDelete(&parameter), PRO_TK_BAD_INPUTS);
    ProRelset set = {};
    EXPECT_EQ(ProRelsetRelationsSet(&set, nullptr, 0), PRO_TK_BAD_INPUTS);
    ProAsmcomppath path = {};
    ProMdl model = nullptr;
    EXPECT_EQ(ProAsmcomppathMdlGet(&path, &model), PRO_TK_BAD_INPUTS);
    ProFamtable table = {PRO_ASSEMBLY, -1, Assembly("top").handle};
    ProFamtableItem column = {};
    EXPECT_EQ(ProFamtableItemAdd(&table, &column), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(), Lines{});
}

TEST_F(Door, AModelOfTheWrongKindIsRefusedQuietly) {
    Model& part = Part("part");
    Model& drawing = host().session.Create(WIDE("SHEET"), PRO_MDL_DRAWING);
    ProAssembly assembly = nullptr;
    EXPECT_EQ(ProMfgAssemGet(static_cast<ProMfg>(part.handle), &assembly), PRO_TK_BAD_INPUTS);
    int sheets = 0;
    EXPECT_EQ(ProDrawingSheetsCount(static_cast<ProDrawing>(part.handle), &sheets),
              PRO_TK_BAD_INPUTS);
    Pro3dPnt outline[2];
    EXPECT_EQ(ProSolidOutlineGet(static_cast<ProSolid>(drawing.handle), outline),
              PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(), Lines{});
}

TEST_F(Door, ADanglingHandleAndANullPlaceAreComplaints) {
    Model& part = Part("part");
    ProMdl handle = part.handle;
    EXPECT_EQ(ProMdlTypeGet(handle, nullptr), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProMdlRetrieve(nullptr, PRO_MDL_PART, &handle), PRO_TK_BAD_INPUTS);
    host().session.Erase(part);
    ProMdlType type = PRO_MDL_UNUSED;
    EXPECT_EQ(ProMdlTypeGet(handle, &type), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(), (Lines{"ProMdlTypeGet: type is null", "ProMdlRetrieve: name is null",
                                   "ProMdlTypeGet: a model that was erased"}));
}

// --- Faults ---

TEST_F(Door, AFaultAfterTheWorkFillsTheRecordAndRefuses) {
    Model& part = Part("part");
    ProModelitem owner = {PRO_PART, -1, part.handle};
    ProName name = {'N', 0};
    ProParamvalue value = {};
    value.type = PRO_PARAM_INTEGER;
    value.value.i_val = 3;
    Operation::Fail(ParseFault("ProParameterCreate:1=-5+done"));
    ProParameter parameter = {};
    EXPECT_EQ(ProParameterCreate(&owner, name, &value, &parameter), PRO_TK_E_FOUND);
    EXPECT_EQ(parameter.owner.owner, part.handle);
    EXPECT_TRUE(part.parameters.Find(WIDE("N")));
    EXPECT_EQ(Operation::FiredFaults(), 1u);
}

TEST_F(Door, AFaultWithoutItLeavesTheWorkUndone) {
    Model& part = Part("part");
    Operation::Fail(ParseFault("ProMdlToModelitem=-5"));
    ProModelitem item = {};
    EXPECT_EQ(ProMdlToModelitem(part.handle, &item), PRO_TK_E_FOUND);
    EXPECT_EQ(item.owner, nullptr);
}

// A status that the header does not list is a value of its type all the same.
TEST_F(Door, AFaultMayHaveAStatusThatIsNotListed) {
    Model& part = Part("part");
    Operation::Fail(ParseFault("ProMdlTypeGet:1=-88"));
    ProMdlType type = PRO_MDL_UNUSED;
    EXPECT_EQ(int(ProMdlTypeGet(part.handle, &type)), -88);
}

std::string Problem(const std::string& fault) {
    try {
        ParseFault(fault);
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "none";
}

TEST_F(Door, AFaultOfAnUnknownOperationIsTold) {
    EXPECT_EQ(Problem("ProMdlTypGet=-1"),
              "--fail ProMdlTypGet=-1: there is no operation ProMdlTypGet; did you mean "
              "ProMdlTypeGet?");
    EXPECT_EQ(Problem("Nonsense=-1"), "--fail Nonsense=-1: there is no operation Nonsense");
    // Known before any call of them.
    EXPECT_EQ(Problem("MesageBoxW=0"),
              "--fail MesageBoxW=0: there is no operation MesageBoxW; did you mean MessageBoxW?");
    EXPECT_EQ(Problem("MessageBoxW=0"), "none");
    EXPECT_EQ(Problem("ProViewRotate:2=-1+done"), "none");
}

TEST_F(Door, AFaultWhoseStatusOrNumberDoesNotFitIsTold) {
    for (const char* wrong :
         {"ProMdlTypeGet=-2147483649", "ProMdlTypeGet=99999999999999999999", "ProMdlTypeGet=x",
          "ProMdlTypeGet=", "ProMdlTypeGet:0=-1", "ProMdlTypeGet:-1=-1", "ProMdlTypeGet:x=-1",
          "ProMdlTypeGet=-1+do", "ProMdlTypeGet=+done", "ProMdlTypeGet", "=-1", ""}) {
        EXPECT_NE(Problem(wrong).find("write OPERATION=STATUS"), std::string::npos) << wrong;
    }
}

TEST_F(Door, AFaultWhoseCallWasNeverMadeIsTold) {
    Model& part = Part("part");
    Operation::Fail(ParseFault("ProMdlTypeGet:3=-1"));
    Operation::Fail(ParseFault("ProMdlTypeGet:1=-1"));
    ProMdlType type = PRO_MDL_UNUSED;
    ProMdlTypeGet(part.handle, &type);
    ProMdlTypeGet(part.handle, &type);
    EXPECT_EQ(UnreachedFaultLines(),
              Lines{"--fail ProMdlTypeGet: that call was never made; there were 2 calls of it"});
}

// --- The journal ---

TEST_F(Door, TheJournalShowsPlacesScalesAndOrientations) {
    Model& part = Part("part");
    Model& drawing = host().session.Create(WIDE("SHEET"), PRO_MDL_DRAWING);
    drawing.drawingData.sheets = {WIDE("A3")};
    Pro3dPnt at = {100.5, 0.1, 0};
    ProMatrix turned = {{0, 1, 0, 0}, {-1, 0, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    ProView view = nullptr;
    const auto created = [&] {
        ProDrawingGeneralviewCreate(static_cast<ProDrawing>(drawing.handle),
                                    static_cast<ProSolid>(part.handle), 1, PRO_B_FALSE, at, 0.25,
                                    turned, &view);
    };
    EXPECT_EQ(Recorded(created),
              Lines{"ProDrawingGeneralviewCreate(drawing=sheet.drw, solid=part.prt, sheet=1, "
                    "exploded=0, position=(100.5, 0.1, 0), scale=0.25, orientation=[(0, 1, 0, 0), "
                    "(-1, 0, 0, 0), (0, 0, 1, 0), (0, 0, 0, 1)], view=view 1 of sheet.drw) = 0"});
    ProDrawingViewDisplay display = {};
    display.style = PRO_DISPSTYLE_NO_HIDDEN;
    display.tangent_edge_display = ProTanedgeDisplay(15);
    const auto shown = [&] {
        ProDrawingViewDisplaySet(static_cast<ProDrawing>(drawing.handle), view, &display);
    };
    EXPECT_EQ(Recorded(shown),
              Lines{"ProDrawingViewDisplaySet(drawing=sheet.drw, view=view 1 of sheet.drw, "
                    "display=style 3, quilt 0, tangent edges 15, cables 0, concept 0, welds 0) = "
                    "0"});
}

TEST_F(Door, TheJournalShowsAViewsMatrixThatIsSetAndRead) {
    Model& part = Part("part");
    ProMatrix wanted = {{2, 0, 0, 0}, {0, 0, 2, 0}, {0, -2, 0, 0}, {5, -0.5, 0, 1}};
    const std::string text = "[(2, 0, 0, 0), (0, 0, 2, 0), (0, -2, 0, 0), (5, -0.5, 0, 1)]";
    ProMatrix got = {};
    const auto both = [&] {
        ProViewMatrixSet(part.handle, nullptr, wanted);
        ProViewMatrixGet(part.handle, nullptr, got);
    };
    EXPECT_EQ(Recorded(both),
              (Lines{"ProViewMatrixSet(model=part.prt, view=null, transform=" + text + ") = 0",
                     "ProViewMatrixGet(model=part.prt, view=null, transform=" + text + ") = 0"}));
}

TEST_F(Door, TheJournalShowsTheIdsOfAPath) {
    Model& top = Assembly("top");
    ProIdTable ids = {4, 7};
    ProAsmcomppath path = {};
    const auto made = [&] { ProAsmcomppathInit(static_cast<ProSolid>(top.handle), ids, 2, &path); };
    EXPECT_EQ(Recorded(made),
              Lines{"ProAsmcomppathInit(assembly=top.asm, ids=[4, 7], path=top.asm [4, 7]) = 0"});
}

TEST_F(Door, TheJournalMakesControlCharactersVisible) {
    WideChar macro[] = {'a', '\t', 'b', 1, 0x7f, '"', 0};
    EXPECT_EQ(Recorded([&] { ProMacroLoad(macro); }),
              Lines{"ProMacroLoad(macro=\"a\\tb\\x01\\x7f\\\"\") = 0"});
}

// --- A journal that goes to a file ---

class JournalFile : public Door {
protected:
    std::string path_ =
        (std::filesystem::temp_directory_path() /
         ("vorlatix-journal-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed())))
            .string();
    void TearDown() override {
        std::filesystem::remove(path_);
        Door::TearDown();
    }
    std::string Text() const {
        std::ostringstream text;
        text << std::ifstream(path_).rdbuf();
        return text.str();
    }
};

ProError AskForType(ProFeature* feature, ProError, ProAppData) {
    ProFeattype type = 0;
    ProFeatureTypeGet(feature, &type);
    return PRO_TK_NO_ERROR;
}

TEST_F(JournalFile, HasEachCallWhenItHasEnded) {
    Model& top = Assembly("top");
    Feature feature;
    feature.type = 5;
    const int id = top.AddFeature(feature).id;
    host().journal.StartFile(path_);
    ProSolidFeatVisit(static_cast<ProSolid>(top.handle), AskForType, nullptr, nullptr);
    host().journal.Stop();
    EXPECT_EQ(host().journal.lines(), Lines{});
    EXPECT_EQ(Text(),
              "ProSolidFeatVisit ...\n"
              "  ProFeatureTypeGet(feature=top.asm item " +
                  std::to_string(id) +
                  " of type 3, type=5) = 0\n"
                  "... ProSolidFeatVisit(solid=top.asm) = 0\n");
}

TEST_F(JournalFile, ShowsTheFirstFiftyOfALongList) {
    Model& part = Part("part");
    ProModelitem item = {PRO_PART, -1, part.handle};
    ProRelset set = {};
    ASSERT_EQ(ProRelsetCreate(&item, &set), PRO_TK_NO_ERROR);
    WideChar line[] = {'x', '=', '1', 0};
    ProArray array = nullptr;
    ASSERT_EQ(ProArrayAlloc(0, sizeof(WideChar*), 1, &array), PRO_TK_NO_ERROR);
    for (int i = 0; i < 52; ++i) {
        WideChar* one = line;
        ASSERT_EQ(ProArrayObjectAdd(&array, -1, 1, &one), PRO_TK_NO_ERROR);
    }
    const auto write = [&] { ProRelsetRelationsSet(&set, static_cast<WideChar**>(array), 52); };
    std::string fifty, all;
    for (int i = 0; i < 52; ++i) {
        const std::string one = (i ? ", " : "") + std::string("\"x=1\"");
        all += one;
        if (i < 50) fifty += one;
    }
    EXPECT_EQ(Recorded(write),
              Lines{"ProRelsetRelationsSet(set=of part.prt, lines=[" + all + "]) = 0"});
    host().journal.StartFile(path_);
    write();
    host().journal.Stop();
    EXPECT_EQ(Text(),
              "ProRelsetRelationsSet(set=of part.prt, lines=[" + fifty + ", and 2 more]) = 0\n");
    ProArrayFree(&array);
}

TEST_F(JournalFile, ThatCannotBeWrittenIsAnErrorWithPathAndReason) {
    const std::string nowhere = path_ + "/no/folder";
    try {
        host().journal.StartFile(nowhere);
        ADD_FAILURE() << "it was opened";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(error.what(),
                  "cannot write the journal " + nowhere + ": No such file or directory");
    }
    EXPECT_FALSE(host().journal.running());
}

#ifdef __linux__
TEST_F(JournalFile, OnAFullDiskIsAnErrorWhenItEnds) {
    host().journal.StartFile("/dev/full");
    ProMdl model = nullptr;
    ProMdlCurrentGet(&model);
    try {
        host().journal.Stop();
        ADD_FAILURE() << "nobody was told";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "cannot write the journal /dev/full: No space left on device");
    }
}
#endif

}  // namespace
