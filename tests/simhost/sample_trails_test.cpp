// The scripts of samples/trails: each is run as a newcomer would run it, and nothing in it fails.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "simhost/app/demo.h"
#include "simhost/app/report.h"
#include "simhost/core/disk.h"
#include "simhost/host.h"
#include "simhost/trail/fact_table.h"
#include "tests/support/places.h"

namespace {

using namespace simhost;
namespace fs = std::filesystem;

std::vector<std::string> SampleTrails() {
    std::vector<std::string> names;
    for (const auto& entry :
         fs::directory_iterator(fs::path(workbench::kSourceFolder) / "samples" / "trails")) {
        if (entry.path().extension() == ".trail") names.push_back(entry.path().stem().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

class SampleTrail : public ::testing::TestWithParam<std::string> {
protected:
    fs::path out_ = fs::temp_directory_path() /
                    ("sample-trail-" + GetParam() + '-' +
                     std::to_string(::testing::UnitTest::GetInstance()->random_seed()));
    void SetUp() override { fs::remove_all(out_); }
    void TearDown() override { fs::remove_all(out_); }
};

// The demonstration draws and hands out as many files as its script says.
int FilesOf(const std::string& script) {
    int files = 0;
    for (const char* word : {"\n@ picture ", "\n@ hand out "}) {
        for (std::size_t at = script.find(word); at != std::string::npos;
             at = script.find(word, at + 1)) {
            ++files;
        }
    }
    return files;
}

TEST_P(SampleTrail, DoesWhatItSays) {
    const fs::path source = workbench::kSourceFolder;
    const fs::path script = source / "samples" / "trails" / (GetParam() + ".trail");
    WorkplaceOptions options;
    options.installed = source;
    options.module = workbench::kModuleBuilt;
    options.project = source / "samples" / "gearbox";
    std::string failures;
    const int status = RunDemo(options, script, out_, [&](const std::string& line) {
        if (line.find("!!") != std::string::npos) failures += line + '\n';
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(failures, "");
    const std::string page = ReadFile(out_ / "index.html");
    int made = 0;
    for (auto entry = fs::recursive_directory_iterator(out_); entry != fs::end(entry); ++entry) {
        const std::string name = fs::relative(entry->path(), out_).generic_string();
        if (name == "drive_c" || name == "dialogs") entry.disable_recursion_pending();
        if (entry->is_directory() || name == "index.html" || name == "drive_c.files") continue;
        EXPECT_NE(page.find("href=\"" + name + '"'), std::string::npos) << name;
        ++made;
    }
    EXPECT_EQ(made, FilesOf(ReadFile(script)));
}

INSTANTIATE_TEST_SUITE_P(Samples, SampleTrail, ::testing::ValuesIn(SampleTrails()),
                         [](const auto& test) { return test.param; });

TEST(ReportPage, ShowsPicturesLinksFilesAndEachDialogWhereItIsFirstUsed) {
    Report report;
    report.Begin("One & two");
    report.Line("~ Activate `VxParams` `Add`");
    report.Add("a.svg");
    report.Add("b.xlsx");
    report.Begin("Three");
    report.Line("~ Activate `VxParams` `Close`");
    report.Line("~ Activate `Unknown` `Close`");
    const std::string page = report.Html("Title", {"VxParams", "VxBom"});
    const std::size_t second = page.find("<h2>Three</h2>");
    ASSERT_NE(second, std::string::npos);
    EXPECT_LT(page.find("<h2>One &amp; two</h2>"), second);
    EXPECT_LT(page.find("<img src=\"a.svg\""), second);
    EXPECT_LT(page.find("<p><a href=\"b.xlsx\">b.xlsx</a></p>"), second);
    EXPECT_NE(page.find("<script src=\"dialogs/frames.js\" defer>"), std::string::npos);
    EXPECT_LT(page.find("<a class=\"dialog\" href=\"dialogs/VxParams.html\">"), second);
    EXPECT_EQ(page.find("dialogs/VxParams.html", second), std::string::npos);
    EXPECT_EQ(page.find("dialogs/VxBom.html"), std::string::npos);
    EXPECT_EQ(page.find("Unknown.html"), std::string::npos);
    EXPECT_EQ(report.Html("Title", {}).find("dialogs/"), std::string::npos) << "none is there";
}

TEST(FactTables, PutSideBySideWhatModelsHeldAtEachMoment) {
    RestartHost();
    Session& session = TheHost().session;
    Model& part = session.Create(WIDE("A"), PRO_MDL_PART);
    Model& top = session.Create(WIDE("TOP"), PRO_MDL_ASSEMBLY);
    session.Create(WIDE("NONE"), PRO_MDL_ASSEMBLY);
    part.appearance = DefaultAppearance();
    std::fill(std::begin(part.appearance->colour), std::end(part.appearance->colour), 0.2);
    FactTable table;
    table.Take(session.All(), "before", {"relations", "colour"});
    part.relations.initial = {WIDE("x = 1"), WIDE("y = 2")};
    top.relations.initial.emplace();
    table.Take(session.All(), "after", {"relations"});
    EXPECT_FALSE(table.empty());
    EXPECT_EQ(table.Lines(),
              (std::vector<std::string>{
                  "model    before     before    after", "         relations  colour    relations",
                  "a.prt    -          51.51.51  2", "top.asm  -          -         0"}));
    EXPECT_TRUE(table.empty());
}

}  // namespace
