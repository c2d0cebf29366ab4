// A module that cannot be loaded is refused in one line that says why.
#include <stdexcept>

#include "simhost/app/plugin.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;

class PluginFile : public workbench::Workbench {
protected:
    // What is told about a module that is no good; empty if it was loaded.
    std::string Refusal(const WideText& path) {
        file_ = host().disk.Real(path);
        try {
            Plugin plugin(file_, path);
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return {};
    }
    std::string Told() const { return "the module " + file_.string() + " cannot be loaded: "; }

    std::filesystem::path file_;
};

TEST_F(PluginFile, ThatIsNotThereIsRefused) {
    const std::string said = Refusal(WIDE("C:\\Work\\none.dll"));
    EXPECT_EQ(said, Told() + "there is no such file; build it, or name another");
}

TEST_F(PluginFile, ThatIsAFolderIsRefused) {
    const std::string said = Refusal(WIDE("C:\\Work"));
    EXPECT_EQ(said, Told() + "there is no such file; build it, or name another");
}

TEST_F(PluginFile, ThatIsNoModuleIsRefused) {
    Write(WIDE("C:\\Work\\text.dll"), "this is a text");
    const std::string said = Refusal(WIDE("C:\\Work\\text.dll"));
    EXPECT_EQ(said.substr(0, Told().size()), Told());
    EXPECT_GT(said.size(), Told().size());
    EXPECT_EQ(said.find('\n'), std::string::npos);
}

}  // namespace
