// BoxSel and VxBoxSelSur: what is picked comes into the selection buffer, in its order.
#include "tests/support/observed.h"

namespace {

using namespace simhost;
using workbench::MakeModels;
using workbench::ModelNamed;
using workbench::Names;
using workbench::ObservedBench;

class BoxPicks : public ObservedBench {
protected:
    void SetUp() override {
        top_ = &MakeModels("top: bolt x2, sub(plate)");
        Open(*top_);
        Start();
    }
    // What is in the buffer, as "bolt.prt 2 -1 at 1, …".
    std::string Buffer() {
        std::string all;
        for (const Selection& each : host().session.selections.buffer()) {
            all += (all.empty() ? "" : ", ") + host().session.Find(each.item.owner)->FileName();
            all +=
                " " + std::to_string(each.item.type) + " " + std::to_string(each.item.id) + " at";
            for (const int id : each.path) all += " " + std::to_string(id);
        }
        return all;
    }
    // The command's answer to the host, while these lines are played.
    int Answer(const std::string& command, const std::string& lines) {
        int result = -99;
        PlayDuring([&] { result = host().commands.Press(command).result; }, lines);
        return result;
    }
    Model* top_ = nullptr;
};

TEST_F(BoxPicks, PartsComeIntoTheBufferInTheOrderOfThePick) {
    Play("@ select sub\n~ Command `BoxSel`\n@ pick sub/plate, bolt:2");
    EXPECT_EQ(Buffer(), "plate.prt 2 -1 at 3 1, bolt.prt 2 -1 at 2");
}

TEST_F(BoxPicks, ABoxTakesThePartsThatLieInItInTheOrderOfTheTree) {
    Play("~ Command `BoxSel`\n@ pick box 0 0 1000 800");
    EXPECT_EQ(Buffer(), "bolt.prt 2 -1 at 1, bolt.prt 2 -1 at 2, plate.prt 2 -1 at 3 1");
    EXPECT_EQ(Answer("BoxSel", "@ pick box 1000 800 0 0"), 0);
    EXPECT_EQ(host().session.selections.buffer().size(), 3u);
}

TEST_F(BoxPicks, SurfacesComeInLikewise) {
    Play("~ Command `VxBoxSelSur`\n@ pick sub/plate#13, bolt#12");
    EXPECT_EQ(Buffer(), "plate.prt 5 13 at 3 1, bolt.prt 5 12 at 1");
    Open(ModelNamed("plate"));
    Play("~ Command `VxBoxSelSur`\n@ pick box 0 0 1000 800");
    EXPECT_EQ(host().session.selections.buffer().size(), 6u);
}

TEST_F(BoxPicks, ThePickWorksForTheCommandThatComesNext) {
    Play("~ Command `BoxSel`\n@ pick sub/plate\n~ Command `VxIsolate`");
    EXPECT_TRUE(top_->FindFeature(1)->hidden);
    EXPECT_FALSE(ModelNamed("sub.asm").FindFeature(1)->hidden);
}

TEST_F(BoxPicks, PickingNothingEmptiesTheBufferAndLeavingKeepsIt) {
    for (const std::string command : {"BoxSel", "VxBoxSelSur"}) {
        Play("@ select sub");
        const int left = Answer(command, "@ quit");
        EXPECT_EQ(left, command == "BoxSel" ? -3 : 0);
        EXPECT_EQ(Buffer(), "sub.asm 1 -1 at 3");
        EXPECT_EQ(Answer(command, "@ pick nothing"), 0);
        EXPECT_EQ(Buffer(), "");
    }
}

TEST_F(BoxPicks, AFailedPickIsAnsweredWithMinusThreeWhateverItsStatus) {
    Play("@ select sub");
    Fail("ProSelect", {.status = PRO_TK_GENERAL_ERROR});
    EXPECT_EQ(Answer("BoxSel", ""), -3);
    EXPECT_EQ(Buffer(), "sub.asm 1 -1 at 3");
}

TEST_F(BoxPicks, AddingGoesOnAfterASingleFailure) {
    Fail("ProSelbufferSelectionAdd", {.n = 2});
    EXPECT_EQ(Answer("BoxSel", "@ pick bolt, bolt:2, sub/plate"), 0);
    EXPECT_EQ(Buffer(), "bolt.prt 2 -1 at 1, plate.prt 2 -1 at 3 1");
}

TEST_F(BoxPicks, WithoutAnEnvironmentItemsArePickedOneByOne) {
    Fail("ProSelectionEnvAlloc");
    Play("~ Command `BoxSel`\n@ pick bolt");
    EXPECT_EQ(Buffer(), "bolt.prt 2 -1 at 1");
}

TEST_F(BoxPicks, TheCallsAreAsPrescribed) {
    for (const std::string command : {"BoxSel", "VxBoxSelSur"}) {
        const std::string filter = command == "BoxSel" ? "part" : "surface";
        const std::string picks = command == "BoxSel" ? "bolt, bolt:2" : "bolt#11, bolt#12";
        Record();
        Play("~ Command `" + command + "`\n@ pick " + picks);
        EXPECT_EQ(Recorded(), (Names{"ProModeCurrentGet", "ProSelectionEnvAlloc", "ProSelect",
                                     "ProSelbufferClear", "ProSelbufferSelectionAdd",
                                     "ProSelbufferSelectionAdd"}));
        EXPECT_NE(Lines("ProSelectionEnvAlloc")
                      .at(0)
                      .find("options=[50 = 0, 51 = 1, 52 = 1], "
                            "environment=environment with a box"),
                  std::string::npos);
        EXPECT_NE(Lines("ProSelect")
                      .at(0)
                      .find("filter=\"" + filter +
                            "\", most=-1, initial=null, functions=null, environment=environment "
                            "with a box, reference=null"),
                  std::string::npos);
    }
}

}  // namespace
