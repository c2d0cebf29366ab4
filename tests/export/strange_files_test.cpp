// STEP files that somebody has cut, changed or tied in knots: each ends with a sentence and leaves
// nothing, or with a project that opens.
#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "simhost/core/disk.h"
#include "simhost/core/text.h"
#include "simhost/kernel/exchange.h"
#include "simhost/kernel/import.h"
#include "simhost/kernel/kernel.h"
#include "simhost/model/model_file.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::MakeModels;
using workbench::ModelNamed;
namespace fs = std::filesystem;

// A place in a text of STEP statements, found anew in each of equal parts of it.
std::vector<std::size_t> PlacesOf(const std::string& text, const std::string& mark, int parts) {
    std::vector<std::size_t> places;
    const std::size_t begin = text.find("DATA;") + 5;
    for (int i = 0; i < parts; ++i) {
        const std::size_t from =
            begin + (text.size() - begin) * std::size_t(i) / std::size_t(parts);
        const std::size_t at = text.find(mark, from);
        if (at != std::string::npos) places.push_back(at);
    }
    return places;
}

std::size_t EndOfNumber(const std::string& text, std::size_t at) {
    while (at < text.size() && (std::isdigit(static_cast<unsigned char>(text[at])) ||
                                text[at] == '.' || text[at] == 'E' || text[at] == '-')) {
        ++at;
    }
    return at;
}

class StrangeFiles : public workbench::Workbench {
protected:
    void SetUp() override {
        if (!kernel::TheKernel()) GTEST_SKIP() << "there is no geometry kernel";
        drive_ = host().disk.Real(WIDE("C:\\Work")).parent_path();
        Model& top = MakeModels("top: pin x2, sub(plate, pin)");
        Solid& solid = ModelNamed("pin").partData.solids.front();
        solid.shape = Shape::Cylinder;
        solid.diameter = 20;
        solid.length = 30;
        ModelNamed("plate").appearance = DefaultAppearance();
        whole_ = kernel::TheKernel()->Step(DocumentOf(top, nullptr));
    }

    // Every model of the project is read, and the folder goes again.
    void ExpectOpens(const fs::path& folder, const std::string& top) {
        EXPECT_TRUE(fs::exists(folder / (top + ".1")));
        for (const auto& entry : fs::directory_iterator(folder)) {
            Model model;
            const std::string file = entry.path().stem().string();
            EXPECT_NO_THROW(ReadModelText(ReadFile(entry.path()), file, &model)) << file;
        }
        fs::remove_all(folder);
    }

    void Try(const std::string& text, const std::string& what) {
        const fs::path file = drive_ / "strange.stp", folder = drive_ / "Strange";
        WriteFile(file, text);
        try {
            const Imported made = ImportStep(file, folder, {.seconds = 3});
            ExpectOpens(folder, made.top);
            ++taken_;
        } catch (const std::runtime_error& error) {
            const std::string told = error.what();
            EXPECT_TRUE(told.starts_with(file.string() + ": ") ||
                        told.starts_with("reading " + file.string() + " "))
                << what << ": " << told;
            EXPECT_FALSE(fs::exists(folder)) << what;
            ++refused_;
        }
    }

    fs::path drive_;
    std::string whole_;
    int taken_ = 0, refused_ = 0;
};

TEST_F(StrangeFiles, AreTheWholeOneOrNothingWhereTheirEndIsCutOff) {
    Try(whole_, "whole");
    EXPECT_EQ(taken_, 1);
    for (std::size_t i = 0; i < 20; ++i) {
        Try(whole_.substr(0, whole_.size() * i / 20), "cut");
    }
    EXPECT_EQ(refused_, 20);
}

TEST_F(StrangeFiles, WithAHoleUnderAGoodEndAreRefusedOrOpen) {
    const std::string end = "\nENDSEC;\nEND-ISO-10303-21;\n";
    for (std::size_t i = 1; i < 16; ++i) {
        Try(whole_.substr(0, whole_.size() * i / 16) + end, "hole " + std::to_string(i));
    }
    EXPECT_EQ(taken_ + refused_, 15);
    EXPECT_GT(refused_, 0);
}

TEST_F(StrangeFiles, WithoutOneStatementAreRefusedOrOpen) {
    for (const std::size_t at : PlacesOf(whole_, "\n#", 25)) {
        std::string text = whole_;
        text.erase(at, text.find(";\n", at) + 1 - at);
        Try(text, "without the statement at " + std::to_string(at));
    }
    EXPECT_GT(taken_, 0);
}

TEST_F(StrangeFiles, WhoseReferencesLeadElsewhereAreRefusedOrOpen) {
    for (const char* other : {"#1", "#999999", "$"}) {
        for (const std::size_t at : PlacesOf(whole_, ",#", 15)) {
            std::string text = whole_;
            text.replace(at + 1, EndOfNumber(text, at + 2) - at - 1, other);
            Try(text, "reference at " + std::to_string(at) + " to " + other);
        }
    }
    EXPECT_GT(taken_, 0);
}

TEST_F(StrangeFiles, WhoseStatementsNameThemselvesAreRefusedOrOpen) {
    for (const std::size_t at : PlacesOf(whole_, "\n#", 25)) {
        const std::size_t end = EndOfNumber(whole_, at + 2);
        const std::size_t used = whole_.find('#', end);
        std::string text = whole_;
        text.replace(used, EndOfNumber(text, used + 1) - used, whole_.substr(at + 1, end - at - 1));
        Try(text, "itself at " + std::to_string(at));
    }
    EXPECT_GT(taken_, 0);
}

TEST_F(StrangeFiles, WithNumbersBeyondAllMeasureAreRefusedOrOpen) {
    for (const char* number :
         {"(1.E400,", "(-1.E300,", "(1.E-320,", "(0.,", "(99999999999999999999,"}) {
        for (const std::size_t at : PlacesOf(whole_, "',(", 24)) {
            const std::size_t comma = EndOfNumber(whole_, at + 3);
            if (whole_[comma] != ',') continue;
            std::string text = whole_;
            text.replace(at + 2, comma + 1 - at - 2, number);
            Try(text, number + std::string(" at ") + std::to_string(at));
        }
    }
    EXPECT_GT(taken_, 0);
}

TEST_F(StrangeFiles, OfOtherBytesAreRefusedOrOpen) {
    for (const char* bytes : {"\xff\xfe\x01\x02", "''''", "((((", "))))", ";;;;"}) {
        for (std::size_t i = 1; i < 12; ++i) {
            std::string text = whole_;
            text.replace(whole_.size() * i / 12, 4, bytes);
            Try(text, "other bytes at " + std::to_string(i) + " of 12");
        }
    }
    EXPECT_GT(taken_ + refused_, 0);
}

}  // namespace
