// LOD, Billboard and Anchor: groups of their own kinds with their values;
// a LOD keeps every level as a child.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "csAnchor.h"
#include "csBillboard.h"
#include "csLOD.h"
#include "scene_world.h"

using testing::ElementsAre;
using wrltest::childAs;
using wrltest::expectVec3;
using wrltest::SceneLoad;

TEST(optGroupingKinds, LODKeepsEveryLevelWithItsRangesAndCentre) {
    SceneLoad world;
    csEnvironment* scene = world.load(R"(DEF DETAIL LOD { center 1 2 3 range [ 10, 50 ] level [
  Shape { geometry Sphere { } }
  Group { }
  Shape { geometry Box { } }
] })");
    auto* lod = childAs<csLOD>(scene, 0);
    ASSERT_NE(lod, nullptr);
    EXPECT_STREQ(lod->getName(), "DETAIL");
    EXPECT_EQ(lod->getChildCount(), 3);
    EXPECT_NE(childAs<csGroup>(lod, 1), nullptr);
    EXPECT_THAT(lod->getRanges(), ElementsAre(10.0f, 50.0f));
    expectVec3(lod->getCenter(), 1, 2, 3);
}

TEST(optGroupingKinds, BillboardAndAnchorKeepTheirValues) {
    SceneLoad world;
    csEnvironment* scene = world.load(R"(
Billboard { axisOfRotation 0 0 0 children [ Shape { } ] }
DEF LINK Anchor { url [ "next.wrl#Door" "other.wrl" ] description "Next room" parameter "target=_self"
  children Group { } }
Anchor { }
)");
    auto* board = childAs<csBillboard>(scene, 0);
    ASSERT_NE(board, nullptr);
    expectVec3(board->getAxisOfRotation(), 0, 0, 0);
    EXPECT_EQ(board->getChildCount(), 1);
    auto* link = childAs<csAnchor>(scene, 1);
    ASSERT_NE(link, nullptr);
    EXPECT_THAT(link->getUrl(), ElementsAre("next.wrl#Door", "other.wrl"));
    EXPECT_EQ(link->getDescription(), "Next room");
    EXPECT_THAT(link->getParameter(), ElementsAre("target=_self"));
    EXPECT_EQ(link->getChildCount(), 1);
    auto* bare = childAs<csAnchor>(scene, 2);
    ASSERT_NE(bare, nullptr);
    EXPECT_STREQ(bare->getName(), "Unnamed Anchor Node");
    EXPECT_TRUE(bare->getUrl().empty());
    EXPECT_EQ(bare->getDescription(), "");
}
