// Faces cut into triangles for export: every triangle inside the face and
// wound as the face is, whatever plane it lies in.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "polygon_triangulation.h"

namespace {

csVec3f triangleNormal(const std::vector<csVec3f>& c, const std::array<int, 3>& t) {
    csVec3f u, v, n;
    u.sub(c[static_cast<size_t>(t[1])], c[static_cast<size_t>(t[0])]);
    v.sub(c[static_cast<size_t>(t[2])], c[static_cast<size_t>(t[0])]);
    n.cross(u, v);
    return n;
}

// Twice the area of the triangles, all of which must face along `normal`.
float facingArea(const std::vector<csVec3f>& corners, const csVec3f& normal, bool convex) {
    float twice = 0.0f;
    for (const auto& t : triangulatePolygon(corners, normal, convex)) {
        const csVec3f n = triangleNormal(corners, t);
        EXPECT_GT(n.dot(normal), 0.0f);
        twice += n.length();
    }
    return twice;
}

}  // namespace

TEST(triangulatePolygon, AConcaveFaceInAnyPlaneIsCutInsideIt) {
    // An L of area 3 in xy, then the same in yz and zx, each both ways round.
    const float l[6][2] = {{0, 0}, {2, 0}, {2, 1}, {1, 1}, {1, 2}, {0, 2}};
    for (int plane = 0; plane < 3; ++plane) {
        for (bool reversed : {false, true}) {
            std::vector<csVec3f> corners;
            for (int k = 0; k < 6; ++k) {
                const float* p = l[reversed ? 5 - k : k];
                csVec3f c;
                c[plane] = p[0];
                c[(plane + 1) % 3] = p[1];
                corners.push_back(c);
            }
            const csVec3f normal = polygonNormal(corners);
            EXPECT_NEAR(std::fabs(normal[(plane + 2) % 3]), 1.0f, 1e-6f);
            EXPECT_NEAR(facingArea(corners, normal, false), 6.0f, 1e-4f) << plane << reversed;
        }
    }
}

TEST(triangulatePolygon, WhatCannotBeCutIsFannedAndNothingHangs) {
    // A bow tie crosses itself: no ear holds no other corner for ever.
    const std::vector<csVec3f> bowTie{{0, 0, 0}, {2, 2, 0}, {2, 0, 0}, {0, 2, 0}};
    EXPECT_EQ(triangulatePolygon(bowTie, csVec3f(0, 0, 1), false).size(), 2u);
    // A circle of many corners said not to be convex.
    std::vector<csVec3f> circle;
    for (int k = 0; k < 5000; ++k)
        circle.emplace_back(std::cos(k * 2 * float(M_PI) / 5000), std::sin(k * 2 * float(M_PI) / 5000), 0.0f);
    EXPECT_EQ(triangulatePolygon(circle, polygonNormal(circle), false).size(), 4998u);
    // Collinear first corners do not spoil the normal; no area gives +z.
    const std::vector<csVec3f> square{{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {2, 1, 0}, {0, 1, 0}};
    EXPECT_TRUE(polygonNormal(square).almostEqual(csVec3f(0, 0, 1), 1e-6f));
    const std::vector<csVec3f> line{{0, 0, 0}, {1, 1, 1}, {2, 2, 2}};
    EXPECT_TRUE(polygonNormal(line).almostEqual(csVec3f(0, 0, 1), 0.0f));
}
