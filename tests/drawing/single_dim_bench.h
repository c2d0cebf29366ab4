// The ground of the tests of VxSingleDim: picks and clicks of a pass, and what was created.
//
// On the sheet the block's lower left corner is at 80 90 and its upper right one at 120 110.
#pragma once

#include <fmt/format.h>

#include <string>
#include <vector>

#include "simhost/model/edge_handles.h"
#include "simhost/ui/replace_dialog.h"
#include "tests/drawing/dimension_bench.h"

namespace workbench {

class SingleDim : public DimensionBench {
protected:
    inline static const std::string kCommand = "~ Command `VxSingleDim`\n";
    inline static const std::string kNoSecond = "@ pick nothing\n";
    inline static const std::string kEnd = "@ quit\n";

    void TearDown() override {
        simhost::circlesAre = PRO_ENT_CIRCLE;
        DimensionBench::TearDown();
    }
    static std::string Click(double x, double y) { return fmt::format("@ click {} {}\n", x, y); }
    std::string PickRim(int view, simhost::Vec3 middle, double radius, const std::string& at = {}) {
        return fmt::format("@ pick edge {}/{}{}\n", view, RimOf(*shaft_, middle, radius), at);
    }
    // The two picks of a pass, the click, and the end of the command.
    std::string TwoPicks(const std::string& first, const std::string& second,
                         const std::string& clicks) {
        return kCommand + first + second + clicks + kEnd;
    }
    // The hint of the last creation.
    int LastHint() {
        const std::vector<std::string> calls = LinesOf("ProDrawingDimCreate");
        if (calls.empty()) return -1;
        const std::size_t at = calls.back().find(" hint ");
        return at == std::string::npos ? -1 : calls.back()[at + 6] - '0';
    }
    void InVersion(const std::string& version) {
        workplace_->StopPlugin();
        simhost::HostVersion() = version;
        EXPECT_EQ(workplace_->StartPlugin(), 0);
    }
    const std::vector<simhost::Selection>& Buffer() { return host().session.selections.buffer(); }
};

}  // namespace workbench
