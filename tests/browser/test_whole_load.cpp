// Whole loads through wrlLoad, and worlds made from strings.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "browser/zn_browser_intern.h"
#include "database/zn_database_intern.h"
#include "loader/wrl_loader.h"
#include "loader/zn.h"
#include "nodes/zn_node.h"
#include "nodes/zn_nodetype.h"
#include "nodes/zn_vrml.h"
#include "csGroup.h"
#include "test_support.h"

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

namespace {
std::string dataFile(const char* name) { return std::string(WRL_TEST_DATA_DIR) + "/world/" + name; }
}  // namespace

TEST(WholeLoad, UnparsableOrUnreadableWorldGivesAnEnvironmentWithoutChildren) {
    wrltest::TempDir dir;
    wrltest::ScopedEnv tmp("ZN_TMP_PATH", dir.path().c_str());
    // A web name is not tried as a file; nothing listens on port 1.
    const std::pair<std::string, const char*> cases[] = {
        {dataFile("broken.wrl"), "Unable to parse file."},
        {"./http://127.0.0.1:1/absent.wrl", "Throwing Exception: Couldn't load URL"}};
    for (const auto& [path, report] : cases) {
        SCOPED_TRACE(path);
        wrltest::WorldLoad load = wrltest::loadWorld(path);
        auto* group = dynamic_cast<csGroup*>(load.scene);
        ASSERT_NE(group, nullptr);
        EXPECT_EQ(group->getChildCount(), 0);
        EXPECT_NE(load.err.find(report), std::string::npos) << load.err;
    }
}

// Worlds made from texts, added to a loaded world: each test reads the
// node list that came back and what stays of the world and the temporary
// directory.
class StringWorld : public testing::Test {
protected:
    void SetUp() override {
        world = std::make_unique<wrltest::WorldLoad>(wrltest::loadWorld(dataFile("shapes.wrl")));
        ASSERT_NE(world->scene, nullptr);
        browser = _ZNmain->browser;
        before = browser->getTopLevel();
    }
    std::vector<BaseNode> make(const char* text) {
        CaptureStderr();
        std::unique_ptr<std::vector<BaseNode>> nodes(browser->createVrmlFromString(text));
        GetCapturedStderr();
        return *nodes;
    }

    wrltest::ScopedEnv builtins{"ZNBUILTINS", wrltest::nodeSupportFile().c_str()};
    wrltest::TempDir dir;
    wrltest::ScopedEnv tmp{"ZN_TMP_PATH", dir.path().c_str()};
    znBrowserIntern* browser = nullptr;
    std::list<int> before;
    std::unique_ptr<wrltest::WorldLoad> world;  // the world the texts go into
};

// An empty text adds nothing, and neither text leaves the top level
// changed or a file behind.
TEST_F(StringWorld, AddsItsNodesAndLeavesNoFile) {
    EXPECT_TRUE(make("").empty());
    EXPECT_EQ(browser->getTopLevel(), before);
    EXPECT_EQ(before.size(), 2u);
    EXPECT_TRUE(std::filesystem::is_empty(dir.path()));
    std::vector<BaseNode> nodes = make("DEF Added Group { } Transform { }");
    ASSERT_EQ(nodes.size(), 2u);
    EXPECT_STREQ(nodes.front().handleNode()->getType(), "Group");
    EXPECT_EQ(browser->getTopLevel(), before);
    EXPECT_NE(browser->getNode("Added"), nullptr);
    EXPECT_TRUE(std::filesystem::is_empty(dir.path()));
}

TEST_F(StringWorld, TypesMadeAtRunTimeTakeIDsThatNoOtherTypeHasOrWillHave) {
    auto* database = dynamic_cast<znDatabaseIntern*>(browser->getDatabase());
    ASSERT_NE(database, nullptr);
    const int lastBuiltin = database->getSystemTypeCount();
    std::vector<std::string> builtins;
    for (int id = 1; id <= lastBuiltin; ++id) builtins.push_back(browser->getType(id)->getType());
    ASSERT_EQ(builtins.back(), "WorldInfo");

    const int gadget = browser->newType("Gadget", "gadget.so", 0);
    const int widget = browser->newType("Widget", "widget.so", 0);
    EXPECT_GT(gadget, lastBuiltin);
    EXPECT_NE(widget, gadget);
    for (int id = 1; id <= lastBuiltin; ++id) EXPECT_EQ(browser->getType(id)->getType(), builtins[id - 1]) << id;
    EXPECT_STREQ(browser->getType(gadget)->getType(), "Gadget");
    EXPECT_EQ(browser->getTypeID("Widget"), widget);

    // A PROTO read later is numbered past them and enters the table.
    std::vector<BaseNode> nodes = make("PROTO Later [ ] { Group { } } Later { }");
    ASSERT_EQ(nodes.size(), 1u);
    znNodeType* later = nodes.front().handleNode()->getNodeType();
    EXPECT_STREQ(later->getType(), "Later");
    EXPECT_NE(later->getID(), gadget);
    EXPECT_NE(later->getID(), widget);
    EXPECT_STREQ(browser->getType(widget)->getType(), "Widget");
}
