// Shapes through whole loads: the default appearance, top-level groups,
// sampling, coloured face sets, unusable and replaced geometry.
#include <gtest/gtest.h>

#include <climits>

#include "csAppearance.h"
#include "csMaterial.h"
#include "csTransform.h"
#include "opRep.h"
#include "optimizer/optShape.h"
#include "scene_world.h"

using wrltest::axisAt;
using wrltest::childAs;
using wrltest::shapeAt;
using wrltest::expectVec3;
using wrltest::SceneLoad;

namespace {

std::string geometryShape(int kind, const char* extra = "") {
    return std::string("Shape { geometry TestGeometry { kind ") + std::to_string(kind) + " " + extra + " } }\n";
}

}  // namespace

TEST(optShape, ShapeWithoutFieldsIsAnEmptyRepWithTheGlowingDefaultAppearanceUnderATopGroup) {
    SceneLoad world;
    csEnvironment* scene = world.load("Shape { }\n");
    ASSERT_EQ(scene->getChildCount(), 1) << "one top group, though the load frame passes the top level twice";
    EXPECT_STREQ(childAs<csGroup>(scene, 0)->getName(), "VRML Toplevel Node");
    opRep* rep = shapeAt(scene);
    ASSERT_NE(rep, nullptr);
    EXPECT_EQ(rep->getGeometryCount(), 0);
    csAppearance* look = rep->getAppearance();
    ASSERT_NE(look, nullptr);
    EXPECT_TRUE(look->getLightEnable());
    ASSERT_NE(look->getMaterial(), nullptr);
    expectVec3(look->getMaterial()->getDiffuseColor(), 0, 0, 0);
    expectVec3(look->getMaterial()->getEmissiveColor(), 1, 1, 1);

    // Only a top-level shape gets a top group.
    scene = world.load("Group { children Shape { } }\n");
    auto* group = childAs<csGroup>(scene, 0);
    ASSERT_NE(group, nullptr);
    EXPECT_STREQ(group->getName(), "Unnamed Group Node");
    ASSERT_NE(childAs<csTransform>(group, 0), nullptr) << "the shape in the group hangs straight under it";
}

TEST(optShape, SamplingFollowsTessQuality) {
    EXPECT_EQ(optShape::samplingFor(nullptr), 15);
    EXPECT_EQ(optShape::samplingFor("10"), 30);
    EXPECT_EQ(optShape::samplingFor("0"), 0);
    EXPECT_EQ(optShape::samplingFor("1"), 3);
    EXPECT_EQ(optShape::samplingFor("fine"), 0);
    EXPECT_EQ(optShape::samplingFor("nan"), 0);
    EXPECT_EQ(optShape::samplingFor("1e30"), INT_MAX);
    EXPECT_EQ(optShape::samplingFor("-1e30"), INT_MIN);
}

TEST(optShape, ColouredFacesWithoutMaterialAreUnlitGrey) {
    SceneLoad world;
    csEnvironment* scene = world.load(geometryShape(wrltest::kColouredFaces) +
                                      "Shape { appearance Appearance { } geometry TestGeometry { kind 1 } }\n"
                                      "Shape { appearance Appearance { material Material { diffuseColor 1 0 0 } }\n"
                                      "        geometry TestGeometry { kind 1 } }\n" +
                                      geometryShape(wrltest::kPlainFaces));
    ASSERT_EQ(scene->getChildCount(), 4);
    for (int i = 0; i < 2; ++i) {
        csAppearance* look = shapeAt(scene, i)->getAppearance();
        EXPECT_TRUE(look->getMaterialModeEnable()) << i;
        EXPECT_FALSE(look->getLightEnable()) << i;
        expectVec3(look->getMaterial()->getDiffuseColor(), 0.8f, 0.8f, 0.8f);
        expectVec3(look->getMaterial()->getEmissiveColor(), 0, 0, 0);
    }
    csAppearance* lit = shapeAt(scene, 2)->getAppearance();
    EXPECT_TRUE(lit->getMaterialModeEnable());
    EXPECT_TRUE(lit->getLightEnable());
    expectVec3(lit->getMaterial()->getDiffuseColor(), 1, 0, 0);
    csAppearance* plain = shapeAt(scene, 3)->getAppearance();
    EXPECT_FALSE(plain->getMaterialModeEnable());
    EXPECT_TRUE(plain->getLightEnable());
}

TEST(optShape, UnusableGeometryLeavesTheAxisTransformEmpty) {
    SceneLoad world;
    csEnvironment* scene = world.load(geometryShape(wrltest::kNotGeometry) + geometryShape(wrltest::kNoGeometry));
    ASSERT_EQ(scene->getChildCount(), 2);
    EXPECT_EQ(axisAt(scene, 0)->getChildCount(), 0);
    // A geometry node that answers null gives an empty shape.
    opRep* rep = shapeAt(scene, 1);
    ASSERT_NE(rep, nullptr);
    EXPECT_EQ(rep->getGeometryCount(), 0);
}

TEST(optShape, ReplacedGeometryEmptiesTheOldShapeAndIsNotAttached) {
    SceneLoad world;
    csEnvironment* scene = world.load(
        "DEF S Shape { geometry TestGeometry { kind 2 } }\n"
        "DEF OTHER TestGeometry { kind 2 }\n");
    csTransform* axis = axisAt(scene);
    opRep* first = childAs<opRep>(axis, 0);
    ASSERT_NE(first, nullptr);
    ASSERT_EQ(first->getGeometryCount(), 1);

    auto* shape = dynamic_cast<optShape*>(world.builtinNamed("S"));
    ASSERT_NE(shape, nullptr);
    SFNode other(*dynamic_cast<BaseNode*>(world.builtinNamed("OTHER")));
    shape->set_geometry(other, 1.0);
    SFTime time(1.0);
    shape->action(time, kActionRefresh, nullptr);
    EXPECT_EQ(first->getGeometryCount(), 0);
    EXPECT_EQ(first->getAppearance(), nullptr);
    ASSERT_EQ(axis->getChildCount(), 1);
    EXPECT_EQ(axis->getChild(0), first) << "a later set_geometry has no visible effect";
    ASSERT_NE(shape->getShape(), nullptr);
    EXPECT_NE(shape->getShape(), first);
    EXPECT_EQ(shape->getShape()->getGeometryCount(), 1);
}
