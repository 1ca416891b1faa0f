// Box and the parametric solids through whole loads: the box's fixed face
// set, the cone standing along y, the samples every solid is tessellated
// with, and solids used in several shapes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "csAppearance.h"
#include "csIndexedFaceSet.h"
#include "csMaterial.h"
#include "csTransform.h"
#include "opCone.h"
#include "opCylinder.h"
#include "opSphere.h"
#include "scene_world.h"

using testing::ElementsAre;
using wrltest::childAs;
using wrltest::expectNear;
using wrltest::expectVec3;
using wrltest::SceneLoad;

namespace {

csIndexedFaceSet* facesOf(csEnvironment* scene, int index = 0) {
    return wrltest::geometryAt<csIndexedFaceSet>(scene, index);
}

std::vector<int> intsOf(const csMFInt& list) {
    std::vector<int> out;
    for (int i = 0; i < list.getCount(); ++i) out.push_back(list.get(i));
    return out;
}

// The bound of a face set's points once the axis transform above them has
// moved them: what a viewer of the VRML world sees.
struct Extent {
    csVec3f min{1e30f, 1e30f, 1e30f}, max{-1e30f, -1e30f, -1e30f};
    float widest = 0.0f;  // the largest distance from the y axis
};
Extent extentInWorld(csEnvironment* scene, int index = 0) {
    Extent e;
    csIndexedFaceSet* faces = facesOf(scene, index);
    csTransform* axis = wrltest::axisAt(scene, index);
    if (!faces || !axis) return e;
    const csMFVec3f& points = faces->getCoordSet()->point();
    for (int i = 0; i < points.getCount(); ++i) {
        csVec3f p = axis->getMatrix().xformPt(points.get(i));
        for (int k = 0; k < 3; ++k) {
            e.min[k] = std::min(e.min[k], p[k]);
            e.max[k] = std::max(e.max[k], p[k]);
        }
        e.widest = std::max(e.widest, std::hypot(p[0], p[2]));
    }
    return e;
}

}  // namespace

// ---- Box

TEST(optBox, SizeTwoPutsCornerZeroAtTheFrontLowerLeft) {
    SceneLoad world;
    csEnvironment* scene = world.load("Shape { geometry Box { size 2 2 2 } }\n");
    csIndexedFaceSet* box = facesOf(scene);
    ASSERT_NE(box, nullptr) << world.lastErrors();
    EXPECT_STREQ(box->getName(), "Unnamed Box Node");
    const csMFVec3f& points = box->getCoordSet()->point();
    ASSERT_EQ(points.getCount(), 8);
    expectVec3(points.get(0), -1, -1, 1);
    expectVec3(points.get(6), 1, 1, -1);
    // A box is no toolkit primitive: it stands as it is, untessellated.
    EXPECT_TRUE(wrltest::axisAt(scene)->getMatrix().almostEqual(csMatrix4f(), 0.0f));
}

TEST(optBox, SixFacesWindOutwardsWithTheWholeImageEach) {
    SceneLoad world;
    csEnvironment* scene = world.load("Shape { geometry DEF B Box { size 4 6 8 } }\n");
    csIndexedFaceSet* box = facesOf(scene);
    ASSERT_NE(box, nullptr) << world.lastErrors();
    EXPECT_STREQ(box->getName(), "B");
    EXPECT_THAT(intsOf(box->faceLength()), ElementsAre(4, 4, 4, 4, 4, 4));
    const csMFVec2f& image = box->getTexCoordSet()->point();
    ASSERT_EQ(image.getCount(), 4);
    EXPECT_EQ(image.get(2), csVec2f(1, 1));

    // Every face runs counter-clockwise seen from outside: its winding
    // agrees with its normal, which points away from the centre.
    const csMFInt& corners = box->getCoordIndexSet()->index();
    const csMFVec3f& points = box->getCoordSet()->point();
    for (int f = 0; f < 6; ++f) {
        SCOPED_TRACE(f);
        csVec3f p0 = points.get(corners.get(4 * f)), p1 = points.get(corners.get(4 * f + 1)),
                p2 = points.get(corners.get(4 * f + 2));
        csVec3f a, b, winding;
        a.sub(p1, p0);
        b.sub(p2, p1);
        winding.cross(a, b);
        winding.normalize();
        csVec3f normal = box->getNormalSet()->vector().get(box->getNormalIndexSet()->index().get(4 * f));
        expectNear(winding, normal[0], normal[1], normal[2]);
        csVec3f middle;
        middle.add(p0, p2);
        EXPECT_GT(middle.dot(normal), 0.0f);
        EXPECT_EQ(box->getTexCoordIndexSet()->index().get(4 * f + 2), 2);
    }
}

TEST(optBox, BoxesOfOneWorldShareTheirFixedPartsAndKeepTheirOwnCorners) {
    SceneLoad world;
    csEnvironment* scene = world.load(
        "Shape { geometry Box { size 2 2 2 } }\n"
        "Shape { geometry Box { size 4 6 8 } }\n");
    csIndexedFaceSet* small = facesOf(scene, 0);
    csIndexedFaceSet* large = facesOf(scene, 1);
    ASSERT_NE(small, nullptr) << world.lastErrors();
    ASSERT_NE(large, nullptr) << world.lastErrors();
    ASSERT_NE(small, large);
    EXPECT_NE(small->getCoordSet(), large->getCoordSet());
    expectVec3(small->getCoordSet()->point().get(6), 1, 1, -1);
    expectVec3(large->getCoordSet()->point().get(6), 2, 3, -4);
    EXPECT_EQ(small->getNormalSet(), large->getNormalSet());
    EXPECT_EQ(small->getTexCoordSet(), large->getTexCoordSet());
    EXPECT_EQ(small->getCoordIndexSet(), large->getCoordIndexSet());
    EXPECT_EQ(small->getNormalIndexSet(), large->getNormalIndexSet());
    EXPECT_EQ(small->getTexCoordIndexSet(), large->getTexCoordIndexSet());

    // Another world has parts of its own.
    csIndexedFaceSet* third = facesOf(world.load("Shape { geometry Box { } }\n"));
    ASSERT_NE(third, nullptr) << world.lastErrors();
    EXPECT_NE(third->getNormalSet(), small->getNormalSet());
    EXPECT_EQ(third->getNormalSet()->vector().getCount(), 6);
    EXPECT_EQ(third->getCoordIndexSet()->index().get(23), 0);
}

// ---- Cone, Cylinder, Sphere

TEST(optCone, FieldsReachTheConeAndItStandsAlongY) {
    SceneLoad world;
    csEnvironment* scene = world.load(
        "Shape { geometry DEF C Cone { bottomRadius 0.5 height 3 side TRUE bottom FALSE } }\n");
    opCone* cone = childAs<opCone>(wrltest::axisAt(scene), 0);
    ASSERT_NE(cone, nullptr) << world.lastErrors();
    EXPECT_STREQ(cone->getName(), "C");

    Extent e = extentInWorld(scene);
    EXPECT_NEAR(e.min[1], -1.5f, 1e-5f);
    EXPECT_NEAR(e.max[1], 1.5f, 1e-5f);
    EXPECT_NEAR(e.widest, 0.5f, 1e-5f);
    // The apex is on top: every point at the top lies on the axis.
    csIndexedFaceSet* faces = facesOf(scene);
    const csMFVec3f& points = faces->getCoordSet()->point();
    for (int i = 0; i < points.getCount(); ++i) {
        csVec3f p = wrltest::axisAt(scene)->getMatrix().xformPt(points.get(i));
        if (p[1] > 1.4f) {
            EXPECT_NEAR(std::hypot(p[0], p[2]), 0.0f, 1e-5f);
        }
    }
    // Without a bottom only the side is there: one triangle a sample.
    EXPECT_EQ(faces->getPrimCount(), 15);
}

TEST(optCone, TessQualitySetsTheSamplesOfEveryPrimitive) {
    SceneLoad world;
    wrltest::ScopedEnv quality("TESS_QUALITY", "10");
    csEnvironment* scene = world.load("Shape { geometry Cone { } }\nShape { geometry Cylinder { } }\n"
                                      "Shape { geometry DEF S Sphere { radius 7 } }\n");
    opSphere* sphere = childAs<opSphere>(wrltest::axisAt(scene, 2), 0);
    ASSERT_NE(sphere, nullptr);
    EXPECT_STREQ(sphere->getName(), "S");
    EXPECT_FLOAT_EQ(sphere->getRadius(), 7.0f);
    ASSERT_NE(facesOf(scene, 2), nullptr) << world.lastErrors();
    EXPECT_EQ(facesOf(scene, 0)->getPrimCount(), 2 * 30) << "side and bottom";
    EXPECT_EQ(facesOf(scene, 1)->getPrimCount(), 4 * 30);
    EXPECT_EQ(facesOf(scene, 2)->getPrimCount(), 2 * 30 * 29);
}

// A solid used in two shapes shows in each with that shape's appearance,
// while both draw one tessellation.
TEST(optSphere, UsedInTwoShapesEachShowsItsOwnAppearanceOverSharedFaces) {
    SceneLoad world;
    csEnvironment* scene = world.load(
        "Shape { appearance Appearance { material Material { diffuseColor 1 0 0 } } geometry DEF S Sphere { radius 2 } }\n"
        "Shape { appearance Appearance { material Material { diffuseColor 0 0 1 } } geometry USE S }\n"
        "Shape { appearance Appearance { material Material { diffuseColor 1 0 0 } }\n"
        "        geometry DEF C Cone { bottomRadius 3 bottom FALSE } }\n"
        "Shape { geometry USE C }\n"
        "Shape { appearance Appearance { material Material { diffuseColor 1 0 0 } }\n"
        "        geometry DEF Y Cylinder { height 5 top FALSE } }\n"
        "Transform { children Shape { appearance Appearance { material Material { diffuseColor 0 0 1 } }\n"
        "                             geometry USE Y } }\n");
    ASSERT_NE(scene, nullptr);
    ASSERT_EQ(scene->getChildCount(), 6) << world.lastErrors();
    auto diffuseOf = [](opRep* rep) { return rep->getAppearance()->getMaterial()->getDiffuseColor(); };

    opSphere* red = childAs<opSphere>(wrltest::axisAt(scene, 0), 0);
    opSphere* blue = childAs<opSphere>(wrltest::axisAt(scene, 1), 0);
    ASSERT_NE(red, nullptr);
    ASSERT_NE(blue, nullptr);
    EXPECT_NE(red, blue);
    EXPECT_EQ(diffuseOf(red), csVec3f(1, 0, 0));
    EXPECT_EQ(diffuseOf(blue), csVec3f(0, 0, 1));
    for (opSphere* sphere : {red, blue}) {
        EXPECT_STREQ(sphere->getName(), "S");
        EXPECT_FLOAT_EQ(sphere->getRadius(), 2.0f);
    }
    ASSERT_NE(facesOf(scene, 0), nullptr);
    EXPECT_EQ(facesOf(scene, 0), facesOf(scene, 1)) << "one tessellation";
    EXPECT_TRUE(wrltest::axisAt(scene, 1)->getMatrix().almostEqual(wrltest::axisAt(scene, 0)->getMatrix(), 0.0f));

    opCone* cone = childAs<opCone>(wrltest::axisAt(scene, 2), 0);
    opCone* plain = childAs<opCone>(wrltest::axisAt(scene, 3), 0);
    ASSERT_NE(cone, nullptr);
    ASSERT_NE(plain, nullptr);
    EXPECT_EQ(diffuseOf(cone), csVec3f(1, 0, 0));
    // The second shape has no appearance of its own: the glowing default.
    EXPECT_EQ(diffuseOf(plain), csVec3f(0, 0, 0));
    EXPECT_EQ(plain->getAppearance()->getMaterial()->getEmissiveColor(), csVec3f(1, 1, 1));
    EXPECT_FLOAT_EQ(plain->getBottomRadius(), 3.0f);
    EXPECT_FALSE(plain->getBottom());
    EXPECT_EQ(facesOf(scene, 2), facesOf(scene, 3));

    opCylinder* outside = childAs<opCylinder>(wrltest::axisAt(scene, 4), 0);
    auto* inTransform = childAs<csTransform>(scene, 5);
    opCylinder* inside = childAs<opCylinder>(childAs<csTransform>(inTransform, 0), 0);
    ASSERT_NE(outside, nullptr);
    ASSERT_NE(inside, nullptr);
    EXPECT_EQ(diffuseOf(outside), csVec3f(1, 0, 0));
    EXPECT_EQ(diffuseOf(inside), csVec3f(0, 0, 1));
    EXPECT_FLOAT_EQ(inside->getHeight(), 5.0f);
    EXPECT_FALSE(inside->getTop());
    ASSERT_EQ(inside->getGeometryCount(), 1);
    EXPECT_EQ(inside->getGeometry(0), outside->getGeometry(0));
}
