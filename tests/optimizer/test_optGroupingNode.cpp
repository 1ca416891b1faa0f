// Grouping nodes through whole loads: transforms with DEF/USE, scoped
// lights, children rebuilt after a change, and worlds that name a group
// inside itself.
#include <gtest/gtest.h>

#include <cmath>

#include "csDirectionalLight.h"
#include "csShape.h"
#include "csTransform.h"
#include "fields/zn_values.h"
#include "optimizer/optGroup.h"
#include "optimizer/optTransform.h"
#include "scene_world.h"

using wrltest::childAs;
using wrltest::expectVec3;
using wrltest::SceneLoad;

TEST(optTransform, HierarchyWithDefAndUseSharesTheObjects) {
    SceneLoad world;
    csEnvironment* scene = world.load(R"(
DEF ROOT Transform {
  translation 0 0 -5
  rotation 0 1 0 0.5
  children [
    DEF ARM Transform { translation 2 0 0 scale 0.5 0.5 0.5 children DEF BALL Shape { } }
    Transform { center 0 1 0 scaleOrientation 1 0 0 0.25 children USE BALL }
    Group { children [ USE ARM ] }
  ]
}
)");
    auto* root = childAs<csTransform>(scene, 0);
    ASSERT_NE(root, nullptr);
    ASSERT_EQ(root->getChildCount(), 3);
    auto* arm = childAs<csTransform>(root, 0);
    ASSERT_NE(arm, nullptr);
    expectVec3(arm->getScale(), 0.5f, 0.5f, 0.5f);
    auto* other = childAs<csTransform>(root, 1);
    ASSERT_NE(other, nullptr);
    EXPECT_FLOAT_EQ(other->getScaleOrientation()[3], 0.25f);
    EXPECT_EQ(other->getChild(0), arm->getChild(0)) << "USE BALL is the same axis transform";
    auto* group = childAs<csGroup>(root, 2);
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(group->getChild(0), arm) << "USE ARM is the same transform";
}

TEST(optTransform, RecalcMatrixFollowsTheToolkitsTransformRule) {
    SceneLoad world;
    csEnvironment* scene = world.load(R"(
DEF T Transform {
  translation 1 2 3  rotation 0 0 2 0.7  scale 2 3 4
  scaleOrientation 1 1 0 0.3  center -1 0.5 2
}
DEF FLAT Transform { scale 0 1 1 rotation 0 0 0 1 }
)");
    auto* node = dynamic_cast<optTransform*>(world.builtinNamed("T"));
    ASSERT_NE(node, nullptr);
    node->recalc_Matrix();
    csMatrix4f computed;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) computed[i][j] = node->getMatrix()[i][j];
    auto* transform = childAs<csTransform>(scene, 0);
    ASSERT_NE(transform, nullptr);
    EXPECT_TRUE(computed.almostEqual(transform->getMatrix(), 1e-5f));

    // A zero scale and a zero axis still give an invertible matrix: the
    // axis turns into z, the scale into 0.0001.
    auto* flat = dynamic_cast<optTransform*>(world.builtinNamed("FLAT"));
    ASSERT_NE(flat, nullptr);
    flat->recalc_Matrix();
    EXPECT_FLOAT_EQ(flat->getMatrix()[0][0], 0.0001f * std::cos(1.0f));
    EXPECT_FLOAT_EQ(flat->getMatrix()[0][1], 0.0001f * std::sin(1.0f));
    csMatrix4f m, inverse;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) m[i][j] = flat->getMatrix()[i][j];
    EXPECT_TRUE(inverse.invert(m));
}

TEST(optGroupingNode, ChildrenAreHandedTheTransformsAboveThem) {
    SceneLoad world;
    csEnvironment* scene = world.load(R"(
Transform { children [
  Transform { children [
    Shape { appearance Appearance { } geometry DEF G TestGeometry { kind 2 } }
    Switch { whichChoice 0 choice Transform { children Shape { geometry DEF H TestGeometry { kind 2 } } } }
  ] }
] }
)");
    auto* outer = childAs<csTransform>(scene, 0);
    auto* inner = childAs<csTransform>(outer, 0);
    ASSERT_NE(inner, nullptr);
    wrltest::SeenState seen = wrltest::stateSeenBy(world.builtinNamed("G"));
    ASSERT_TRUE(seen.seen);
    EXPECT_EQ(seen.group, nullptr) << "a shape's record has no group";
    EXPECT_EQ(seen.transforms, (std::vector<csTransform*>{outer, inner})) << "outermost first";
    auto* axis = childAs<csTransform>(inner, 0);
    ASSERT_NE(axis, nullptr);
    EXPECT_EQ(seen.appearance, static_cast<csShape*>(axis->getChild(0))->getAppearance());

    auto* choice = childAs<csTransform>(childAs<csGroup>(inner, 1), 0);
    ASSERT_NE(choice, nullptr);
    seen = wrltest::stateSeenBy(world.builtinNamed("H"));
    EXPECT_EQ(seen.transforms, (std::vector<csTransform*>{outer, inner, choice}));
}

TEST(optGroupingNode, FirstDirectionalLightIsScopedToItsSiblings) {
    SceneLoad world;
    csEnvironment* scene = world.load(R"(
Transform { children [
  DEF LIT Group { children [ DEF SUN DirectionalLight { } DirectionalLight { } Shape { } ] }
] }
DEF TOP Group { children [ DirectionalLight { } ] }
)");
    ASSERT_EQ(scene->getChildCount(), 2);
    auto* outer = childAs<csTransform>(scene, 0);
    ASSERT_NE(outer, nullptr);
    auto* scope = childAs<csEnvironment>(outer, 0);
    ASSERT_NE(scope, nullptr) << "the parent holds the environment, not the group";
    EXPECT_STREQ(scope->getName(), "Scoped Lighting for DirectionalLight");
    ASSERT_EQ(scope->lights().getCount(), 1);
    auto* lit = childAs<csGroup>(scope, 0);
    ASSERT_NE(lit, nullptr);
    EXPECT_STREQ(lit->getName(), "LIT");
    ASSERT_EQ(lit->getChildCount(), 3) << "both lights stay children";
    EXPECT_EQ(scope->lights().get(0), lit->getChild(0));
    EXPECT_NE(childAs<csDirectionalLight>(lit, 1), nullptr);

    // A top-level group goes to the root itself, its environment unseen.
    auto* top = childAs<csGroup>(scene, 1);
    ASSERT_NE(top, nullptr);
    EXPECT_STREQ(top->getName(), "TOP");
    EXPECT_FALSE(top->isOfType(csEnvironment::getClassType()));
    EXPECT_EQ(scene->lights().getCount(), 0);
}

TEST(optGroupingNode, ChildrenWithoutANodeLeaveNoTrace) {
    SceneLoad world;
    csEnvironment* scene = world.load(R"(
Group { children [
  TestGeometry { kind 0 }  TestGeometry { kind 2 }  Material { }  Box { }  Shape { }
] }
)");
    auto* group = childAs<csGroup>(scene, 0);
    ASSERT_NE(group, nullptr);
    ASSERT_EQ(group->getChildCount(), 1);
    EXPECT_NE(childAs<csTransform>(group, 0), nullptr);
}

TEST(optGroupingNode, ChangedChildrenAreRebuiltAtTheNextPass) {
    SceneLoad world;
    csEnvironment* scene = world.load(R"(
DEF G Group { children [ DEF A Shape { } DEF B Shape { } ] }
DEF C Shape { }
)");
    auto* group = childAs<csGroup>(scene, 0);
    ASSERT_NE(group, nullptr);
    ASSERT_EQ(group->getChildCount(), 2);
    csNode* a = group->getChild(0);
    csNode* b = group->getChild(1);
    auto* node = dynamic_cast<optGroup*>(world.builtinNamed("G"));
    ASSERT_NE(node, nullptr);
    SFTime time(1.0);

    MFNode reordered = world.nodesNamed({"B", "C", "A"});
    node->set_children(reordered, 1.0);
    EXPECT_EQ(group->getChildCount(), 2) << "nothing changes before the pass";
    node->action(time, kActionRefresh, nullptr);
    ASSERT_EQ(group->getChildCount(), 3);
    EXPECT_EQ(group->getChild(0), b) << "a built child answers the same object";
    EXPECT_EQ(group->getChild(2), a);
    EXPECT_EQ(a->getRefCount(), 3) << "its shape, the child list and the group's own";

    // removeChildren takes as many from the front as it is given.
    MFNode last = world.nodesNamed({"A"});
    node->removeChildren(last, 1.0);
    node->action(time, kActionRefresh, nullptr);
    ASSERT_EQ(group->getChildCount(), 2);
    EXPECT_NE(group->getChild(0), b);
    EXPECT_EQ(b->getRefCount(), 1) << "a removed child is given back in full";
}

TEST(optGroupingNode, AGroupNamedInsideItselfIsLeftOut) {
    SceneLoad world;
    csEnvironment* scene = world.load(R"(
DEF G Group { children [ Shape { } USE G ] }
DEF S Shape { geometry Group { children USE S } }
DEF A Appearance { material USE A }
Shape { appearance USE A }
)");
    ASSERT_EQ(scene->getChildCount(), 3);
    auto* group = childAs<csGroup>(scene, 0);
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(group->getChildCount(), 1);
    // A later pass goes round the same loop without end unless it is cut.
    SFTime time(1.0);
    world.builtinNamed("G")->action(time, kActionRefresh, nullptr);
    world.builtinNamed("S")->action(time, kActionRefresh, nullptr);
}
