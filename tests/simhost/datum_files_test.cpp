// Datums in the files of parts: their places and numbers, and what a file cannot say about them.
#include <gtest/gtest.h>

#include <string>

#include "simhost/model/datums.h"
#include "simhost/model/model_file.h"
#include "simhost/model/model_file_error.h"

namespace {

using namespace simhost;

// What is wrong with a file; empty: nothing.
std::string WrongWithDatums(const std::string& text) {
    Model model;
    try {
        ReadModelText(text, "trial.prt.1", &model);
    } catch (const ModelFileError& error) {
        return error.what();
    }
    return {};
}
std::string DatumsOfPart(const std::string& rest) {
    return WrongWithDatums("[model]\ntype = \"part\"\n" + rest);
}
std::string DatumsOfAssembly(const std::string& rest) {
    return WrongWithDatums("[model]\ntype = \"assembly\"\n" + rest);
}

TEST(DatumFiles, KeepsThePlacesOfDatumsAndThatTheyHaveNone) {
    Model part;
    const auto add = [&](int id, int type, bool placed, const Placement& placement, int item = 0) {
        Feature feature;
        feature.id = id;
        feature.type = type;
        feature.placed = placed;
        feature.placement = placement;
        feature.itemId = item;
        part.AddFeature(feature);
    };
    add(1, 923, false, {});
    add(3, 923, true, {});
    add(5, 923, true, PlacementFrom({10, 0, 2.5}, {0, 90, 0}), 40);
    add(7, 926, true, PlacementFrom({1, 2, 3}, {90, 0, 0}), 41);
    add(9, 931, true, PlacementFrom({-4, 0, 0}, {}), 42);
    const std::string text = ModelText(part);
    EXPECT_NE(text.find("id = 3\ntype = 923\nat = [0, 0, 0]\n"), std::string::npos) << text;
    EXPECT_NE(text.find("datum = 40\nat = [10, 0, 2.5]\nturn = [0, 90, 0]\n"), std::string::npos);
    EXPECT_NE(text.find("axis = 41\nat = [1, 2, 3]\nturn = [90, 0, 0]\n"), std::string::npos);
    EXPECT_NE(text.find("point = 42\nat = [-4, 0, 0]\n"), std::string::npos);
    Model copy;
    ReadModelText(text, "part.prt.1", &copy);
    EXPECT_EQ(ModelText(copy), text);
    EXPECT_EQ(copy.features()[2].placement.origin, (Vec3{10, 0, 2.5}));
    EXPECT_NEAR(copy.features()[2].placement.axes[2].x, 1, 1e-12) << "its normal";
    EXPECT_FALSE(copy.features()[0].placed);
    EXPECT_TRUE(copy.features()[1].placed);
    EXPECT_EQ(copy.features()[3].itemId, 41);
}

TEST(DatumFiles, NamesWhatDatumsCannotSay) {
    const std::string plane = "[[feature]]\nid = 10\ntype = 923\n";
    const std::string axis = "[[feature]]\nid = 12\ntype = 926\n";
    const std::string point = "[[feature]]\nid = 14\ntype = 931\n";
    EXPECT_EQ(DatumsOfPart(plane + axis + "at = [1, 2, 3]\n" + point + "at = [0, 0, 0]\n"), "");
    EXPECT_EQ(DatumsOfPart(plane + "axis = 5\n"),
              "trial.prt.1:6: \"axis\" is only for datum axes (type 926)");
    EXPECT_EQ(DatumsOfPart(plane + "csys = 5\n"),
              "trial.prt.1:6: \"csys\" is only for coordinate systems (type 979)");
    EXPECT_EQ(DatumsOfPart(plane + "turn = [0, 90, 0]\n"), "trial.prt.1:6: \"turn\" needs \"at\"");
    EXPECT_EQ(DatumsOfPart(point + "at = [0, 0, 0]\nturn = [0, 90, 0]\n"),
              "trial.prt.1:7: \"turn\" is not for datum points (type 931)");
    EXPECT_EQ(DatumsOfAssembly(point + "at = [0, 0, 0]\n"),
              "trial.prt.1:6: \"at\" belongs only in a model of type \"part\"");
    EXPECT_EQ(DatumsOfPart(point + "point = 7\n[[feature]]\nid = 6\ntype = 931\n"),
              "trial.prt.1:7: the datum point 7 is there twice");
    const std::string box = "[[solid]]\nid = 10\nshape = \"box\"\nsize = [1, 1, 1]\n";
    EXPECT_EQ(DatumsOfPart(box + plane + "at = [0, 0, 0]\n"),
              "trial.prt.1:7: the part has a surface 11; give the datum plane another number by "
              "\"datum\"");
    EXPECT_EQ(DatumsOfPart(box + axis + "at = [0, 0, 0]\n").substr(0, 40),
              "trial.prt.1:7: the part has a surface 13");
    EXPECT_EQ(DatumsOfPart(box + point + "at = [0, 0, 0]\n"), "");
    EXPECT_EQ(DatumsOfPart(box + plane), "") << "one without a place is never picked";
}

}  // namespace
