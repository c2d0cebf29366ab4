// VxDimModify: which dimensions its buttons change, and what they write.
#include <fmt/format.h>

#include <algorithm>

#include "tests/drawing/dimension_bench.h"

namespace {

using namespace simhost;
using Names = std::vector<std::string>;

class DimModify : public workbench::DimensionBench {
protected:
    // Presses a button of the open palette, with answers to what it asks, and closes the palette.
    static std::string Palette(const std::string& steps) {
        return "~ Command `VxDimModify`\n" + steps + "~ Close `VxDimModify`\n";
    }
    static std::string Button(const std::string& name) {
        return "~ Activate `VxDimModify` `" + name + "`\n";
    }
    static std::string Type(const std::string& panel, const std::string& text) {
        return "~ Input `VxDimModify` `" + panel + "` `" + text + "`\n";
    }
    static std::string PickDimension(int id) { return fmt::format("@ pick dimension#{}\n", id); }
    // What these steps call in the palette, with the first dimension selected.
    Names CallsOf(const std::string& steps) {
        Record("@ select dimension#1\n" + Palette(steps));
        const Names calls = NamesOfCalls();
        const auto from = std::find(calls.begin(), calls.end(), "ProUIDialogActivate");
        const auto to = std::find(from, calls.end(), "ProUIDialogExit");
        return from == to ? Names{} : Names(from + 1, to);
    }
    void SetText(int id, std::vector<WideText> lines) { DimensionOf(id).text = std::move(lines); }
};

// --- Every button ---

struct Fixed {
    const char* button;
    const char* text;  // with < and > for U+0001 and U+0002
};
constexpr Fixed kFixed[] = {
    {"preBt1", "R@D"},   {"preBt2", "<n>@D"},  {"preBt3", "M@D"},  {"preBt4", "S<n>@D"},
    {"preBt5", "SR@D"},  {"preBt6", "t@D"},    {"preBt7", "(@D)"}, {"preBt8", "<o>@D"},
    {"preBt9", "<w>@D"}, {"preBt10", "<v>@D"},
};

TEST_F(DimModify, EachFixedTextReplacesTheOldOneWhole) {
    Length();
    for (const Fixed& row : kFixed) {
        SetText(1, {WIDE("4×@D"), WIDE("second line")});
        Play("@ select dimension#1\n" + Palette(Button(row.button)));
        EXPECT_EQ(DimensionOf(1).text->size(), 1u) << row.button;
        EXPECT_EQ(FirstLineOf(1), row.text) << row.button;
    }
}

struct Tolerance {
    const char* button;
    int type;
    double upper, lower;
};
constexpr Tolerance kTolerances[] = {
    {"upTolBt1", 2, 0.01, 0},     {"upTolBt2", 2, 0.02, 0},     {"upTolBt3", 2, 0.03, 0},
    {"upTolBt4", 2, 0.05, 0},     {"upTolBt5", 2, 0.1, 0},      {"upTolBt6", 2, 0.2, 0},
    {"upTolBt7", 2, 0.5, 0},      {"upTolBt8", 2, 1, 0},        {"upTolBt9", 2, 2, 0},
    {"upTolBt10", 2, 3, 0},       {"upTolBt11", 2, 5, 0},       {"upTolBt12", 2, 6, 0},
    {"upTolBt13", 2, 10, 0},      {"MirTolBt1", 4, 0.01, 0.01}, {"MirTolBt2", 4, 0.02, 0.02},
    {"MirTolBt3", 4, 0.03, 0.03}, {"MirTolBt4", 4, 0.05, 0.05}, {"MirTolBt5", 4, 0.1, 0.1},
    {"MirTolBt6", 4, 0.2, 0.2},   {"MirTolBt7", 4, 0.3, 0.3},   {"MirTolBt8", 4, 0.5, 0.5},
    {"MirTolBt9", 4, 1, 1},       {"MirTolBt10", 4, 2, 2},      {"downTolBt1", 2, 0, 0.01},
    {"downTolBt2", 2, 0, 0.02},   {"downTolBt3", 2, 0, 0.03},   {"downTolBt4", 2, 0, 0.05},
    {"downTolBt5", 2, 0, 0.1},    {"downTolBt6", 2, 0, 0.2},    {"downTolBt7", 2, 0, 0.5},
    {"downTolBt8", 2, 0, 1},      {"downTolBt9", 2, 0, 2},      {"downTolBt10", 2, 0, 3},
    {"downTolBt11", 2, 0, 6},     {"downTolBt12", 2, 0, 10},    {"downTolBt13", 2, 0, 20},
};
static_assert(std::size(kFixed) + std::size(kTolerances) + 3 == 49);

TEST_F(DimModify, EachToleranceButtonWritesItsTypeAndBothValues) {
    Length();
    for (const Tolerance& row : kTolerances) {
        DimensionOf(1).tolerance = PRO_TOL_DEFAULT;
        DimensionOf(1).upper = DimensionOf(1).lower = -7;
        Play("@ select dimension#1\n" + Palette(Button(row.button)));
        EXPECT_EQ(int(DimensionOf(1).tolerance), row.type) << row.button;
        EXPECT_EQ(DimensionOf(1).upper, row.upper) << row.button;
        EXPECT_EQ(DimensionOf(1).lower, row.lower) << row.button;
    }
    EXPECT_FALSE(DimensionOf(1).text) << "a tolerance leaves the text alone";
}

TEST_F(DimModify, ASheetShowsDeviationsByTheirSigns) {
    Length();
    Play("@ select dimension#1\n" + Palette(Button("upTolBt5")) +
         "@ expect dimension 1 40 +0.1/0\n");
    Play(Palette(Button("downTolBt2")) + "@ expect dimension 1 40 0/-0.02\n");
    Play(Palette(Button("MirTolBt7")) + "@ expect dimension 1 40±0.3\n");
}

// --- Texts that keep the first line ---

TEST_F(DimModify, ACountGoesBeforeTheFirstLine) {
    Length();
    const std::string press =
        "@ select dimension#1\n" + Palette(Type("numInput", "4") + Button("preBt11"));
    Play(press);
    EXPECT_EQ(FirstLineOf(1), "4×@D");
    SetText(1, {WIDE("R@D")});
    Play(press);
    EXPECT_EQ(FirstLineOf(1), "4×R@D");
    SetText(1, {WIDE("M@D"), WIDE("6H"), WIDE("通孔")});
    Play(press);
    EXPECT_EQ(FirstLineOf(1), "4×M@D");
    EXPECT_EQ(DimensionOf(1).text->size(), 1u) << "the other lines go";
}

TEST_F(DimModify, EqualSpacingGoesAfterTheFirstLineEachTime) {
    Length();
    const std::string press = "@ select dimension#1\n" + Palette(Button("sufBt1"));
    Play(press);
    EXPECT_EQ(FirstLineOf(1), "@DEQS");
    Play(press);
    EXPECT_EQ(FirstLineOf(1), "@DEQSEQS");
    SetText(1, {WIDE("4×@D"), WIDE("below")});
    Play(press);
    EXPECT_EQ(FirstLineOf(1), "4×@DEQS");
    EXPECT_EQ(DimensionOf(1).text->size(), 1u);
}

TEST_F(DimModify, ADepthGoesAfterTheFirstLineWithItsSymbol) {
    Length();
    const std::string press =
        "@ select dimension#1\n" + Palette(Type("depthInput", "10") + Button("sufBt2"));
    Play(press);
    EXPECT_EQ(FirstLineOf(1), "@D<x>10");
    SetText(1, {WIDE("@D")});
    Play(press);
    EXPECT_EQ(FirstLineOf(1), "@D<x>10");
    SetText(1, {WIDE("M@D"), WIDE("below")});
    Play(press);
    EXPECT_EQ(FirstLineOf(1), "M@D<x>10");
}

// A letter that could be part of an escape must not be swallowed by the character before it.
TEST_F(DimModify, ADepthThatBeginsWithALetterKeepsIt) {
    Length();
    Play("@ select dimension#1\n" + Palette(Type("depthInput", "abc") + Button("sufBt2")));
    EXPECT_EQ(FirstLineOf(1), "@D<x>abc");
}

TEST_F(DimModify, NoTextIsSaidInThreeWays) {
    Length();
    for (const auto way : {Annotations::NoText::Status, Annotations::NoText::NullArray,
                           Annotations::NoText::EmptyArray}) {
        AnnotationsOf(*drawing_).noText = way;
        DimensionOf(1).text.reset();
        Play("@ select dimension#1\n" + Palette(Type("numInput", "4") + Button("preBt11")));
        EXPECT_EQ(FirstLineOf(1), "4×@D") << int(way);
    }
}

TEST_F(DimModify, AnEmptyFirstLineIsAText) {
    Length();
    SetText(1, {WideText(), WIDE("below")});
    Play("@ select dimension#1\n" + Palette(Type("numInput", "4") + Button("preBt11")));
    EXPECT_EQ(FirstLineOf(1), "4×");
}

TEST_F(DimModify, ALineIsCutAfterEightyCharacters) {
    Length();
    SetText(1, {WideText(80, WideChar{'a'})});
    Play("@ select dimension#1\n" + Palette(Type("numInput", "12") + Button("preBt11")));
    EXPECT_EQ(FirstLineOf(1), "12×" + std::string(77, 'a'));
    Play("@ select dimension#1\n" + Palette(Button("sufBt1")));
    EXPECT_EQ(FirstLineOf(1), "12×" + std::string(77, 'a'));
}

TEST_F(DimModify, AnEmptyInputIsANoticeAndNothingElse) {
    Length();
    Record("@ select dimension#1\n" +
           Palette(Button("preBt11") + "@ expect box \"\\t请先输入数量\\t\"\n@ ok\n" +
                   Button("sufBt2") + "@ expect box \"\\t请先输入钻孔深度\\t\"\n@ ok\n"));
    EXPECT_FALSE(DimensionOf(1).text);
    EXPECT_TRUE(LinesOf("ProSelbufferSelectionsGet").empty());
    EXPECT_TRUE(LinesOf("ProDwgSheetRegenerate").empty());
    EXPECT_EQ(host().session.selections.buffer().size(), 1u);
}

// --- Which dimensions ---

TEST_F(DimModify, ABufferOfNotesAndDimensionsChangesTheDimensionsOnly) {
    Length();
    AnnotationsOf(*drawing_).Add(SheetNote{0, 1, {10, 10, 0}, {WIDE("注")}});
    Length();
    Record("@ select dimension#1, note#2, dimension#3\n" + Palette(Button("preBt3")));
    EXPECT_EQ(FirstLineOf(1), "M@D");
    EXPECT_EQ(FirstLineOf(3), "M@D");
    EXPECT_EQ(LinesOf("ProDimensionTextSet").size(), 2u);
    EXPECT_EQ(LinesOf("ProDwgSheetRegenerate").size(), 2u);
    EXPECT_TRUE(LinesOf("ProSelect").empty());
}

TEST_F(DimModify, WithoutASelectionDimensionsArePickedUntilTheUserEndsIt) {
    Length();
    Length();
    Record(Palette(Button("preBt1") + PickDimension(2) + PickDimension(1) + "@ quit\n"));
    EXPECT_EQ(FirstLineOf(1), "R@D");
    EXPECT_EQ(FirstLineOf(2), "R@D");
    EXPECT_EQ(LinesOf("ProSelect").size(), 3u);
    EXPECT_EQ(LinesOf("ProDwgSheetRegenerate").size(), 2u);
    EXPECT_NE(LinesOf("ProSelect")[0].find(
                  "\"dimension\", most=1, initial=null, functions=null, environment=null"),
              std::string::npos)
        << LinesOf("ProSelect")[0];
}

TEST_F(DimModify, APickOfNothingEndsThePicking) {
    Length();
    Play(Palette(Button("preBt1") + PickDimension(1) + "@ pick nothing\n" + Button("MirTolBt1") +
                 "@ pick nothing\n"));
    EXPECT_EQ(FirstLineOf(1), "R@D");
    EXPECT_EQ(DimensionOf(1).tolerance, PRO_TOL_DEFAULT);
}

TEST_F(DimModify, AReadableBufferOfNoItemsDoesNothingAtAll) {
    Length();
    Record("@ selection empty\n" + Palette(Button("preBt1") + Button("upTolBt1")));
    EXPECT_FALSE(DimensionOf(1).text);
    EXPECT_TRUE(LinesOf("ProSelect").empty());
    EXPECT_TRUE(LinesOf("ProDwgSheetRegenerate").empty());
}

TEST_F(DimModify, OnlyButtonsThatKeepTheTextDropTheSelection) {
    Length();
    const auto selected = [&] { return host().session.selections.buffer().size(); };
    for (const char* button : {"preBt1", "preBt10", "upTolBt1", "MirTolBt1", "downTolBt13"}) {
        Play("@ select dimension#1\n" + Palette(Button(button)));
        EXPECT_EQ(selected(), 1u) << button;
    }
    for (const char* button : {"preBt11", "sufBt1", "sufBt2"}) {
        Play("@ select dimension#1\n" +
             Palette(Type("numInput", "4") + Type("depthInput", "5") + Button(button)));
        EXPECT_EQ(selected(), 0u) << button;
    }
}

TEST_F(DimModify, AfterPickingTheBufferIsNotCleared) {
    Length();
    Record(Palette(Button("sufBt1") + PickDimension(1) + "@ quit\n"));
    EXPECT_TRUE(LinesOf("ProSelbufferClear").empty());
}

TEST_F(DimModify, BetweenTwoButtonsTheUserCanSelect) {
    Length();
    Length();
    Play(Palette("@ select dimension#1\n" + Button("preBt3") + "@ select dimension#2\n" +
                 Button("preBt6")));
    EXPECT_EQ(FirstLineOf(1), "M@D");
    EXPECT_EQ(FirstLineOf(2), "t@D");
}

// --- The order of calls ---

TEST_F(DimModify, DrawingAndSheetAreReadBeforeTheSelection) {
    Length();
    EXPECT_EQ(CallsOf(Type("numInput", "4") + Button("preBt11")),
              (Names{"ProMdlCurrentGet", "ProDrawingCurrentSheetGet", "ProUIInputpanelValueGet",
                     "ProSelbufferSelectionsGet", "ProArraySizeGet", "ProSelectionModelitemGet",
                     "ProDimensionTextGet", "ProArrayAlloc", "ProDimensionTextSet", "ProArrayFree",
                     "ProDwgSheetRegenerate", "ProArrayFree", "ProSelbufferClear"}));
    EXPECT_EQ(CallsOf(Type("depthInput", "4") + Button("sufBt2")),
              (Names{"ProMdlCurrentGet", "ProDrawingCurrentSheetGet", "ProUIInputpanelValueGet",
                     "ProSelbufferSelectionsGet", "ProArraySizeGet", "ProSelectionModelitemGet",
                     "ProDimensionTextGet", "ProArraySizeGet", "ProArrayFree", "ProArrayAlloc",
                     "ProDimensionTextSet", "ProArrayFree", "ProDwgSheetRegenerate", "ProArrayFree",
                     "ProSelbufferClear"}));
}

TEST_F(DimModify, DrawingAndSheetAreReadBeforeTheArrayOfAFixedTextIsMade) {
    Length();
    EXPECT_EQ(
        CallsOf(Button("preBt1")),
        (Names{"ProMdlCurrentGet", "ProDrawingCurrentSheetGet", "ProArrayAlloc",
               "ProSelbufferSelectionsGet", "ProArraySizeGet", "ProSelectionModelitemGet",
               "ProDimensionTextSet", "ProDwgSheetRegenerate", "ProArrayFree", "ProArrayFree"}));
}

TEST_F(DimModify, AFixedTextIsOneArrayForAllDimensions) {
    Length();
    Length();
    Record("@ select dimension#1, dimension#2\n" + Palette(Button("preBt2")));
    ASSERT_EQ(LinesOf("ProArrayAlloc").size(), 1u);
    EXPECT_NE(LinesOf("ProArrayAlloc")[0].find("objects=1, objectSize=162, step=1"),
              std::string::npos)
        << LinesOf("ProArrayAlloc")[0];
    EXPECT_TRUE(LinesOf("ProDimensionTextGet").empty());
    EXPECT_NE(LinesOf("ProDimensionTextSet")[0].find("\\x01n\\x02@D"), std::string::npos)
        << LinesOf("ProDimensionTextSet")[0];
}

TEST_F(DimModify, ATypeALabelOfZerosAndTheValuesComeInThisOrder) {
    Length();
    Record("@ select dimension#1\n" + Palette(Button("upTolBt1")));
    Names calls;
    for (const std::string& name : NamesOfCalls()) {
        if (name.rfind("ProDim", 0) == 0 || name == "ProDwgSheetRegenerate") calls.push_back(name);
    }
    EXPECT_EQ(calls, (Names{"ProDimensionToltypeSet", "ProDimensionTollabelSet",
                            "ProDimensionToleranceSet", "ProDwgSheetRegenerate"}));
    EXPECT_NE(LinesOf("ProDimensionTollabelSet")[0].find("table=0, name=null, column=0"),
              std::string::npos)
        << LinesOf("ProDimensionTollabelSet")[0];
    EXPECT_NE(LinesOf("ProDwgSheetRegenerate")[0].find("drawing=sheet.drw, sheet=1"),
              std::string::npos)
        << LinesOf("ProDwgSheetRegenerate")[0];
}

// --- Failures ---

TEST_F(DimModify, AFailedDimensionDoesNotKeepTheNextFromItsChange) {
    Length();
    Length();
    Fail("ProDimensionTextSet");
    Play("@ select dimension#1, dimension#2\n" + Palette(Button("preBt1")));
    EXPECT_FALSE(DimensionOf(1).text);
    EXPECT_EQ(FirstLineOf(2), "R@D");
    for (const char* operation :
         {"ProDimensionToltypeSet", "ProDimensionTollabelSet", "ProDwgSheetRegenerate"}) {
        Fail(operation);
        DimensionOf(2).upper = 0;
        Play("@ select dimension#1, dimension#2\n" + Palette(Button("upTolBt5")));
        EXPECT_EQ(DimensionOf(1).upper, 0.1) << operation;
        EXPECT_EQ(DimensionOf(2).upper, 0.1) << operation;
    }
}

TEST_F(DimModify, WhereTheSheetIsNotKnownTheChangeIsMadeAndNoSheetRegenerated) {
    Length();
    Fail("ProDrawingCurrentSheetGet");
    Record("@ select dimension#1\n" + Palette(Button("preBt1")));
    EXPECT_EQ(FirstLineOf(1), "R@D");
    EXPECT_EQ(LinesOf("ProDwgSheetRegenerate"),
              Names{"ProDwgSheetRegenerate(drawing=sheet.drw, sheet=0) = -2"});
}

TEST_F(DimModify, AFailedReadOfTheTextCountsAsNoText) {
    Length();
    SetText(1, {WIDE("R@D")});
    Fail("ProDimensionTextGet");
    Play("@ select dimension#1\n" + Palette(Button("sufBt1")));
    EXPECT_EQ(FirstLineOf(1), "@DEQS");
}

TEST_F(DimModify, WithoutRoomForATextNothingIsWritten) {
    Length();
    Play("@ select dimension#1\n~ Command `VxDimModify`\n~ Close `VxDimModify`\n");
    Fail("ProArrayAlloc", {.n = 1, .forGood = true});
    Play(Palette(Button("preBt1") + Button("sufBt1")));
    EXPECT_FALSE(DimensionOf(1).text);
}

TEST_F(DimModify, AnyOtherStatusThanZeroOfTheSelectionLeadsToPicking) {
    Length();
    Fail("ProSelbufferSelectionsGet", {.n = 1, .forGood = false, .status = PRO_TK_BAD_CONTEXT});
    Play("@ select dimension#1\n" + Palette(Button("preBt1") + "@ quit\n"));
    EXPECT_FALSE(DimensionOf(1).text);
}

TEST_F(DimModify, IsGreyOutsideDrawings) {
    Play("@ expect available VxDimModify\n");
    Open(*block_);
    Play("@ expect greyed VxDimModify\n");
}

}  // namespace
