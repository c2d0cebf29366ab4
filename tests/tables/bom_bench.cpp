// The small assembly of the tests of VxBom.
#include "tests/tables/bom_bench.h"

#include "hostapi/windows.h"

namespace workbench {

using namespace simhost;

namespace {

// A user whose hands are those of the test.
class Hands : public User {
public:
    explicit Hands(const std::function<void(Dialog&)>& use) : use_(use) {}
    int AnswerBox(const Box&) override { return 1; }
    void UseDialog(Dialog& dialog) override {
        use_(dialog);
        EXPECT_EQ(dialog.Press("Close"), "");
    }
    std::optional<WideText> AnswerPrompt(const WideText&, const WideText&) override {
        return std::nullopt;
    }

private:
    const std::function<void(Dialog&)>& use_;
};

}  // namespace

void BomBench::WithBom(const std::function<void(Dialog&)>& use) {
    Hands hands(use);
    host().user = &hands;
    EXPECT_TRUE(host().commands.Press("VxBom"));
    host().user = nullptr;
}

void BomBench::SetUp() {
    Start();
    top_ = &MakeModels(
        "top: skel!skeleton, bolt x2, sub(gear x2, bolt), bolt, sub, bolt!suppressed, "
        "gear!invisible");
    sub_ = &ModelNamed("sub");
    bolt_ = &ModelNamed("bolt");
    gear_ = &ModelNamed("gear");
    skeleton_ = &ModelNamed("skel");
    Open(*top_);
    Columns("模型名称,模型数量", "层级1,层级2,模型名称,模型数量");
}

void BomBench::Columns(const std::string& summed, const std::string& levelled) {
    ASSERT_TRUE(WriteBomColumns(summed, levelled));
}

std::string LoadLevels(const std::string& depth) {
    return "~ Select `VxBom` `BomRadio` 1 `LevelBom`\n~ Select `VxBom` `LevelOption` `" + depth +
           "`\n~ Activate `VxBom` `VxLoadBom`\n";
}

}  // namespace workbench
