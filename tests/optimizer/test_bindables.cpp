// What the world says about viewing it reaches the root environment: every
// viewpoint in order and the first bound, and the first navigation
// information, background, fog and world information, with their values;
// what a file read through an Inline holds is listed but not bound.
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "csBackground.h"
#include "csFog.h"
#include "csNavigationInfo.h"
#include "csViewpoint.h"
#include "csWorldInfo.h"
#include "scene_world.h"

using wrltest::childAs;
using wrltest::SceneLoad;

// Viewpoints listed in order with the first bound, and most values of each
// kind, are those of the world_setup example's scene; here are the second
// ones of a kind and the values it leaves at their defaults.
TEST(optBindables, TheFirstOfEachKindIsBoundAndEveryViewpointListed) {
    SceneLoad world;
    csEnvironment* scene = world.load(R"(
DEF INFO WorldInfo { title "Yard" }
Transform { translation 0 0 5 children DEF FRONT Viewpoint { jump FALSE } }
DEF TOP Viewpoint { }
DEF WALK NavigationInfo { headlight FALSE visibilityLimit 50 }
NavigationInfo { type "FLY" }
DEF SKY Background { }
Background { }
DEF MIST Fog { fogType "EXPONENTIAL" }
Fog { }
WorldInfo { title "Second" }
)");
    ASSERT_EQ(scene->viewpoints().getCount(), 2);
    auto* front = dynamic_cast<csViewpoint*>(scene->viewpoints().get(0));
    ASSERT_NE(front, nullptr);
    EXPECT_EQ(scene->getViewpoint(), front);
    // The viewpoint stands below its transform, which moves it.
    EXPECT_EQ(childAs<csViewpoint>(childAs<csTransform>(scene, 1), 0), front);
    EXPECT_FALSE(front->getJump());
    EXPECT_EQ(scene->viewpoints().get(1), childAs<csViewpoint>(scene, 2));

    csNavigationInfo* navigation = scene->getNavigationInfo();
    ASSERT_NE(navigation, nullptr);
    EXPECT_STREQ(navigation->getName(), "WALK");
    EXPECT_FALSE(navigation->getHeadlight());
    EXPECT_FLOAT_EQ(navigation->getVisibilityLimit(), 50);
    ASSERT_NE(scene->getBackground(), nullptr);
    EXPECT_STREQ(scene->getBackground()->getName(), "SKY");
    csFog* mist = scene->getFog();
    ASSERT_NE(mist, nullptr);
    EXPECT_STREQ(mist->getName(), "MIST");
    EXPECT_EQ(mist->getFogType(), "EXPONENTIAL");
    ASSERT_NE(scene->getWorldInfo(), nullptr);
    EXPECT_EQ(scene->getWorldInfo()->getTitle(), "Yard");
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
