// Face sets compiled from VRML text: index lists and winding, generated
// normals and texture coordinates, bindings, missing data and refreshes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "browser/zn_browser_event.h"
#include "face_set_world.h"
#include "optimizer/optCoordinate.h"
#include "optimizer/optIndexedFaceSet.h"

using testing::ElementsAre;
using testing::HasSubstr;
using wrltest::cornerNormal;
using wrltest::expectNear;
using wrltest::FaceSetWorld;
using wrltest::indexesOf;
using wrltest::intsOf;

namespace {

// A face set DEF'd as F over the given points, with more fields after them.
std::string faceSet(const std::string& points, const std::string& fields) {
    return "DEF F IndexedFaceSet { coord DEF C Coordinate { point [ " + points + " ] } " + fields + " }\n";
}

// The unit triangle in xy and a square beside it.
const char* const kTriangleAndSquare = "0 0 0, 1 0 0, 0 1 0,  2 0 0, 3 0 0, 3 1 0, 2 1 0";

// Two triangles on the edge 0-1: one in the xy plane facing +z, one in the
// xz plane facing +y, so that they meet at a right angle.
const char* const kFold = "0 0 0, 1 0 0, 0 1 0, 0 0 1";
const char* const kFoldFaces = "coordIndex [ 0 1 2 -1 1 0 3 -1 ]";

}  // namespace

// ---- Index lists and winding

TEST(optIndexedFaceSet, CoordIndexIsClosedAndPackedIntoFaces) {
    FaceSetWorld world(faceSet(kTriangleAndSquare, "solid FALSE coordIndex [ 0 1 2 -1 3 4 5 6 ]"));
    csIndexedFaceSet* faces = world.faces();
    ASSERT_NE(faces, nullptr);
    EXPECT_STREQ(faces->getName(), "F");
    EXPECT_EQ(faces->getPrimCount(), 2);
    EXPECT_THAT(intsOf(faces->faceLength()), ElementsAre(3, 4));
    // The set is as long as the closed list; the places of terminators stay 0.
    EXPECT_THAT(indexesOf(faces->getCoordIndexSet()), ElementsAre(0, 1, 2, 3, 4, 5, 6, 0, 0));
    EXPECT_EQ(faces->getCoordSet()->point().getCount(), 7);
    EXPECT_FALSE(faces->getSolid());
    EXPECT_TRUE(faces->getConvex());
    expectNear(cornerNormal(faces, 0), 0, 0, 1);
}

TEST(optIndexedFaceSet, FalseCcwReversesCornersAndFacesAndFlipsTheNormals) {
    FaceSetWorld one(faceSet(kTriangleAndSquare, "ccw FALSE coordIndex [ 0 1 2 -1 ]"));
    csIndexedFaceSet* faces = one.faces();
    EXPECT_THAT(intsOf(faces->faceLength()), ElementsAre(3));
    EXPECT_THAT(indexesOf(faces->getCoordIndexSet()), ElementsAre(2, 1, 0, 0));
    for (int corner = 0; corner < 3; ++corner) expectNear(cornerNormal(faces, corner), 0, 0, -1);

    FaceSetWorld two(faceSet(kTriangleAndSquare, "ccw FALSE coordIndex [ 0 1 2 -1 3 4 5 6 ]"));
    faces = two.faces();
    EXPECT_THAT(intsOf(faces->faceLength()), ElementsAre(4, 3));
    EXPECT_THAT(indexesOf(faces->getCoordIndexSet()), ElementsAre(6, 5, 4, 3, 2, 1, 0, 0, 0));
}

TEST(optIndexedFaceSet, QuadWithCollinearFirstCornersTakesItsNormalFromTheNextOnes) {
    FaceSetWorld world(faceSet("0 0 0, 1 0 0, 2 0 0, 2 1 0", "coordIndex [ 0 1 2 3 -1 ]"));
    csIndexedFaceSet* faces = world.faces();
    for (int corner = 0; corner < 4; ++corner) {
        SCOPED_TRACE(corner);
        expectNear(cornerNormal(faces, corner), 0, 0, 1);
        EXPECT_EQ(faces->getNormalIndexSet()->index().get(corner), corner);
    }
    EXPECT_EQ(faces->getNormalSet()->vector().getCount(), 5);  // one place for each list entry
    EXPECT_EQ(world.messages, "");
}

TEST(optIndexedFaceSet, CreaseAngleDecidesWhichCornersOfAPointAverage) {
    const float half = std::sqrt(0.5f);
    for (const char* angle : {"0", "1.57"}) {
        SCOPED_TRACE(angle);
        FaceSetWorld world(faceSet(kFold, std::string("creaseAngle ") + angle + " " + kFoldFaces));
        csIndexedFaceSet* faces = world.faces();
        for (int corner = 0; corner < 3; ++corner) expectNear(cornerNormal(faces, corner), 0, 0, 1);
        for (int corner = 3; corner < 6; ++corner) expectNear(cornerNormal(faces, corner), 0, 1, 0);
    }
    // The fold is a right angle: just above it, and at 3.14, the shared
    // points average while the others keep their face's normal.
    for (const char* angle : {"1.571", "3.14"}) {
        SCOPED_TRACE(angle);
        FaceSetWorld world(faceSet(kFold, std::string("creaseAngle ") + angle + " " + kFoldFaces));
        csIndexedFaceSet* faces = world.faces();
        for (int corner : {0, 1, 3, 4}) expectNear(cornerNormal(faces, corner), 0, half, half);
        expectNear(cornerNormal(faces, 2), 0, 0, 1);
        expectNear(cornerNormal(faces, 5), 0, 1, 0);
    }
}

TEST(optIndexedFaceSet, SmoothingAveragesTheFaceNormalsNotNormalsAlreadySmoothed) {
    // Three faces at point 0: +z, +y and +x. At 1.6 each pair lies within
    // the angle, so every corner there takes the mean of all three.
    FaceSetWorld world(faceSet("0 0 0, 1 0 0, 0 1 0, 0 0 1",
                               "creaseAngle 1.6 coordIndex [ 0 1 2 -1 1 0 3 -1 0 2 3 -1 ]"));
    csIndexedFaceSet* faces = world.faces();
    const float third = 1.0f / std::sqrt(3.0f);
    expectNear(cornerNormal(faces, 0), third, third, third);
    expectNear(cornerNormal(faces, 4), third, third, third);
    expectNear(cornerNormal(faces, 6), third, third, third);
}

TEST(optIndexedFaceSet, BadIndexIsReportedAndMendedInTheNormalsOnly) {
    FaceSetWorld world(faceSet("0 0 0, 1 0 0, 0 1 0", "coordIndex [ 1 2 -2 -1 0 1 7 ]"));
    csIndexedFaceSet* faces = world.faces();
    EXPECT_EQ(world.messages, "Invalid index: -2\nInvalid index: 7\n");
    // -2 stands for point 0 and 7 for the last point, 2.
    for (int corner = 0; corner < 6; ++corner) expectNear(cornerNormal(faces, corner), 0, 0, 1);
    EXPECT_THAT(indexesOf(faces->getCoordIndexSet()), ElementsAre(1, 2, -2, 0, 1, 7, 0, 0));

    FaceSetWorld given(faceSet("0 0 0, 1 0 0, 0 1 0",
                               "normal Normal { vector [ 0 0 1 ] } coordIndex [ 1 2 -2 -1 ] normalIndex [ 0 0 0 -1 ]"));
    given.faces();
    EXPECT_EQ(given.messages, "");

    // An empty coordinate gives an empty set, and every index is bad.
    FaceSetWorld empty("DEF F IndexedFaceSet { coord Coordinate { } coordIndex [ 0 1 2 -1 ] }\n");
    faces = empty.faces();
    ASSERT_NE(faces->getCoordSet(), nullptr);
    EXPECT_EQ(faces->getCoordSet()->point().getCount(), 0);
    EXPECT_EQ(empty.messages, "Invalid index: 0\nInvalid index: 1\nInvalid index: 2\n");
}

// ---- Generated texture coordinates

TEST(optIndexedFaceSet, TextureCoordinatesSpanTheTwoLongestSidesOfTheBound) {
    FaceSetWorld square(faceSet("0 0 0, 1 0 0, 1 1 0, 0 1 0", "coordIndex [ 0 1 2 3 ]"));
    csIndexedFaceSet* faces = square.faces();
    const csMFVec2f& st = faces->getTexCoordSet()->point();
    ASSERT_EQ(st.getCount(), 4);
    EXPECT_EQ(st.get(2), csVec2f(1, 1));
    EXPECT_EQ(st.get(3), csVec2f(0, 1));
    EXPECT_EQ(faces->getTexCoordBind(), csGeoSet::TEX_COORD_PER_VERTEX);
    EXPECT_EQ(indexesOf(faces->getTexCoordIndexSet()), indexesOf(faces->getCoordIndexSet()));

    // Longest along z, then y: s follows z, t follows y at half the scale.
    FaceSetWorld upright(faceSet("0 0 0, 0 0 2, 0 1 2, 0 1 0", "coordIndex [ 0 1 2 3 ]"));
    const csMFVec2f& tall = upright.faces()->getTexCoordSet()->point();
    EXPECT_EQ(tall.get(1), csVec2f(1, 0));
    EXPECT_EQ(tall.get(2), csVec2f(1, 0.5f));

    FaceSetWorld line(faceSet("0 0 0, 1 0 0, 2 0 0", "coordIndex [ 0 1 2 ]"));
    csIndexedFaceSet* flat = line.faces();
    ASSERT_NE(flat->getTexCoordSet(), nullptr);
    EXPECT_EQ(flat->getTexCoordSet()->point().getCount(), 0);
}

// ---- Given texture coordinates, colours and normals with their index lists

TEST(optIndexedFaceSet, GivenListsUseTheirOwnIndexOrTheCoordinateIndexAndFollowTheWinding) {
    const std::string texCoord = "texCoord TextureCoordinate { point [ 0 0, 1 0, 0 1 ] } ";
    const std::string perFace = "colorPerVertex FALSE color Color { color [ 1 0 0, 0 0 1 ] } ";
    const std::string normals = "normal Normal { vector [ 0 0 1, 0 0 -1 ] } ";
    using Set = const csIndexSet* (*)(csIndexedFaceSet*);
    const Set tex = [](csIndexedFaceSet* f) -> const csIndexSet* { return f->getTexCoordIndexSet(); };
    const Set color = [](csIndexedFaceSet* f) -> const csIndexSet* { return f->getColorIndexSet(); };
    const Set normal = [](csIndexedFaceSet* f) -> const csIndexSet* { return f->getNormalIndexSet(); };
    const struct {
        std::string fields;
        Set set;
        std::vector<int> expected;
    } cases[] = {
        {texCoord + "coordIndex [ 2 1 0 -1 ]", tex, {2, 1, 0, 0}},
        {texCoord + "coordIndex [ 0 1 2 -1 ] texCoordIndex [ 1 2 0 -1 ]", tex, {1, 2, 0, 0}},
        {texCoord + "ccw FALSE coordIndex [ 0 1 2 -1 ] texCoordIndex [ 1 2 0 -1 ]", tex, {0, 2, 1, 0}},
        {perFace + "coordIndex [ 0 1 2 -1 3 4 5 6 ] colorIndex [ 1 0 ]", color, {1, 0}},
        {perFace + "ccw FALSE coordIndex [ 0 1 2 -1 3 4 5 6 ] colorIndex [ 1 0 ]", color, {0, 1}},
        {perFace + "coordIndex [ 0 1 2 -1 3 4 5 6 ]", color, {0, 1}},
        {"color Color { color [ 1 0 0, 0 1 0, 0 0 1 ] } coordIndex [ 2 0 1 ]", color, {2, 0, 1, 0}},
        {normals + "coordIndex [ 0 1 2 -1 ]", normal, {0, 1, 2, 0}},
        // The trailing terminator goes before the set is sized.
        {normals + "ccw FALSE coordIndex [ 0 1 2 -1 ] normalIndex [ 1 1 0 -1 ]", normal, {0, 1, 1}},
        // Per-face normals without an index put one per face in the colour slot.
        {"normalPerVertex FALSE " + normals + "coordIndex [ 0 1 2 -1 3 4 5 6 ]", color, {0, 1}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.fields);
        FaceSetWorld world(faceSet(kTriangleAndSquare, c.fields));
        EXPECT_EQ(indexesOf(c.set(world.faces())), c.expected);
    }

    FaceSetWorld faceColours(faceSet(kTriangleAndSquare, perFace + "coordIndex [ 0 1 2 -1 3 4 5 6 ]"));
    csIndexedFaceSet* faces = faceColours.faces();
    EXPECT_EQ(faces->getColorBind(), csGeoSet::PER_PRIM);
    EXPECT_FALSE(faces->getColorPerVertex());
    EXPECT_EQ(faces->getColorSet()->color().get(1), csVec4f(0, 0, 1, 1));
    FaceSetWorld faceNormals(faceSet(kTriangleAndSquare, "normalPerVertex FALSE " + normals + "coordIndex [ 0 1 2 ]"));
    faces = faceNormals.faces();
    EXPECT_EQ(faces->getNormalBind(), csGeoSet::PER_PRIM);
    EXPECT_EQ(faces->getNormalIndexSet(), nullptr);
    FaceSetWorld none(faceSet(kTriangleAndSquare, "coordIndex [ 0 1 2 ]"));
    EXPECT_EQ(none.faces()->getColorSet(), nullptr);
    EXPECT_EQ(none.faces()->getColorBind(), csGeoSet::OFF);
}

// ---- Missing coordinates

TEST(optIndexedFaceSet, WithoutCoordinatesItAlertsAndStaysEmpty) {
    FaceSetWorld world("DEF F IndexedFaceSet { color Color { color [ 1 0 0 ] } coordIndex [ 0 1 2 ] }\n");
    csIndexedFaceSet* faces = world.faces();
    EXPECT_THAT(world.messages, HasSubstr("Geometry F has no coordinates."));
    EXPECT_EQ(faces->getCoordSet(), nullptr);
    EXPECT_EQ(faces->getCoordIndexSet(), nullptr);
    EXPECT_EQ(faces->getColorSet(), nullptr);
    EXPECT_EQ(faces->getNormalSet(), nullptr);
    EXPECT_EQ(faces->getPrimCount(), 0);
}

// ---- Refreshing after changes

TEST(optIndexedFaceSet, MovedPointsRenewNormalsAndTextureCoordinates) {
    FaceSetWorld world(faceSet("0 0 0, 1 0 0, 0 1 0", "coordIndex [ 0 1 2 ]"));
    csIndexedFaceSet* faces = world.faces();
    EXPECT_EQ(world.refresh(), faces);  // nothing changed: nothing rebuilt
    csNormalSet3f* before = faces->getNormalSet();
    EXPECT_EQ(world.refresh()->getNormalSet(), before);

    // The triangle turns to face +y and doubles along z.
    std::vector<float> moved{0, 0, 0, 0, 0, 2, 1, 0, 0};
    MFVec3f points(static_cast<int>(moved.size()), moved.data());
    world.object<optCoordinate>("C")->set_point(points, 0.0);
    world.refresh();
    EXPECT_NE(faces->getNormalSet(), before);
    expectNear(cornerNormal(faces, 0), 0, 1, 0);
    EXPECT_EQ(faces->getTexCoordSet()->point().get(1), csVec2f(1, 0));
    EXPECT_EQ(faces->getTexCoordSet()->point().get(2), csVec2f(0, 0.5f));
    EXPECT_FALSE(world.node("C")->getExposedField("point")->isDirty());  // seen once, cleaned

    // Given coordinates give way to generated ones when the points move.
    FaceSetWorld given(faceSet("0 0 0, 1 0 0, 0 1 0",
                               "texCoord TextureCoordinate { point [ 5 5, 6 6, 7 7 ] } coordIndex [ 0 1 2 ]"));
    faces = given.faces();
    EXPECT_EQ(faces->getTexCoordSet()->point().get(0), csVec2f(5, 5));
    std::vector<float> same{0, 0, 0, 1, 0, 0, 0, 1, 0};
    MFVec3f again(static_cast<int>(same.size()), same.data());
    given.object<optCoordinate>("C")->set_point(again, 0.0);
    given.refresh();
    EXPECT_EQ(faces->getTexCoordSet()->point().get(1), csVec2f(1, 0));
}

TEST(optIndexedFaceSet, NewCoordIndexRepacksFacesAndBindsTheRestPerFace) {
    FaceSetWorld world(faceSet(kTriangleAndSquare, "coordIndex [ 0 1 2 ]"));
    csIndexedFaceSet* faces = world.faces();
    std::vector<int> both{0, 1, 2, -1, 3, 4, 5, 6, -1};
    MFInt32 list(both);
    world.object<optIndexedFaceSet>("F")->set_coordIndex(list, 0.0);
    world.refresh();
    EXPECT_EQ(faces->getPrimCount(), 2);
    EXPECT_THAT(intsOf(faces->faceLength()), ElementsAre(3, 4));
    EXPECT_EQ(faces->getTexCoordIndexSet(), faces->getCoordIndexSet());
    EXPECT_EQ(faces->getColorBind(), csGeoSet::PER_PRIM);
    EXPECT_EQ(faces->getNormalBind(), csGeoSet::PER_PRIM);
    EXPECT_THAT(indexesOf(faces->getColorIndexSet()), ElementsAre(0, 1));
}

TEST(optIndexedFaceSet, CoordinatesFromAPrototypeAreFetchedAndWatched) {
    FaceSetWorld world("PROTO Points [ ] { DEF C Coordinate { point [ 0 0 0, 1 0 0, 0 1 0 ] } }\n" +
                       std::string("DEF F IndexedFaceSet { coord Points { } coordIndex [ 0 1 2 ] }\n"));
    csIndexedFaceSet* faces = world.faces();
    ASSERT_NE(faces->getCoordSet(), nullptr);
    EXPECT_EQ(faces->getCoordSet()->point().get(1), csVec3f(1, 0, 0));
    expectNear(cornerNormal(faces, 0), 0, 0, 1);
    // The body's field was seen at the build: a refresh leaves the normals be.
    csNormalSet3f* normals = faces->getNormalSet();
    EXPECT_EQ(world.refresh()->getNormalSet(), normals);
}

TEST(optIndexedFaceSet, TooFewNewColoursSwitchColourOffAndKeepTheOldOnes) {
    FaceSetWorld world(faceSet(kTriangleAndSquare, "color DEF K Color { color [ 1 0 0, 0 1 0, 0 0 1 ] } "
                                                   "colorPerVertex FALSE coordIndex [ 0 1 2 -1 3 4 5 6 ]"));
    csIndexedFaceSet* faces = world.faces();
    csColorSet4f* before = faces->getColorSet();
    std::vector<float> one{1, 1, 1};
    MFColor color(static_cast<int>(one.size()), one.data());
    znEvent event("set_color", 0.0, color);
    world.node("K")->processEvent(event);
    world.refresh();
    EXPECT_EQ(faces->getColorBind(), csGeoSet::OFF);
    EXPECT_EQ(faces->getColorSet(), before);
}

TEST(optIndexedFaceSet, HostileIndexListsBuildWithoutHarm) {
    const char* const lists[] = {
        "coordIndex [ -1 -1 -1 ]",
        "ccw FALSE coordIndex [ -1 -1 ]",
        "ccw FALSE coordIndex [ 0 1 2 -1 -1 ] normal Normal { vector [ 0 0 1 ] }",
        "coordIndex [ 2147483647 -2147483648 0 1 ] creaseAngle 3.2",
        "colorPerVertex FALSE color Color { color [ 1 0 0 ] } colorIndex [ 5 -7 ] coordIndex [ 0 1 2 ]",
        "normalPerVertex FALSE normal Normal { vector [ 0 0 1 ] } normalIndex [ 9 ] coordIndex [ 0 1 2 -1 0 2 3 ]",
        "texCoord TextureCoordinate { } texCoordIndex [ -1 4 ] coordIndex [ 0 0 0 0 ]",
    };
    for (const char* fields : lists) {
        SCOPED_TRACE(fields);
        FaceSetWorld world(faceSet(kTriangleAndSquare, fields));
        csIndexedFaceSet* faces = world.faces();
        ASSERT_NE(faces, nullptr);
        EXPECT_EQ(faces->getPrimCount(), faces->faceLength().getCount());
    }
}
