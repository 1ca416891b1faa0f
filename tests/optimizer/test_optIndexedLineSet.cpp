// Line sets compiled from VRML text: lines packed from the index list,
// colours per vertex and per line, the material's colour for lines without
// their own, missing data and refreshes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "browser/zn_browser_event.h"
#include "csIndexedLineSet.h"
#include "face_set_world.h"
#include "optimizer/optCoordinate.h"
#include "optimizer/optIndexedLineSet.h"
#include "unlit_look.h"

using testing::ElementsAre;
using testing::HasSubstr;
using wrltest::FaceSetWorld;
using wrltest::indexesOf;
using wrltest::intsOf;
using wrltest::UnlitLook;

namespace {

const char* const kFourPoints = "0 0 0, 1 0 0, 1 1 0, 0 1 0";

// A line set DEF'd as L over four points (DEF'd as C), with more fields.
std::string lineSet(const std::string& fields) {
    return std::string("DEF L IndexedLineSet { coord DEF C Coordinate { point [ ") + kFourPoints + " ] } " + fields +
           " }\n";
}

csIndexedLineSet* lines(FaceSetWorld& world, UnlitLook& look, int mode = kActionFetch) {
    return world.act<csIndexedLineSet>("L", mode, look.appearance.get());
}

std::vector<int> firstIndexes(const csIndexSet* set, size_t n) {
    std::vector<int> all = indexesOf(set);
    all.resize(std::min(n, all.size()));
    return all;
}

void sendColours(FaceSetWorld& world, const char* node, std::vector<float> rgb) {
    MFColor color(static_cast<int>(rgb.size()), rgb.data());
    znEvent event("set_color", 0.0, color);
    world.node(node)->processEvent(event);
}

}  // namespace

// ---- Lines from the index list

TEST(optIndexedLineSet, ThreeIndexesMakeOneClosedLineOfThreePoints) {
    FaceSetWorld world(lineSet("coordIndex [ 0 1 2 ]"));
    UnlitLook look;
    csIndexedLineSet* set = lines(world, look);
    ASSERT_NE(set, nullptr);
    EXPECT_STREQ(set->getName(), "L");
    EXPECT_EQ(set->getPrimCount(), 1);
    EXPECT_THAT(intsOf(set->stripLength()), ElementsAre(3));
    // The set is as long as the closed list; the terminator's place stays 0.
    EXPECT_THAT(indexesOf(set->getCoordIndexSet()), ElementsAre(0, 1, 2, 0));
    EXPECT_EQ(set->getCoordSet()->point().getCount(), 4);
    EXPECT_FLOAT_EQ(set->getWidth(), 3.0f);
    EXPECT_EQ(world.messages, "");

    // Lines keep their order and direction.
    FaceSetWorld two(lineSet("coordIndex [ 0 1 -1 3 2 1 -1 ]"));
    set = lines(two, look);
    EXPECT_EQ(set->getPrimCount(), 2);
    EXPECT_THAT(intsOf(set->stripLength()), ElementsAre(2, 3));
    EXPECT_THAT(firstIndexes(set->getCoordIndexSet(), 5), ElementsAre(0, 1, 3, 2, 1));
}

// ---- Colours

TEST(optIndexedLineSet, ColoursFollowTheirIndexOrTheCoordinateIndexOrOneEachLine) {
    const std::string perVertex = "color Color { color [ 1 0 0, 0 1 0, 0 0 1 ] } ";
    const std::string perLine = "colorPerVertex FALSE color Color { color [ 1 0 0, 0 1 0 ] } ";
    const struct {
        std::string fields;
        int bind;
        std::vector<int> expected;  // the first entries of the colour index
    } cases[] = {
        {perVertex + "coordIndex [ 0 1 2 -1 2 0 ]", csGeoSet::PER_VERTEX, {0, 1, 2, 2, 0}},
        {perVertex + "colorIndex [ 2 1 0 -1 0 1 ] coordIndex [ 0 1 2 -1 2 0 ]", csGeoSet::PER_VERTEX, {2, 1, 0, 0, 1}},
        {perLine + "coordIndex [ 0 1 -1 2 3 ]", csGeoSet::PER_PRIM, {0, 1}},
        {perLine + "colorIndex [ 1 0 ] coordIndex [ 0 1 -1 2 3 ]", csGeoSet::PER_PRIM, {1, 0}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.fields);
        FaceSetWorld world(lineSet(c.fields));
        UnlitLook look;
        csIndexedLineSet* set = lines(world, look);
        EXPECT_EQ(set->getColorBind(), c.bind);
        EXPECT_EQ(set->getColorPerVertex(), c.bind == csGeoSet::PER_VERTEX);
        EXPECT_EQ(firstIndexes(set->getColorIndexSet(), 5), c.expected);
        EXPECT_EQ(set->getColorSet()->color().get(1), csVec4f(0, 1, 0, 1)) << "not the material's";
    }
}

TEST(optIndexedLineSet, LinesAreUnlitUntexturedAndWithoutColoursTakeTheMaterials) {
    FaceSetWorld world(lineSet("coordIndex [ 0 1 2 ]"));
    UnlitLook look;
    look.material->setDiffuseColor(0.2f, 0.4f, 0.6f);
    csIndexedLineSet* set = lines(world, look);
    EXPECT_FALSE(look.appearance->getLightEnable());
    EXPECT_FALSE(look.appearance->getTexEnable());
    // Black emissive: the diffuse colour, for the whole line set.
    ASSERT_NE(set->getColorSet(), nullptr);
    EXPECT_EQ(set->getColorSet()->getCount(), 1);
    EXPECT_EQ(set->getColorSet()->color().get(0), csVec4f(0.2f, 0.4f, 0.6f, 1));
    EXPECT_EQ(set->getColorBind(), csGeoSet::OVERALL);

    csColorSet4f* shown = set->getColorSet();
    lines(world, look, kActionRefresh);
    EXPECT_EQ(set->getColorSet(), shown) << "an unchanged material leaves the set alone";

    // The emissive colour wins once it is not black, and lighting that
    // came back on goes off again.
    look.material->setEmissiveColor(1, 0, 0);
    look.appearance->setLightEnable(1);
    lines(world, look, kActionRefresh);
    EXPECT_EQ(set->getColorSet()->color().get(0), csVec4f(1, 0, 0, 1));
    EXPECT_FALSE(look.appearance->getLightEnable());
}

// ---- Missing data

TEST(optIndexedLineSet, WithoutCoordinatesItAlertsAndTakesNoColours) {
    FaceSetWorld world("DEF L IndexedLineSet { color Color { color [ 1 0 0 ] } coordIndex [ 0 1 ] }\n");
    UnlitLook look;
    csIndexedLineSet* set = lines(world, look);
    EXPECT_THAT(world.messages, HasSubstr("Geometry L has no coordinates."));
    EXPECT_EQ(set->getCoordSet(), nullptr);
    EXPECT_EQ(set->getColorIndexSet(), nullptr);
    EXPECT_EQ(set->getColorSet()->getCount(), 1) << "only the material's colour";
}

TEST(optIndexedLineSet, HostileIndexListsBuildWithoutHarm) {
    const char* const lists[] = {
        "coordIndex [ -1 -1 -1 ]",
        "coordIndex [ 0 -1 -1 9 ]",
        "coordIndex [ 2147483647 -2147483648 0 1 ]",
        "colorPerVertex FALSE color Color { color [ 1 0 0 ] } colorIndex [ 5 -7 ] coordIndex [ 0 1 2 ]",
        "color Color { } colorIndex [ -1 -1 ] coordIndex [ 0 1 ]",
        "color Color { color [ 1 0 0 ] } coordIndex [ ]",
    };
    for (const char* fields : lists) {
        SCOPED_TRACE(fields);
        FaceSetWorld world(lineSet(fields));
        UnlitLook look;
        csIndexedLineSet* set = lines(world, look);
        ASSERT_NE(set, nullptr);
        EXPECT_EQ(set->getPrimCount(), set->stripLength().getCount());
        lines(world, look, kActionRefresh);
    }
}

// ---- Refreshing after changes

TEST(optIndexedLineSet, NewCoordIndexRepacksTheLinesAndRebindsTheirColours) {
    FaceSetWorld world(lineSet("color Color { color [ 1 0 0, 0 1 0, 0 0 1, 1 1 1 ] } coordIndex [ 0 1 2 ]"));
    UnlitLook look;
    csIndexedLineSet* set = lines(world, look);
    std::vector<int> both{3, 2, -1, 1, 0, 3};
    MFInt32 list(both);
    znEvent event("set_coordIndex", 0.0, list);
    world.node("L")->processEvent(event);
    lines(world, look, kActionRefresh);
    EXPECT_EQ(set->getPrimCount(), 2);
    EXPECT_THAT(intsOf(set->stripLength()), ElementsAre(2, 3));
    EXPECT_EQ(set->getColorBind(), csGeoSet::PER_VERTEX);
    EXPECT_THAT(firstIndexes(set->getColorIndexSet(), 5), ElementsAre(3, 2, 1, 0, 3));
}

TEST(optIndexedLineSet, TooFewColoursForNewPointsSwitchColourOffUntilEnoughCome) {
    FaceSetWorld world("DEF L IndexedLineSet { coord DEF C Coordinate { point [ 0 0 0, 1 0 0 ] } "
                       "color DEF K Color { color [ 1 0 0, 0 1 0 ] } coordIndex [ 0 1 ] }\n");
    UnlitLook look;
    csIndexedLineSet* set = lines(world, look);
    EXPECT_EQ(set->getColorBind(), csGeoSet::PER_VERTEX);
    csColorSet4f* before = set->getColorSet();

    std::vector<float> three{0, 0, 0, 1, 0, 0, 1, 1, 0};
    MFVec3f points(static_cast<int>(three.size()), three.data());
    world.object<optCoordinate>("C")->set_point(points, 0.0);
    lines(world, look, kActionRefresh);
    EXPECT_EQ(set->getCoordSet()->point().getCount(), 3);
    EXPECT_EQ(set->getColorBind(), csGeoSet::OFF);
    EXPECT_EQ(set->getColorSet(), before);

    sendColours(world, "K", {1, 0, 0, 0, 1, 0, 0, 0, 1});
    lines(world, look, kActionRefresh);
    EXPECT_EQ(set->getColorBind(), csGeoSet::PER_VERTEX);
    EXPECT_EQ(set->getColorSet()->color().get(2), csVec4f(0, 0, 1, 1));
    EXPECT_FALSE(world.node("K")->getExposedField("color")->isDirty());  // seen once, cleaned
}
