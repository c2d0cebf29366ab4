// Simplified representations: who is a member, how they stand in files, and what the host refuses.
#include "simhost/model/model_file.h"
#include "simhost/model/shown.h"
#include "tests/simhost/trail_ground.h"

using namespace simhost;
using namespace trails;

namespace {

Membership::At Follow(const Membership& membership, const std::vector<int>& path) {
    Membership::At at = membership.Top();
    for (const int id : path) at = Membership::Below(at, id);
    return at;
}

TEST(Membership, WithoutARepresentationAllAreThere) {
    const Membership master(nullptr);
    EXPECT_TRUE(Follow(master, {1, 2, 3}).included);
}

TEST(Membership, TheLongestItemThatLeadsToAComponentDecides) {
    Simprep simprep;
    simprep.items = {{{1}, kSimprepInclude},
                     {{1, 2}, kSimprepExclude},
                     {{1, 2, 3}, kSimprepInclude},
                     {{5, 6}, kSimprepInclude}};
    const Membership members(&simprep);
    const auto included = [&](const std::vector<int>& path) {
        return Follow(members, path).included;
    };
    EXPECT_TRUE(included({1}));
    EXPECT_TRUE(included({1, 7}));
    EXPECT_FALSE(included({1, 2}));
    EXPECT_FALSE(included({1, 2, 8}));
    EXPECT_TRUE(included({1, 2, 3}));
    EXPECT_FALSE(included({2}));
    EXPECT_FALSE(included({5}));
    // On the way to a member it is there all the same, but nothing else of it is.
    EXPECT_TRUE(Membership::IsThere(Follow(members, {5})));
    EXPECT_TRUE(Membership::IsThere(Follow(members, {1, 2})));
    EXPECT_FALSE(Membership::IsThere(Follow(members, {5, 7})));
    simprep.defaultAction = kSimprepInclude;
    EXPECT_TRUE(Follow(Membership(&simprep), {2}).included);
}

TEST(Membership, OfTwoItemsForOneComponentTheLaterCounts) {
    Simprep simprep;
    simprep.items = {{{1}, kSimprepInclude}, {{1}, kSimprepExclude}};
    EXPECT_FALSE(Follow(Membership(&simprep), {1}).included);
}

// --- In files

constexpr const char* kAssembly = "[model]\ntype = \"assembly\"\n";

TEST(SimprepFile, IsReadAndWrittenAsItWas) {
    const std::string text = std::string(kAssembly) +
                             "\n[[simprep]]\nname = \"SHAFTS\"\ninclude = [[3, 1], [4]]\n"
                             "\n[[simprep]]\nname = \"外壳\"\ndefault = \"include\"\n"
                             "exclude = [[7]]\n";
    Model model;
    ReadModelText(text, "top.asm.1", &model);
    const auto& all = model.assemblyData.simpreps;
    ASSERT_EQ(all.size(), 2u);
    EXPECT_EQ(all[0].defaultAction, kSimprepExclude);
    ASSERT_EQ(all[0].items.size(), 2u);
    EXPECT_EQ(all[0].items[0].path, (std::vector<int>{3, 1}));
    EXPECT_EQ(all[0].items[0].action, kSimprepInclude);
    EXPECT_EQ(all[1].id, 2);
    EXPECT_EQ(all[1].defaultAction, kSimprepInclude);
    EXPECT_EQ(all[1].items[0].action, kSimprepExclude);
    EXPECT_EQ(model.assemblyData.activeSimprep, 0);
    EXPECT_EQ(ModelText(model), text);
}

TEST(SimprepFile, ASlipIsNamedWithItsLine) {
    const auto slip = [](const std::string& lines) {
        Model model;
        try {
            ReadModelText(kAssembly + lines, "top.asm.1", &model);
        } catch (const ModelFileError& error) {
            return std::string(error.what());
        }
        return std::string();
    };
    EXPECT_NE(slip("[[simprep]]\nname = \"\"\n").find(":4:"), std::string::npos);
    EXPECT_NE(slip("[[simprep]]\nname = \"123456789012345678901234567890123\"\n").find(":4:"),
              std::string::npos);
    EXPECT_EQ(slip("[[simprep]]\nname = \"12345678901234567890123456789012\"\n"), "");
    EXPECT_NE(slip("[[simprep]]\nname = \"A\"\n[[simprep]]\nname = \"a\"\n").find("is there twice"),
              std::string::npos);
    EXPECT_NE(slip("[[simprep]]\nname = \"A\"\ndefault = \"all\"\n").find(":5:"),
              std::string::npos);
    for (const char* paths : {"7", "[7]", "[[]]", "[[\"x\"]]", "[[0]]"}) {
        EXPECT_NE(
            slip(std::string("[[simprep]]\nname = \"A\"\ninclude = ") + paths + "\n").find(":5:"),
            std::string::npos)
            << paths;
    }
}

// --- At the door. TOP holds the unit 箱体 (1), which holds SHAFT (1, 2), and SHAFT (2).

class Representations : public ModelScripts {
protected:
    // Makes and fills a representation of these paths.
    ProSimprep Make(const WideChar* name, std::vector<std::vector<int>> paths) {
        ProSimprepdata* data = nullptr;
        ProSimprep made = {};
        EXPECT_EQ(ProSimprepdataAlloc(Text(name), PRO_B_FALSE, PRO_SIMPREP_EXCLUDE, &data), 0);
        EXPECT_EQ(ProSimprepCreate(Top(), data, &made), 0);
        ProSimprepAction action = {};
        ProSimprepActionInit(PRO_SIMPREP_INCLUDE, nullptr, &action);
        for (std::vector<int>& path : paths) {
            ProSimprepitem item = {};
            ProSimprepitemInit(path.data(), int(path.size()), -1, &action, &item);
            EXPECT_EQ(ProSimprepdataitemAdd(data, &item), 0);
        }
        EXPECT_EQ(ProSimprepdataSet(&made, data), 0);
        EXPECT_EQ(ProSimprepdataFree(&data), 0);
        EXPECT_EQ(data, nullptr);
        return made;
    }
    static WideChar* Text(const WideChar* text) { return const_cast<WideChar*>(text); }
    ProSolid Top() { return static_cast<ProSolid>(top_->handle); }
    ProError Create(const WideText& name) {
        ProSimprepdata* data = nullptr;
        ProSimprep made = {};
        WideText text = name;
        ProSimprepdataAlloc(text.data(), PRO_B_FALSE, PRO_SIMPREP_EXCLUDE, &data);
        const ProError status = ProSimprepCreate(Top(), data, &made);
        ProSimprepdataFree(&data);
        return status;
    }
};

TEST_F(Representations, MeasuresFollowTheActiveOneAndDrawingViewsShowAll) {
    ProSimprep made = Make(WIDE("LIGHT"), {{1, 2}});
    EXPECT_EQ(ShownParts(*top_, Sight::Screen).size(), 3u);
    EXPECT_EQ(ProSimprepActivate(Top(), &made), 0);
    EXPECT_EQ(ShownParts(*top_, Sight::Screen).size(), 1u);
    EXPECT_EQ(ShownParts(*top_, Sight::Measures).size(), 1u);
    EXPECT_EQ(ShownParts(*top_, Sight::Views).size(), 3u);
}

TEST_F(Representations, ANameThatIsTakenEmptyOrOfStrangeLettersIsRefused) {
    EXPECT_EQ(Create(WIDE("light")), PRO_TK_NO_ERROR);
    EXPECT_EQ(Create(WIDE("LIGHT")), PRO_TK_E_FOUND);
    EXPECT_EQ(Create(WIDE("")), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Create(WIDE("a b")), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Create(WideText(32, WIDE('x'))), PRO_TK_NO_ERROR);
    EXPECT_EQ(Create(WIDE("简化")), PRO_TK_NO_ERROR);
    EXPECT_EQ(Complaints(), std::vector<std::string>{});
}

TEST_F(Representations, RetrieveFindsThoseThatAreThereAndActivatesNothing) {
    Make(WIDE("LIGHT"), {});
    ProAssembly found = nullptr;
    EXPECT_EQ(ProAssemblySimprepRetrieve(Text(WIDE("top")), Text(WIDE("Light")), nullptr, &found),
              PRO_TK_NO_ERROR);
    EXPECT_EQ(found, Top());
    EXPECT_EQ(top_->assemblyData.activeSimprep, 0);
    found = nullptr;
    EXPECT_EQ(ProAssemblySimprepRetrieve(Text(WIDE("top")), Text(WIDE("other")), nullptr, &found),
              PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(ProAssemblySimprepRetrieve(Text(WIDE("no")), Text(WIDE("Light")), nullptr, &found),
              PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(found, nullptr);
}

TEST_F(Representations, NullsAreRefusedQuietlyAndWhatWasFreedIsAComplaint) {
    ProSimprep none = {};
    ProSimprepdata* data = nullptr;
    EXPECT_EQ(ProSimprepCreate(Top(), nullptr, &none), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProSimprepdataSet(&none, nullptr), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProSimprepActivate(Top(), &none), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProSimprepInit(Text(WIDE("X")), -1, Top(), &none), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(ProSimprepInit(Text(WIDE("X")), -1, nullptr, &none), PRO_TK_BAD_INPUTS);
    const auto part = static_cast<ProSolid>(shaft_->handle);
    EXPECT_EQ(ProSimprepInit(Text(WIDE("X")), -1, part, &none), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(), std::vector<std::string>{});
    ProSimprepdataAlloc(Text(WIDE("X")), PRO_B_FALSE, PRO_SIMPREP_EXCLUDE, &data);
    ProSimprepdata* const old = data;
    EXPECT_EQ(host().session.simprepDatas.Held().size(), 1u);
    ProSimprepdataFree(&data);
    EXPECT_EQ(ProSimprepCreate(Top(), old, &none), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(), std::vector<std::string>{
                                "ProSimprepCreate: data of a representation that was freed"});
}

TEST_F(Representations, TheTreeTellsWhatIsNotOnTheScreenAndWhy) {
    Use(*top_, Part("PIN")).status = PRO_FEAT_SUPPRESSED;
    Use(*top_, Part("NUT")).visible = false;
    Feature lost;
    lost.type = PRO_FEAT_COMPONENT;
    lost.file = "lost.prt";
    top_->AddFeature(lost);
    unit_->FindFeature(1)->hidden = true;
    EXPECT_EQ(Run("@ show tree"), Failures{});
    EXPECT_TRUE(Told("    箱体/shaft "));
    const auto marked = [&](const std::string& path, const std::string& marks) {
        const std::size_t at = transcript_.find("    " + path + " ");
        return at != std::string::npos &&
               transcript_.substr(at, transcript_.find('\n', at) - at).find(marks) !=
                   std::string::npos;
    };
    EXPECT_TRUE(marked("箱体/shaft", "(hidden)"));
    EXPECT_TRUE(marked("pin", "(suppressed)"));
    EXPECT_TRUE(marked("nut", "(invisible)"));
    EXPECT_TRUE(marked("lost", "(not in memory)"));
    EXPECT_FALSE(marked("箱体", "("));
    ProSimprep made = Make(WIDE("LIGHT"), {{1, 2}});
    ProSimprepActivate(Top(), &made);
    EXPECT_EQ(Run("@ show tree"), Failures{});
    EXPECT_TRUE(marked("箱体/shaft", "(hidden, excluded)"));
    EXPECT_TRUE(marked("shaft", "(excluded)"));
    EXPECT_FALSE(marked("箱体/shaft:2", "("));
    EXPECT_TRUE(Told("simplified representations: LIGHT; active: LIGHT"));
    EXPECT_EQ(Run("@ show tree 箱体"), Failures{});
    EXPECT_TRUE(marked("箱体/shaft", "(hidden, excluded)"));
}

// --- Hidden

int HidesOneAndShowsAnother(uiCmdCmdId, uiCmdValue*, void*) {
    const ProMdl unit = TheHost().session.FindByFile("箱体.asm")->handle;
    ProModelitem first = {PRO_FEATURE, 1, unit}, second = {PRO_FEATURE, 2, unit};
    ProModelitemUnhide(&second);
    return ProModelitemHide(&first);
}

TEST_F(Representations, APressTellsHowManyComponentsItHasHiddenAndShown) {
    uiCmdCmdId id = nullptr;
    ProCmdActionAdd(const_cast<char*>("Hides"), HidesOneAndShowsAnother, 5, nullptr, PRO_B_FALSE,
                    PRO_B_FALSE, &id);
    unit_->FindFeature(2)->hidden = true;
    EXPECT_EQ(Run("~ Command `Hides`\n~ Command `Hides`"), Failures{});
    EXPECT_TRUE(Told("    changed: 1 component is hidden, 1 component is shown\n"));
    EXPECT_EQ(transcript_.find("changed:"), transcript_.rfind("changed:"));
}

TEST_F(Representations, HidingIsOfTheScreenAloneAndIsNotSaved) {
    ProModelitem item = {PRO_FEATURE, 1, unit_->handle};
    shaft_->readOnly = unit_->readOnly = true;
    EXPECT_EQ(ProModelitemHide(&item), PRO_TK_NO_ERROR);
    ProBoolean hidden = PRO_B_FALSE;
    EXPECT_EQ(ProModelitemIsHidden(&item, &hidden), PRO_TK_NO_ERROR);
    EXPECT_EQ(hidden, PRO_B_TRUE);
    EXPECT_FALSE(unit_->modified);
    EXPECT_EQ(ShownParts(*top_, Sight::Screen).size(), 2u);
    EXPECT_EQ(ShownParts(*top_, Sight::Measures).size(), 3u);
    EXPECT_EQ(ModelText(*unit_).find("hidden"), std::string::npos);
    EXPECT_EQ(ProModelitemUnhide(&item), PRO_TK_NO_ERROR);
    EXPECT_EQ(ShownParts(*top_, Sight::Screen).size(), 3u);
}

TEST_F(Representations, WhatAFileHidesStaysHiddenInItWhateverTheScreenShows) {
    Model read;
    ReadModelText(std::string(kAssembly) +
                      "[[feature]]\nid = 1\ntype = 1000\nmodel = \"a.prt\"\nhidden = true\n",
                  "top.asm.1", &read);
    EXPECT_TRUE(read.features()[0].hidden);
    read.MutableFeatures()[0].hidden = false;
    EXPECT_NE(ModelText(read).find("hidden = true"), std::string::npos);
}

TEST_F(Representations, AHiddenAssemblyHidesWhatIsBelowIt) {
    top_->FindFeature(1)->hidden = true;
    EXPECT_EQ(ShownParts(*top_, Sight::Screen).size(), 1u);
}

TEST_F(Representations, TheUppermostAssemblysLookCoversWhatIsBelowIt) {
    const auto covers = [&] {
        std::string all;
        VisitShown(*top_, Sight::Screen, [&](const ShownPart& shown) {
            all += shown.cover ? std::to_string(int(10 * shown.cover->transparency)) + " " : "- ";
        });
        return all;
    };
    EXPECT_EQ(covers(), "- - - ");
    unit_->appearance = DefaultAppearance();
    unit_->appearance->transparency = 0.5;
    shaft_->appearance = DefaultAppearance();
    EXPECT_EQ(covers(), "5 5 - ");
    top_->appearance = DefaultAppearance();
    top_->appearance->transparency = 0.2;
    EXPECT_EQ(covers(), "2 2 2 ");
}

}  // namespace
