// Models that no CAD system would have saved: they are refused when they are opened, with the way
// that leads to the fault.
#include <fmt/format.h>

#include "hostapi/host.h"
#include "simhost/core/disk.h"
#include "simhost/model/model_file.h"
#include "simhost/model/model_tree.h"
#include "tests/support/workbench.h"

using namespace simhost;

namespace {

class ModelTree : public workbench::Workbench {
protected:
    // A file with these components.
    void PutAssembly(const std::string& file, const std::vector<std::string>& components) {
        std::string text = "[model]\ntype = \"assembly\"\n";
        int id = 0;
        for (const std::string& one : components) {
            text += fmt::format("[[feature]]\nid = {}\ntype = 1000\nmodel = \"{}\"\n", ++id, one);
        }
        Put(file, text);
    }
    void PutPart(const std::string& file, const std::string& generic = "") {
        std::string text = "[model]\ntype = \"part\"\n";
        if (!generic.empty()) text += "[family]\ngeneric = \"" + generic + "\"\n";
        Put(file, text);
    }
    void PutManufacturing(const std::string& file, const std::string& assembly) {
        Put(file, "[model]\ntype = \"manufacturing\"\n[manufacturing]\nassembly = \"" + assembly +
                      "\"\n");
    }
    void Put(const std::string& file, const std::string& text) {
        Write(WIDE("C:\\Work\\") + Wide(file) + WIDE(".1"), text);
    }
    // Why a model cannot be opened; empty if it can. What was refused leaves nothing in memory.
    std::string Refused(const std::string& file) {
        const std::size_t before = host().session.All().size();
        try {
            EXPECT_NE(host().session.Retrieve(file), nullptr) << file;
        } catch (const ModelFileError& error) {
            EXPECT_EQ(host().session.All().size(), before);
            return error.what();
        }
        return "";
    }
    // assemblies level_1.asm, level_2.asm and so on, each in the one before it, and a part in the
    // last.
    void PutNested(int levels) {
        for (int i = 1; i < levels; ++i) {
            PutAssembly(fmt::format("level_{}.asm", i), {fmt::format("level_{}.asm", i + 1)});
        }
        PutAssembly(fmt::format("level_{}.asm", levels), {"p.prt"});
        PutPart("p.prt");
    }
};

TEST_F(ModelTree, AnAssemblyThatContainsItselfIsRefused) {
    PutAssembly("self.asm", {"self.asm"});
    EXPECT_EQ(Refused("self.asm"), "self.asm contains itself: self.asm > self.asm");
    PutAssembly("a.asm", {"p.prt", "b.asm"});
    PutAssembly("b.asm", {"c.asm"});
    PutAssembly("c.asm", {"p.prt", "b.asm"});
    PutPart("p.prt");
    EXPECT_EQ(Refused("a.asm"), "b.asm contains itself: b.asm > c.asm > b.asm");
}

TEST_F(ModelTree, ALongCircleIsNamedByItsBeginningAndItsEnd) {
    PutNested(50);
    PutAssembly("level_50.asm", {"LEVEL_1.ASM"});
    EXPECT_EQ(Refused("level_1.asm"),
              "level_1.asm contains itself: level_1.asm > level_2.asm > level_3.asm > level_4.asm "
              "> level_5.asm > level_6.asm > … (38 more) > level_45.asm > level_46.asm > "
              "level_47.asm > level_48.asm > level_49.asm > level_50.asm > level_1.asm");
}

TEST_F(ModelTree, ACircleThatClosesOverModelsInMemoryIsRefusedToo) {
    PutAssembly("a.asm", {"b.asm"});
    EXPECT_EQ(Refused("a.asm"), "");
    PutAssembly("b.asm", {"a.asm"});
    EXPECT_EQ(Refused("a.asm"), "a.asm contains itself: a.asm > b.asm > a.asm");
    EXPECT_EQ(host().session.FindByFile("a.asm")->features()[0].model, nullptr);
}

TEST_F(ModelTree, GenericsInACircleAreRefused) {
    PutPart("p.prt", "q.prt");
    PutPart("q.prt", "r.prt");
    PutPart("r.prt", "p.prt");
    PutAssembly("a.asm", {"q.prt"});
    EXPECT_EQ(Refused("a.asm"), "q.prt is its own generic: q.prt > r.prt > p.prt > q.prt");
    PutPart("s.prt", "s.prt");
    EXPECT_EQ(Refused("s.prt"), "s.prt is its own generic: s.prt > s.prt");
}

TEST_F(ModelTree, AModelThatIsOfTheWrongKindForItsUseIsRefused) {
    PutManufacturing("self.mfg", "self.mfg");
    EXPECT_EQ(Refused("self.mfg"), "self.mfg machines self.mfg, which is not an assembly");
    PutManufacturing("part.mfg", "p.prt");
    PutPart("p.prt");
    EXPECT_EQ(Refused("part.mfg"), "part.mfg machines p.prt, which is not an assembly");
    PutManufacturing("good.mfg", "top.asm");
    PutAssembly("top.asm", {"good.mfg"});
    EXPECT_EQ(Refused("top.asm"),
              "top.asm has the component good.mfg, which is neither a part nor an assembly");
    PutPart("i.prt", "other.asm");
    PutAssembly("other.asm", {});
    EXPECT_EQ(Refused("i.prt"), "i.prt has the generic other.asm, which is of another kind");
}

TEST_F(ModelTree, IsNotACircleWhereAModelIsUsedTwice) {
    PutAssembly("a.asm", {"b.asm", "c.asm", "b.asm"});
    PutAssembly("b.asm", {"c.asm", "p.prt"});
    PutAssembly("c.asm", {"p.prt", "p.prt"});
    PutPart("p.prt", "q.prt");
    PutPart("q.prt");
    EXPECT_EQ(Refused("a.asm"), "");
}

TEST_F(ModelTree, HasAtMostAThousandLevels) {
    Model* below = &Part("p");
    for (int level = 1; level < kMostLevels; ++level) {
        Model& assembly = Assembly(fmt::format("height_{}", level));
        Use(assembly, *below);
        below = &assembly;
    }
    PutAssembly("good.asm", {"height_999.asm"});
    PutAssembly("too_high.asm", {"p.prt", "good.asm"});
    EXPECT_EQ(Refused("too_high.asm"), "too_high.asm has more than 1000 levels below it");
    EXPECT_EQ(Refused("good.asm"), "");
}

TEST_F(ModelTree, ThatCannotBeIsAStatusToThePlugIn) {
    PutAssembly("a.asm", {"a.asm"});
    WideChar name[] = WIDE("a");
    ProMdl model = nullptr;
    EXPECT_EQ(ProMdlRetrieve(name, PRO_MDL_ASSEMBLY, &model), PRO_TK_INVALID_FILE);
    ASSERT_EQ(host().shown.size(), 1u);
    EXPECT_EQ(Utf8(host().shown[0].text), "a.asm contains itself: a.asm > a.asm");
}

}  // namespace
