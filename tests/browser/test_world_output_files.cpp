// Whole worlds written back as VRML text, as `wrlload --vrml` prints them,
// compared with the texts the print rules give for them.
#include <gtest/gtest.h>

#include <string>

#include "browser/zn_browser_intern.h"
#include "loader/wrl_loader.h"
#include "loader/zn.h"
#include "test_support.h"

using testing::internal::CaptureStdout;
using testing::internal::GetCapturedStdout;

namespace {

std::string outputFile(const std::string& name) { return std::string(WRL_TEST_DATA_DIR) + "/output/" + name; }

// What `wrlload --vrml` prints for the world file `name`.
std::string writtenWorld(const std::string& path) {
    const wrltest::WorldLoad world = wrltest::loadWorld(path);
    if (world.scene == nullptr) return "not loaded";
    CaptureStdout();
    _ZNmain->browser->writeURL(nullptr);
    return GetCapturedStdout();
}

class WrittenWorld : public testing::TestWithParam<const char*> {};

}  // namespace

// USE at the top and inside a group prints the node itself again; a PROTO
// prints its first instance's body with the IS lines; a Script node's own
// type is printed as a PROTO.
TEST_P(WrittenWorld, IsTheExpectedText) {
    const std::string name = GetParam();
    EXPECT_EQ(writtenWorld(outputFile(name + ".wrl")), wrltest::readFile(outputFile(name + ".vrml")));
}

INSTANTIATE_TEST_SUITE_P(Worlds, WrittenWorld, testing::Values("use", "proto_script", "values"));

TEST(WrittenWorld, BuiltInNodesReadBackToTheSameWorld) {
    wrltest::TempDir dir;
    const std::string first = writtenWorld(outputFile("values.wrl"));
    const std::string second = writtenWorld(dir.write("again.wrl", first));
    EXPECT_EQ(first, second);
}

// A value longer than any field buffer, as big meshes have, is written
// whole, and the written world reads back to the same one.
TEST(WrittenWorld, LongValuesAreWrittenWhole) {
    wrltest::TempDir dir;
    std::string points;
    for (int i = 0; i < 20000; ++i) points += std::to_string(i) + " 0.5 0, ";
    const std::string first = writtenWorld(dir.write(
        "long.wrl", "#VRML V2.0 utf8\nShape { geometry PointSet { coord Coordinate { point [ " + points + "] } } }\n"));
    ASSERT_GT(first.size(), 400000u);
    EXPECT_NE(first.find("19999.000000 0.500000 0.000000 , ]"), std::string::npos);
    EXPECT_EQ(writtenWorld(dir.write("again.wrl", first)), first);
}
