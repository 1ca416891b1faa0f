// LOD, Billboard and Anchor: groups of their own kinds with their values.
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

// A LOD keeping every level, its ranges, and an Anchor's url and
// description are the world_setup example's; here are the values it
// leaves at their defaults, and an Anchor with none set.
TEST(optGroupingKinds, LodBillboardAndAnchorKeepTheirValues) {
    SceneLoad world;
    csEnvironment* scene = world.load(R"(
LOD { center 1 2 3 level [ Group { } ] }
Billboard { axisOfRotation 0 0 0 children [ Shape { } ] }
Anchor { parameter "target=_self" }
Anchor { }
)");
    auto* lod = childAs<csLOD>(scene, 0);
    ASSERT_NE(lod, nullptr);
    expectVec3(lod->getCenter(), 1, 2, 3);
    auto* board = childAs<csBillboard>(scene, 1);
    ASSERT_NE(board, nullptr);
    expectVec3(board->getAxisOfRotation(), 0, 0, 0);
    auto* link = childAs<csAnchor>(scene, 2);
    ASSERT_NE(link, nullptr);
    EXPECT_THAT(link->getParameter(), ElementsAre("target=_self"));
    auto* bare = childAs<csAnchor>(scene, 3);
    ASSERT_NE(bare, nullptr);
    EXPECT_STREQ(bare->getName(), "Unnamed Anchor Node");
    EXPECT_TRUE(bare->getUrl().empty());
    EXPECT_EQ(bare->getDescription(), "");
}
