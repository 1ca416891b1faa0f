// The three lights with their values: top-level lights stand under the root
// and fill its light list in order, lights inside groups stay their
// children, and a group scopes its first DirectionalLight.
#include <gtest/gtest.h>

#include "csDirectionalLight.h"
#include "csSpotLight.h"
#include "scene_world.h"

using wrltest::childAs;
using wrltest::expectVec3;
using wrltest::SceneLoad;

TEST(optLights, ThreeTopLevelLightsGiveThreeEntriesOfTheLightList) {
    SceneLoad world;
    csEnvironment* scene = world.load(R"(
DEF SUN DirectionalLight { direction 0 -1 0 intensity 0.5 ambientIntensity 0.25 color 1 0.5 0 on FALSE }
DEF BULB PointLight { location 1 2 3 radius 7 attenuation 0 1 0.5 }
Group { children PointLight { } }
DEF LAMP SpotLight { location 0 4 0 direction 0 -1 0 beamWidth 0.3 cutOffAngle 0.6 radius 9 }
)");
    ASSERT_EQ(scene->lights().getCount(), 3);
    auto* sun = dynamic_cast<csDirectionalLight*>(scene->lights().get(0));
    auto* bulb = dynamic_cast<csPointLight*>(scene->lights().get(1));
    auto* lamp = dynamic_cast<csSpotLight*>(scene->lights().get(2));
    ASSERT_TRUE(sun && bulb && lamp);
    // In the list and among the children alike, in the world's order.
    EXPECT_EQ(scene->getChild(0), sun);
    EXPECT_EQ(scene->getChild(1), bulb);
    EXPECT_EQ(scene->getChild(3), lamp);
    EXPECT_STREQ(sun->getName(), "SUN");
    expectVec3(sun->getDirection(), 0, -1, 0);
    EXPECT_FLOAT_EQ(sun->getIntensity(), 0.5f);
    EXPECT_FLOAT_EQ(sun->getAmbientIntensity(), 0.25f);
    expectVec3(sun->getColor(), 1, 0.5f, 0);
    EXPECT_FALSE(sun->getOn());
    expectVec3(bulb->getLocation(), 1, 2, 3);
    EXPECT_FLOAT_EQ(bulb->getRadius(), 7);
    expectVec3(bulb->getAttenuation(), 0, 1, 0.5f);
    EXPECT_TRUE(bulb->getOn());
    expectVec3(lamp->getLocation(), 0, 4, 0);
    expectVec3(lamp->getDirection(), 0, -1, 0);
    EXPECT_FLOAT_EQ(lamp->getBeamWidth(), 0.3f);
    EXPECT_FLOAT_EQ(lamp->getCutOffAngle(), 0.6f);
    EXPECT_FLOAT_EQ(lamp->getRadius(), 9);

    // The light in the group is the group's child, not the world's.
    auto* inner = childAs<csPointLight>(childAs<csGroup>(scene, 2), 0);
    ASSERT_NE(inner, nullptr);
    EXPECT_STREQ(inner->getName(), "Unnamed PointLight Node");
    expectVec3(inner->getAttenuation(), 1, 0, 0);
    EXPECT_FLOAT_EQ(inner->getRadius(), 100);
}

TEST(optLights, ALightUsedTwiceIsOneObjectAndOnlyDirectionalLightsAreScoped) {
    SceneLoad world;
    csEnvironment* scene = world.load(R"(Group { children [
  Transform { children [ DEF L SpotLight { } Shape { } ] }
  Transform { children [ USE L DirectionalLight { } ] }
] })");
    auto* top = childAs<csGroup>(scene, 0);
    auto* first = childAs<csTransform>(top, 0);
    ASSERT_NE(first, nullptr) << "a spot light lights what its scene graph says";
    auto* scope = childAs<csEnvironment>(top, 1);
    ASSERT_NE(scope, nullptr);
    EXPECT_EQ(scope->lights().getCount(), 1);
    auto* second = childAs<csTransform>(scope, 0);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(first->getChild(0), second->getChild(0));
    EXPECT_NE(childAs<csSpotLight>(first, 0), nullptr);
    EXPECT_EQ(scene->lights().getCount(), 0);
}
