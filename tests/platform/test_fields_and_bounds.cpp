#include <gtest/gtest.h>

#include "csBoxBound.h"
#include "csDataSets.h"
#include "csFields.h"
#include "csSphereBound.h"

TEST(csFields, ListsGrowOnSetAndRefuseRangesBeyondTheirEnds) {
    csMFInt list;
    list.set(3, 7);
    EXPECT_EQ(list.getCount(), 4);
    EXPECT_EQ(list.get(0), 0);
    EXPECT_EQ(list.get(3), 7);
    list.set(-1, 9);
    EXPECT_EQ(list.getCount(), 4);
    EXPECT_EQ(list.get(-1), 0);
    EXPECT_EQ(list.get(4), 0);

    csMFByte bytes;
    const std::uint8_t in[4] = {1, 2, 3, 4};
    ASSERT_TRUE(bytes.setRange(2, 4, in));
    EXPECT_EQ(bytes.getCount(), 6);
    std::uint8_t out[4] = {9, 9, 9, 9};
    EXPECT_FALSE(bytes.getRange(3, 4, out));
    EXPECT_EQ(out[0], 9);  // nothing copied
    EXPECT_TRUE(bytes.getRange(2, 4, out));
    EXPECT_EQ(out[3], 4);
    EXPECT_FALSE(bytes.getRange(-1, 1, out));
    EXPECT_FALSE(bytes.setRange(-1, 1, in));
    EXPECT_FALSE(bytes.setRange(0, 1, nullptr));
}

TEST(csBounds, EmptyBoundsContainNothingAndGrowToTakeInEveryPoint) {
    csBoxBound box;
    EXPECT_TRUE(box.isEmpty());
    EXPECT_FALSE(box.contains(0, 0, 0));
    box.extendBy(csVec3f(1, 2, 3));
    EXPECT_TRUE(box.contains(1, 2, 3));
    box.extendBy(csVec3f(-1, 0, 5));
    EXPECT_TRUE(box.contains(-1, 0, 3));  // faces count as inside
    EXPECT_FALSE(box.contains(-1.001f, 1, 4));
    box.makeEmpty();
    EXPECT_TRUE(box.isEmpty());

    csSphereBound sphere;
    EXPECT_TRUE(sphere.isEmpty());
    EXPECT_FALSE(sphere.contains(csVec3f(0, 0, 0)));
    const csVec3f points[] = {{0, 0, 0}, {2, 0, 0}, {0, 3, 0}, {-1, -1, 4}};
    for (const csVec3f& p : points) sphere.extendBy(p);
    for (const csVec3f& p : points) EXPECT_TRUE(sphere.contains(p)) << p[0] << " " << p[1] << " " << p[2];
}
