// The 3-D picture as bytes: what is there, where, in which colour, and what is not sent twice.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "simhost/host.h"
#include "tests/support/models.h"
#include "tests/web/web_ground.h"

namespace {

using namespace simhost;
using web_tests::Json;
using web_tests::Painted;
using Colour = std::vector<double>;

// An answer as a page reads it.
struct SceneSeen {
    Json header;
    std::string data;

    template <typename Number>
    std::vector<Number> Numbers(std::size_t at, std::size_t count) const {
        std::vector<Number> numbers(count);
        if (at + 4 * count > data.size()) throw std::out_of_range("the data ends before that");
        std::memcpy(numbers.data(), data.data() + at, 4 * count);
        return numbers;
    }
    std::size_t Count() const { return header["paths"].size(); }
    std::size_t NumberOf(const std::string& path) const {
        for (std::size_t i = 0; i < Count(); ++i) {
            if (header["paths"][i] == path) return i;
        }
        throw std::out_of_range(path + " is not shown");
    }
    Json PartOf(const std::string& path) const {
        return header["parts"][Numbers<std::uint32_t>(4 * NumberOf(path), 1)[0]];
    }
    // Red, green, blue and opacity.
    Colour ColourOf(const std::string& path) const {
        return LookAt(Numbers<std::uint32_t>(4 * (Count() + NumberOf(path)), 1)[0]);
    }
    Colour LookAt(std::size_t number) const {
        const Colour look = header["looks"][number];
        return {look.begin(), look.begin() + 4};
    }
    bool IsCovered(const std::string& path) const {
        return Numbers<std::uint32_t>(4 * (2 * Count() + NumberOf(path)), 1)[0] == 1;
    }
    // The axes and the origin of a part in the model.
    std::vector<float> PlaceOf(const std::string& path) const {
        return Numbers<float>(12 * Count() + 48 * NumberOf(path), 12);
    }
    Json MeshOf(const std::string& path) const {
        const Json number = PartOf(path)["mesh"];
        for (const Json& mesh : header["meshes"]) {
            if (mesh["number"] == number) return mesh;
        }
        throw std::out_of_range("the mesh of " + path + " was not sent");
    }
};

class WebScene : public web_tests::WebBench {
protected:
    void Open(const std::string& models) { OpenModels(models); }
    SceneSeen Scene(const std::string& query = "") {
        Settle();
        const auto answer = Client().Get("/scene" + query, Token());
        EXPECT_EQ(answer->status, 200);
        EXPECT_EQ(answer->get_header_value("Content-Type"), "application/octet-stream");
        std::uint32_t length = 0;
        std::memcpy(&length, answer->body.data(), 4);
        EXPECT_EQ(length % 4, 0u);
        return {Json::parse(answer->body.substr(4, length)), answer->body.substr(4 + length)};
    }
    std::vector<std::string> Paths() {
        return Scene().header["paths"].get<std::vector<std::string>>();
    }
};

using Strings = std::vector<std::string>;

TEST_F(WebScene, HoldsEveryPartInTreeOrderByThePathThatSelectTakes) {
    Open("top: a, sub(b x2), a");
    EXPECT_EQ(Paths(), (Strings{"a", "sub/b", "sub/b:2", "a:2"}));
    const SceneSeen seen = Scene();
    EXPECT_EQ(seen.header["top"], "top.asm");
    EXPECT_EQ(seen.header["parts"].size(), 2u) << "each part once";
    EXPECT_EQ(seen.PartOf("a:2")["file"], "a.prt");
    EXPECT_EQ(seen.PartOf("sub/b:2"), seen.PartOf("sub/b"));
    for (const std::string& path : Paths()) {
        EXPECT_EQ(Step("@ select " + path), 202);
        EXPECT_EQ(Get("/state")["selection"], Json({path}));
    }
}

TEST_F(WebScene, APartAloneIsThePathOfTheTop) {
    Open("plate");
    EXPECT_EQ(Paths(), Strings{"."});
    Do([] { TheHost().session.Open(workbench::MakeModels("mill.mfg: top(a)")); });
    EXPECT_EQ(Paths(), Strings{"a"});
    EXPECT_EQ(Scene().header["top"], "top.asm");
}

TEST_F(WebScene, ABoxIsTwelveTrianglesAndTwelveEdgesTurnedOutward) {
    Open("plate");
    const SceneSeen seen = Scene();
    const Json mesh = seen.MeshOf(".");
    ASSERT_EQ(mesh["points"], 24);
    ASSERT_EQ(mesh["triangles"], 12);
    ASSERT_EQ(mesh["edges"], 12);
    ASSERT_EQ(mesh["surfaces"].size(), 6u);
    for (const Json& surface : mesh["surfaces"]) EXPECT_EQ(surface[1], 2) << surface[0];
    const std::size_t at = mesh["at"];
    const auto points = seen.Numbers<float>(at, 72), normals = seen.Numbers<float>(at + 288, 72);
    const auto triangles = seen.Numbers<std::uint32_t>(at + 576, 36);
    const auto corner = [&](std::size_t i) {
        const std::size_t p = 3 * triangles[i];
        return Vec3{points[p], points[p + 1], points[p + 2]};
    };
    double volume = 0;
    for (std::size_t i = 0; i < 36; i += 3) {
        const Vec3 a = corner(i), across = Cross(corner(i + 1) - a, corner(i + 2) - a);
        volume += Dot(a, across) / 6;
        for (std::size_t k = i; k < i + 3; ++k) {
            const std::size_t n = 3 * triangles[k];
            const Vec3 normal{normals[n], normals[n + 1], normals[n + 2]};
            EXPECT_NEAR(Dot(normal, across), std::sqrt(Dot(across, across)), 1e-3);
        }
    }
    EXPECT_NEAR(volume, 10 * 20 * 30, 1e-3);
}

TEST_F(WebScene, RoundSurfacesAreSmooth) {
    Open("pin!round");
    Do([] { workbench::ModelNamed("pin").partData.solids[0].length = 30; });
    const SceneSeen seen = Scene();
    const Json mesh = seen.MeshOf(".");
    const std::size_t count = mesh["points"], at = mesh["at"];
    // 32 points around each end, once for the end and once for the side.
    ASSERT_EQ(count, 4u * 32);
    EXPECT_EQ(mesh["edges"], 2 * 32);
    const auto points = seen.Numbers<float>(at, 3 * count);
    const auto normals = seen.Numbers<float>(at + 12 * count, 3 * count);
    float left = 1e9f, right = -1e9f, low = 1e9f, high = -1e9f;
    for (std::size_t i = 0; i < 3 * count; i += 3) {
        left = std::min(left, points[i]);
        right = std::max(right, points[i]);
        low = std::min(low, points[i + 1]);
        high = std::max(high, points[i + 1]);
    }
    const double x = (left + right) / 2, y = (low + high) / 2, radius = (right - left) / 2;
    int radial = 0;
    for (std::size_t i = 0; i < 3 * count; i += 3) {
        if (std::fabs(normals[i + 2]) > 0.5f) continue;
        ++radial;
        EXPECT_NEAR(normals[i], (double(points[i]) - x) / radius, 1e-4);
        EXPECT_NEAR(normals[i + 1], (double(points[i + 1]) - y) / radius, 1e-4);
    }
    EXPECT_EQ(radial, 64);
}

TEST_F(WebScene, PlacesAreInMmWhateverTheUnits) {
    Open("top: sub(a)");
    Do([] {
        constexpr std::size_t kInches = 4;
        Model& top = workbench::ModelNamed("top.asm");
        top.MutableFeatures()[0].placement.origin = {100, 200, 300};
        Model& sub = workbench::ModelNamed("sub.asm");
        sub.units.principal = kInches;
        sub.MutableFeatures()[0].placement = PlacementFrom({1, 2, 3}, {0, 0, 90});
    });
    EXPECT_EQ(Scene().PlaceOf("sub/a"),
              (std::vector<float>{0, 1, 0, -1, 0, 0, 0, 0, 1, 125.4f, 250.8f, 376.2f}));
    Do([] { workbench::ModelNamed("a").units.principal = 4; });
    const auto inches = Scene().PlaceOf("sub/a");
    EXPECT_FLOAT_EQ(inches[1], 25.4f) << "the part's axes are as long as its unit";
    EXPECT_FLOAT_EQ(inches[9], 125.4f);
}

TEST_F(WebScene, WhatCannotBeSeenIsMissing) {
    Open("top: a, b!hidden, c!suppressed, d!invisible, e!missing, sub(f), g");
    EXPECT_EQ(Paths(), (Strings{"a", "sub/f", "g"}));
    Do([] { workbench::ModelNamed("top.asm").MutableFeatures()[5].hidden = true; });
    EXPECT_EQ(Paths(), (Strings{"a", "g"})) << "with what is above it";
}

TEST_F(WebScene, ColoursAreTheUppermostAssemblysThenTheParts) {
    Open("top: a, sub(a), b");
    EXPECT_EQ(Scene().ColourOf("a"), (Colour{0.75, 0.75, 0.75, 1})) << "the usual one";
    Do([] { workbench::ModelNamed("a").appearance = Painted(1, 0.5, 0, 0.25); });
    EXPECT_EQ(Scene().ColourOf("a"), (Colour{1, 0.5, 0, 0.75}));
    EXPECT_EQ(Scene().ColourOf("b"), (Colour{0.75, 0.75, 0.75, 1}));
    Do([] { workbench::ModelNamed("sub.asm").appearance = Painted(0, 0, 1); });
    const SceneSeen seen = Scene();
    EXPECT_EQ(seen.ColourOf("sub/a"), (Colour{0, 0, 1, 1}));
    EXPECT_TRUE(seen.IsCovered("sub/a"));
    EXPECT_EQ(seen.ColourOf("a"), (Colour{1, 0.5, 0, 0.75}));
    EXPECT_FALSE(seen.IsCovered("a"));
}

TEST_F(WebScene, SurfacesTellTheirOwnColours) {
    Open("plate");
    const int surface = Scene().MeshOf(".")["surfaces"][2][0];
    Do([&] {
        workbench::ModelNamed("plate").partData.surfaceAppearances[surface] = Painted(0, 1, 0);
    });
    const SceneSeen seen = Scene();
    const Json surfaces = seen.PartOf(".")["surfaces"];
    ASSERT_EQ(surfaces.size(), 1u);
    EXPECT_EQ(surfaces[0][0], surface);
    EXPECT_EQ(seen.LookAt(surfaces[0][1]), (Colour{0, 1, 0, 1}));
    EXPECT_EQ(seen.ColourOf("."), (Colour{0.75, 0.75, 0.75, 1}));
}

TEST_F(WebScene, ALookIsAllThatTheLightNeeds) {
    Open("plate");
    Do([] {
        ProdbSurfaceProps look = Painted(0.125, 0.25, 0.375, 0.5);
        look.ambient = 0.0625;
        look.diffuse = 0.625;
        look.highlight = 0.75;
        look.shininess = 0.875;
        look.highlightColour[0] = 0.1875;
        look.highlightColour[1] = 0.3125;
        look.highlightColour[2] = 0.4375;
        workbench::ModelNamed("plate").appearance = look;
    });
    const Json looks = Scene().header["looks"];
    ASSERT_EQ(looks.size(), 1u);
    EXPECT_EQ(looks[0],
              Json({0.125, 0.25, 0.375, 0.5, 0.0625, 0.625, 0.75, 0.875, 0.1875, 0.3125, 0.4375}));
}

TEST_F(WebScene, WhatThePageHasIsNotSentAgain) {
    Open("top: a x2, b");
    const SceneSeen first = Scene();
    EXPECT_EQ(first.header["meshes"].size(), 2u);
    const std::string a = first.PartOf("a")["mesh"].dump(), b = first.PartOf("b")["mesh"].dump();
    const SceneSeen one = Scene("?known=" + a);
    ASSERT_EQ(one.header["meshes"].size(), 1u);
    EXPECT_EQ(one.header["meshes"][0]["number"].dump(), b);
    EXPECT_TRUE(Scene("?known=0-" + b).header["meshes"].empty());
    EXPECT_EQ(one.PlaceOf("b"), first.PlaceOf("b"));
    const std::string key = first.header["key"];
    const SceneSeen same = Scene("?have=" + key);
    EXPECT_EQ(same.header["same"], true);
    EXPECT_EQ(same.header["key"], key);
    EXPECT_FALSE(same.header.contains("paths"));
    EXPECT_TRUE(same.data.empty());
    Do([] { workbench::ModelNamed("a").partData.solids[0].size.x = 50; });
    const SceneSeen changed = Scene("?have=" + key + "&known=" + a + "," + b);
    ASSERT_EQ(changed.header["meshes"].size(), 1u) << "a changed part has another mesh";
    EXPECT_EQ(changed.header["meshes"][0]["number"], changed.PartOf("a")["mesh"]);
    Do([] { workbench::ModelNamed("top.asm").MutableFeatures()[0].placement.origin.z = 1; });
    EXPECT_FALSE(
        Scene("?have=" + changed.header["key"].get<std::string>()).header.contains("same"));
}

TEST_F(WebScene, WhatCannotBeReadIsOfNoMesh) {
    Open("plate");
    EXPECT_EQ(Scene("?known=x").header["meshes"].size(), 1u);
}

// Edges come last: two points of three numbers of four bytes each.
TEST_F(WebScene, TheLastMeshEndsWithTheData) {
    Open("top: a, b");
    const SceneSeen seen = Scene();
    const Json last = seen.header["meshes"].back();
    const std::size_t points = last["points"], triangles = last["triangles"], edges = last["edges"];
    EXPECT_EQ(edges, 12u) << "those of a box";
    EXPECT_EQ(last["at"].get<std::size_t>() + 4 * (6 * points + 3 * triangles + 6 * edges),
              seen.data.size());
}

TEST_F(WebScene, AMeshThatIsNotShownIsForgotten) {
    Open("top: a, b");
    const Json before = Scene().PartOf("a")["mesh"];
    EXPECT_EQ(Scene().PartOf("a")["mesh"], before);
    Do([] { workbench::ModelNamed("top.asm").MutableFeatures()[0].hidden = true; });
    EXPECT_EQ(Paths(), Strings{"b"});
    Do([] { workbench::ModelNamed("top.asm").MutableFeatures()[0].hidden = false; });
    EXPECT_NE(Scene().PartOf("a")["mesh"], before);
}

TEST_F(WebScene, TheScreenIsToldInMm) {
    Open("plate");
    Do([] { workbench::ModelNamed("plate").units.principal = 4; });
    Play("@ turn 0 0 90 scale 2 at 100 50");
    const Json screen = Scene().header["screen"];
    EXPECT_EQ(screen["width"], 1000);
    EXPECT_EQ(screen["height"], 800);
    const double expected[4][3] = {{0, 2, 0}, {-2, 0, 0}, {0, 0, 2}, {100, 50, 0}};
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_NEAR(screen["matrix"][row][i].get<double>(), expected[row][i], 1e-12) << row;
        }
    }
}

TEST_F(WebScene, OfADrawingAndOfNothingThereIsNone) {
    Start();
    EXPECT_EQ(Scene().header, Json({{"top", nullptr}}));
    Do([] { TheHost().session.Open(workbench::MakeModels("plate.drw: A3")); });
    EXPECT_EQ(Scene().header, Json({{"top", nullptr}}));
}

TEST_F(WebScene, CommandsAreSeen) {
    Start();
    Play("@ open gearbox.asm\n~ Command `BatchColor`");
    const SceneSeen coloured = Scene();
    std::map<std::string, std::string> colours;
    const Json tree = Get("/tree");
    for (const Json& row : tree["rows"]) {
        if (row.contains("colour")) colours[row["path"]] = row["colour"];
    }
    ASSERT_GT(coloured.Count(), 100u);
    for (const Json& path : coloured.header["paths"]) {
        const Colour colour = coloured.ColourOf(path);
        std::string told = "#";
        for (std::size_t i = 0; i < 3; ++i) {
            char hex[3];
            std::snprintf(hex, sizeof hex, "%02x", unsigned(std::lround(255 * colour[i])) & 255);
            told += hex;
        }
        EXPECT_EQ(told, colours[path]) << path;
    }
    Play("@ select 箱体组件/housing\n~ Command `VxIsolate`");
    EXPECT_EQ(Paths(), Strings{"箱体组件/housing"});
}

TEST_F(WebScene, APickTellsWhatAClickCanMean) {
    Start();
    Play("@ open gearbox.asm\n~ Command `BoxSel`");
    const Json wait = Get("/state")["wait"];
    EXPECT_EQ(wait["takes"], Json({"part"}));
    EXPECT_EQ(wait["most"], -1);
    EXPECT_EQ(wait["byBox"], true);
    Play("@ quit\n~ Command `VxBoxSelSur`");
    EXPECT_EQ(Get("/state")["wait"]["takes"], Json({"surface"}));
}

}  // namespace
