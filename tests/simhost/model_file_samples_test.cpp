// The models that come with the program, opened and saved: a save says what the file said, and a
// second one says it in the same words.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "simhost/model/model_file.h"
#include "simhost/model/toml.h"
#include "tests/support/places.h"

using namespace simhost;
namespace fs = std::filesystem;

namespace {

std::string TextAt(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<fs::path> SampleModels() {
    const fs::path source = workbench::kSourceFolder;
    std::vector<fs::path> models{source / "tp" / "vx.drw"};
    for (const auto& entry : fs::recursive_directory_iterator(source / "samples")) {
        if (entry.path().extension() == ".1") models.push_back(entry.path());
    }
    std::sort(models.begin(), models.end());
    return models;
}

std::string Saved(const std::string& text) {
    Model model;
    ReadModelText(text, "sample", &model);
    return ModelText(model);
}

// What a save leaves out, being as usual: zeros, alone and in lists.
bool IsZero(const toml::node& node) {
    if (const toml::array* list = node.as_array()) {
        return std::all_of(list->begin(), list->end(), IsZero);
    }
    return node.is_number() && node.value<double>() == 0;
}

// A turn that can be given in two ways comes back in one of them.
bool IsSameTurn(const toml::array& was, const toml::array& is) {
    const auto placement = [](const toml::array& turn) {
        const auto degrees = [&](std::size_t i) { return turn.get(i)->value<double>().value(); };
        return PlacementFrom({}, {degrees(0), degrees(1), degrees(2)});
    };
    const Placement a = placement(was), b = placement(is);
    for (std::size_t i = 0; i < 3; ++i) {
        const Vec3 apart = a.axes[i] - b.axes[i];
        if (std::sqrt(Dot(apart, apart)) > 1e-9) return false;
    }
    return true;
}

void ExpectSaysTheSame(const toml::node& was, const toml::node& is, const std::string& where);

void ExpectSaysTheSame(const toml::table& was, const toml::table& is, const std::string& where) {
    for (const auto& [key, value] : was) {
        const std::string here = where + '.' + std::string(key.str());
        const toml::node* saved = is.get(key.str());
        if (!saved) {
            EXPECT_TRUE(IsZero(value)) << here << " is lost";
        } else if (key.str() == "turn") {
            EXPECT_TRUE(IsSameTurn(*value.as_array(), *saved->as_array())) << here;
        } else {
            ExpectSaysTheSame(value, *saved, here);
        }
    }
    for (const auto& [key, value] : is) {
        EXPECT_TRUE(was.contains(key.str())) << where << '.' << key.str() << " is new";
    }
}

void ExpectSaysTheSame(const toml::node& was, const toml::node& is, const std::string& where) {
    if (was.is_table() && is.is_table()) {
        ExpectSaysTheSame(*was.as_table(), *is.as_table(), where);
    } else if (was.is_array() && is.is_array()) {
        const toml::array &before = *was.as_array(), &after = *is.as_array();
        ASSERT_EQ(before.size(), after.size()) << where;
        for (std::size_t i = 0; i < before.size(); ++i) {
            ExpectSaysTheSame(*before.get(i), *after.get(i), where + '[' + std::to_string(i) + ']');
        }
    } else if (was.is_number() && is.is_number()) {
        EXPECT_EQ(was.value<double>(), is.value<double>()) << where;
        EXPECT_TRUE(was.type() == is.type() || where.find("parameter") == std::string::npos)
            << where << " is a number of another kind";
    } else if (was.is_boolean() && is.is_boolean()) {
        EXPECT_EQ(was.value<bool>(), is.value<bool>()) << where;
    } else {
        EXPECT_EQ(was.value<std::string>(), is.value<std::string>()) << where;
        EXPECT_TRUE(was.is_string() && is.is_string()) << where << " has another kind";
    }
}

TEST(SampleModels, SayAfterASaveWhatTheySaid) {
    ASSERT_GT(SampleModels().size(), 60u);
    for (const fs::path& path : SampleModels()) {
        const std::string text = TextAt(path);
        ExpectSaysTheSame(toml::parse(text), toml::parse(Saved(text)), path.filename().string());
    }
}

TEST(SampleModels, AreSavedASecondTimeInTheSameWords) {
    for (const fs::path& path : SampleModels()) {
        const std::string saved = Saved(TextAt(path));
        EXPECT_EQ(Saved(saved), saved) << path;
    }
}

}  // namespace
