// Dialogs as files: each holds its form, its pictures and all of the page's sources that show it.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "simhost/app/temporary_drive.h"
#include "simhost/core/disk.h"
#include "simhost/core/text.h"
#include "simhost/ui/dialogs.h"
#include "simhost/ui/resource.h"
#include "simhost/web/dialog_files.h"
#include "simhost/web/dialog_form.h"
#include "simhost/web/one_script.h"
#include "tests/support/places.h"

namespace {

namespace fs = std::filesystem;
using Form = simhost::Json;
using simhost::OneScript;
using simhost::ReadFile;
using simhost::WriteDialogFiles;

const fs::path kPage = fs::path(workbench::kSourceFolder) / "simhost" / "web" / "page";
const fs::path kShipped = fs::path(workbench::kSourceFolder) / "text" / "resource";

constexpr const char* kSign =
    "(Dialog Logo (Components (Label Sign) (PushButton OK))\n"
    "    (Resources (.Label \"A < B & C\") (OK.Label \"</script>\")\n"
    "        (Sign.Bitmap \"sign.png\")\n"
    "        (.Layout (Grid (Rows 1 1) (Cols 1) Sign OK))))\n";

class DialogFiles : public ::testing::Test {
protected:
    void Put(const std::string& file, const std::string& text) {
        fs::create_directories((folder_ / file).parent_path());
        ASSERT_TRUE(simhost::WriteFile(folder_ / file, text));
    }
    std::vector<fs::path> Made() { return WriteDialogFiles(kPage, folder_, Out()); }
    fs::path Out() const { return folder_ / "out" / "deep"; }
    std::string MadeFile(const std::string& name) { return ReadFile(Out() / name); }
    // What WriteDialogFiles complains of.
    std::string Refusal() {
        try {
            Made();
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return {};
    }

    const simhost::TemporaryDrive drive_;
    const fs::path folder_ = drive_.path();
};

// The JSON in a dialog's file.
Form FormInside(const std::string& page) {
    const std::string head = "<script id=\"form\" type=\"application/json\">";
    const std::size_t from = page.find(head) + head.size();
    return Form::parse(page.substr(from, page.find("</script>", from) - from));
}

int CountOf(const std::string& text, const std::string& part) {
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

TEST_F(DialogFiles, AreWrittenForEveryShippedDialogInTheOrderOfTheirNames) {
    const std::vector<fs::path> files = WriteDialogFiles(kPage, kShipped, Out());
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(kShipped)) {
        if (entry.path().extension() == ".res") names.push_back(entry.path().stem().string());
    }
    std::sort(names.begin(), names.end());
    ASSERT_GE(names.size(), 16u);
    ASSERT_EQ(files.size(), names.size());
    const std::string index = MadeFile("index.html");
    for (std::size_t i = 0; i < names.size(); ++i) {
        EXPECT_EQ(files[i], Out() / (names[i] + ".html"));
        const simhost::Dialog dialog(
            names[i], simhost::ParseResource(ReadFile(kShipped / (names[i] + ".res")), names[i]));
        const Form form = FormInside(ReadFile(files[i]));
        EXPECT_EQ(form["layout"], simhost::FormOf(dialog)["layout"]) << names[i];
        EXPECT_NE(index.find("<a class=\"dialog\" href=\"" + names[i] + ".html\">" + names[i] +
                             ": " + simhost::Utf8(dialog.title()) + "</a>"),
                  std::string::npos)
            << names[i];
    }
    EXPECT_EQ(MadeFile("frames.js"), ReadFile(kPage / "frames.js"));
}

TEST_F(DialogFiles, HoldTheSourcesAndStylesOfThePageAndNoAddress) {
    WriteDialogFiles(kPage, kShipped, Out());
    const std::string page = MadeFile("VxBom.html");
    for (const char* file : {"style.css", "forms.css", "alone.css"}) {
        EXPECT_NE(page.find(ReadFile(kPage / file)), std::string::npos) << file;
    }
    EXPECT_NE(page.find("class DialogWindow extends FormWindow {"), std::string::npos);
    EXPECT_EQ(CountOf(page, "\nimport "), 0);
    EXPECT_EQ(CountOf(page, "\nexport "), 0);
    EXPECT_EQ(CountOf(page, "src=\""), 0);
    EXPECT_EQ(CountOf(page, "<link"), 0);
    EXPECT_EQ(CountOf(page, "localStorage"), 0) << "some browsers refuse it to a frame";
    EXPECT_NE(page.find("content=\"default-src 'none'; script-src 'unsafe-inline'; "
                        "style-src 'unsafe-inline'; img-src data:\""),
              std::string::npos);
}

TEST_F(DialogFiles, HoldThePicturesOfLabels) {
    Put("Logo.res", kSign);
    // The head of a PNG of one pixel, and one to three bytes after it: in base64 the last ones end
    // in each of the three ways.
    const std::string head("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\0\1\0\0\0\1", 24);
    for (const auto& [more, base64] :
         {std::pair{"M", "TQ=="}, {"Ma", "TWE="}, {"Man", "TWFu"}, {"\xff\xff\xbe", "//++"}}) {
        Put("sign.png", head + more);
        ASSERT_EQ(Made().size(), 1u);
        const Form sign = FormInside(MadeFile("Logo.html"))["components"][0];
        EXPECT_EQ(sign["picture"],
                  std::string("data:image/png;base64,iVBORw0KGgoAAAANSUhEUgAAAAEAAAAB") + base64);
    }
}

TEST_F(DialogFiles, AreNotWrittenWithAPictureThatIsNotThereOrNone) {
    Put("Logo.res", kSign);
    EXPECT_EQ(Refusal(), "Logo.res:3: the picture sign.png is not there");
    Put("sign.png", "GIF89a");
    EXPECT_EQ(Refusal(), "Logo.res:3: the picture sign.png is no PNG");
}

TEST_F(DialogFiles, SayWhatCannotBeReadOrWritten) {
    Put("Bad.res", "(Dialog");
    EXPECT_NE(Refusal().find("Bad.res:1"), std::string::npos) << Refusal();
    fs::remove(folder_ / "Bad.res");
    Put("Logo.res", "(Dialog Logo (Components (PushButton OK)))");
    fs::create_directories(Out() / "Logo.html");
    EXPECT_EQ(Refusal().find("cannot write " + (Out() / "Logo.html").string() + ": "), 0u);
    EXPECT_THROW(WriteDialogFiles(folder_, folder_, Out()), std::runtime_error) << "no page";
    EXPECT_THROW(WriteDialogFiles(kPage, folder_ / "none", Out()), std::runtime_error);
}

TEST_F(DialogFiles, AreNotEndedByWhatALabelSays) {
    Put("Logo.res", kSign);
    Put("sign.png", ReadFile(kShipped / "AboutVx.png"));
    Made();
    const std::string page = MadeFile("Logo.html");
    EXPECT_EQ(FormInside(page)["components"][1]["label"], "</script>");
    EXPECT_EQ(CountOf(page, "</script>"), 2) << "of the form and of the script itself";
    EXPECT_NE(page.find("<title>A &lt; B &amp; C</title>"), std::string::npos);
    EXPECT_NE(MadeFile("index.html").find(">Logo: A &lt; B &amp; C</a>"), std::string::npos);
}

TEST_F(DialogFiles, AreMadeOfModulesInTheOrderInWhichABrowserRunsThem) {
    Put("top.js", "import { b } from './b.js';\nimport {\n  a,\n} from './a.js';\nrun(a, b);\n");
    Put("b.js",
        "import { a } from './a.js';\nexport function b() {}\nexport async function c() {}\n");
    Put("a.js", "export const a = 1;\nexport class D extends E {\n}\n");
    EXPECT_EQ(OneScript(folder_, "top.js"),
              "'use strict';\nconst modules = {};\n"
              "modules['a.js'] = (() => {\nconst a = 1;\nclass D extends E {\n}\n"
              "return { a, D };\n})();\n"
              "modules['b.js'] = (() => {\nconst { a } = modules['a.js'];\nfunction b() {}\n"
              "async function c() {}\nreturn { b, c };\n})();\n"
              "modules['top.js'] = (() => {\nconst { b } = modules['b.js'];\n"
              "const {  a,} = modules['a.js'];\nrun(a, b);\nreturn {  };\n})();\n");
}

TEST_F(DialogFiles, AreNotMadeOfModulesThatDoItInAnotherWay) {
    Put("a.js", "export const a = 1;\n");
    for (const char* line :
         {"import a from './a.js';", "import * as a from './a.js';", "import './a.js';",
          "import { a as b } from './a.js';", "import { a } from 'a.js';",
          "import { a } from './a.js'; run();", "import { a } from './none.js';",
          "import { a } from \"./a.js\";", "import { a", "export default 1;", "export { a };",
          "export let a = 1;", "const a = '</script>';"}) {
        Put("top.js", std::string(line) + '\n');
        EXPECT_THROW(OneScript(folder_, "top.js"), std::runtime_error) << line;
    }
    Put("top.js", "import { a } from './a.js';\n");
    EXPECT_NO_THROW(OneScript(folder_, "top.js"));
    try {
        OneScript(folder_, "none.js");
        FAIL() << "it is not there";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(error.what(), "cannot read " + (folder_ / "none.js").string());
    }
}

}  // namespace
