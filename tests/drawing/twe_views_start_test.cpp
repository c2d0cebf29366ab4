// TweViews from outside: what is drawn, under which name, and what is said when it cannot be.
#include "tests/drawing/drawing_bench.h"

namespace {

using namespace simhost;
using workbench::DrawingBench;

class TwelveViewsStart : public DrawingBench {
protected:
    Model& OpenBox(const std::string& name) {
        Model& box = BoxPart(name, 100, 60, 40);
        Open(box);
        return box;
    }
};

// --- What is drawn ---

TEST_F(TwelveViewsStart, TheOneSelectedComponentIsDrawn) {
    Model& top = Assembly("TOP");
    Model& gear = BoxPart("GEAR", 30, 20, 10);
    Use(top, gear);
    Open(top);
    Play("@ select GEAR\n~ Command `TweViews`\n" + Answer({}));
    ASSERT_EQ(Views("GEAR-12").size(), 7u);
    EXPECT_EQ(ModelOf(*Views("GEAR-12")[0]), &gear);
    EXPECT_EQ(FindDrawing("TOP-12"), nullptr);
}

TEST_F(TwelveViewsStart, AnAssemblyIsDrawnWithAllItsParts) {
    Model& top = Assembly("TOP");
    Model& gear = BoxPart("GEAR", 30, 20, 10);
    Use(top, gear);
    Use(top, gear);
    top.MutableFeatures()[1].placement.origin = {70, 0, 0};
    Open(top);
    MakeViews();
    ASSERT_EQ(Views("TOP-12").size(), 7u);
    // 100 wide, 20 high around (200, 600).
    EXPECT_EQ(OutlineText(*Views("TOP-12")[0]), "150 590 250 610");
}

TEST_F(TwelveViewsStart, TwoSelectedComponentsAreRefused) {
    Model& top = Assembly("TOP");
    Use(top, BoxPart("A", 1, 1, 1));
    Use(top, BoxPart("B", 1, 1, 1));
    Open(top);
    Play(
        "@ select A, B\n~ Command `TweViews`\n"
        "@ expect box \"当前模式只能选择1个元件\"\n"
        "@ expect caption \"岚枢工具By墨川听雨,QQ:100200300\"\n@ ok\n@ expect dialog none");
    EXPECT_EQ(AllBoxes().back().flags, 0x40000u);
}

TEST_F(TwelveViewsStart, ASelectedSurfaceIsRefused) {
    Model& top = Assembly("TOP");
    Use(top, BoxPart("A", 1, 1, 1));
    Open(top);
    Play(
        "@ select A#11\n~ Command `TweViews`\n"
        "@ expect box \"当前模式仅可选择零件或者组件\"\n@ ok\n@ expect dialog none");
}

TEST_F(TwelveViewsStart, ASelectionThatOnlyTheButtonSeesIsRefusedAndTheDialogStays) {
    Model& top = Assembly("TOP");
    Use(top, BoxPart("A", 1, 1, 1));
    Use(top, BoxPart("B", 1, 1, 1));
    Open(top);
    Fail("ProSelbufferSelectionsGet");  // for the command, not for its button
    Play(
        "@ select A, B\n~ Command `TweViews`\n~ Activate `TweViews` `ApplyBt`\n"
        "@ expect box \"当前模式只能选择1个元件\"\n@ ok\n@ expect dialog TweViews\n"
        "~ Activate `TweViews` `Close`");
    EXPECT_EQ(FindDrawing("TOP-12"), nullptr);
}

TEST_F(TwelveViewsStart, AManufacturingModelIsDrawnAsItsAssembly) {
    Model& top = Assembly("TOP");
    Use(top, BoxPart("A", 100, 60, 40));
    Open(Manufacturing("MILL", top));
    MakeViews();
    ASSERT_EQ(Views("TOP-12").size(), 7u);
    EXPECT_EQ(ModelOf(*Views("TOP-12")[0]), &top);
    EXPECT_EQ(FindDrawing("MILL-12"), nullptr);
}

TEST_F(TwelveViewsStart, AManufacturingModelsDrawingIsLookedForUnderItsOwnName) {
    Model& top = Assembly("TOP");
    Use(top, BoxPart("A", 100, 60, 40));
    Model& mill = Manufacturing("MILL", top);
    Open(mill);
    MakeViews();
    // The drawing TOP-12 is there now, but MILL-12 is asked for: the dialog comes again, and then
    // the drawing is in the way.
    Open(mill);
    MakeViews({}, "@ expect box \"十二视图已存在\"\n@ expect caption none\n@ ok");
    EXPECT_EQ(Views("TOP-12").size(), 7u);
}

// --- Names ---

TEST_F(TwelveViewsStart, ANameOf28LettersStaysWholeAndOneOf29IsCutToEight) {
    const std::string letters28 = "ABCDEFGHIJKLMNOPQRSTUVWXYZ12";
    OpenBox(letters28);
    MakeViews();
    EXPECT_NE(FindDrawing(letters28 + "-12"), nullptr);
    OpenBox(letters28 + "3");
    MakeViews();
    EXPECT_NE(FindDrawing("ABCDEFGH-12"), nullptr);
}

TEST_F(TwelveViewsStart, TwoLongNamesThatBeginAlikeCollide) {
    OpenBox("ABCDEFGH_FIRST_OF_TWO_LONG_ONE");
    MakeViews();
    Model* drawing = FindDrawing("ABCDEFGH-12");
    ASSERT_NE(drawing, nullptr);
    OpenBox("ABCDEFGH_OTHER_OF_TWO_LONG_ONE");
    Press("TweViews");  // opens the first one's drawing
    EXPECT_EQ(host().session.CurrentModel(), drawing);
}

// --- A drawing that is there ---

TEST_F(TwelveViewsStart, AnExistingDrawingOpensWithoutTheDialog) {
    Model& box = OpenBox("BOX");
    MakeViews();
    Open(box);
    Press("TweViews");
    EXPECT_EQ(host().session.CurrentModel(), FindDrawing("BOX-12"));
    EXPECT_EQ(Views("BOX-12").size(), 7u);
}

TEST_F(TwelveViewsStart, ADrawingInTheWorkingFolderIsFetched) {
    Model& box = OpenBox("BOX");
    MakeViews({"main-h", "six-hidden"});
    host().session.Save(*FindDrawing("BOX-12"));
    host().session.Erase(*FindDrawing("BOX-12"));
    Open(box);
    Press("TweViews");
    ASSERT_EQ(Views("BOX-12").size(), 7u);
    // As it was: see kFirstSet of the layout's tests.
    EXPECT_EQ(OutlineText(*Views("BOX-12")[5]), "390 570 490 630");
    EXPECT_EQ(OutlineText(*Views("BOX-12")[6]), "325.251 350.552 424.246 456.483");
}

// --- The dialog ---

TEST_F(TwelveViewsStart, TheDialogEndsByItsButtonAndItsWindowWithoutADrawing) {
    OpenBox("BOX");
    Play(
        "~ Command `TweViews`\n@ expect dialog TweViews\n~ Activate `TweViews` `Close`\n"
        "@ expect dialog none");
    Play("~ Command `TweViews`\n~ Close `TweViews`\n@ expect dialog none");
    EXPECT_EQ(FindDrawing("BOX-12"), nullptr);
    EXPECT_TRUE(host().dialogs.Existing().empty());
}

TEST_F(TwelveViewsStart, ADialogThatFailsSaysWhere) {
    OpenBox("BOX");
    Fail("ProUIDialogCreate");
    Play(
        "~ Command `TweViews`\n@ expect box \"UIDialog Create error!\"\n"
        "@ expect caption none\n@ ok");
    Fail("ProUIDialogActivate");
    Play("~ Command `TweViews`\n@ expect box \"UIDialog Activate error!\"\n@ ok");
    EXPECT_EQ(host().dialogs.Existing(), std::vector<std::string>{"TweViews"});
}

// --- Failures of the drawing ---

TEST_F(TwelveViewsStart, WithoutTheTemplateNothingIsMade) {
    OpenBox("BOX");
    std::filesystem::remove(workplace_->Real(workbench::kModuleFolder) / "tp" / "vx.drw");
    MakeViews({}, "@ expect box \"未找到可用模板（vx.drw）\"\n@ expect caption none\n@ ok");
    EXPECT_EQ(FindDrawing("BOX-12"), nullptr);
    EXPECT_EQ(host().session.workingDirectory, WIDE("C:\\Work"));
}

TEST_F(TwelveViewsStart, ADrawingOfThatNameBesideTheTemplateIsInTheWay) {
    OpenBox("BOX");
    Write(workbench::kModuleFolder + WIDE("\\tp\\box-12.drw.3"), "[model]\ntype = \"drawing\"\n");
    MakeViews({}, "@ expect box \"十二视图已存在\"\n@ expect caption none\n@ ok");
}

TEST_F(TwelveViewsStart, ATemplateThatIsNoneSaysSo) {
    OpenBox("BOX");
    Write(workbench::kModuleFolder + WIDE("\\tp\\vx.drw"), "[model]\ntype = \"part\"\n");
    MakeViews({}, "@ expect box \"PRO_TK_DWGCREATE_ERRORS\"\n@ expect caption none\n@ ok");
}

struct Case {
    const char* operation;
    int status;
    const char* box;  // none: the command goes on, or ends without a word
};

TEST_F(TwelveViewsStart, EachStatusOfTheCreationHasItsBox) {
    OpenBox("BOX");
    const Case cases[] = {
        {"ProDrawingFromTmpltCreate", -5, "十二视图已存在"},
        {"ProDrawingFromTmpltCreate", -4, "未找到可用模板（vx.drw）"},
        {"ProDrawingFromTmpltCreate", -57, "PRO_TK_DWGCREATE_ERRORS"},
        {"ProDrawingFromTmpltCreate", -59, "PRO_TK_NO_PERMISSION"},
    };
    for (const Case& one : cases) {
        Fail(one.operation, {.status = one.status});
        MakeViews({}, std::string("@ expect box \"") + one.box + "\"\n@ expect caption none\n@ ok");
        EXPECT_EQ(FindDrawing("BOX-12"), nullptr);
        EXPECT_EQ(host().session.workingDirectory, WIDE("C:\\Work"));
    }
    Fail("ProDrawingFromTmpltCreate", {.status = -1});
    MakeViews();
    EXPECT_EQ(FindDrawing("BOX-12"), nullptr);
}

TEST_F(TwelveViewsStart, EachStatusOfTheMainViewHasItsBoxAndTheDrawingStaysOpen) {
    const Case cases[] = {
        {"ProDrawingGeneralviewCreate", -2, "PRO_TK_BAD_INPUTS"},
        {"ProDrawingGeneralviewCreate", -50, "PRO_TK_CRE_VIEW_BAD_SHEET"},
        {"ProDrawingGeneralviewCreate", -51, "PRO_TK_CRE_VIEW_BAD_MODEL"},
        {"ProDrawingGeneralviewCreate", -54, "PRO_TK_CRE_VIEW_BAD_EXPLODE"},
        {"ProDrawingGeneralviewCreate", -1, "PRO_TK_GENERAL_ERROR"},
    };
    int number = 0;
    for (const Case& one : cases) {
        const std::string name = "BOX" + std::to_string(++number);
        OpenBox(name);
        Fail(one.operation, {.status = one.status});
        MakeViews({"main-h", "twelve", true},
                  std::string("@ expect box \"") + one.box + "\"\n@ expect caption none\n@ ok");
        EXPECT_TRUE(Views(name + "-12").empty());
        EXPECT_EQ(host().session.CurrentModel(), FindDrawing(name + "-12")) << name;
    }
}

TEST_F(TwelveViewsStart, AnyOtherStatusOfTheMainViewGoesOnQuietly) {
    OpenBox("BOX");
    Fail("ProDrawingGeneralviewCreate", {.status = -52});
    MakeViews({"main-h", "twelve"});
    // Without a main view there is nothing to project, and nothing says how the others are turned.
    EXPECT_TRUE(Views("BOX-12").empty());
}

TEST_F(TwelveViewsStart, AProjectionThatFailsIsLeftOut) {
    OpenBox("BOX");
    Fail("ProDrawingProjectedviewCreate");  // the view below
    MakeViews({"main-h", "six-hidden"});
    ASSERT_EQ(Views("BOX-12").size(), 6u);
    EXPECT_EQ(OutlineText(*Views("BOX-12")[1]), "150 680 250 720");
}

TEST_F(TwelveViewsStart, AModelWithoutGeometryHasItsMainAndIsometricViewOnly) {
    Open(Part("EMPTY", 0));
    MakeViews({"main-h", "six-hidden"});
    ASSERT_EQ(Views("EMPTY-12").size(), 2u);
    EXPECT_EQ(OutlineText(*Views("EMPTY-12")[0]), "200 600 200 600");
}

}  // namespace
