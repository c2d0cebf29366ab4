// ForTest, the command without an effect.
#include "tests/support/observed.h"

namespace {

using namespace simhost;
using workbench::Names;
using workbench::ObservedBench;

class PlaceHolder : public ObservedBench {
protected:
    void SetUp() override { Start(); }
};

TEST_F(PlaceHolder, AsksForTheCurrentModelAndNothingElse) {
    Model& plate = Part("plate");
    Open(plate);
    Record();
    Press("ForTest");
    EXPECT_EQ(Recorded(), Names{"ProMdlCurrentGet"});
    EXPECT_FALSE(plate.modified);
    EXPECT_EQ(host().session.CurrentModel(), &plate);
}

TEST_F(PlaceHolder, DoesNotMindThatThereIsNoModel) {
    Record();
    Press("ForTest");
    EXPECT_EQ(Recorded(), Names{"ProMdlCurrentGet"});
    EXPECT_EQ(Boxes(), Names{});
}

}  // namespace
