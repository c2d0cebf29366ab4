// Model files: what is written reads back as the same model, and a slip of the pen is named with
// its file and line.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>

#include "simhost/core/text.h"
#include "simhost/model/model_file.h"

using namespace simhost;

namespace {

Model Read(const std::string& text) {
    Model model;
    ReadModelText(text, "trial.prt.1", &model);
    return model;
}

// What the reader says about a text; empty if it takes it.
std::string Complaint(const std::string& text) {
    try {
        Read(text);
    } catch (const ModelFileError& error) {
        return error.what();
    }
    return "";
}

// The complaint about a line that a good part gets at its end (line 3 on).
std::string PartWith(const std::string& rest) {
    return Complaint("[model]\ntype = \"part\"\n" + rest);
}
std::string AssemblyWith(const std::string& rest) {
    return Complaint("[model]\ntype = \"assembly\"\n" + rest);
}

bool Same(Vec3 a, Vec3 b, double within = 0) {
    return std::fabs(a.x - b.x) <= within && std::fabs(a.y - b.y) <= within &&
           std::fabs(a.z - b.z) <= within;
}

bool Same(const ProdbSurfaceProps& a, const ProdbSurfaceProps& b) {
    return a.ambient == b.ambient && a.diffuse == b.diffuse && a.highlight == b.highlight &&
           a.shininess == b.shininess && a.reserved == b.reserved &&
           a.transparency == b.transparency && a.reflection == b.reflection &&
           std::equal(a.colour, a.colour + 3, b.colour) &&
           std::equal(a.highlightColour, a.highlightColour + 3, b.highlightColour);
}

void ExpectSame(const Solid& a, const Solid& b) {
    EXPECT_EQ(a.id, b.id);
    EXPECT_EQ(a.shape, b.shape);
    EXPECT_TRUE(Same(a.at, b.at));
    EXPECT_TRUE(Same(a.turn, b.turn));
    EXPECT_TRUE(Same(a.size, b.size));
    EXPECT_EQ(a.diameter, b.diameter);
    EXPECT_EQ(a.top, b.top);
    EXPECT_EQ(a.outer, b.outer);
    EXPECT_EQ(a.inner, b.inner);
    EXPECT_EQ(a.length, b.length);
    EXPECT_EQ(a.module, b.module);
    EXPECT_EQ(a.width, b.width);
    EXPECT_EQ(a.bore, b.bore);
    EXPECT_EQ(a.teeth, b.teeth);
    EXPECT_EQ(a.outline, b.outline);
    EXPECT_EQ(a.height, b.height);
}

void ExpectSame(const Feature& a, const Feature& b) {
    EXPECT_EQ(a.id, b.id);
    EXPECT_EQ(a.type, b.type);
    EXPECT_EQ(a.flags, b.flags);
    EXPECT_EQ(a.status, b.status);
    EXPECT_EQ(a.visible, b.visible);
    EXPECT_EQ(a.hidden, b.hidden);
    EXPECT_TRUE(a.name == b.name);
    EXPECT_EQ(a.file, b.file);
    EXPECT_TRUE(Same(a.placement.origin, b.placement.origin));
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_TRUE(Same(a.placement.axes[i], b.placement.axes[i], 1e-11));
    }
}

void ExpectSame(const Model& a, const Model& b) {
    EXPECT_EQ(a.type, b.type);
    EXPECT_EQ(a.subtype, b.subtype);
    EXPECT_EQ(a.title, b.title);
    EXPECT_EQ(a.partData.skeleton, b.partData.skeleton);
    EXPECT_EQ(a.manufacturingData.assemblyFile, b.manufacturingData.assemblyFile);
    ASSERT_EQ(a.appearance.has_value(), b.appearance.has_value());
    if (a.appearance) {
        EXPECT_TRUE(Same(*a.appearance, *b.appearance));
    }
    ASSERT_EQ(a.partData.solids.size(), b.partData.solids.size());
    for (std::size_t i = 0; i < a.partData.solids.size(); ++i)
        ExpectSame(a.partData.solids[i], b.partData.solids[i]);
    ASSERT_EQ(a.partData.surfaceAppearances.size(), b.partData.surfaceAppearances.size());
    for (const auto& [id, props] : a.partData.surfaceAppearances) {
        ASSERT_TRUE(b.partData.surfaceAppearances.count(id)) << id;
        EXPECT_TRUE(Same(props, b.partData.surfaceAppearances.at(id))) << id;
    }
    ASSERT_EQ(a.features().size(), b.features().size());
    for (std::size_t i = 0; i < a.features().size(); ++i) {
        ExpectSame(a.features()[i], b.features()[i]);
    }
}

void ExpectRoundTrip(const Model& model) {
    const std::string text = ModelText(model);
    const Model again = Read(text);
    ExpectSame(model, again);
    EXPECT_EQ(ModelText(again), text);  // saving what was read changes nothing
}

Solid NewSolid(int id, Shape shape) {
    Solid solid;
    solid.id = id;
    solid.shape = shape;
    return solid;
}

// A part with every shape, numbers that are awkward in decimals, and colours of its own.
Model RichPart() {
    Model part;
    part.type = PRO_MDL_PART;
    part.subtype = PROMDLSTYPE_PART_SHEETMETAL;
    part.title = "箱体 \"big\" \\ one\ttab\nline\x01";
    part.partData.skeleton = true;
    part.appearance = DefaultAppearance();
    part.appearance->ambient = 0.1;
    part.appearance->diffuse = 0.2;
    part.appearance->highlight = 1.0 / 3;
    part.appearance->shininess = 0.45;
    part.appearance->reserved = 0.5;
    part.appearance->transparency = 0.6;
    part.appearance->reflection = 0.7;
    part.appearance->colour[1] = 0.123456789;
    part.appearance->highlightColour[2] = 0;

    part.partData.solids.push_back(NewSolid(10, Shape::Box));
    part.partData.solids.back().size = {0.1, 1.0 / 3, 1e-7};
    part.partData.solids.back().at = {-1.5, 0, 1e20};
    part.partData.solids.back().turn = {0, 12.345, -90};
    part.partData.solids.push_back(NewSolid(20, Shape::Cylinder));
    part.partData.solids.back().diameter = 10;
    part.partData.solids.back().length = 123456789012345680.0;
    part.partData.solids.push_back(NewSolid(30, Shape::Tube));
    part.partData.solids.back().outer = 12;
    part.partData.solids.back().inner = 11.999;
    part.partData.solids.back().length = 5;
    part.partData.solids.push_back(NewSolid(40, Shape::Cone));
    part.partData.solids.back().diameter = 12;
    part.partData.solids.back().length = 5;
    part.partData.solids.push_back(NewSolid(50, Shape::Gear));
    part.partData.solids.back().module = 1.25;
    part.partData.solids.back().teeth = 33;
    part.partData.solids.back().width = 5;
    part.partData.solids.back().bore = 8;
    part.partData.solids.push_back(NewSolid(300, Shape::Prism));
    part.partData.solids.back().outline = {{0, 0}, {10, 0}, {10, 2.5}, {0.1, 2.5}};
    part.partData.solids.back().height = 4;
    part.partData.surfaceAppearances[11] = DefaultAppearance();
    part.partData.surfaceAppearances[305] = DefaultAppearance();
    part.partData.surfaceAppearances[305].transparency = 1;
    return part;
}

Feature Component(int id, const std::string& file, Placement placement) {
    Feature feature;
    feature.id = id;
    feature.type = PRO_FEAT_COMPONENT;
    feature.file = file;
    feature.placement = placement;
    return feature;
}

Model RichAssembly() {
    Model assembly;
    assembly.type = PRO_MDL_ASSEMBLY;
    assembly.title = "减速箱";
    Feature datum;
    datum.id = 1;
    datum.type = 979;
    datum.name = WIDE("ASM_DEF_CSYS");
    datum.visible = false;
    assembly.AddFeature(datum);
    assembly.AddFeature(Component(40, "housing.prt", PlacementFrom({1, 2.5, -3}, {})));
    assembly.AddFeature(Component(39, "输入轴.prt", PlacementFrom({}, {12.3456, -45, 170})));
    assembly.AddFeature(Component(41, "up.prt", PlacementFrom({0, 0, 7}, {30, 90, 0})));
    const Vec3 odd{1.0 / 3, 2.0 / 7, 77.7777777};
    assembly.AddFeature(Component(42, "odd.asm", PlacementFrom({}, odd)));
    assembly.MutableFeatures()[1].hidden = assembly.MutableFeatures()[1].hiddenInFile = true;
    assembly.MutableFeatures()[1].flags = -5;
    assembly.MutableFeatures()[1].name = WIDE("左 \"a\"");
    int id = 100;
    for (const ProFeatStatus status :
         {PRO_FEAT_INACTIVE, PRO_FEAT_FAMTAB_SUPPRESSED, PRO_FEAT_SIMPREP_SUPPRESSED,
          PRO_FEAT_PROG_SUPPRESSED, PRO_FEAT_SUPPRESSED, PRO_FEAT_UNREGENERATED}) {
        assembly.AddFeature(Component(id++, "pin.prt", {}));
        assembly.MutableFeatures().back().status = status;
    }
    return assembly;
}

}  // namespace

TEST(ModelFile, AWrittenPartReadsBackAsTheSame) {
    ExpectRoundTrip(RichPart());
}

TEST(ModelFile, AWrittenAssemblyReadsBackAsTheSame) {
    ExpectRoundTrip(RichAssembly());
}

TEST(ModelFile, TheOtherKindsReadBackAsTheSame) {
    for (const ProMdlType type : {PRO_MDL_MFG, PRO_MDL_DRAWING, PRO_MDL_DWGFORM, PRO_MDL_PART}) {
        Model model;
        model.type = type;
        if (type == PRO_MDL_PART) model.subtype = PROMDLSTYPE_PART_SOLID;
        if (type == PRO_MDL_MFG) model.manufacturingData.assemblyFile = "gearbox.asm";
        model.title = "加工";
        ExpectRoundTrip(model);
    }
}

TEST(ModelFile, EveryAngleReadsBackAsTheSamePlacement) {
    for (double x = -170; x <= 180; x += 35) {
        for (double y = -90; y <= 90; y += 22.5) {
            for (double z = -165; z <= 180; z += 43.7) {
                Model model;
                model.type = PRO_MDL_ASSEMBLY;
                model.AddFeature(Component(1, "a.prt", PlacementFrom({}, {x, y, z})));
                ExpectRoundTrip(model);
            }
        }
    }
}

TEST(ModelFile, HasItsLinesInOrderAndSaysOnlyWhatIsNotAsUsual) {
    Model model;
    model.type = PRO_MDL_ASSEMBLY;
    model.title = "底座";
    model.appearance = DefaultAppearance();
    model.appearance->transparency = 0.25;
    model.AddFeature(Component(3, "foot.prt", PlacementFrom({10, 0, -0.5}, {0, 0, 30})));
    model.AddFeature(Component(4, "foot.prt", {}));
    model.MutableFeatures()[1].status = PRO_FEAT_SUPPRESSED;
    EXPECT_EQ(ModelText(model),
              "[model]\n"
              "type = \"assembly\"\n"
              "title = \"底座\"\n"
              "\n"
              "[appearance]\n"
              "transparency = 0.25\n"
              "\n"
              "[[feature]]\n"
              "id = 3\n"
              "type = 1000\n"
              "model = \"foot.prt\"\n"
              "at = [10, 0, -0.5]\n"
              "turn = [0, 0, 30]\n"
              "\n"
              "[[feature]]\n"
              "id = 4\n"
              "type = 1000\n"
              "status = \"suppressed\"\n"
              "model = \"foot.prt\"\n");
}

TEST(ModelFile, WritesTheNameThatAComponentsModelHasNow) {
    Model part;
    part.type = PRO_MDL_PART;
    part.name = WIDE("FOOT_NEW");
    Model assembly;
    assembly.type = PRO_MDL_ASSEMBLY;
    assembly.AddFeature(Component(1, "foot.prt", {})).model = &part;
    EXPECT_NE(ModelText(assembly).find("model = \"foot_new.prt\""), std::string::npos);

    assembly.name = WIDE("BOX2");
    Model work;
    work.type = PRO_MDL_MFG;
    work.manufacturingData.assemblyFile = "box.asm";
    work.manufacturingData.assembly = &assembly;
    EXPECT_NE(ModelText(work).find("assembly = \"box2.asm\""), std::string::npos);
}

TEST(ModelFile, TakesWhatAPersonWrites) {
    const Model part = Read(
        "\xef\xbb\xbf# 箱体: the lower half\r\n"
        "[model]\r\ntype = 'part' # plain\r\nsubtype = \"solid\"\r\n"
        "[[solid]]\r\nid = 10\r\nshape = \"box\"\r\nsize = [1, 2.0, 3e1]\r\n"
        "[[surface]]\r\nid = 12\r\ncolor = [1, 0, 0.5]\r\n");
    EXPECT_EQ(part.type, PRO_MDL_PART);
    EXPECT_EQ(part.subtype, PROMDLSTYPE_PART_SOLID);
    EXPECT_EQ(part.title, "");
    EXPECT_FALSE(part.appearance.has_value());
    EXPECT_TRUE(part.features().empty());
    ASSERT_EQ(part.partData.solids.size(), 1u);
    EXPECT_TRUE(Same(part.partData.solids[0].size, {1, 2, 30}));
    // What is not said about an appearance is as on a new part.
    ASSERT_EQ(part.partData.surfaceAppearances.size(), 1u);
    const ProdbSurfaceProps& props = part.partData.surfaceAppearances.at(12);
    EXPECT_EQ(props.colour[0], 1);
    EXPECT_EQ(props.colour[2], 0.5);
    EXPECT_EQ(props.ambient, DefaultAppearance().ambient);
    EXPECT_EQ(props.transparency, 0);
}

TEST(ModelFile, PlacesComponentsAsTheyAreWritten) {
    const Model assembly = Read(
        "model = { type = \"assembly\" }\n"
        "[[feature]]\nid = 7\ntype = 1000\nmodel = \"a.prt\"\nat = [1, 2, 3]\nturn = [0, 0, 90]\n");
    ASSERT_EQ(assembly.features().size(), 1u);
    const Feature& feature = assembly.features()[0];
    EXPECT_EQ(feature.file, "a.prt");
    EXPECT_EQ(feature.model, nullptr);
    EXPECT_EQ(feature.status, PRO_FEAT_ACTIVE);
    EXPECT_TRUE(feature.visible);
    EXPECT_FALSE(feature.hidden);
    EXPECT_TRUE(Same(feature.placement.Point({10, 0, 0}), {1, 12, 3}));
}

TEST(ModelFile, NamesTheFileAndTheLineOfASlip) {
    EXPECT_EQ(PartWith("\n[[feature]]\nid = 1\ntype = 917\nnmae = \"X\"\n"),
              "trial.prt.1:7: unknown key \"nmae\"");
    EXPECT_EQ(Complaint("[model]\ntype = \"part\"\ncolour = 1\n"),
              "trial.prt.1:3: unknown key \"colour\"");
    EXPECT_EQ(Complaint("[model]\ntype = \"part\"\n\n[sloid]\n"),
              "trial.prt.1:4: unknown key \"sloid\"");
    EXPECT_EQ(PartWith("[appearance]\ncolour = [1, 0, 0]\n"),
              "trial.prt.1:4: unknown key \"colour\"");
    EXPECT_EQ(PartWith("[[solid]]\nid = 10\nshape = \"box\"\nsize = [1, 1, 1]\nlength = 5\n"),
              "trial.prt.1:7: unknown key \"length\"");
    EXPECT_EQ(PartWith("[[solid]]\nid=1\nshape=\"box\"\nsize=[1,1,1]\n[[surface]]\nid=2\nsize=1\n"),
              "trial.prt.1:9: unknown key \"size\"");
    EXPECT_EQ(Complaint("[model]\ntype = \"manufacturing\"\n[manufacturing]\nassembly = \"a.asm\"\n"
                        "part = \"x\"\n"),
              "trial.prt.1:5: unknown key \"part\"");
}

TEST(ModelFile, NamesBrokenTextWithItsLine) {
    const std::string complaint = Complaint("[model]\ntype = \"part\"\ntitle = \"open\n");
    EXPECT_EQ(complaint.rfind("trial.prt.1:3: ", 0), 0u) << complaint;
    const std::string twice = Complaint("[model]\ntype = \"part\"\ntype = \"part\"\n");
    EXPECT_EQ(twice.rfind("trial.prt.1:3: ", 0), 0u) << twice;
    EXPECT_NE(Complaint("[model]\ntype = \"part\"\ntitle = \"\xff\xfe\"\n"), "");
    EXPECT_EQ(Complaint(""), "trial.prt.1:1: the table [model] is missing");
    EXPECT_EQ(Complaint("# a title only\n"), "trial.prt.1:1: the table [model] is missing");
}

TEST(ModelFile, NamesAWordThatItDoesNotKnow) {
    EXPECT_EQ(Complaint("[model]\ntype = \"prat\"\n"),
              "trial.prt.1:2: unknown model type \"prat\"");
    EXPECT_EQ(PartWith("subtype = \"bulk\"\n"), "trial.prt.1:3: unknown subtype \"bulk\"");
    EXPECT_EQ(PartWith("[[solid]]\nid = 10\nshape = \"sphere\"\n"),
              "trial.prt.1:5: unknown shape \"sphere\"; there are box, cylinder, tube, cone, gear, "
              "prism, imported");
    EXPECT_EQ(PartWith("[[feature]]\nid = 1\ntype = 917\nstatus = \"asleep\"\n"),
              "trial.prt.1:6: unknown status \"asleep\"");
}

TEST(ModelFile, NamesAValueOfTheWrongKind) {
    EXPECT_EQ(Complaint("[model]\ntype = 2\n"), "trial.prt.1:2: \"type\" must be a text in quotes");
    EXPECT_EQ(Complaint("model = 1\n"), "trial.prt.1:1: \"model\" must be a table: [model]");
    EXPECT_EQ(PartWith("title = 5\n"), "trial.prt.1:3: \"title\" must be a text in quotes");
    EXPECT_EQ(PartWith("skeleton = \"yes\"\n"),
              "trial.prt.1:3: \"skeleton\" must be true or false");
    EXPECT_EQ(PartWith("[feature]\nid = 1\n"),
              "trial.prt.1:3: \"feature\" must be a list of tables: [[feature]]");
    EXPECT_EQ(Complaint("solid = [1]\n[model]\ntype = \"part\"\n"),
              "trial.prt.1:1: \"solid\" must be a list of tables: [[solid]]");
    EXPECT_EQ(PartWith("[[feature]]\nid = \"1\"\ntype = 917\n"),
              "trial.prt.1:4: \"id\" must be a whole number, at least 1");
    EXPECT_EQ(PartWith("[[feature]]\nid = 1.5\ntype = 917\n"),
              "trial.prt.1:4: \"id\" must be a whole number, at least 1");
    EXPECT_EQ(PartWith("[[feature]]\nid = 0\ntype = 917\n"),
              "trial.prt.1:4: \"id\" must be a whole number, at least 1");
    EXPECT_EQ(PartWith("[[feature]]\nid = 3000000000\ntype = 917\n"),
              "trial.prt.1:4: \"id\" must be a whole number, at least 1");
    EXPECT_EQ(PartWith("[[feature]]\nid = 1\ntype = 917\nflags = true\n"),
              "trial.prt.1:6: \"flags\" must be a whole number");
    EXPECT_EQ(PartWith("[appearance]\ntransparency = \"0.5\"\n"),
              "trial.prt.1:4: \"transparency\" must be a number");
    EXPECT_EQ(PartWith("[appearance]\ntransparency = nan\n"),
              "trial.prt.1:4: \"transparency\" must be a number");
    EXPECT_EQ(PartWith("[appearance]\ncolor = [1, 0]\n"),
              "trial.prt.1:4: \"color\" must be a list of 3 numbers");
    EXPECT_EQ(PartWith("[appearance]\ncolor = [255, 0, 0]\n"),
              "trial.prt.1:4: \"color\" must be between 0 and 1");
    EXPECT_EQ(AssemblyWith("[[feature]]\nid=1\ntype=1000\nmodel=\"a.prt\"\nat = [1, 2, \"3\"]\n"),
              "trial.prt.1:7: \"at\" must be a number");
}

TEST(ModelFile, NamesWhatIsMissing) {
    EXPECT_EQ(Complaint("[model]\ntitle = \"x\"\n"), "trial.prt.1:1: \"type\" is missing");
    EXPECT_EQ(PartWith("[[feature]]\ntype = 917\n"), "trial.prt.1:3: \"id\" is missing");
    EXPECT_EQ(PartWith("[[feature]]\nid = 1\n"), "trial.prt.1:3: \"type\" is missing");
    EXPECT_EQ(AssemblyWith("\n[[feature]]\nid = 1\ntype = 1000\n"),
              "trial.prt.1:4: \"model\" is missing");
    EXPECT_EQ(PartWith("[[solid]]\nid = 1\nshape = \"tube\"\nouter = 5\nlength = 4\n"),
              "trial.prt.1:3: \"inner\" is missing");
    EXPECT_EQ(Complaint("[model]\ntype = \"manufacturing\"\n[manufacturing]\n"),
              "trial.prt.1:3: \"assembly\" is missing");
}

TEST(ModelFile, NamesWhatIsThereTwice) {
    EXPECT_EQ(PartWith("[[feature]]\nid = 4\ntype = 917\n[[feature]]\nid = 4\ntype = 916\n"),
              "trial.prt.1:7: the feature 4 is there twice");
    const std::string box = "shape = \"box\"\nsize = [1, 1, 1]\n";
    const std::string look = "[[surface]]\nid = 11\n";
    EXPECT_EQ(PartWith("[[solid]]\nid = 10\n" + box + look + look),
              "trial.prt.1:10: the surface 11 is there twice");
    EXPECT_EQ(PartWith("[[solid]]\nid = 10\n" + box + "[[solid]]\nid = 15\n" + box),
              "trial.prt.1:8: this solid has the surfaces 16 to 21, and the solid 10 has some of "
              "them too");
    EXPECT_EQ(PartWith("[[solid]]\nid = 10\n" + box + "[[solid]]\nid = 10\n" + box),
              "trial.prt.1:8: this solid has the surfaces 11 to 16, and the solid 10 has some of "
              "them too");
    EXPECT_EQ(PartWith("[[solid]]\nid = 10\n" + box + "[[solid]]\nid = 16\n" + box), "");
    EXPECT_EQ(PartWith("[[solid]]\nid = 16\n" + box + "[[solid]]\nid = 10\n" + box), "");
    EXPECT_EQ(PartWith("[[solid]]\nid = 10\n" + box + "[[surface]]\nid = 17\n"),
              "trial.prt.1:8: no solid has a surface 17");
}

TEST(ModelFile, NamesWhatBelongsToAnotherKindOfModel) {
    const std::string box = "[[solid]]\nid = 10\nshape = \"box\"\nsize = [1, 1, 1]\n";
    EXPECT_EQ(AssemblyWith(box),
              "trial.prt.1:3: \"solid\" belongs only in a model of type \"part\"");
    EXPECT_EQ(AssemblyWith("subtype = \"sheetmetal\"\n"),
              "trial.prt.1:3: \"subtype\" belongs only in a model of type \"part\"");
    EXPECT_EQ(PartWith("[manufacturing]\nassembly = \"a.asm\"\n"),
              "trial.prt.1:3: \"manufacturing\" belongs only in a model of type \"manufacturing\"");
    EXPECT_EQ(PartWith("[[feature]]\nid = 1\ntype = 917\nat = [1, 2, 3]\n"),
              "trial.prt.1:6: \"at\" is only for components (type 1000), coordinate systems (type "
              "979), datum planes (type 923), datum axes (type 926), datum points (type 931)");
}

TEST(ModelFile, NamesSizesThatMakeNoSolid) {
    const auto solid = [](const std::string& rest) { return PartWith("[[solid]]\nid=1\n" + rest); };
    EXPECT_EQ(solid("shape = \"box\"\nsize = [1, 0, 1]\n"),
              "trial.prt.1:6: \"size\" must be more than 0");
    EXPECT_EQ(solid("shape = \"cone\"\ndiameter = 4\ntop = -1\nlength = 2\n"),
              "trial.prt.1:7: \"top\" must not be less than 0");
    EXPECT_EQ(solid("shape = \"cone\"\nlength = 2\n"),
              "trial.prt.1:3: \"diameter\" and \"top\" must not both be 0");
    EXPECT_EQ(solid("shape = \"tube\"\nouter = 4\ninner = 4\nlength = 2\n"),
              "trial.prt.1:7: \"inner\" must be less than \"outer\"");
    EXPECT_EQ(solid("shape = \"gear\"\nmodule = 2\nteeth = 2\nwidth = 5\n"),
              "trial.prt.1:7: \"teeth\" must be a whole number, at least 3");
    // Ten teeth of module 2: the root circle is 15.
    EXPECT_EQ(solid("shape = \"gear\"\nmodule = 2\nteeth = 10\nwidth = 5\nbore = 15\n"),
              "trial.prt.1:9: \"bore\" cuts the teeth off");
    EXPECT_EQ(solid("shape = \"gear\"\nmodule = 2\nteeth = 10\nwidth = 5\nbore = 14.9\n"), "");
}

TEST(ModelFile, NamesOutlinesThatEncloseNoPlainArea) {
    const auto outline = [](const std::string& points) {
        return PartWith("[[solid]]\nid=1\nshape=\"prism\"\nheight = 1\noutline = " + points + "\n");
    };
    const std::string start = "trial.prt.1:7: \"outline\" ";
    EXPECT_EQ(outline("[[0, 0], [4, 0], [4, 4], [2, 1], [0, 4]]"), "");
    EXPECT_EQ(outline("[[0, 0], [2, 0], [4, 0], [4, 4]]"), "");  // a point on a straight side
    EXPECT_EQ(outline("[[0, 0], [4, 0]]"), start + "needs three points or more");
    EXPECT_EQ(outline("[[0, 0], [0, 4], [4, 0]]"), start + "must be counter-clockwise");
    EXPECT_EQ(outline("[[0, 0], [4, 4], [4, 0], [0, 4]]"), start + "crosses itself");
    EXPECT_EQ(outline("[[0, 0], [4, 0], [4, 0], [0, 4]]"), start + "has the same point twice");
    EXPECT_EQ(outline("[[0, 0], [4, 0], [2, 0]]"), start + "runs back over itself");
    EXPECT_EQ(outline("[[0, 0], [4, 0], [4, 4], [2, 0], [0, 4]]"), start + "crosses itself");
    EXPECT_EQ(outline("5"), start + "must be a list of points [x, y]");
    EXPECT_EQ(outline("[[0, 0, 0], [4, 0], [4, 4]]"), start + "must be a list of 2 numbers");
}

TEST(ModelFile, FiftyThousandComponentsReadWithoutAWait) {
    Model assembly;
    assembly.type = PRO_MDL_ASSEMBLY;
    for (int i = 1; i <= 50000; ++i) {
        const Vec3 at{i * 0.5, i % 7 * 1.25, 3}, turn{0, 0, double(i % 360)};
        assembly.AddFeature(Component(i, "bolt_m8x30.prt", PlacementFrom(at, turn)));
    }
    const std::string text = ModelText(assembly);
    const auto start = std::chrono::steady_clock::now();
    const Model again = Read(text);
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    ASSERT_EQ(again.features().size(), 50000u);
    EXPECT_TRUE(Same(again.features()[49999].placement.origin, {25000, 50000 % 7 * 1.25, 3}));
    RecordProperty("milliseconds", int(seconds.count() * 1000));
    EXPECT_LT(seconds.count(), 20);  // catches a quadratic slip even under the sanitizers
}
