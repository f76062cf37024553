// Loading modules: what is refused and why, and what a failing start or stop leaves.
#include <cstdlib>

#include "host/ModuleLoader.h"
#include "platform/drawing/EdCommandStack.h"
#include "platform/win32/Modules.h"
#include "tests/host/Support.h"

namespace {

std::string Library(const std::string& name) {
    return std::string(KV_BINARY_DIR) + "/lib/" + name + ".so";
}

class ModuleLoaderTest : public testing::Test {
  protected:
    void SetUp() override { Wish(""); }
    static void Wish(const char* wish) {
        setenv("FAILING_MODULE", wish, 1);
        unsetenv("FAILING_MODULE_DELETED");
        unsetenv("FAILING_MODULE_TOLD");
    }
    static bool Deleted() { return std::getenv("FAILING_MODULE_DELETED"); }

    std::vector<std::string> log;
    host::ModuleLoader loader{[this](const OdString& line) { log.push_back(line.narrowText()); }};
};

TEST_F(ModuleLoaderTest, RefusesWithTheReason) {
    Wish("start");
    const struct {
        std::string path;
        const char* reason;
    } cases[] = {{Library("missing"), "cannot open shared object"},
                 {Library("libkv_text"), "it has no odrxGetAPIVersion and is no module"},
                 {Library("OtherVersion"),
                  "it was built for version 26.7.0.1, this program needs 26.8.0.54758"},
                 {Library("FailingModule"), "its start failed: no place to start"}};
    for (const auto& c : cases) {
        const std::string error = ErrorOf([&] { loader.Load(c.path); });
        EXPECT_NE(error.find(c.reason), std::string::npos) << error;
        EXPECT_NE(error.find(c.path), std::string::npos) << error;
        EXPECT_TRUE(loader.Modules().empty());
    }
    EXPECT_TRUE(Deleted());
    odedRegCmds()->fireCommandAdded(u"LINE");
    EXPECT_FALSE(std::getenv("FAILING_MODULE_TOLD")) << "a reactor of the deleted module";
}

TEST_F(ModuleLoaderTest, ModuleGetsAnAddressInsideItself) {
    OdRxModule* module = loader.Load(Library("FailingModule"));
    EXPECT_EQ(ModuleOfAddress(module), module->sysData());
    EXPECT_EQ(loader.Load(Library("FailingModule")), module);
    EXPECT_EQ(loader.Modules().size(), 1u);
}

TEST_F(ModuleLoaderTest, FailingStopIsLoggedAndLeavesTheObjectThatTheHostMayKnow) {
    loader.Load(Library("FailingModule"));
    Wish("stop");
    loader.UnloadAll();
    EXPECT_EQ(log, std::vector<std::string>{"failing : no way to stop"});
    EXPECT_FALSE(Deleted());
    EXPECT_TRUE(loader.Modules().empty());
}

}  // namespace
