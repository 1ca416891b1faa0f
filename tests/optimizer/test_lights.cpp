// The three lights: values that the examples leave at their defaults, a
// light used twice, and a group that scopes its first DirectionalLight.
#include <gtest/gtest.h>

#include "csDirectionalLight.h"
#include "csSpotLight.h"
#include "scene_world.h"

using wrltest::childAs;
using wrltest::expectVec3;
using wrltest::SceneLoad;

// The order of the light list, the lights' places among the children and
// most of their values are those of the world_setup example's scene; these
// are the values it leaves at their defaults.
TEST(optLights, TopLevelLightsKeepTheValuesThatTheExampleLeavesAtTheirDefaults) {
    SceneLoad world;
    csEnvironment* scene = world.load(R"(
DEF SUN DirectionalLight { intensity 0.5 ambientIntensity 0.25 color 1 0.5 0 on FALSE }
DEF BULB PointLight { radius 7 }
DEF LAMP SpotLight { radius 9 }
)");
    ASSERT_EQ(scene->lights().getCount(), 3);
    auto* sun = dynamic_cast<csDirectionalLight*>(scene->lights().get(0));
    auto* bulb = dynamic_cast<csPointLight*>(scene->lights().get(1));
    auto* lamp = dynamic_cast<csSpotLight*>(scene->lights().get(2));
    ASSERT_TRUE(sun && bulb && lamp);
    EXPECT_FLOAT_EQ(sun->getIntensity(), 0.5f);
    EXPECT_FLOAT_EQ(sun->getAmbientIntensity(), 0.25f);
    expectVec3(sun->getColor(), 1, 0.5f, 0);
    EXPECT_FALSE(sun->getOn());
    EXPECT_TRUE(bulb->getOn());
    EXPECT_FLOAT_EQ(bulb->getRadius(), 7);
    EXPECT_FLOAT_EQ(lamp->getRadius(), 9);
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
