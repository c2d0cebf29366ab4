// Exchange files as the geometry kernel reads them back: solids, the tree, names, places, colours,
// units, and what is left out.
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <set>

#include "simhost/core/disk.h"
#include "simhost/kernel/exchange.h"
#include "simhost/kernel/import.h"
#include "simhost/kernel/kernel.h"
#include "simhost/model/imported_body.h"
#include "simhost/model/output_records.h"
#include "simhost/model/shape.h"
#include "simhost/model/units.h"
#include "tests/support/solids.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using kernel::Document;
using kernel::Product;
using std::numbers::pi;
using workbench::BoxSolid;
using workbench::ConeSolid;
using workbench::CylinderSolid;
using workbench::GearSolid;
using workbench::MakeModels;
using workbench::ModelNamed;
using workbench::PrismSolid;
using workbench::TubeSolid;
namespace fs = std::filesystem;

class ExchangeFiles : public workbench::Workbench {
protected:
    void SetUp() override {
        if (!kernel::TheKernel()) GTEST_SKIP() << "there is no geometry kernel";
    }
    fs::path Place(const char* name) { return host().disk.Real(WIDE("C:\\Work")) / name; }
    Document Back(const Document& document) {
        WriteFile(Place("back.stp"), kernel::TheKernel()->Step(document));
        return kernel::TheKernel()->ReadStep(Place("back.stp").string());
    }
    Document BackFromIges(const Document& document) {
        WriteFile(Place("back.igs"), kernel::TheKernel()->Iges(document));
        return kernel::TheKernel()->ReadIges(Place("back.igs").string());
    }
    Document BackOf(const Model& model) { return Back(DocumentOf(model, nullptr)); }

    static const Product* Find(const Document& document, const std::string& name) {
        for (const Product& each : document.products) {
            if (each.name == name) return &each;
        }
        ADD_FAILURE() << "there is no product " << name;
        return nullptr;
    }
    static double VolumeOfAll(const Product& product) {
        double volume = 0;
        for (const Solid& solid : product.solids) volume += VolumeOf(solid);
        return volume;
    }
    static std::size_t FacesOf(const Product& product, FaceKind kind) {
        std::size_t count = 0;
        for (const Solid& solid : product.solids) {
            count += std::size_t(
                std::count_if(solid.body->faces.begin(), solid.body->faces.end(),
                              [kind](const ImportedFace& face) { return face.kind == kind; }));
        }
        return count;
    }
};

// Off its origin and lying.
Solid Tube() {
    Solid tube = TubeSolid(40, 30, 50);
    tube.at = {5, 6, 7};
    tube.turn = {0, 90, 0};
    return tube;
}

Solid Gear() {
    return GearSolid(2, 20, 10, 12, 200);
}

Document PartOf(std::vector<Solid> solids) {
    Document document;
    Product part;
    part.name = "PART";
    part.solids = std::move(solids);
    document.products.push_back(std::move(part));
    return document;
}

TEST_F(ExchangeFiles, HoldEverySolidExactly) {
    const Solid box = BoxSolid({10, 20, 30}), cylinder = CylinderSolid(20, 30);
    const Solid cone = ConeSolid(20, 10, 30), pointed = ConeSolid(20, 0, 30);
    // An L: 30 x 20 less 20 x 10.
    const Solid prism = PrismSolid({{0, 0}, {30, 0}, {30, 10}, {10, 10}, {10, 20}, {0, 20}}, 5);
    struct Row {
        Solid solid;
        double volume;
        std::size_t flat, cylinders, cones;
    };
    const std::vector<Row> rows = {
        {box, 6000, 6, 0, 0},
        {prism, 400 * 5, 8, 0, 0},
        {cylinder, pi * 100 * 30, 2, 1, 0},
        {cone, pi * 30 / 3 * (100 + 50 + 25), 2, 0, 1},
        {Tube(), pi * (400 - 225) * 50, 2, 2, 0},
    };
    for (const Row& row : rows) {
        const Document back = Back(PartOf({row.solid}));
        ASSERT_EQ(back.products.size(), 1u) << ShapeName(row.solid.shape);
        const Product& part = back.products[0];
        EXPECT_NEAR(VolumeOfAll(part), row.volume, 1e-4) << ShapeName(row.solid.shape);
        EXPECT_EQ(FacesOf(part, FaceKind::Plane), row.flat) << ShapeName(row.solid.shape);
        EXPECT_EQ(FacesOf(part, FaceKind::Cylinder), row.cylinders) << ShapeName(row.solid.shape);
        EXPECT_EQ(FacesOf(part, FaceKind::Cone), row.cones) << ShapeName(row.solid.shape);
    }
    EXPECT_NEAR(VolumeOfAll(Back(PartOf({pointed})).products[0]), pi * 30 / 3 * 100, 1e-4);
    const Document gear = Back(PartOf({Gear()}));
    EXPECT_NEAR(VolumeOfAll(gear.products[0]), VolumeOf(Gear()), 1e-3);
    EXPECT_EQ(FacesOf(gear.products[0], FaceKind::Plane), 82u);
    EXPECT_EQ(FacesOf(gear.products[0], FaceKind::Cylinder), 1u);
}

// The tube's axis is the part's x axis: it lies from 5 to 55 there, and 20 to each side.
TEST_F(ExchangeFiles, HaveTightBoxesWhenTheyAreReadAndHollowWalls) {
    const Document back = Back(PartOf({Tube()}));
    const PartShape shape = ShapeOf(back.products[0].solids);
    const Extents box = ExtentsIn(shape, {});
    EXPECT_NEAR(box.low.x, 5, 1e-6);
    EXPECT_NEAR(box.high.x, 55, 1e-6);
    EXPECT_NEAR(box.low.y, 6 - 20, 1e-6);
    EXPECT_NEAR(box.high.z, 7 + 20, 1e-6);
    std::set<double> hollow, outer;
    for (const ShapeFace& face : shape.faces) {
        if (face.kind == FaceKind::Cylinder) (face.hollow ? hollow : outer).insert(face.radius);
    }
    EXPECT_EQ(hollow, std::set<double>{15});
    EXPECT_EQ(outer, std::set<double>{20});
    EXPECT_EQ(shape.edges.size(), 4u);  // its rims
}

TEST_F(ExchangeFiles, KeepSeveralSolidsOfAPartSideBySide) {
    const Document back = Back(PartOf({Tube(), Gear()}));
    ASSERT_EQ(back.products.size(), 1u);
    EXPECT_EQ(back.products[0].solids.size(), 2u);
    EXPECT_NEAR(VolumeOfAll(back.products[0]), VolumeOf(Tube()) + VolumeOf(Gear()), 1e-3);
}

TEST_F(ExchangeFiles, HoldTheTreeWithNamesAndPlacesAndEachModelOnce) {
    Model& top = MakeModels("top: bolt x3, sub(bolt, 齿轮)");
    auto& features = top.MutableFeatures();
    features[1].placement = PlacementFrom({100, 0, 0}, {0, 0, 90});
    const Document back = BackOf(top);
    ASSERT_EQ(back.products.size(), 4u);
    EXPECT_EQ(back.products[0].name, "TOP");
    const Product* sub = Find(back, "SUB");
    ASSERT_TRUE(sub && Find(back, "齿轮"));
    EXPECT_EQ(sub->occurrences.size(), 2u);
    const auto& used = back.products[0].occurrences;
    ASSERT_EQ(used.size(), 4u);
    EXPECT_EQ(used[0].product, used[2].product);
    EXPECT_NEAR(used[1].place.origin.x, 100, 1e-9);
    EXPECT_NEAR(used[1].place.axes[0].y, 1, 1e-9);
    EXPECT_NEAR(used[1].place.axes[1].x, -1, 1e-9);
    EXPECT_EQ(used[1].name, "BOLT");
}

TEST_F(ExchangeFiles, LeaveOutWhatIsNotThere) {
    Model& top = MakeModels(
        "top: kept, off!suppressed, unseen!invisible, hidden!hidden, gone!missing, bone!skeleton");
    ModelNamed("bone").partData.solids.clear();
    EXPECT_EQ(DocumentOf(top, nullptr).products.size(), 4u);  // with HIDDEN and BONE
    const OutputInclusion nothing;
    EXPECT_EQ(DocumentOf(top, &nothing).products.size(), 3u);
    const OutputInclusion blanked{.blanked = true};
    EXPECT_EQ(DocumentOf(top, &blanked).products.size(), 4u);
    const Document back = BackOf(top);
    EXPECT_TRUE(Find(back, "KEPT") && Find(back, "HIDDEN"));
}

TEST_F(ExchangeFiles, HaveTheColoursOfPartsFacesAndCoveredParts) {
    Model& top = MakeModels("top: red, plain, faced");
    ProdbSurfaceProps paint = DefaultAppearance();
    const auto painted = [&](double r, double g, double b) {
        paint.colour[0] = r;
        paint.colour[1] = g;
        paint.colour[2] = b;
        return paint;
    };
    ModelNamed("red").appearance = painted(1, 0, 0);
    Model& faced = ModelNamed("faced");
    const int upper = faced.partData.solids[0].id + 6;  // of a box, the one that looks up
    faced.partData.surfaceAppearances[upper] = painted(0, 0.5, 1);
    const Document back = BackOf(top);
    const kernel::Colour red{1, 0, 0};
    EXPECT_EQ(Find(back, "RED")->colour, red);
    EXPECT_FALSE(Find(back, "PLAIN")->colour);
    const Product& read = *Find(back, "FACED");
    ASSERT_EQ(read.faceColours.size(), 1u);
    const auto& [surface, colour] = *read.faceColours.begin();
    EXPECT_NEAR(colour[1], 0.5, 1e-6);
    EXPECT_NEAR(colour[2], 1, 1e-6);
    const Extents box = read.solids[0].body->faces[std::size_t(surface) - 2].box;
    EXPECT_NEAR(box.low.z, 30, 1e-9);
    EXPECT_NEAR(box.high.z, 30, 1e-9);
    for (int each = 1; each <= 5; ++each) {
        faced.partData.surfaceAppearances[upper - each] = painted(0.1 * each, 1, 0);
    }
    ModelNamed("plain").appearance = faced.partData.surfaceAppearances[upper - 1];
    const std::string text = kernel::TheKernel()->Step(DocumentOf(top, nullptr));
    for (int i = 0; i < 10; ++i) {
        EXPECT_TRUE(text == kernel::TheKernel()->Step(DocumentOf(top, nullptr)));
    }
    top.appearance = painted(0, 1, 0);
    const kernel::Colour green{0, 1, 0};
    const Document covered = BackOf(top);
    EXPECT_EQ(covered.products[0].occurrences[1].colour, green);
}

TEST_F(ExchangeFiles, AreInTheUnitOfTheModelAndOfTheSameSize) {
    Model& plate = MakeModels("plate");
    plate.partData.solids.resize(1);
    plate.partData.solids[0].size = {1, 2, 3};
    for (std::size_t i = 0; i < plate.units.systems.size(); ++i) {
        if (LengthUnitName(plate) == WIDE("in")) break;
        plate.units.principal = i;
    }
    const double unit = LengthUnit(plate);
    const Document document = DocumentOf(plate, nullptr);
    const std::string text = kernel::TheKernel()->Step(document);
    EXPECT_NEAR(VolumeOfAll(Back(document).products[0]), 6 * unit * unit * unit, 1e-3) << unit;
    EXPECT_EQ(unit == 25.4, text.find("'INCH'") != std::string::npos) << document.unit;
    const std::string iges = kernel::TheKernel()->Iges(document);
    EXPECT_EQ(unit == 25.4, iges.find("4HINCH") != std::string::npos);
    EXPECT_NEAR(VolumeOfAll(BackFromIges(document).products[0]), 6 * unit * unit * unit, 1e-3);
}

TEST_F(ExchangeFiles, SayNothingOfWhereAndWhenTheyWereWrittenAndNoStrangeLetters) {
    const Document document = DocumentOf(MakeModels("大齿轮: 轴"), nullptr);
    const std::string text = kernel::TheKernel()->Step(document);
    EXPECT_TRUE(text == kernel::TheKernel()->Step(document));
    // 大 U+5927, 齿 U+9F7F, 轮 U+8F6E; 轴 U+8F74
    EXPECT_NE(text.find("'\\X2\\59279F7F8F6E\\X0\\'"), std::string::npos);
    EXPECT_NE(text.find("'\\X2\\8F74\\X0\\'"), std::string::npos);
    EXPECT_TRUE(std::all_of(text.begin(), text.end(),
                            [](char c) { return static_cast<unsigned char>(c) < 0x80; }));
    EXPECT_NE(text.find("FILE_NAME('','2000-01-01T00:00:00'"), std::string::npos);
    EXPECT_NE(text.find("AUTOMOTIVE_DESIGN"), std::string::npos);
    // What is told about an IGES file stands before its entities. The kernel takes names in the
    // order of their addresses, so two files may differ in their numbers.
    const auto told = [](const std::string& iges) { return iges.substr(0, iges.find("D0000001")); };
    const std::string iges = told(kernel::TheKernel()->Iges(document));
    EXPECT_NE(iges.find("15H20000101.000000"), std::string::npos);
    EXPECT_EQ(iges, told(kernel::TheKernel()->Iges(document)));
}

TEST_F(ExchangeFiles, HoldTheSameSolidsAsIges) {
    const Document exact = BackFromIges(PartOf({Tube()}));
    double volume = 0;
    for (const Product& product : exact.products) volume += VolumeOfAll(product);
    EXPECT_NEAR(volume, VolumeOf(Tube()), 1e-3);
    Document facetted = PartOf({Tube()});
    facetted.facetted = true;
    volume = 0;
    for (const Product& product : BackFromIges(facetted).products) volume += VolumeOfAll(product);
    // 32 facets of a circle have this much of its area.
    const double share = 32 / (2 * pi) * std::sin(2 * pi / 32);
    EXPECT_NEAR(volume, share * VolumeOf(Tube()), 1e-3);
}

}  // namespace
