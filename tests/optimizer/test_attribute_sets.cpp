// Colour, coordinate, normal and texture coordinate nodes as the sets that
// geometry fetches.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "face_set_world.h"
#include "optimizer/optColor.h"
#include "optimizer/optCoordinate.h"
#include "optimizer/optNormal.h"
#include "optimizer/optTextureCoordinate.h"

using wrltest::FaceSetWorld;

namespace {
const char* const kAttributes =
    "DEF K Color { color [ 1 0.5 0, 0 0 1 ] }\n"
    "DEF C Coordinate { point [ 1 2 3, 4 5 6, 7 8 9 ] }\n"
    "DEF E Coordinate { }\n"
    "DEF N Normal { vector [ 0 0 2, 3 4 0 ] }\n"
    "DEF T TextureCoordinate { point [ 0.5 1, 2 3 ] }\n";
}  // namespace

TEST(AttributeSets, NewValuesOverwriteTheSetWhichNeverShrinks) {
    FaceSetWorld world(kAttributes);
    csCoordSet3f* points = world.act<csCoordSet3f>("C");
    EXPECT_EQ(world.act<csCoordSet3f>("C", kActionRefresh), points) << "whatever the mode, the same set";
    EXPECT_EQ(world.act<csCoordSet3f>("E")->point().getCount(), 0) << "an empty set, not none";
    EXPECT_EQ(world.act<csNormalSet3f>("N")->vector().get(1), csVec3f(0.6f, 0.8f, 0)) << "made unit length";
    std::vector<float> one{9, 9, 9};
    MFVec3f fewer(static_cast<int>(one.size()), one.data());
    world.object<optCoordinate>("C")->set_point(fewer, 0.0);
    EXPECT_EQ(world.act<csCoordSet3f>("C"), points);
    ASSERT_EQ(points->point().getCount(), 3);
    EXPECT_EQ(points->point().get(0), csVec3f(9, 9, 9));
    EXPECT_EQ(points->point().get(1), csVec3f(4, 5, 6));  // beyond the new count: as it was
    // The field itself holds the new values, and tells geometry so.
    Field* field = world.node("C")->getExposedField("point");
    EXPECT_EQ(dynamic_cast<MFVec3f*>(field)->getSize(), 1);
    EXPECT_TRUE(field->isDirty());

    std::vector<float> four{1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 5};
    MFVec3f more(static_cast<int>(four.size()), four.data());
    world.object<optNormal>("N")->set_vector(more, 0.0);
    csNormalSet3f* normals = world.act<csNormalSet3f>("N");
    ASSERT_EQ(normals->vector().getCount(), 4);
    EXPECT_EQ(normals->vector().get(3), csVec3f(0, 0, 1));

    std::vector<float> red{1, 0, 0};
    MFColor color(static_cast<int>(red.size()), red.data());
    world.object<optColor>("K")->set_color(color, 0.0);
    EXPECT_EQ(world.act<csColorSet4f>("K")->color().get(0), csVec4f(1, 0, 0, 1));

    std::vector<float> corner{0, 0};
    MFVec2f st(static_cast<int>(corner.size()), corner.data());
    world.object<optTextureCoordinate>("T")->set_point(st, 0.0);
    EXPECT_EQ(world.act<csTexCoordSet2f>("T")->point().get(0), csVec2f(0, 0));
}
