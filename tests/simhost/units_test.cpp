// Models of different units: what going over to another system does to them, how they fit together,
// and what pictures, the screen and drawings show of them.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

#include "hostapi/host.h"
#include "simhost/model/csys.h"
#include "simhost/model/drawing.h"
#include "simhost/model/material.h"
#include "simhost/model/model_file.h"
#include "simhost/model/picking.h"
#include "simhost/model/projection.h"
#include "simhost/model/regeneration.h"
#include "simhost/model/screen_view.h"
#include "simhost/model/sheet_metal.h"
#include "simhost/model/solid_features.h"
#include "simhost/model/units.h"
#include "simhost/picture/isometric.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using Names = std::vector<std::string>;

constexpr double kInch = 25.4;

// --- A model that goes over to another system ---

class Units : public workbench::Workbench {
protected:
    static const UnitSystem& System(const Model& model, const char* unit) {
        for (const UnitSystem& each : model.units.systems) {
            if (each.units[kLengthPlace]->name == Wide(unit)) return each;
        }
        throw std::invalid_argument(unit);
    }
    static void Set(Model& model, const char* unit, Conversion conversion,
                    bool withParameters = false) {
        SetPrincipalSystem(model, System(model, unit), conversion, withParameters);
    }
    static Vec3 SizeInMm(const Model& model) {
        const Extents box = ExtentsIn(model, Placement(), Sight::Measures);
        return box.high - box.low;
    }
    static void ExpectNear(Vec3 found, Vec3 wanted) {
        EXPECT_NEAR(found.x, wanted.x, 1e-9 * (1 + std::fabs(wanted.x)));
        EXPECT_NEAR(found.y, wanted.y, 1e-9 * (1 + std::fabs(wanted.y)));
        EXPECT_NEAR(found.z, wanted.z, 1e-9 * (1 + std::fabs(wanted.z)));
    }
    // TOP with SUB 100 mm to the right, in which the part (10 x 20 x 30) is 50 mm further back.
    Model& TwoLevels() {
        Model& top = Assembly("top");
        Model& sub = Assembly("sub");
        Use(top, sub).placement = PlacementFrom({100, 0, 0}, {0, 0, 90});
        Use(sub, Part("plate")).placement = PlacementFrom({0, 50, 0}, {});
        return top;
    }
    Model& Of(const char* file) { return *host().session.FindByFile(file); }
    ProAsmcomppath PathToPlate(Model& top) {
        ProIdTable ids = {top.features()[0].id, Of("sub.asm").features()[0].id, -1};
        ProAsmcomppath path{};
        EXPECT_EQ(ProAsmcomppathInit(static_cast<ProSolid>(top.handle), ids, 2, &path),
                  PRO_TK_NO_ERROR);
        return path;
    }
    static std::array<double, 6> OutlineOf(Model& model) {
        Pro3dPnt corners[2] = {};
        EXPECT_EQ(ProSolidOutlineGet(static_cast<ProSolid>(model.handle), corners),
                  PRO_TK_NO_ERROR);
        return {corners[0][0], corners[0][1], corners[0][2],
                corners[1][0], corners[1][1], corners[1][2]};
    }
    static Vec3 Through(ProAsmcomppath path, ProBoolean bottomUp, Vec3 point) {
        ProMatrix transform{};
        EXPECT_EQ(ProAsmcomppathTrfGet(&path, bottomUp, transform), PRO_TK_NO_ERROR);
        ProVector from = {point.x, point.y, point.z}, to{};
        ProPntTrfEval(from, transform, to);
        return {to[0], to[1], to[2]};
    }
};

TEST_F(Units, ANewModelIsInMillimetresAndHoldsSixSystems) {
    Names names;
    for (const UnitSystem& each : Part("plate").units.systems) names.push_back(Utf8(each.name));
    EXPECT_EQ(names, (Names{"Millimeter Kilogram Sec (mmKs)", "centimeter Gram Second (CGS)",
                            "millimeter Newton Second (mmNs)", "meter Kilogram Second (MKS)",
                            "inch Pound Second (IPS)", "foot Pound Second (FPS)"}));
    const double lengths[] = {1, 10, 1, 1000, 25.4, 304.8};
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(UsualSystems()[i].LengthInMm(), lengths[i]);
        const Quantity second = UsualSystems()[i].units[kMassOrForcePlace]->quantity;
        EXPECT_TRUE(AreUnitsOfASystem(UsualSystems()[i].units, second));
    }
    EXPECT_EQ(LengthUnit(Of("plate.prt")), 1);
}

TEST_F(Units, SameSizeKeepsThePartAndSameDimensionsKeepsItsNumbers) {
    Model& part = Part("plate");
    Set(part, "in", Conversion::SameSize);
    EXPECT_EQ(part.partData.solids[0].size, (Vec3{10 / kInch, 20 / kInch, 30 / kInch}));
    ExpectNear(SizeInMm(part), {10, 20, 30});
    Set(part, "mm", Conversion::SameSize);
    EXPECT_EQ(part.partData.solids[0].size, (Vec3{10, 20, 30}));
    Set(part, "in", Conversion::SameDimensions);
    EXPECT_EQ(part.partData.solids[0].size, (Vec3{10, 20, 30}));
    ExpectNear(SizeInMm(part), {254, 508, 762});
}

TEST_F(Units, TheOutlineIsInTheModelsOwnUnit) {
    Model& part = Part("plate");
    Set(part, "cm", Conversion::SameSize);
    EXPECT_EQ(OutlineOf(part), (std::array<double, 6>{0, 0, 0, 1, 2, 3}));
    Set(part, "in", Conversion::SameDimensions);
    EXPECT_EQ(OutlineOf(part), (std::array<double, 6>{0, 0, 0, 1, 2, 3}));
}

TEST_F(Units, SurfacesAreMeasuredAnewAndKeepTheirHandles) {
    Model& part = Part("plate");
    std::vector<ProSurface> handles;
    for (const auto& surface : part.Surfaces()) handles.push_back(surface->handle);
    const auto widest = [&] {
        double x = 0;
        for (const ProSurface handle : handles) {
            ProGeomitemdata* data = nullptr;
            EXPECT_EQ(ProSurfaceDataGet(handle, &data), PRO_TK_NO_ERROR);
            x = std::max(x, data->data.p_surface_data->xyz_max[0]);
            ProGeomitemdataFree(&data);
        }
        return x;
    };
    EXPECT_EQ(widest(), 10);
    Set(part, "cm", Conversion::SameSize);
    EXPECT_EQ(widest(), 1);
    Set(part, "in", Conversion::SameDimensions);
    EXPECT_EQ(widest(), 1);
}

TEST_F(Units, TheMassFollowsTheSize) {
    Model& part = Part("plate");
    PutMaterial(&part, {.name = WIDE("steel"), .title = {}, .density = 7850});
    part.partData.material = WIDE("steel");
    // 10 x 20 x 30 mm are 6000 mm3.
    EXPECT_NEAR(*MassOf(part), 0.0471, 1e-12);
    Set(part, "in", Conversion::SameSize);
    EXPECT_NEAR(*MassOf(part), 0.0471, 1e-12);
    Set(part, "cm", Conversion::SameSize);
    Set(part, "m", Conversion::SameDimensions);
    EXPECT_NEAR(*MassOf(part), 47100, 1e-6);
}

TEST_F(Units, TheLengthsOfASheetAndOfItsBendTableAreConverted) {
    Model& part = SheetMetal("cover");
    auto& sheet = part.partData.sheetMetal;
    sheet.thickness = 2;
    sheet.flats = {30, 40};
    sheet.bends = {{3, 90}};
    sheet.table = {WIDE("table"), {}, {1, 3}, {2, 4}, {{5, 7}, {6, 8}}};
    sheet.developed = DevelopedLength(sheet);
    // A radius of 3 between 2 and 4, a thickness of 2 between 1 and 3: the mean of all four.
    EXPECT_NEAR(sheet.developed, 76.5, 1e-12);
    Set(part, "cm", Conversion::SameSize);
    EXPECT_EQ(sheet.thickness, 0.2);
    EXPECT_EQ(sheet.flats, (std::vector<double>{3, 4}));
    EXPECT_EQ(sheet.bends[0].radius, 0.3);
    EXPECT_EQ(sheet.bends[0].angle, 90);
    EXPECT_EQ(sheet.table.length[1][1], 0.8);
    EXPECT_NEAR(sheet.developed, 7.65, 1e-12);
    EXPECT_NEAR(DevelopedLength(sheet), 7.65, 1e-12);
    Set(part, "in", Conversion::SameDimensions);
    EXPECT_NEAR(DevelopedLength(sheet), 7.65, 1e-12);
}

TEST_F(Units, AGroupIsMadeAnewInTheSizeThatItHad) {
    Model& part = Part("plate", 0);
    Feature csys;
    csys.type = PRO_FEAT_CSYS;
    csys.placement = PlacementFrom({5, 0, 0}, {});
    const int frame = CsysIdOf(part.AddFeature(csys));
    Group block = ReadGroupText(R"(
        [group]
        name = "block"
        [[reference]]
        prompt = "frame"
        [[dimension]]
        name = "L"
        value = 10
        [[solid]]
        shape = "box"
        size = ["L", "L", "2 * L"]
        )",
                                "block.gph");
    block.references[0].csysId = frame;
    PlaceGroup(part, block);
    Regenerate(part);
    ExpectNear(SizeInMm(part), {10, 10, 20});
    Set(part, "cm", Conversion::SameSize);
    Regenerate(part);
    ExpectNear(SizeInMm(part), {10, 10, 20});
    EXPECT_EQ(part.partData.solids[0].at, (Vec3{0.5, 0, 0}));
    Set(part, "in", Conversion::SameDimensions);
    Regenerate(part);
    ExpectNear(SizeInMm(part), {25.4, 25.4, 50.8});
}

TEST_F(Units, AMergeIsMadeAnewWhereItWas) {
    Model& target = Part("target");
    Model& source = Part("source");
    PlaceMerge(target, WIDE("merge"),
               {"source.prt", &source, PlacementFrom({100, 0, 0}, {}), PlacementFrom({}, {})});
    const auto size = [&] {
        Regenerate(target);
        return SizeInMm(target);
    };
    ExpectNear(size(), {110, 20, 30});
    Set(target, "cm", Conversion::SameSize);
    ExpectNear(size(), {110, 20, 30});
    Set(source, "in", Conversion::SameSize);
    ExpectNear(size(), {110, 20, 30});
    // Both ten times as large: what was merged is ten times as far away, too.
    Set(target, "mm", Conversion::SameSize);
    Set(source, "mm", Conversion::SameSize);
    Set(target, "cm", Conversion::SameDimensions);
    Set(source, "cm", Conversion::SameDimensions);
    ExpectNear(size(), {1100, 200, 300});
}

TEST_F(Units, TheSystemInForceChangesNothingEitherWay) {
    Model& part = Part("plate");
    part.modified = false;
    const std::string before = ModelText(part);
    Set(part, "mm", Conversion::SameSize);  // the first that is in mm, which is another one
    EXPECT_EQ(part.partData.solids[0].size, (Vec3{10, 20, 30}));
    EXPECT_TRUE(part.modified);
    Set(part, "in", Conversion::SameSize);
    const std::string inches = ModelText(part);
    part.modified = false;
    Set(part, "in", Conversion::SameDimensions);
    Set(part, "in", Conversion::SameSize);
    EXPECT_EQ(ModelText(part), inches);
    EXPECT_FALSE(part.modified);
    EXPECT_NE(inches, before);
}

// --- Models of different units together ---

TEST_F(Units, APartInInchesBelowAnAssemblyInMillimetresIsPlacedRight) {
    Model& top = TwoLevels();
    const Vec3 before = SizeInMm(top);
    // Quarter turned: 20 wide, 10 deep, 30 high.
    ExpectNear(before, {20, 10, 30});
    Set(Of("plate.prt"), "in", Conversion::SameSize);
    ExpectNear(SizeInMm(top), before);
    Set(Of("sub.asm"), "m", Conversion::SameSize);
    ExpectNear(SizeInMm(top), before);
    Set(top, "ft", Conversion::SameSize);
    ExpectNear(SizeInMm(top), before);
    const Extents box = ExtentsIn(top, Placement(), Sight::Measures);
    // The part lies at (100 - 50, 0), turned: from -20 to 0 of there.
    ExpectNear(box.low, {30, 0, 0});
    ExpectNear(box.high, {50, 10, 30});
}

TEST_F(Units, APlacementBelongsToTheModelThatHoldsIt) {
    Model& top = TwoLevels();
    Set(top, "in", Conversion::SameSize);
    EXPECT_EQ(top.features()[0].placement.origin, (Vec3{100 / kInch, 0, 0}));
    EXPECT_EQ(Of("sub.asm").features()[0].placement.origin, (Vec3{0, 50, 0}));
    Set(top, "mm", Conversion::SameSize);
    Set(top, "in", Conversion::SameDimensions);
    EXPECT_EQ(top.features()[0].placement.origin, (Vec3{100, 0, 0}));
    // SUB is now 100 in away, and as large as before.
    const Extents box = ExtentsIn(top, Placement(), Sight::Measures);
    ExpectNear(box.low, {2540 - 70, 0, 0});
    ExpectNear(box.high - box.low, {20, 10, 30});
}

TEST_F(Units, TheOrderInWhichModelsAreConvertedDoesNotMatter) {
    const char* const files[] = {"top.asm", "sub.asm", "plate.prt"};
    const int orders[][3] = {{0, 1, 2}, {2, 1, 0}, {1, 2, 0}};
    for (const Conversion conversion : {Conversion::SameDimensions, Conversion::SameSize}) {
        std::string first;
        for (const auto& order : orders) {
            for (Model* model : host().session.All()) host().session.Erase(*model);
            Model& top = TwoLevels();
            for (const int i : order) Set(Of(files[i]), "in", conversion);
            ExpectNear(SizeInMm(top), conversion == Conversion::SameSize
                                          ? Vec3{20, 10, 30}
                                          : kInch * Vec3{20, 10, 30});
            std::string all;
            for (const char* file : files) all += ModelText(Of(file));
            if (first.empty()) first = all;
            EXPECT_EQ(all, first);
        }
    }
}

TEST_F(Units, ThereAndBackGivesTheSameFiles) {
    Model& top = TwoLevels();
    const auto all = [&] { return ModelText(top) + ModelText(Of("sub.asm")); };
    const std::string before = all();
    for (const char* unit : {"in", "m", "ft", "cm"}) {
        for (Model* model : {&top, &Of("sub.asm")}) Set(*model, unit, Conversion::SameSize);
        EXPECT_NE(all(), before);
    }
    for (Model* model : {&top, &Of("sub.asm")}) {
        SetPrincipalSystem(*model, model->units.systems[kUsualPrincipal], Conversion::SameSize,
                           false);
    }
    EXPECT_EQ(all(), before);
}

TEST_F(Units, ThePathsMatrixCarriesTheFactorBothWays) {
    Model& top = TwoLevels();
    const ProAsmcomppath path = PathToPlate(top);
    // (1, 2, 3) mm of the part: (1, 52, 3) in SUB, (-52, 1, 3) turned, (48, 1, 3) in TOP.
    ExpectNear(Through(path, PRO_B_TRUE, {1, 2, 3}), {48, 1, 3});
    Set(Of("plate.prt"), "in", Conversion::SameSize);
    ExpectNear(Through(path, PRO_B_TRUE, {1 / kInch, 2 / kInch, 3 / kInch}), {48, 1, 3});
    ExpectNear(Through(path, PRO_B_FALSE, {48, 1, 3}), {1 / kInch, 2 / kInch, 3 / kInch});
    Set(top, "cm", Conversion::SameSize);
    Set(Of("sub.asm"), "ft", Conversion::SameSize);
    ExpectNear(Through(path, PRO_B_TRUE, {1 / kInch, 2 / kInch, 3 / kInch}), {4.8, 0.1, 0.3});
    ExpectNear(Through(path, PRO_B_FALSE, {4.8, 0.1, 0.3}), {1 / kInch, 2 / kInch, 3 / kInch});
}

TEST_F(Units, AConstrainedComponentStaysWhereItIsWhateverTheUnits) {
    Model& top = Assembly("top");
    Model& plate = Part("plate");
    const auto addCsys = [](Model& model, Vec3 at) {
        Feature csys;
        csys.type = PRO_FEAT_CSYS;
        csys.placement = PlacementFrom(at, {});
        return CsysIdOf(model.AddFeature(csys));
    };
    const int target = addCsys(top, {100, 0, 0}), own = addCsys(plate, {0, 20, 0});
    Feature& used = Use(top, plate);
    const int id = used.id;
    used.constraints.emplace();
    used.constraints->push_back({PRO_ASM_CSYS, ConstraintReference{{}, PRO_CSYS, target},
                                 ConstraintReference{{}, PRO_CSYS, own}});
    const auto place = [&] {
        Regenerate(top);
        return LengthUnit(top) * top.FindFeature(id)->placement.origin;
    };
    ExpectNear(place(), {100, -20, 0});
    Set(plate, "in", Conversion::SameSize);
    ExpectNear(place(), {100, -20, 0});
    Set(top, "cm", Conversion::SameSize);
    ExpectNear(place(), {100, -20, 0});
    // The part's coordinate system is 12 times as far from its origin.
    Set(plate, "ft", Conversion::SameDimensions);
    ExpectNear(place(), {100, -240, 0});
}

TEST_F(Units, AManufacturingModelMeasuresItsAssemblyInItsOwnUnit) {
    Model& top = TwoLevels();
    Model& mill = Manufacturing("mill", top);
    Set(mill, "cm", Conversion::SameSize);
    EXPECT_EQ(LengthUnit(mill), 10);
    EXPECT_EQ(LengthUnit(top), 1);
    ExpectNear(SizeInMm(mill), {20, 10, 30});
}

// --- Pictures, the screen and drawings ---

TEST_F(Units, ThePictureOfAPartIsTheSameInAnyUnit) {
    Model& part = Part("plate");
    Solid gear;
    gear.shape = Shape::Gear;
    gear.id = 100;
    gear.teeth = 21;
    gear.module = 2.5;
    gear.width = 18;
    gear.at = {40, 0, 0};
    part.partData.solids.push_back(gear);
    const std::string before = IsometricSvg(part, 600);
    for (const char* unit : {"in", "m", "cm"}) {
        Set(part, unit, Conversion::SameSize);
        EXPECT_EQ(IsometricSvg(part, 600), before) << unit;
    }
}

TEST_F(Units, ThePictureTellsTheScaleOfALargerPart) {
    Model& part = Part("plate");
    const std::string before = IsometricSvg(part, 600);
    Set(part, "in", Conversion::SameDimensions);
    const std::string after = IsometricSvg(part, 600);
    // The box is (10 + 20 + 2 * 30) / 2.449 mm high in the view, and 552 * 1.25 points are
    // free: 18.78 points a mm, at 96 points an inch 4.97 times the size of life; then a 25.4th of
    // that.
    const auto tells = [](const std::string& picture, const char* scale) {
        return picture.find(std::string("比例 ") + scale + '<') != std::string::npos;
    };
    EXPECT_TRUE(tells(before, "4.9 : 1"));
    EXPECT_TRUE(tells(after, "1 : 5.2"));
}

TEST_F(Units, TheScreenGoesOnShowingWhatItShowed) {
    Model& part = Part("plate");
    const auto onScreen = [&](Vec3 p) {
        const ProMatrix& m = ScreenOf(part).matrix;
        return Vec3{p.x * m[0][0] + p.y * m[1][0] + p.z * m[2][0] + m[3][0],
                    p.x * m[0][1] + p.y * m[1][1] + p.z * m[2][1] + m[3][1], 0};
    };
    const Vec3 corner = onScreen({10, 20, 30});
    Set(part, "in", Conversion::SameSize);
    ExpectNear(onScreen({10 / kInch, 20 / kInch, 30 / kInch}), corner);
    // Without a view of its own yet, it comes as large.
    part.screen.reset();
    ExpectNear(onScreen({10 / kInch, 20 / kInch, 30 / kInch}), corner);
    part.screen.reset();
    Set(part, "ft", Conversion::SameDimensions);
    ExpectNear(onScreen({10 / kInch, 20 / kInch, 30 / kInch}), corner);
}

TEST_F(Units, ABoxOnTheScreenTakesWhatIsSeenInItWhateverTheUnits) {
    Model& top = Assembly("top");
    Use(top, Part("plate"));
    Open(top);
    const auto taken = [&] {
        Picking picking(host().session, "part", -1, /*byBox=*/true);
        picking.TakeBox({0, 0, kScreenWidth, kScreenHeight});
        return picking.taken().size();
    };
    EXPECT_EQ(taken(), 1u);
    Set(Of("plate.prt"), "in", Conversion::SameSize);
    EXPECT_EQ(taken(), 1u);
    Set(top, "m", Conversion::SameSize);
    EXPECT_EQ(taken(), 1u);
    Set(Of("plate.prt"), "ft", Conversion::SameDimensions);  // twelve times as large: out of it
    EXPECT_EQ(taken(), 0u);
}

class DrawnUnits : public Units {
protected:
    void SetUp() override {
        part_ = &Part("plate");
        sheet_ = &host().session.Create(WIDE("plate"), PRO_MDL_DRAWING);
        sheet_->drawingData.sheets = {WIDE("A3")};
        // From above, at 1:2: 5 wide and 10 high on the sheet.
        view_ = &DrawingOf(*sheet_).AddGeneral(*part_, 1, {100, 80, 0}, 0.5, Placement());
    }
    Vec3 SizeOnSheet() {
        DrawingOf(*sheet_).Regenerate(*view_);
        const Extents& box = DrawingOf(*sheet_).OutlineOf(*view_);
        return box.high - box.low;
    }
    Vec3 MiddleOnSheet() {
        const Extents& box = DrawingOf(*sheet_).OutlineOf(*view_);
        return 0.5 * (box.low + box.high);
    }
    Model *part_ = nullptr, *sheet_ = nullptr;
    DrawingView* view_ = nullptr;
};

TEST_F(DrawnUnits, AViewOfAPartThatKeepsItsSizeStays) {
    ExpectNear(SizeOnSheet(), {5, 10, 0});
    const auto lines = ProjectedLines(*part_, DrawingOf(*sheet_).FrameOf(*view_), false).size();
    Set(*part_, "in", Conversion::SameSize);
    ExpectNear(SizeOnSheet(), {5, 10, 0});
    ExpectNear(MiddleOnSheet(), {100, 80, 0});
    EXPECT_EQ(ProjectedLines(*part_, DrawingOf(*sheet_).FrameOf(*view_), false).size(), lines);
}

TEST_F(DrawnUnits, AViewOfAPartThatGrowsGrowsAboutItsMiddle) {
    Set(*part_, "in", Conversion::SameDimensions);
    ExpectNear(SizeOnSheet(), {127, 254, 0});
    ExpectNear(MiddleOnSheet(), {100, 80, 0});
}

TEST_F(DrawnUnits, TheViewsTransformTakesPointsInThePartsUnit) {
    Set(*part_, "in", Conversion::SameSize);
    ProMatrix there{}, back{};
    ASSERT_EQ(ProDrawingViewTransformGet(static_cast<ProDrawing>(sheet_->handle), view_->handle,
                                         PRO_B_TRUE, there),
              PRO_TK_NO_ERROR);
    ASSERT_EQ(ProDrawingViewTransformGet(static_cast<ProDrawing>(sheet_->handle), view_->handle,
                                         PRO_B_FALSE, back),
              PRO_TK_NO_ERROR);
    // The corner (10, 20) mm is (5, 10) from the part's middle, half as much on the sheet.
    ProVector corner = {10 / kInch, 20 / kInch, 15 / kInch}, on{}, again{};
    ProPntTrfEval(corner, there, on);
    EXPECT_NEAR(on[0], 102.5, 1e-9);
    EXPECT_NEAR(on[1], 85, 1e-9);
    ProPntTrfEval(on, back, again);
    EXPECT_NEAR(again[0], corner[0], 1e-9);
    EXPECT_NEAR(again[1], corner[1], 1e-9);
}

}  // namespace
