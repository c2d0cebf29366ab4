// Large assemblies made to measure. First every model is placed once, in a tree of the depth that
// was asked for; then components are added that bring the number of occurrences up to the mark,
// large sub-assemblies first and single parts at the end.
#include "simhost/app/generate.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "simhost/core/disk.h"
#include "simhost/model/model_file.h"
#include "simhost/model/model_tree.h"

namespace simhost {

namespace {

// What a session can still hold; an assembly may be a list of all its occurrences.
constexpr int kMostOccurrences = 2'000'000;
constexpr int kMostModels = 100'000;

// Random numbers that are the same on every system (the splitmix64 generator).
class Dice {
public:
    explicit Dice(unsigned seed) : state_(seed) {}
    std::size_t Below(std::size_t limit) {
        state_ += 0x9e3779b97f4a7c15u;
        std::uint64_t z = state_;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
        return std::size_t((z ^ (z >> 31)) % limit);
    }
    double Between(double low, double high) {
        return low + (high - low) * double(Below(1001)) / 1000;
    }

private:
    std::uint64_t state_;
};

// An assembly is named by its index; the top is 0. Assemblies stand in the order of their levels,
// and one contains only assemblies of deeper levels, so that nothing contains itself.
struct Assembly {
    int level = 0;
    std::vector<std::size_t> units;  // assemblies in it, repeated as often as they are used
    std::vector<std::size_t> parts;  // parts likewise
    long long inside = 0;            // occurrences below one occurrence of it
    long long uses = 0;              // occurrences of it in the whole tree
};

struct Plan {
    std::vector<Assembly> assemblies;
    std::size_t partCount = 0;
};

void Check(int occurrences, int models, int depth) {
    const auto refuse = [](const std::string& why) { throw std::invalid_argument(why); };
    if (occurrences < 1 || models < 1 || depth < 1) {
        refuse("occurrences, models and depth must be at least 1");
    }
    const auto most = [&](const char* what, int asked, int limit) {
        if (asked <= limit) return;
        refuse("at most " + std::to_string(limit) + ' ' + what + " can be made, not " +
               std::to_string(asked));
    };
    most("occurrences", occurrences, kMostOccurrences);
    most("models", models, kMostModels);
    most("levels", depth, kMostLevels);
    if (models > occurrences) {
        refuse(std::to_string(models) + " models need at least as many occurrences, not " +
               std::to_string(occurrences));
    }
    if (depth > models) {
        refuse(std::to_string(depth) +
               " levels need at least as many models (an assembly for each "
               "but the last), not " +
               std::to_string(models));
    }
}

// Bottom-up and top-down over the levels.
void CountOccurrences(Plan* plan) {
    auto& all = plan->assemblies;
    for (Assembly& one : all) one.uses = 0;
    for (std::size_t i = all.size(); i-- > 0;) {
        all[i].inside = static_cast<long long>(all[i].parts.size());
        for (const std::size_t unit : all[i].units) all[i].inside += 1 + all[unit].inside;
    }
    all[0].uses = 1;
    for (const Assembly& one : all) {
        for (const std::size_t unit : one.units) all[unit].uses += one.uses;
    }
}

// The indices of the assemblies of one level, first and behind the last.
std::pair<std::size_t, std::size_t> LevelRange(const Plan& plan, int level) {
    const auto& all = plan.assemblies;
    const auto range =
        std::equal_range(all.begin(), all.end(), Assembly{level, {}, {}, 0, 0},
                         [](const Assembly& a, const Assembly& b) { return a.level < b.level; });
    return {std::size_t(range.first - all.begin()), std::size_t(range.second - all.begin())};
}

// Every model once: an assembly in one of the level above it, a part in any, but at least one in
// those that would stay empty.
Plan PlanTree(int models, int depth, Dice* dice) {
    constexpr int kModelsPerAssembly = 6;
    const int levels = depth - 1;  // of sub-assemblies
    const int units = levels == 0 ? 0 : std::max(levels, (models - 1) / kModelsPerAssembly);
    Plan plan;
    plan.partCount = std::size_t(models - units);
    plan.assemblies.emplace_back();
    for (int i = 0; i < units; ++i) {
        plan.assemblies.emplace_back();
        plan.assemblies.back().level = 1 + int(static_cast<long long>(i) * levels / units);
    }
    for (std::size_t i = 1; i < plan.assemblies.size(); ++i) {
        const auto [first, end] = LevelRange(plan, plan.assemblies[i].level - 1);
        plan.assemblies[first + dice->Below(end - first)].units.push_back(i);
    }
    std::vector<std::size_t> homes;
    for (std::size_t i = 0; i < plan.assemblies.size(); ++i) {
        if (plan.assemblies[i].units.empty()) homes.push_back(i);
    }
    for (std::size_t part = 0; part < plan.partCount; ++part) {
        const std::size_t home =
            part < homes.size() ? homes[part] : dice->Below(plan.assemblies.size());
        plan.assemblies[home].parts.push_back(part);
    }
    CountOccurrences(&plan);
    return plan;
}

// One more component that may be added, and how many occurrences it brings.
struct Addition {
    std::size_t assembly = 0, child = 0;
    bool isPart = true;
    long long gain = 1;
};

Addition Draw(const Plan& plan, Dice* dice) {
    Addition draw;
    draw.assembly = dice->Below(plan.assemblies.size());
    const Assembly& home = plan.assemblies[draw.assembly];
    const std::size_t deeper = LevelRange(plan, home.level).second;
    draw.isPart = deeper == plan.assemblies.size() || dice->Below(2) == 0;
    if (draw.isPart) {
        draw.child = dice->Below(plan.partCount);
        draw.gain = home.uses;
    } else {
        draw.child = deeper + dice->Below(plan.assemblies.size() - deeper);
        draw.gain = home.uses * (1 + plan.assemblies[draw.child].inside);
    }
    return draw;
}

// Adds components until the tree has so many occurrences. No single addition takes more than a
// small share of what is missing, so that the tree grows everywhere.
void Grow(Plan* plan, long long occurrences, Dice* dice) {
    constexpr long long kShare = 12;
    constexpr int kDraws = 8;
    for (long long missing = occurrences - plan->assemblies[0].inside; missing > 0;) {
        const long long most = std::max(missing / kShare, 1LL);
        Addition best;  // a part in the top, which always fits
        best.child = dice->Below(plan->partCount);
        for (int i = 0; i < kDraws; ++i) {
            const Addition draw = Draw(*plan, dice);
            if (draw.gain <= most && draw.gain > best.gain) best = draw;
        }
        Assembly& home = plan->assemblies[best.assembly];
        (best.isPart ? home.parts : home.units).push_back(best.child);
        missing -= best.gain;
        CountOccurrences(plan);
    }
}

// --- The files ---

std::string FileOf(const char* kind, std::size_t number, const char* suffix) {
    std::string digits = std::to_string(number);
    digits.insert(0, digits.size() < 5 ? 5 - digits.size() : 0, '0');
    return std::string(kind) + '_' + digits + '.' + suffix;
}

void Write(const std::filesystem::path& folder, const std::string& fileName, const Model& model) {
    const std::filesystem::path path = folder / (fileName + ".1");
    std::string reason;
    if (!WriteFile(path, ModelText(model), &reason)) {
        throw std::runtime_error("cannot write " + path.string() + ": " + reason);
    }
}

Feature Datum() {
    constexpr int kCoordinateSystem = 979;
    Feature datum;
    datum.id = 1;
    datum.type = kCoordinateSystem;
    datum.name = WIDE("DEF_CSYS");
    return datum;
}

// A model's file and the rectangle that it stands on.
struct Child {
    std::string file;
    double width = 0, depth = 0;
};

// A block or a turned piece.
Child WritePart(const std::filesystem::path& folder, std::size_t number, Dice* dice) {
    Model part;
    part.type = PRO_MDL_PART;
    part.subtype = PROMDLSTYPE_PART_SOLID;
    part.title = "Part " + std::to_string(number + 1);
    part.appearance = DefaultAppearance();
    for (double& share : part.appearance->colour) share = dice->Between(0.35, 0.9);
    Solid solid;
    solid.id = 10;
    const double side = std::round(dice->Between(10, 40));
    const double height = std::round(dice->Between(5, 40));
    if (dice->Below(2) == 0) {
        solid.shape = Shape::Box;
        solid.size = {side, std::round(side * dice->Between(0.5, 1)), height};
    } else {
        solid.shape = Shape::Cylinder;
        solid.diameter = side;
        solid.length = height;
        solid.at = {side / 2, side / 2, 0};
    }
    part.partData.solids.push_back(solid);
    part.AddFeature(Datum());
    const std::string file = FileOf("part", number + 1, "prt");
    Write(folder, file, part);
    return {file, side, side};
}

// The children in rows, roughly in a square; the deepest first, so that rows are well filled.
Child WriteAssembly(const std::filesystem::path& folder, const std::string& fileName,
                    const std::string& title, std::vector<Child> children) {
    constexpr double kGap = 5;
    std::stable_sort(children.begin(), children.end(),
                     [](const Child& a, const Child& b) { return a.depth > b.depth; });
    double area = 0, wanted = 0;
    for (const Child& child : children) {
        area += (child.width + kGap) * (child.depth + kGap);
        wanted = std::max(wanted, child.width);
    }
    wanted = std::max(wanted, std::sqrt(area));
    Model model;
    model.type = PRO_MDL_ASSEMBLY;
    model.title = title;
    model.AddFeature(Datum());
    double x = 0, y = 0, row = 0, width = 0;
    for (const Child& child : children) {
        if (x > 0 && x + child.width > wanted) {
            y += row;
            x = row = 0;
        }
        Feature feature;
        feature.id = int(model.features().size()) + 1;
        feature.type = PRO_FEAT_COMPONENT;
        feature.file = child.file;
        feature.placement.origin = {x, y, 0};
        model.AddFeature(feature);
        x += child.width + kGap;
        row = std::max(row, child.depth + kGap);
        width = std::max(width, x);
    }
    Write(folder, fileName, model);
    return {fileName, width - kGap, y + row - kGap};
}

void WriteModels(const std::filesystem::path& folder, const Plan& plan, Dice* dice) {
    std::vector<Child> parts, units(plan.assemblies.size());
    for (std::size_t i = 0; i < plan.partCount; ++i) {
        parts.push_back(WritePart(folder, i, dice));
    }
    for (std::size_t i = plan.assemblies.size(); i-- > 0;) {
        const Assembly& assembly = plan.assemblies[i];
        std::vector<Child> children;
        for (const std::size_t unit : assembly.units) children.push_back(units[unit]);
        for (const std::size_t part : assembly.parts) children.push_back(parts[part]);
        const std::string file = i == 0 ? "large.asm" : FileOf("unit", i, "asm");
        const std::string title = i == 0 ? "Large assembly" : "Unit " + std::to_string(i);
        units[i] = WriteAssembly(folder, file, title, std::move(children));
    }
}

}  // namespace

void GenerateAssembly(const std::filesystem::path& folder, int occurrences, int models, int depth,
                      unsigned seed) {
    Check(occurrences, models, depth);
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) throw std::runtime_error("cannot make the folder " + folder.string());
    Dice dice(seed);
    Plan plan = PlanTree(models, depth, &dice);
    Grow(&plan, occurrences, &dice);
    WriteModels(folder, plan, &dice);
}

}  // namespace simhost
