// Switch: the choice shown, a change of it, and its children fetched once
// per build.
#include <gtest/gtest.h>

#include "csSwitch.h"
#include "csTransform.h"
#include "fields/zn_values.h"
#include "optimizer/optSwitch.h"
#include "scene_world.h"

using wrltest::childAs;
using wrltest::SceneLoad;

namespace {
std::string switchWith(const char* name, const char* which, int choices) {
    std::string text = std::string("DEF ") + name + " Switch { whichChoice " + which + " choice [";
    for (int i = 0; i < choices; ++i) text += " Shape { }";
    return text + " ] }\n";
}
}  // namespace

TEST(optSwitch, WhichChoiceBelowZeroOrWithoutChildrenShowsNone) {
    SceneLoad world;
    csEnvironment* scene = world.load(switchWith("SECOND", "1", 3) + switchWith("NONE", "-1", 3) +
                                      switchWith("NEGATIVE", "-5", 3) + switchWith("BEYOND", "7", 3) +
                                      switchWith("EMPTY", "0", 0));
    ASSERT_EQ(scene->getChildCount(), 5);
    const int expected[5] = {1, -1, -1, 7, -1};
    for (int i = 0; i < 5; ++i) {
        auto* node = childAs<csSwitch>(scene, i);
        ASSERT_NE(node, nullptr) << i;
        EXPECT_EQ(node->getWhichChild(), expected[i]) << i;
    }
    EXPECT_STREQ(childAs<csSwitch>(scene, 0)->getName(), "SECOND");
    EXPECT_EQ(childAs<csSwitch>(scene, 0)->getChildCount(), 3);
}

TEST(optSwitch, WhichChoiceTakesEffectAtOnceAndChoiceEmptiesTheSwitch) {
    SceneLoad world;
    csEnvironment* scene = world.load(switchWith("S", "0", 2) + "DEF OTHER Shape { }\n");
    auto* shown = childAs<csSwitch>(scene, 0);
    ASSERT_NE(shown, nullptr);
    auto* node = dynamic_cast<optSwitch*>(world.builtinNamed("S"));
    ASSERT_NE(node, nullptr);
    SFInt32 second(1);
    node->set_whichChoice(second, 1.0);
    EXPECT_EQ(shown->getWhichChild(), 1);

    MFNode choice = world.nodesNamed({"OTHER"});
    node->set_choice(choice, 1.0);
    EXPECT_EQ(shown->getChildCount(), 0);
    SFTime time(1.0);
    node->action(time, kActionRefresh, nullptr);
    EXPECT_EQ(shown->getChildCount(), 0) << "a built switch does not fetch its choices again";
}
