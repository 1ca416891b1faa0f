// Whole loads through wrlLoad, and the world written back as text.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <sstream>
#include <string>

#include "browser/zn_browser_intern.h"
#include "loader/wrl_loader.h"
#include "loader/zn.h"
#include "nodes/zn_node.h"
#include "nodes/zn_vrml.h"
#include "csGroup.h"
#include "test_support.h"

using testing::internal::CaptureStderr;
using testing::internal::CaptureStdout;
using testing::internal::GetCapturedStderr;
using testing::internal::GetCapturedStdout;

namespace {
std::string dataFile(const char* name) { return std::string(WRL_TEST_DATA_DIR) + "/world/" + name; }

csNode* load(const std::string& path) {
    std::string copy = path;
    CaptureStdout();
    csNode* scene = wrlLoad(&copy[0]);
    GetCapturedStdout();
    return scene;
}

std::string worldText() {
    std::ostringstream out;
    _ZNmain->browser->writeURLtoStream(out);
    return out.str();
}
}  // namespace

TEST(WholeLoad, UnparsableFileGivesAnEnvironmentWithoutChildren) {
    wrltest::ScopedEnv builtins("ZNBUILTINS", wrltest::nodeSupportFile().c_str());
    CaptureStderr();
    csNode* scene = load(dataFile("broken.wrl"));
    std::string err = GetCapturedStderr();
    ASSERT_NE(scene, nullptr);
    auto* group = dynamic_cast<csGroup*>(scene);
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(group->getChildCount(), 0);
    EXPECT_NE(err.find("parse error"), std::string::npos);
    EXPECT_NE(err.find("Unable to parse file."), std::string::npos);
}

TEST(WholeLoad, UnreadableUrlGivesAnEnvironmentWithoutChildren) {
    wrltest::ScopedEnv builtins("ZNBUILTINS", wrltest::nodeSupportFile().c_str());
    wrltest::TempDir dir;
    wrltest::ScopedEnv tmp("ZN_TMP_PATH", dir.path().c_str());
    CaptureStderr();
    // A web name is not tried as a file; nothing listens on port 1.
    csNode* scene = load("./http://127.0.0.1:1/absent.wrl");
    std::string err = GetCapturedStderr();
    ASSERT_NE(scene, nullptr);
    EXPECT_EQ(dynamic_cast<csGroup*>(scene)->getChildCount(), 0);
    EXPECT_NE(err.find("Throwing Exception: Couldn't load URL"), std::string::npos) << err;
}

// A world of built-in nodes without USE,
// Script or PROTO reads back to the same world.
TEST(WholeLoad, WrittenWorldReadsBackToTheSameWorld) {
    wrltest::ScopedEnv builtins("ZNBUILTINS", wrltest::nodeSupportFile().c_str());
    wrltest::TempDir dir;
    CaptureStderr();
    ASSERT_NE(load(dataFile("shapes.wrl")), nullptr);
    std::string first = worldText();
    std::string copy = dir.write("again.wrl", first);
    ASSERT_NE(load(copy), nullptr);
    std::string second = worldText();
    GetCapturedStderr();
    EXPECT_NE(first.find("Transform"), std::string::npos);
    EXPECT_EQ(first, second);
}


// Worlds made from texts, added to a loaded world: each test reads the
// node list that came back and what stays of the world and the temporary
// directory.
class StringWorld : public testing::Test {
protected:
    void SetUp() override {
        CaptureStderr();
        ASSERT_NE(load(dataFile("shapes.wrl")), nullptr);
        browser = _ZNmain->browser;
        before = browser->getTopLevel();
    }
    std::vector<BaseNode> make(const char* text) {
        std::unique_ptr<std::vector<BaseNode>> nodes(browser->createVrmlFromString(text));
        GetCapturedStderr();
        return *nodes;
    }

    wrltest::ScopedEnv builtins{"ZNBUILTINS", wrltest::nodeSupportFile().c_str()};
    wrltest::TempDir dir;
    wrltest::ScopedEnv tmp{"ZN_TMP_PATH", dir.path().c_str()};
    znBrowserIntern* browser = nullptr;
    std::list<int> before;
};

TEST_F(StringWorld, EmptyStringLeavesTopLevelAndTempDirAsTheyWere) {
    EXPECT_TRUE(make("").empty());
    EXPECT_EQ(browser->getTopLevel(), before);
    EXPECT_EQ(before.size(), 2u);
    EXPECT_TRUE(std::filesystem::is_empty(dir.path()));
}

TEST_F(StringWorld, AddsItsNodesAndLeavesNoFile) {
    std::vector<BaseNode> nodes = make("DEF Added Group { } Transform { }");
    ASSERT_EQ(nodes.size(), 2u);
    EXPECT_STREQ(nodes.front().handleNode()->getType(), "Group");
    EXPECT_EQ(browser->getTopLevel(), before);
    EXPECT_NE(browser->getNode("Added"), nullptr);
    EXPECT_TRUE(std::filesystem::is_empty(dir.path()));
}
