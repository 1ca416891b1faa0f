// What the world says about viewing it reaches the root environment: every
// viewpoint in order and the first bound, and the first navigation
// information, background, fog and world information, with their values;
// what a file read through an Inline holds is listed but not bound.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "csBackground.h"
#include "csFog.h"
#include "csNavigationInfo.h"
#include "csViewpoint.h"
#include "csWorldInfo.h"
#include "scene_world.h"

using testing::ElementsAre;
using wrltest::childAs;
using wrltest::expectVec3;
using wrltest::SceneLoad;

TEST(optBindables, TheFirstOfEachKindIsBoundAndEveryViewpointListed) {
    SceneLoad world;
    csEnvironment* scene = world.load(R"(
DEF INFO WorldInfo { title "Yard" info [ "by me" "1997" ] }
Transform { translation 0 0 5 children DEF FRONT Viewpoint {
  position 0 1.5 8 orientation 0 1 0 0.5 fieldOfView 1 jump FALSE description "At the gate" } }
DEF TOP Viewpoint { }
DEF WALK NavigationInfo { type [ "WALK" "ANY" ] speed 2 headlight FALSE avatarSize [ 0.5 1.8 ] visibilityLimit 50 }
NavigationInfo { type "FLY" }
DEF SKY Background { skyColor [ 0 0 1, 1 1 1 ] skyAngle 1.5 groundColor [ 0 1 0 ] frontUrl "front.png" }
DEF MIST Fog { color 0.5 0.5 0.5 fogType "EXPONENTIAL" visibilityRange 30 }
Fog { }
WorldInfo { title "Second" }
)");
    ASSERT_EQ(scene->viewpoints().getCount(), 2);
    auto* front = dynamic_cast<csViewpoint*>(scene->viewpoints().get(0));
    ASSERT_NE(front, nullptr);
    EXPECT_STREQ(front->getName(), "FRONT");
    EXPECT_EQ(scene->viewpoints().get(1), childAs<csViewpoint>(scene, 2));
    EXPECT_EQ(scene->getViewpoint(), front);
    // The viewpoint stands below its transform, which moves it.
    EXPECT_EQ(childAs<csViewpoint>(childAs<csTransform>(scene, 1), 0), front);
    expectVec3(front->getPosition(), 0, 1.5f, 8);
    EXPECT_EQ(front->getOrientation(), csVec4f(0, 1, 0, 0.5f));
    EXPECT_FLOAT_EQ(front->getFieldOfView(), 1);
    EXPECT_FALSE(front->getJump());
    EXPECT_EQ(front->getDescription(), "At the gate");
    auto* top = childAs<csViewpoint>(scene, 2);
    expectVec3(top->getPosition(), 0, 0, 10);
    EXPECT_FLOAT_EQ(top->getFieldOfView(), 0.785398f);

    csNavigationInfo* navigation = scene->getNavigationInfo();
    ASSERT_NE(navigation, nullptr);
    EXPECT_STREQ(navigation->getName(), "WALK");
    EXPECT_THAT(navigation->getTypes(), ElementsAre("WALK", "ANY"));
    EXPECT_FLOAT_EQ(navigation->getSpeed(), 2);
    EXPECT_FALSE(navigation->getHeadlight());
    EXPECT_THAT(navigation->getAvatarSize(), ElementsAre(0.5f, 1.8f));
    EXPECT_FLOAT_EQ(navigation->getVisibilityLimit(), 50);

    csBackground* sky = scene->getBackground();
    ASSERT_NE(sky, nullptr);
    ASSERT_EQ(sky->getSkyColors().size(), 2u);
    expectVec3(sky->getSkyColors()[1], 1, 1, 1);
    EXPECT_THAT(sky->getSkyAngles(), ElementsAre(1.5f));
    ASSERT_EQ(sky->getGroundColors().size(), 1u);
    EXPECT_TRUE(sky->getGroundAngles().empty());
    EXPECT_THAT(sky->getUrl(csBackground::FRONT), ElementsAre("front.png"));
    EXPECT_TRUE(sky->getUrl(csBackground::BACK).empty());

    csFog* mist = scene->getFog();
    ASSERT_NE(mist, nullptr);
    EXPECT_STREQ(mist->getName(), "MIST");
    expectVec3(mist->getColor(), 0.5f, 0.5f, 0.5f);
    EXPECT_EQ(mist->getFogType(), "EXPONENTIAL");
    EXPECT_FLOAT_EQ(mist->getVisibilityRange(), 30);

    csWorldInfo* info = scene->getWorldInfo();
    ASSERT_NE(info, nullptr);
    EXPECT_STREQ(info->getName(), "INFO");
    EXPECT_EQ(info->getTitle(), "Yard");
    EXPECT_THAT(info->getInfo(), ElementsAre("by me", "1997"));
}

TEST(optBindables, AnInlinedFileIsListedButBindsNothing) {
    SceneLoad world;
    std::ofstream(world.directory() + "/part.wrl")
        << "#VRML V2.0 utf8\nDEF INNER Viewpoint { }\nFog { }\nWorldInfo { title \"part\" }\n";
    csEnvironment* scene = world.load("Inline { url \"part.wrl\" }\nDEF OWN Viewpoint { }\n");
    ASSERT_EQ(scene->viewpoints().getCount(), 2);
    EXPECT_STREQ(scene->viewpoints().get(0)->getName(), "INNER");
    ASSERT_NE(scene->getViewpoint(), nullptr);
    EXPECT_STREQ(scene->getViewpoint()->getName(), "OWN");
    EXPECT_EQ(scene->getFog(), nullptr);
    EXPECT_EQ(scene->getWorldInfo(), nullptr);
}
