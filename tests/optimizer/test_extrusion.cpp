// Extrusion as a face set: the sweep of a square along a straight spine is
// a capped box whose faces all face out; a closed spine is a ring without
// caps; the cross-section planes stand square to bent, collinear and
// coincident spines; scale, orientation, winding and texture coordinates.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "face_set_world.h"
#include "url_test_server.h"

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using wrltest::cornerNormal;
using wrltest::cornerPoint;
using wrltest::expectNear;
using wrltest::FaceSetWorld;
using wrltest::faceStarts;
using wrltest::intsOf;

namespace {

csVec3f minus(const csVec3f& a, const csVec3f& b) {
    csVec3f d;
    d.sub(a, b);
    return d;
}

// Every face's normal points away from `inside`: from the middle of the
// face, the inside lies behind it.
void expectFacesOutwardFrom(const csIndexedFaceSet* faces, const csVec3f& inside) {
    const std::vector<int> starts = faceStarts(faces);
    const std::vector<int> lengths = intsOf(faces->faceLength());
    for (size_t f = 0; f < starts.size(); ++f) {
        csVec3f middle;
        for (int k = 0; k < lengths[f]; ++k) middle.add(middle, cornerPoint(faces, starts[f] + k));
        middle.scale(1.0f / static_cast<float>(lengths[f]), middle);
        EXPECT_GT(cornerNormal(faces, starts[f]).dot(minus(middle, inside)), 0.0f) << "face " << f;
    }
}

bool allFinite(const csMFVec3f& list) {
    for (int i = 0; i < list.getCount(); ++i)
        for (int k = 0; k < 3; ++k)
            if (!std::isfinite(list.get(i)[k])) return false;
    return true;
}

}  // namespace

TEST(optExtrusion, SquareAlongStraightSpineIsACappedBoxFacingOutUnlessClockwise) {
    FaceSetWorld world("DEF F Extrusion { }\nDEF G Extrusion { ccw FALSE }");
    csIndexedFaceSet* faces = world.faces();
    ASSERT_NE(faces, nullptr);
    // Four walls between the two copies of the square, then the caps.
    EXPECT_THAT(intsOf(faces->faceLength()), ElementsAre(4, 4, 4, 4, 4, 4));
    EXPECT_EQ(faces->getCoordSet()->getCount(), 8) << "the closing point of the square is its first";
    csBoxBound bound;
    faces->getBoxBound(&bound);
    expectNear(bound.min, -1, 0, -1);
    expectNear(bound.max, 1, 1, 1);
    expectFacesOutwardFrom(faces, csVec3f(0, 0.5f, 0));
    expectNear(cornerNormal(faces, 16), 0, -1, 0);  // the begin cap
    expectNear(cornerNormal(faces, 20), 0, 1, 0);   // the end cap
    EXPECT_TRUE(faces->getSolid());
    // Walls take s along the square and t along the spine; the caps fit the
    // square into the unit square.
    const csMFVec2f& tex = faces->getTexCoordSet()->point();
    EXPECT_EQ(faces->getTexCoordSet()->getCount(), 2 * 5 + 4);
    EXPECT_EQ(tex.get(0), csVec2f(0, 0));
    EXPECT_EQ(tex.get(2), csVec2f(0.5f, 0));
    EXPECT_EQ(tex.get(9), csVec2f(1, 1));
    EXPECT_EQ(tex.get(10), csVec2f(1, 1));  // cap point (1, 1)
    EXPECT_EQ(faces->getTexCoordIndexSet()->getCount(), 24);

    // Clockwise, every face turns inwards.
    faces = world.faces("G");
    ASSERT_EQ(faces->getPrimCount(), 6);
    expectNear(cornerNormal(faces, 16), 0, 1, 0);
    expectNear(cornerNormal(faces, 20), 0, -1, 0);
}

TEST(optExtrusion, ClosedSpineIsARingWithoutCaps) {
    FaceSetWorld world(R"(DEF F Extrusion {
  spine [ 2 0 0, 0 0 -2, -2 0 0, 0 0 2, 2 0 0 ]
  crossSection [ 0.5 0.5, 0.5 -0.5, -0.5 -0.5, -0.5 0.5, 0.5 0.5 ]
  creaseAngle 0.5 })");
    csIndexedFaceSet* faces = world.faces();
    EXPECT_EQ(faces->getPrimCount(), 16);
    EXPECT_THAT(intsOf(faces->faceLength()), Each(4));
    EXPECT_EQ(faces->getCoordSet()->getCount(), 16) << "the last spine point is its first";
    EXPECT_TRUE(allFinite(faces->getCoordSet()->point()));
    // Each cross-section stands square to the spine: at the first point the
    // spine runs from the last point before it to the next, along -z.
    for (int j = 0; j < 4; ++j) EXPECT_NEAR(faces->getCoordSet()->point().get(j)[2], 0.0f, 1e-5f);
}

TEST(optExtrusion, BentSpineSetsEachCrossSectionSquareToTheBend) {
    FaceSetWorld world("DEF F Extrusion { spine [ 0 0 0, 0 1 0, 1 1 0 ] endCap FALSE beginCap FALSE }");
    csIndexedFaceSet* faces = world.faces();
    ASSERT_EQ(faces->getCoordSet()->getCount(), 12);
    // The middle copy lies in the plane through (0, 1, 0) square to the
    // direction from the first point to the last.
    const csVec3f across(std::sqrt(0.5f), std::sqrt(0.5f), 0);
    for (int j = 4; j < 8; ++j)
        EXPECT_NEAR(minus(faces->getCoordSet()->point().get(j), csVec3f(0, 1, 0)).dot(across), 0.0f, 1e-5f);
    // The last copy stands square to the last segment, along x.
    for (int j = 8; j < 12; ++j) EXPECT_NEAR(faces->getCoordSet()->point().get(j)[0], 1.0f, 1e-5f);
    EXPECT_EQ(faces->getPrimCount(), 8);
}

TEST(optExtrusion, SpineInALineOrWithRepeatedPointsStaysWhole) {
    FaceSetWorld world(R"(
DEF F Extrusion { spine [ 0 0 0, 3 0 0 ] }
DEF G Extrusion { spine [ 0 0 0, 0 1 0, 0 1 0, 0 2 0 ] }
DEF H Extrusion { spine [ 0 0 0, 0 -2 0 ] }
DEF K Extrusion { spine [ 1 1 1, 1 1 1, 1 1 1 ] }
)");
    // Along x the plain frame is turned so that the spine is its y axis.
    csIndexedFaceSet* faces = world.faces("F");
    csBoxBound bound;
    faces->getBoxBound(&bound);
    expectNear(bound.min, 0, -1, -1);
    expectNear(bound.max, 3, 1, 1);
    expectFacesOutwardFrom(faces, csVec3f(1.5f, 0, 0));

    // A repeated point takes the frame of its neighbours.
    faces = world.faces("G");
    EXPECT_TRUE(allFinite(faces->getCoordSet()->point()));
    EXPECT_TRUE(allFinite(faces->getNormalSet()->vector()));
    faces->getBoxBound(&bound);
    expectNear(bound.min, -1, 0, -1);
    expectNear(bound.max, 1, 2, 1);

    // Straight down the frame is turned over, and the box still faces out.
    faces = world.faces("H");
    expectFacesOutwardFrom(faces, csVec3f(0, -1, 0));

    // A spine of one place has no direction; its copies sit on the point.
    faces = world.faces("K");
    EXPECT_TRUE(allFinite(faces->getCoordSet()->point()));
    EXPECT_EQ(world.messages, "");
}

TEST(optExtrusion, ScaleAndOrientationShapeEachCopy) {
    FaceSetWorld world(R"(DEF F Extrusion {
  scale [ 1 1, 0.5 2 ]
  orientation [ 0 1 0 0, 0 1 0 1.5707963 ] })");
    csIndexedFaceSet* faces = world.faces();
    const csMFVec3f& point = faces->getCoordSet()->point();
    expectNear(point.get(0), 1, 0, 1);
    // Point (1, 1) of the top copy: scaled to (0.5, 2), then turned a
    // quarter about y, which takes (x, z) to (z, -x).
    expectNear(point.get(4), 2, 1, -0.5f);
}

TEST(optExtrusion, TooFewPointsBuildNothingAndHugeSweepsAreRefused) {
    std::string huge = "DEF H Extrusion { spine [";
    for (int i = 0; i < 50000; ++i) huge += " 0 " + std::to_string(i) + " 0";
    huge += " ] crossSection [";
    for (int i = 0; i < 50000; ++i) huge += " " + std::to_string(i) + " 0";
    huge += " ] }";
    FaceSetWorld world("DEF F Extrusion { spine [ 0 0 0 ] }\nDEF G Extrusion { crossSection [ ] }\n" + huge);
    EXPECT_EQ(world.faces("F")->getPrimCount(), 0);
    EXPECT_EQ(world.faces("G")->getPrimCount(), 0);
    EXPECT_EQ(world.messages, "");
    EXPECT_EQ(world.faces("H")->getPrimCount(), 0);
    EXPECT_THAT(world.messages, HasSubstr(wrltest::messageLine(
                                    "optExtrusion:  H is too large to build (50000 spine by 50000 cross-section points).")));
}
