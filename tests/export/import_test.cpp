// Projects made of STEP files: the same masses, boxes, names and places as in the file, with every
// command at work on them; and files that are refused without a trace.
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>

#include "simhost/core/disk.h"
#include "simhost/kernel/exchange.h"
#include "simhost/kernel/import.h"
#include "simhost/kernel/kernel.h"
#include "simhost/model/imported_body.h"
#include "simhost/model/model_file.h"
#include "simhost/model/shape.h"
#include "simhost/model/shown.h"
#include "simhost/model/units.h"
#include "simhost/trail/interpreter.h"
#include "tests/support/places.h"
#include "tests/support/solids.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::ExpectBox;
using workbench::MakeModels;
using workbench::ModelNamed;
namespace fs = std::filesystem;

class ImportedProjects : public workbench::Workbench {
protected:
    void SetUp() override {
        if (!kernel::TheKernel()) GTEST_SKIP() << "there is no geometry kernel";
        work_ = host().disk.Real(WIDE("C:\\Work"));
    }
    // Writes the model as STEP, makes a project of that, and forgets all models.
    Imported Import(const Model& model) {
        const fs::path file = work_.parent_path() / "given.stp";
        WriteFile(file, kernel::TheKernel()->Step(DocumentOf(model, nullptr)));
        Imported made = ImportStep(file, work_.parent_path() / "Project");
        for (Model* each : host().session.All()) host().session.Erase(*each);
        host().session.workingDirectory = WIDE("C:\\Project");
        return made;
    }
    // A part that is a cylinder of 20 x 30, off its origin.
    static Model& Pin() {
        Model& pin = MakeModels("plate");
        Solid& solid = pin.partData.solids.front();
        solid.shape = Shape::Cylinder;
        solid.diameter = 20;
        solid.length = 30;
        solid.at = {5, 6, 7};
        return pin;
    }
    Model& Retrieve(const std::string& file) {
        Model* model = host().session.Retrieve(file);
        if (!model) throw std::runtime_error("there is no " + file);
        return *model;
    }
    void ExpectRefused(const fs::path& file, const std::string& why) {
        const fs::path folder = work_.parent_path() / "Refused";
        try {
            ImportStep(file, folder);
            ADD_FAILURE() << file << " is taken";
        } catch (const std::runtime_error& error) {
            EXPECT_NE(std::string(error.what()).find(why), std::string::npos) << error.what();
        }
        EXPECT_FALSE(fs::exists(folder));
    }
    fs::path work_;
};

struct Measures {
    double volume = 0;
    Extents box;
    std::size_t parts = 0;
};
Measures MeasuresOf(const Model& top) {
    Measures measures;
    for (const ShownPart& each : ShownParts(top, Sight::Measures)) {
        measures.volume += VolumeInMm3(*each.part);
        const Extents box = ExtentsIn(each.part->shape(), each.placement);
        measures.box.Add(box.low);
        measures.box.Add(box.high);
        ++measures.parts;
    }
    return measures;
}
void ExpectSame(const Measures& a, const Measures& b, double slack) {
    EXPECT_EQ(a.parts, b.parts);
    EXPECT_NEAR(a.volume / b.volume, 1, 1e-6);
    ExpectBox(a.box, b.box.low, b.box.high, slack);
}

TEST_F(ImportedProjects, AreTheGearboxAgainAndCanBeWrittenOnceMore) {
    for (const auto& entry :
         fs::directory_iterator(fs::path(workbench::kSourceFolder) / "samples" / "gearbox")) {
        if (entry.is_regular_file()) fs::copy(entry.path(), work_);
    }
    const Model& gearbox = Retrieve("gearbox.asm");
    const Measures before = MeasuresOf(gearbox);
    const Imported made = Import(gearbox);
    EXPECT_EQ(made.top, "gearbox.asm");
    EXPECT_GT(made.parts, 10);
    EXPECT_GT(made.assemblies, 2);
    const Model& again = Retrieve("gearbox.asm");
    // Round faces that stand askew are measured by their facets.
    ExpectSame(MeasuresOf(again), before, 0.05);
    EXPECT_TRUE(host().session.TakeMissing().empty());
    // Once more in a file: each model is one product.
    const std::string text = kernel::TheKernel()->Step(DocumentOf(again, nullptr));
    int products = 0;
    for (std::size_t at = text.find("= PRODUCT("); at != std::string::npos;
         at = text.find("= PRODUCT(", at + 1)) {
        ++products;
    }
    EXPECT_EQ(products, made.parts + made.assemblies);
}

TEST_F(ImportedProjects, KeepNamesPlacesAndColours) {
    Model& top = MakeModels("top: 齿轮 x2, sub(plate, 齿轮)");
    top.MutableFeatures()[1].placement = PlacementFrom({0, 0, 100}, {90, 0, 0});
    ProdbSurfaceProps red = DefaultAppearance();
    red.colour[0] = 1;
    red.colour[1] = red.colour[2] = 0;
    ModelNamed("plate").appearance = red;
    Import(top);
    Model& again = Retrieve("top.asm");
    ASSERT_EQ(again.features().size(), 3u);
    EXPECT_EQ(again.features()[0].model, again.features()[1].model);
    EXPECT_EQ(again.features()[0].model->name, WIDE("齿轮"));
    const Placement place = again.features()[1].placement;
    EXPECT_NEAR(place.origin.z, 100, 1e-9);
    EXPECT_NEAR(place.axes[1].z, 1, 1e-9);
    const Model& plate = ModelNamed("plate");
    ASSERT_TRUE(plate.appearance);
    EXPECT_EQ(plate.appearance->colour[0], 1);
    EXPECT_EQ(plate.appearance->colour[1], 0);
    EXPECT_NEAR(VolumeInMm3(plate), 6000, 1e-6);
    EXPECT_EQ(plate.shape().faces.size(), 6u);
    EXPECT_EQ(plate.shape().edges.size(), 12u);
    EXPECT_EQ(plate.shape().vertices.size(), 8u);
}

TEST_F(ImportedProjects, HaveNamesThatTheHostTakesEachOnce) {
    kernel::Document document;
    document.products.resize(5);
    Solid box;
    box.size = {1, 1, 1};
    const std::string names[] = {"a/b", "x.y", "X_Y", std::string(40, 'n'), ""};
    for (std::size_t i = 0; i < 5; ++i) {
        document.products[i].name = names[i];
        if (i == 0) continue;
        document.products[i].solids = {box};
        document.products[0].occurrences.push_back({i, names[i], {}, {}});
    }
    const fs::path file = work_.parent_path() / "names.stp";
    WriteFile(file, kernel::TheKernel()->Step(document));
    const Imported made = ImportStep(file, work_);
    EXPECT_EQ(made.top, "a_b.asm");
    std::vector<std::string> files;
    for (const auto& entry : fs::directory_iterator(work_)) {
        files.push_back(entry.path().filename().string());
    }
    std::sort(files.begin(), files.end());
    EXPECT_EQ(files, (std::vector<std::string>{"a_b.asm.1", std::string(32, 'n') + ".prt.1",
                                               "part.prt.1", "x_y.prt.1", "x_y_2.prt.1"}));
}

TEST_F(ImportedProjects, OpenWithoutTheKernelAndKeepTheirExactShapeThroughASave) {
    Import(Pin());
    Model& plate = Retrieve("plate.prt");
    const std::string exact = plate.partData.solids[0].body->exact;
    EXPECT_FALSE(exact.empty());
    const std::string text = ModelText(plate);
    Model again;
    ReadModelText(text, "plate.prt", &again);
    EXPECT_EQ(ModelText(again), text);
    EXPECT_EQ(again.partData.solids[0].body->exact, exact);
    EXPECT_NEAR(VolumeInMm3(again), VolumeInMm3(plate), 1e-9);
    // A copy, a renamed one and one of other units have it, too.
    const Model& copy = host().session.Copy(plate, WIDE("other"));
    EXPECT_EQ(copy.partData.solids[0].body->exact, exact);
    const double before = VolumeInMm3(plate);
    const UnitSystem& inches =
        *std::find_if(plate.units.systems.begin(), plate.units.systems.end(),
                      [](const UnitSystem& each) { return each.LengthInMm() == 25.4; });
    SetPrincipalSystem(plate, inches, Conversion::SameSize, false);
    EXPECT_NEAR(VolumeInMm3(plate), before, 1e-6);
    const fs::path file = work_ / "inches.stp";
    WriteFile(file, kernel::TheKernel()->Step(DocumentOf(plate, nullptr)));
    const auto read = kernel::TheKernel()->ReadStep(file.string());
    EXPECT_NEAR(VolumeOf(read.products[0].solids[0]), before, 1e-6);
}

TEST_F(ImportedProjects, AreWrittenInTheirNewSizeOnceTheyHaveOne) {
    Import(Pin());
    Model& plate = Retrieve("plate.prt");
    const double before = VolumeInMm3(plate);
    const UnitSystem& inches =
        *std::find_if(plate.units.systems.begin(), plate.units.systems.end(),
                      [](const UnitSystem& each) { return each.LengthInMm() == 25.4; });
    SetPrincipalSystem(plate, inches, Conversion::SameDimensions, false);
    EXPECT_NEAR(VolumeInMm3(plate) / before, std::pow(25.4, 3), 1e-6);
    const fs::path file = work_ / "large.stp";
    WriteFile(file, kernel::TheKernel()->Step(DocumentOf(plate, nullptr)));
    const auto read = kernel::TheKernel()->ReadStep(file.string());
    EXPECT_NEAR(VolumeOf(read.products[0].solids[0]) / VolumeInMm3(plate), 1, 1e-6);
}

TEST_F(ImportedProjects, AreNotMadeOfFilesThatAreNoneOrBroken) {
    Write(WIDE("C:\\Work\\empty.stp"), "");
    Write(WIDE("C:\\Work\\text.stp"), "solid cube\nendsolid\n");
    const std::string whole = kernel::TheKernel()->Step(DocumentOf(MakeModels("plate"), nullptr));
    Write(WIDE("C:\\Work\\half.stp"), whole.substr(0, whole.size() / 2));
    Write(WIDE("C:\\Work\\nothing.stp"),
          whole.substr(0, whole.find("DATA;")) + "DATA;\nENDSEC;\nEND-ISO-10303-21;\n");
    ExpectRefused(work_ / "missing.stp", "cannot read");
    ExpectRefused(work_ / "empty.stp", "it is no STEP file, or not all of one");
    ExpectRefused(work_ / "text.stp", "it is no STEP file, or not all of one");
    ExpectRefused(work_ / "half.stp", "it is no STEP file, or not all of one");
    ExpectRefused(work_ / "nothing.stp", "nothing.stp: ");
}

TEST_F(ImportedProjects, LeaveAFolderAloneThatHoldsSomethingAndNothingOnAFullDisk) {
    const fs::path file = work_.parent_path() / "given.stp";
    WriteFile(file, kernel::TheKernel()->Step(DocumentOf(MakeModels("top: a, b"), nullptr)));
    Write(WIDE("C:\\Work\\mine.txt"), "mine");
    EXPECT_THROW(ImportStep(file, work_), std::runtime_error);
    EXPECT_EQ(std::distance(fs::directory_iterator(work_), fs::directory_iterator()), 1);
    LimitDisk(2000);  // enough for the assembly, not for its parts
    ExpectRefused(file, "cannot write");
    LimitDisk({});
}

TEST(RecordsOfImportedSolids, ThatLeadNowhereAreNoneAndAreTold) {
    const std::string face = "f 0 0 0 0 0 0 1 0 0 0 0 0 0 1 1 0 0 1 2\n";
    const std::string points = "p 0 0 0\np 1 0 0\np 0 1 0\n";
    ImportedBody body;
    EXPECT_TRUE(ReadRecord(points + face + "l 0 0 0 0 0 1 0 0\nv 1.5\n", &body));
    EXPECT_EQ(body.faces.size(), 1u);
    EXPECT_EQ(body.edges.size(), 1u);
    EXPECT_EQ(body.volume, 1.5);
    for (const std::string& wrong :
         {points, face, points + face + "x 1\n", points + face + "l 0 1 0 0 0 1 0 0\n",
          points + face + "v\n", points + face + "v 1 2\n", points + "f 0 0 0\n", std::string()}) {
        ImportedBody other;
        EXPECT_FALSE(ReadRecord(wrong, &other)) << wrong;
    }
    const std::string file =
        "[model]\ntype = \"part\"\n[[solid]]\nid = 1\nshape = \"imported\"\n"
        "scale = 1\nrecord = \"nothing\"\n";
    Model model;
    try {
        ReadModelText(file, "a.prt", &model);
        ADD_FAILURE();
    } catch (const ModelFileError& error) {
        EXPECT_STREQ(error.what(), "a.prt:7: \"record\" is no record of an imported solid");
    }
}

TEST_F(ImportedProjects, AreMadeByAScriptToo) {
    const std::string step =
        kernel::TheKernel()->Step(DocumentOf(MakeModels("top: a x2"), nullptr));
    WriteFile(work_ / "given file.stp", step);
    std::string told;
    const auto failures = [&told](const std::string& line) {
        std::string all;
        for (const std::string& each :
             RunScript(line, [&](const std::string& said) { told += said + "\n"; })) {
            all += each;
        }
        return all;
    };
    EXPECT_EQ(failures("@ import given file.stp into C:\\New"), "");
    EXPECT_NE(told.find("    written: top.asm with 1 part and 1 assembly\n"), std::string::npos);
    EXPECT_TRUE(fs::exists(work_.parent_path() / "New" / "a.prt.1"));
    EXPECT_EQ(failures("@ import given file.stp"), "line 1: write import FILE into FOLDER");
    EXPECT_NE(failures("@ import gone.stp into C:\\Newer").find("cannot read"), std::string::npos);
    EXPECT_NE(failures("@ import given file.stp into C:\\New").find("is not empty"),
              std::string::npos);
    EXPECT_EQ(failures("@ import D:\\x.stp into C:\\Newer"), "line 1: there is no file D:\\x.stp");
    EXPECT_EQ(failures("@ import given file.stp into D:\\x"),
              "line 1: the folder D:\\x cannot be made");
}

// What a designer does first with a strange assembly.
TEST_F(ImportedProjects, AreColouredListedAndRenamedByTheCommands) {
    Import(MakeModels("top: bolt x3, sub(plate, bolt)"));
    Start();
    Play(
        "@ open top.asm\n"
        "@ setting VxRandomColorOpt value asUG\n"
        "~ Command `BatchColor`\n"
        "~ Command `VxBom`\n"
        "@ show tables\n"
        "~ Activate `VxBom` `Close`\n");
    EXPECT_TRUE(ModelNamed("bolt").appearance);
    EXPECT_TRUE(ModelNamed("plate").appearance);
    host().session.Rename(ModelNamed("bolt"), WIDE("螺栓"));
    EXPECT_EQ(ModelNamed("top").features()[0].model->name, WIDE("螺栓"));
}

}  // namespace
