// Point sets compiled from VRML text: one point a coordinate, a colour a
// point when there are enough, the material's colour otherwise.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "browser/zn_browser_event.h"
#include "csPointSet.h"
#include "face_set_world.h"
#include "optimizer/optCoordinate.h"
#include "unlit_look.h"

using testing::HasSubstr;
using wrltest::FaceSetWorld;
using wrltest::UnlitLook;

namespace {

csPointSet* points(FaceSetWorld& world, UnlitLook& look, int mode = kActionFetch) {
    return world.act<csPointSet>("P", mode, look.appearance.get());
}

void movePoints(FaceSetWorld& world, std::vector<float> xyz) {
    MFVec3f values(static_cast<int>(xyz.size()), xyz.data());
    world.object<optCoordinate>("C")->set_point(values, 0.0);
}

}  // namespace

TEST(optPointSet, TooFewColoursGiveWayToTheMaterialsUntilEnoughCome) {
    FaceSetWorld world("DEF P PointSet { coord DEF C Coordinate { point [ 0 0 0, 1 0 0 ] } "
                       "color Color { color [ 1 0 0, 0 1 0 ] } }\n");
    UnlitLook look;
    look.material->setEmissiveColor(0, 0, 1);
    csPointSet* set = points(world, look);
    EXPECT_EQ(set->getColorBind(), csGeoSet::PER_VERTEX);
    EXPECT_FALSE(look.appearance->getLightEnable());

    movePoints(world, {0, 0, 0, 1, 0, 0, 2, 0, 0});
    points(world, look, kActionRefresh);
    EXPECT_EQ(set->getPrimCount(), 3);
    EXPECT_EQ(set->getColorBind(), csGeoSet::OVERALL);
    EXPECT_EQ(set->getColorSet()->color().get(0), csVec4f(0, 0, 1, 1));

    movePoints(world, {5, 5, 5});
    points(world, look, kActionRefresh);
    // The coordinate set keeps its length; the point count follows the node.
    EXPECT_EQ(set->getPrimCount(), 1);
    EXPECT_EQ(set->getColorBind(), csGeoSet::PER_VERTEX);
    EXPECT_EQ(set->getColorSet()->color().get(0), csVec4f(1, 0, 0, 1));
}

TEST(optPointSet, WithoutCoordinatesItAlertsAndDrawsNothing) {
    FaceSetWorld world("DEF P PointSet { color Color { color [ 1 0 0 ] } }\n");
    UnlitLook look;
    csPointSet* set = points(world, look);
    EXPECT_THAT(world.messages, HasSubstr("Geometry P has no coordinates."));
    EXPECT_EQ(set->getCoordSet(), nullptr);
    EXPECT_EQ(set->getPrimCount(), 0);
}
