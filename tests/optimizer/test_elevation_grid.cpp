// ElevationGrid as a face set: one quadrilateral per square of the grid,
// its points spaced along x and z, winding, normals generated within the
// crease angle or given per point or per square, colours by square or by
// point, default texture coordinates, and grids that come short.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "csAppearance.h"
#include "csTexture.h"
#include "face_set_world.h"
#include "url_test_server.h"

using testing::ElementsAre;
using testing::HasSubstr;
using wrltest::cornerNormal;
using wrltest::cornerPoint;
using wrltest::expectNear;
using wrltest::FaceSetWorld;
using wrltest::indexesOf;
using wrltest::intsOf;

namespace {

const char* const kRoof = "xDimension 3 zDimension 2 height [ 0 1 0  0 1 0 ]";

}  // namespace

TEST(optElevationGrid, ThreeByThreeHeightsGiveFourQuadsFacingUpUnlessClockwise) {
    FaceSetWorld world("DEF F ElevationGrid { xDimension 3 zDimension 3 xSpacing 2 zSpacing 3 "
                       "height [ 0 0 0  0 0 0  0 0 5 ] solid FALSE }\n"
                       "DEF G ElevationGrid { xDimension 2 zDimension 2 height [ 0 0 0 0 ] ccw FALSE }");
    csIndexedFaceSet* faces = world.faces();
    ASSERT_NE(faces, nullptr);
    EXPECT_STREQ(faces->getName(), "F");
    EXPECT_EQ(faces->getPrimCount(), 4);
    EXPECT_THAT(intsOf(faces->faceLength()), ElementsAre(4, 4, 4, 4));
    EXPECT_EQ(faces->getCoordSet()->getCount(), 9);
    // Point i + 3 j stands at (2 i, height, 3 j).
    expectNear(faces->getCoordSet()->point().get(8), 4, 5, 6);
    expectNear(faces->getCoordSet()->point().get(1), 2, 0, 0);
    // The first square runs (0, 0), (0, 1), (1, 1), (1, 0): counter-clockwise
    // seen from above, so a flat square faces up.
    EXPECT_THAT(indexesOf(faces->getCoordIndexSet()),
                ElementsAre(0, 3, 4, 1, 1, 4, 5, 2, 3, 6, 7, 4, 4, 7, 8, 5));
    for (int c = 0; c < 12; ++c) expectNear(cornerNormal(faces, c), 0, 1, 0);
    EXPECT_FALSE(faces->getSolid());
    EXPECT_EQ(faces->getNormalBind(), csGeoSet::PER_VERTEX);
    // Texture coordinates span the grid, (0, 0) at the first point and
    // (1, 1) at the last, s along x.
    const csMFVec2f& tex = faces->getTexCoordSet()->point();
    EXPECT_EQ(tex.get(0), csVec2f(0, 0));
    EXPECT_EQ(tex.get(2), csVec2f(1, 0));
    EXPECT_EQ(tex.get(8), csVec2f(1, 1));
    EXPECT_EQ(faces->getTexCoordIndexSet(), faces->getCoordIndexSet());
    EXPECT_EQ(world.messages, "");

    faces = world.faces("G");
    EXPECT_THAT(indexesOf(faces->getCoordIndexSet()), ElementsAre(1, 3, 2, 0));
    for (int c = 0; c < 4; ++c) expectNear(cornerNormal(faces, c), 0, -1, 0);
}

TEST(optElevationGrid, CreaseAngleSmoothsTheRidgeOnlyWhenWideEnough) {
    const float r = std::sqrt(0.5f);
    // Two squares meet at a right angle along the ridge x = 1.
    FaceSetWorld sharp(std::string("DEF F ElevationGrid { ") + kRoof + " }");
    csIndexedFaceSet* faces = sharp.faces();
    ASSERT_EQ(faces->getPrimCount(), 2);
    expectNear(cornerNormal(faces, 2), -r, r, 0);  // corner at (1, 1, 1) of the rising square
    expectNear(cornerNormal(faces, 4), r, r, 0);   // the same point in the falling square

    FaceSetWorld smooth(std::string("DEF F ElevationGrid { creaseAngle 1.6 ") + kRoof + " }");
    faces = smooth.faces();
    expectNear(cornerNormal(faces, 2), 0, 1, 0);
    expectNear(cornerNormal(faces, 4), 0, 1, 0);
    expectNear(cornerNormal(faces, 0), -r, r, 0);  // the eaves have one square each
}

TEST(optElevationGrid, ColoursAndNormalsBindPerSquareOrPerPoint) {
    FaceSetWorld world(R"(
DEF F ElevationGrid { xDimension 3 zDimension 2 height [ 0 0 0 0 0 0 ]
  colorPerVertex FALSE color Color { color [ 1 0 0, 0 1 0 ] }
  normalPerVertex FALSE normal Normal { vector [ 0 1 0, 1 0 0 ] } }
DEF G ElevationGrid { xDimension 3 zDimension 2 height [ 0 0 0 0 0 0 ]
  color Color { color [ 1 0 0, 0 1 0, 0 0 1, 1 1 0, 0 1 1, 1 0 1 ] }
  texCoord TextureCoordinate { point [ 0 0, 1 0, 2 0, 0 1, 1 1, 2 1 ] } }
)");
    csIndexedFaceSet* bySquare = world.faces("F");
    EXPECT_EQ(bySquare->getColorBind(), csGeoSet::PER_PRIM);
    EXPECT_FALSE(bySquare->getColorPerVertex());
    EXPECT_THAT(indexesOf(bySquare->getColorIndexSet()), ElementsAre(0, 1));
    EXPECT_EQ(bySquare->getNormalBind(), csGeoSet::PER_PRIM);
    EXPECT_THAT(indexesOf(bySquare->getNormalIndexSet()), ElementsAre(0, 1));

    csIndexedFaceSet* byPoint = world.faces("G");
    EXPECT_EQ(byPoint->getColorBind(), csGeoSet::PER_VERTEX);
    EXPECT_EQ(byPoint->getColorIndexSet(), byPoint->getCoordIndexSet());
    EXPECT_EQ(byPoint->getColorSet()->getCount(), 6);
    EXPECT_EQ(byPoint->getTexCoordSet()->point().get(2), csVec2f(2, 0));
    EXPECT_EQ(world.messages, "");
}

TEST(optElevationGrid, ShortGridsKeepWhatTheyFillAndSayWhatIsLeftOut) {
    FaceSetWorld world(R"(
DEF F ElevationGrid { xDimension 3 zDimension 3 height [ 0 0 0 0 0 0 0 ] }
DEF G ElevationGrid { xDimension 2 zDimension 2 height [ 0 0 0 0 ]
  colorPerVertex FALSE color Color { color [ ] } }
DEF H ElevationGrid { xDimension 1 zDimension 5 height [ 1 2 3 4 5 ] }
DEF K ElevationGrid { xDimension 100000 zDimension 100000 height [ 1 ] }
)");
    csIndexedFaceSet* faces = world.faces("F");
    EXPECT_EQ(faces->getPrimCount(), 2);
    EXPECT_THAT(world.messages, HasSubstr(wrltest::messageLine(
                                    "optElevationGrid:  F has 7 heights for 3 x 3 points; only its first 2 rows are built.")));

    faces = world.faces("G");
    EXPECT_EQ(faces->getColorBind(), csGeoSet::OFF);
    EXPECT_THAT(world.messages,
                HasSubstr(wrltest::messageLine("optElevationGrid:  G has 0 colours for 1; they are left out.")));

    // A single column has no squares at all; a grid far beyond its heights
    // builds none either, without trying to make its points.
    EXPECT_EQ(world.faces("H")->getPrimCount(), 0);
    EXPECT_EQ(world.faces("K")->getPrimCount(), 0);
    EXPECT_EQ(world.faces("K")->getCoordSet()->getCount(), 0);
}

TEST(optElevationGrid, ThreeComponentTextureTurnsColoursGrey) {
    FaceSetWorld world(R"(DEF F ElevationGrid { xDimension 2 zDimension 2 height [ 0 0 0 0 ]
  color Color { color [ 1 0 0, 0 1 0, 0 0 1, 1 1 1 ] } })");
    auto* look = new csAppearance();
    look->ref();
    auto* texture = new csTexture();
    texture->setFormat(csTexture::RGB);
    look->setTexture(texture);
    // Whether the texture shows is the appearance's to say.
    look->setTexEnable(1);
    csIndexedFaceSet* faces = world.faces("F", look);
    EXPECT_EQ(faces->getColorBind(), csGeoSet::OVERALL);
    ASSERT_EQ(faces->getColorSet()->getCount(), 1);
    EXPECT_EQ(faces->getColorSet()->color().get(0), csVec4f(0.8f, 0.8f, 0.8f, 1.0f));
    look->unref();
}
