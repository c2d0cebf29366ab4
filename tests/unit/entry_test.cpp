// The host's version text, which commands read later to choose their macros.
#include "frame/entry.h"
#include "frame/services/host_version.h"
#include "simhost/system/windows.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::Workbench;

class VersionText : public Workbench {
protected:
    // What is kept of this version; the first-run notice is behind the user.
    WideText Kept(std::string version) {
        workbench::MarkFirstRunSeen();
        char build[] = "build";
        WideChar errorText[80] = {};
        EXPECT_EQ(user_initialize(0, nullptr, version.data(), build, errorText), 0);
        EXPECT_EQ(errorText[0], WideChar{});
        host().commands.Clear();
        return HostVersionText;
    }
};

TEST_F(VersionText, IsTheThirdArgumentInWideCharacters) {
    EXPECT_EQ(Kept("Creo Parametric 7.0"), WIDE("Creo Parametric 7.0"));
    EXPECT_EQ(Kept("\xCF\xEE\xC4\xBF 8"), WIDE("项目 8"));
    EXPECT_EQ(Kept(""), WIDE(""));
}

TEST_F(VersionText, MayBeOfAnyLength) {
    EXPECT_EQ(Kept(std::string(10'000, 'v')), WideText(10'000, WideChar{'v'}));
}

TEST_F(VersionText, IsKeptAlsoWhenTheStartFails) {
    char version[] = "Creo 9";
    Fail("ProUIDialogCreate", {.status = PRO_TK_BAD_CONTEXT});
    int status = 0;
    PlayDuring([&] { status = user_initialize(0, nullptr, version, nullptr, nullptr); }, "@ ok");
    EXPECT_EQ(status, PRO_TK_BAD_CONTEXT);
    EXPECT_EQ(HostVersionText, WIDE("Creo 9"));
}

TEST_F(VersionText, IsEmptyWhenTheHostGivesNone) {
    workbench::MarkFirstRunSeen();
    EXPECT_EQ(user_initialize(0, nullptr, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(HostVersionText, WIDE(""));
}

}  // namespace
