// Smoothing at a point where many faces meet: the same normals as taking
// every pair of corners there, at every crease angle, and the flat cases
// that repeat one normal thousands of times.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "optimizer/opt_normals.h"

namespace {

// A fan of `count` triangles around point 0, each tilted at random, so that
// their normals are all different.
struct Fan {
    std::vector<csVec3f> points;
    std::vector<int> faces;
    explicit Fan(int count, float spread) {
        std::mt19937 random(7);
        std::uniform_real_distribution<float> tilt(-spread, spread);
        points.emplace_back(0.0f, 0.0f, 0.0f);
        for (int i = 0; i < count; ++i) {
            const float angle = 6.2831853f * static_cast<float>(i) / static_cast<float>(count);
            points.emplace_back(std::cos(angle), tilt(random), std::sin(angle));
            points.emplace_back(std::cos(angle + 0.01f), tilt(random), std::sin(angle + 0.01f));
            faces.insert(faces.end(), {0, 2 * i + 1, 2 * i + 2, -1});
        }
    }
    std::vector<csVec3f> normals(float crease) const {
        csMFVec3f out;
        csMFInt indexes;
        optGenerateNormals(faces, false, points.data(), static_cast<int>(points.size()), crease, out, indexes);
        std::vector<csVec3f> result;
        for (int c = 0; c < out.getCount(); ++c) result.push_back(out.get(c));
        return result;
    }
};

// Every pair of corners at point 0 (every third corner, starting at 0),
// as the definition says: the sum of the face normals within the angle.
std::vector<csVec3f> pairwise(const std::vector<csVec3f>& face, float crease) {
    const float threshold = static_cast<float>(std::cos(crease));
    std::vector<csVec3f> result;
    for (size_t a = 0; a < face.size(); a += 3) {
        csVec3f sum(0, 0, 0);
        for (size_t b = 0; b < face.size(); b += 3)
            if (a == b || face[a].dot(face[b]) >= threshold) sum.add(sum, face[b]);
        sum.normalize();
        result.push_back(sum);
    }
    return result;
}

}  // namespace

TEST(SmoothNormals, ManyDistinctNormalsAtAPointAgreeWithEveryPair) {
    for (float spread : {0.02f, 0.5f}) {
        const Fan fan(600, spread);
        const std::vector<csVec3f> flat = fan.normals(-1.0f);  // nothing merges: the face normals
        for (float crease : {0.05f, 0.3f, 1.0f, 2.5f}) {
            SCOPED_TRACE(testing::Message() << "spread " << spread << ", crease " << crease);
            const std::vector<csVec3f> smooth = fan.normals(crease);
            const std::vector<csVec3f> expected = pairwise(flat, crease);
            ASSERT_EQ(smooth.size(), flat.size());
            int differing = 0;
            for (size_t c = 0, k = 0; c < smooth.size(); c += 3, ++k)
                for (int i = 0; i < 3; ++i)
                    if (std::fabs(smooth[c][i] - expected[k][i]) > 2e-3f) ++differing;
            // Normals at the very edge of the angle may fall either side.
            EXPECT_LE(differing, 6);
        }
    }
}

// Thousands of corners on a few points, or one flat fan: each corner of a
// point gets the one normal there is.
TEST(SmoothNormals, RepeatedNormalsAtAPointGiveThatNormal) {
    std::vector<csVec3f> points = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    std::vector<int> faces;
    for (int i = 0; i < 50000; ++i) faces.insert(faces.end(), {0, 1, 2, -1});
    for (float crease : {0.0f, 0.5f, 3.2f}) {
        csMFVec3f out;
        csMFInt indexes;
        optGenerateNormals(faces, false, points.data(), 3, crease, out, indexes);
        ASSERT_EQ(out.getCount(), 150000);
        for (int c : {0, 74999, 149999}) {
            EXPECT_FLOAT_EQ(out.get(c)[2], 1.0f) << crease;
            EXPECT_FLOAT_EQ(out.get(c)[0], 0.0f) << crease;
        }
    }
}
