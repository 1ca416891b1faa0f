// The frame and the default manager's tick, requested and deferred loads,
// and worlds made from strings and URLs.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "browser_fixture.h"
#include "test_support.h"

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;
using wrltest::BrowserFixture;
using wrltest::NodeChain;

namespace {

class Frames : public BrowserFixture {};

int rejectAll(std::vector<const char*>&, std::vector<const char*>&) { return 1; }

}  // namespace

// --- The default manager ---------------------------------------------------------------

TEST_F(Frames, NodePostedTwiceIsTickedTwiceAndRemovedOnce) {
    NodeChain chain;
    thing(chain, 1, "d00000+a");
    ASSERT_EQ(browser.addNode(chain.head), 1);
    znNode* node = browser.getNode(1);
    browser.addTopLevel(*node);
    browser.addTopLevel(*node);
    EXPECT_EQ(manager->getTopNodes().size(), 2u);
    browser.removeTopLevel(*node);
    EXPECT_EQ(manager->getTopNodes().size(), 1u);
    EXPECT_EQ(node->isToplevel(), 3);
    // A null manager is refused and the old one stays.
    EXPECT_EQ(browser.addSimManager(nullptr), 0);
    EXPECT_EQ(browser.getSimManager(), manager);
}

TEST_F(Frames, PostingAnUnknownNodeIsReported) {
    CaptureStderr();
    manager->postSensor(42);
    manager->removeSensor(43);
    EXPECT_EQ(GetCapturedStderr(),
              "\nThrowing Exception: Invalid Node ID:  ID=42\n"
              "\nAlert:  Could not post sensor with Invalid Node ID.  ID=42\n\n"
              "\nThrowing Exception: Invalid Node ID:  ID=43\n"
              "\nAlert:  Could not remove sensor with Invalid Node ID.  ID=43\n\n");
    EXPECT_TRUE(manager->getTopNodes().empty());
}

// --- Frames ----------------------------------------------------------------------------------

TEST_F(Frames, FrameWithoutAWorldOnlySetsTheTime) {
    browser.executeFrame(2.25);
    EXPECT_EQ(browser.getTime(), 2.25);
    EXPECT_TRUE(manager->calls.empty());
    browser.resetTime();
    EXPECT_EQ(browser.getTime(), 0.0);
}

TEST_F(Frames, FailedRequestedLoadStillIteratesTheEmptyWorld) {
    const char* urls[] = {"/nonexistent/world.wrl", nullptr};
    EXPECT_EQ(browser.loadURL(urls, nullptr), 1);
    EXPECT_EQ(wrltest::stderrOf([&] { browser.executeFrame(0.0); }), "\nThrowing Exception: Couldn't load URL\n");
    ASSERT_EQ(manager->calls.size(), 2u);
    EXPECT_EQ(manager->calls[0].time, 0.0);
    EXPECT_EQ(manager->calls[1].time, -1.0);
    // Nothing is pending any more.
    EXPECT_EQ(browser.loadURL(), 0);
}

TEST_F(Frames, FilterThatTakesTheRequestLeavesNothingPending) {
    browser.addUrlFilter(rejectAll);
    const char* urls[] = {"x.wrl", nullptr};
    EXPECT_EQ(browser.loadURL(urls, nullptr), 0);
    browser.executeFrame(1.0);
    EXPECT_TRUE(manager->calls.empty());
}

// --- Worlds from strings ---------------------------------------------------------------------

TEST_F(Frames, ArrayFormCountsWhatWasRead) {
    wrltest::TempDir dir;
    wrltest::ScopedEnv tmp("ZN_TMP_PATH", dir.path().c_str());
    BaseNode* out[4] = {};
    wrltest::stderrOf([&] { EXPECT_EQ(browser.createVrmlFromString("Thing {}", out), 0); });
    EXPECT_TRUE(std::filesystem::is_empty(dir.path()));
}

TEST_F(Frames, UnreadableURLDeliversAnEmptyListAtOnce) {
    NodeChain chain;
    thing(chain, 1, "d00000+a");
    ASSERT_EQ(browser.addNode(chain.head), 1);
    const char* urls[] = {"/nonexistent/more.wrl", nullptr};
    BaseNode nobody;
    const std::string err = wrltest::stderrOf([&] { browser.createVrmlFromURL(urls, nobody, "set_children"); });
    EXPECT_NE(err.find("Can not process event in CreateVrmlFromURL.. nodeID=0\n"), std::string::npos);
}

TEST_F(Frames, ReplaceWorldChangesOnlyWhatIsTicked) {
    NodeChain chain;
    thing(chain, 1, "d00000+a", 1);
    thing(chain, 2, "d00000+b", 1);
    ASSERT_EQ(browser.addNode(chain.head), 1);
    browser.updateScene();
    EXPECT_EQ(manager->getTopNodes().size(), 2u);
    BaseNode keep(*browser.getNode(2));
    browser.replaceWorld(&keep, 1);
    ASSERT_EQ(manager->getTopNodes().size(), 1u);
    EXPECT_EQ(manager->getTopNodes()[0], browser.getNode(2));
    EXPECT_EQ(browser.getTopLevel().size(), 2u);
}
