// Assemblies made to measure: the files are read back, the tree is expanded and counted here anew.
#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <stdexcept>

#include "simhost/app/generate.h"
#include "simhost/model/model_file.h"

using namespace simhost;
namespace fs = std::filesystem;

namespace {

// A folder of its own for each test, gone with it.
struct Folder {
    fs::path path;
    Folder() {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
        path = fs::temp_directory_path() /
               (std::string("generate_test_") + test->name() + std::to_string(now));
    }
    ~Folder() { fs::remove_all(path); }
};

std::string Bytes(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::map<std::string, std::string> AllFiles(const fs::path& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::directory_iterator(folder)) {
        files[entry.path().filename().string()] = Bytes(entry.path());
    }
    return files;
}

// What stands below a model, all levels expanded.
struct Below {
    long long occurrences = 0;
    int depth = 0;
    std::set<std::string> models;
};

class Reader {
public:
    explicit Reader(fs::path folder) : folder_(std::move(folder)) {}

    const Below& Expand(const std::string& file) {
        const auto known = known_.find(file);
        if (known != known_.end()) return known->second;
        EXPECT_TRUE(open_.insert(file).second) << file << " contains itself";
        Model model;
        ReadModelText(Bytes(folder_ / (file + ".1")), file, &model);
        Below below;
        for (const Feature& feature : model.features()) {
            if (feature.type != PRO_FEAT_COMPONENT) continue;
            EXPECT_EQ(feature.status, PRO_FEAT_ACTIVE);
            const Below& child = Expand(feature.file);
            below.occurrences += 1 + child.occurrences;
            below.depth = std::max(below.depth, 1 + child.depth);
            below.models.insert(feature.file);
            below.models.insert(child.models.begin(), child.models.end());
        }
        if (model.type == PRO_MDL_ASSEMBLY) {
            EXPECT_GT(below.occurrences, 0) << file << " is empty";
        } else {
            EXPECT_EQ(model.type, PRO_MDL_PART);
            EXPECT_FALSE(model.partData.solids.empty()) << file;
        }
        open_.erase(file);
        return known_[file] = below;
    }

private:
    fs::path folder_;
    std::set<std::string> open_;
    std::map<std::string, Below> known_;
};

void ExpectMeasures(int occurrences, int models, int depth, unsigned seed) {
    Folder folder;
    GenerateAssembly(folder.path, occurrences, models, depth, seed);
    Reader reader(folder.path);
    const Below& top = reader.Expand("large.asm");
    SCOPED_TRACE(std::to_string(occurrences) + " occurrences, " + std::to_string(models) +
                 " models, " + std::to_string(depth) + " levels, seed " + std::to_string(seed));
    EXPECT_EQ(top.occurrences, occurrences);
    EXPECT_EQ(int(top.models.size()), models);
    EXPECT_EQ(top.depth, depth);
    EXPECT_EQ(int(AllFiles(folder.path).size()), models + 1);  // and none that nobody uses
}

}  // namespace

TEST(Generate, SmallAssembliesHaveTheirMeasures) {
    for (int models = 1; models <= 9; ++models) {
        for (int depth = 1; depth <= models; ++depth) {
            for (const int more : {0, 1, 2, 7, 40}) {
                ExpectMeasures(models + more, models, depth, unsigned(more + depth));
            }
        }
    }
}

TEST(Generate, LargeAssembliesHaveTheirMeasures) {
    ExpectMeasures(1000, 100, 4, 1);
    ExpectMeasures(1000, 1000, 6, 2);
    ExpectMeasures(50000, 2000, 8, 3);
    ExpectMeasures(50000, 20, 3, 4);
    ExpectMeasures(300, 50, 50, 5);
    ExpectMeasures(20000, 7, 1, 6);
}

TEST(Generate, SubAssembliesAreUsedAgainAndFilesStaySmall) {
    Folder folder;
    GenerateAssembly(folder.path, 50000, 500, 6, 7);
    std::size_t bytes = 0, lines = 0;
    for (const auto& [name, text] : AllFiles(folder.path)) {
        bytes += text.size();
        for (std::size_t at = text.find("type = 1000"); at != std::string::npos;
             at = text.find("type = 1000", at + 1)) {
            ++lines;
        }
    }
    EXPECT_LT(lines, 5000u);  // a tenth of the occurrences
    EXPECT_LT(bytes, 1000000u);
}

TEST(Generate, TheSameSeedGivesTheSameFilesAndAnotherSeedOthers) {
    Folder folder;
    GenerateAssembly(folder.path / "a", 2000, 120, 5, 11);
    GenerateAssembly(folder.path / "b", 2000, 120, 5, 11);
    GenerateAssembly(folder.path / "c", 2000, 120, 5, 12);
    EXPECT_EQ(AllFiles(folder.path / "a"), AllFiles(folder.path / "b"));
    EXPECT_NE(AllFiles(folder.path / "a"), AllFiles(folder.path / "c"));
}

TEST(Generate, RefusesNumbersThatNoAssemblyCanHave) {
    Folder folder;
    const auto complaint = [&](int occurrences, int models, int depth) -> std::string {
        try {
            GenerateAssembly(folder.path, occurrences, models, depth, 1);
        } catch (const std::invalid_argument& error) {
            return error.what();
        }
        return "";
    };
    EXPECT_EQ(complaint(5, 6, 1), "6 models need at least as many occurrences, not 5");
    EXPECT_EQ(complaint(9, 3, 4),
              "4 levels need at least as many models (an assembly for each but the last), not 3");
    const std::string least = "occurrences, models and depth must be at least 1";
    EXPECT_EQ(complaint(0, 0, 1), least);
    EXPECT_EQ(complaint(5, 5, 0), least);
    EXPECT_EQ(complaint(-5, 1, 1), least);
    EXPECT_EQ(complaint(2147483647, 1, 1),
              "at most 2000000 occurrences can be made, not 2147483647");
    EXPECT_EQ(complaint(2000000, 100001, 1), "at most 100000 models can be made, not 100001");
    EXPECT_EQ(complaint(5000, 5000, 1001), "at most 1000 levels can be made, not 1001");
    EXPECT_FALSE(fs::exists(folder.path));  // nothing was written
    EXPECT_EQ(complaint(3, 3, 3), "");
}

TEST(Generate, SaysSoWhenItCannotWrite) {
    Folder folder;
    fs::create_directories(folder.path);
    std::ofstream(folder.path / "taken") << "a file, not a folder";
    EXPECT_THROW(GenerateAssembly(folder.path / "taken", 3, 2, 1, 1), std::runtime_error);
}
