#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "math/math_quaternion.h"

using testing::internal::CaptureStdout;
using testing::internal::GetCapturedStdout;

namespace {

constexpr float kHalfPi = 1.5707964f;

void expectMat(const float a[4][4], const float b[4][4], float tolerance) {
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) EXPECT_NEAR(a[i][j], b[i][j], tolerance) << "[" << i << "][" << j << "]";
}

}  // namespace

// ---- ml_axisToMat: the three exact branches and the general one

TEST(ml_axisToMat, PrincipalAxesTakeTheExactBranches) {
    // An unnormalised principal axis still gives a pure rotation, which the
    // general formula would not.
    const float down[3] = {0, 0, -1}, y[3] = {0, 5, 0}, negX[3] = {-3, 0, 0}, zero[3] = {0, 0, 0};
    float m[4][4];
    ml_axisToMat(m, down, kHalfPi);  // a negative z negates the sine
    EXPECT_NEAR(m[0][1], -1.0f, 1e-6f);
    EXPECT_NEAR(m[1][0], 1.0f, 1e-6f);
    EXPECT_EQ(m[2][2], 1.0f);
    EXPECT_EQ(m[3][3], 1.0f);
    EXPECT_EQ(m[0][3], 0.0f);
    ml_axisToMat(m, y, kHalfPi);
    EXPECT_NEAR(m[0][2], -1.0f, 1e-6f);
    EXPECT_NEAR(m[2][0], 1.0f, 1e-6f);
    EXPECT_EQ(m[1][1], 1.0f);
    ml_axisToMat(m, negX, kHalfPi);
    EXPECT_EQ(m[0][0], 1.0f);
    EXPECT_NEAR(m[1][2], -1.0f, 1e-6f);
    EXPECT_NEAR(m[2][1], 1.0f, 1e-6f);
    // x and y both 0: the z test comes first and z = 0 is not negative.
    ml_axisToMat(m, zero, kHalfPi);
    EXPECT_NEAR(m[0][1], 1.0f, 1e-6f);
}

TEST(ml_axisToMat, GeneralAxisAgreesWithTheQuaternion) {
    float axis[3] = {1, 2, 3};
    ml_vecUnitize(axis);
    float m[4][4], q[4], fromQuat[4][4];
    ml_axisToMat(m, axis, 0.8f);
    ml_axisToQuat(q, 0.8f, axis);
    ml_quatToMat(fromQuat, q);
    expectMat(m, fromQuat, 1e-6f);
    float back[4];
    ml_matToQuat(back, m);
    for (int i = 0; i < 4; ++i) EXPECT_NEAR(back[i], q[i], 1e-5f);
}

// ---- Row-vector conventions and inverses

TEST(ml_matTranslate, ChainReadsLikeTheVrmlRule) {
    // T then R in the call order: the rotation acts first on a point.
    float m[4][4];
    ml_IDToMat(m);
    const float t[3] = {10, 0, 0}, z[3] = {0, 0, 1};
    ml_matTranslate(m, t);
    ml_matRotate(m, z, kHalfPi);
    const float p[3] = {1, 0, 0};
    float r[3];
    ml_vecMult(r, p, m);
    EXPECT_NEAR(r[0], 10.0f, 1e-5f);
    EXPECT_NEAR(r[1], 1.0f, 1e-5f);
    ml_vecRot(r, p, z, kHalfPi);  // and agrees with the vector rotation
    EXPECT_NEAR(r[0], 0.0f, 1e-6f);
    EXPECT_NEAR(r[1], 1.0f, 1e-6f);
}

TEST(ml_matInvert, RigidInverseMatchesTheGeneralOneAndSingularIsRefused) {
    float m[4][4];
    const float axis[3] = {0.6f, 0.0f, 0.8f}, t[3] = {1, -2, 3};
    ml_axisToMat(m, axis, 1.1f);
    ml_matTranslate(m, t);
    float general[4][4], rigid[4][4];
    ASSERT_EQ(ml_matInvert(general, m), 1);
    ml_matInverthomo(rigid, m);
    expectMat(general, rigid, 1e-5f);
    ml_matInverthomo(m, m);  // in place
    expectMat(m, rigid, 0.0f);

    float flat[4][4], r[4][4];
    const float squash[3] = {1, 0, 1};
    ml_scaleToMat(flat, squash);
    ml_IDToMat(r);
    EXPECT_EQ(ml_matInvert(r, flat), 0);
    expectMat(r, ml_idmat, 0.0f);
}

// ---- Quaternions

TEST(ml_quatSlerp, TakesTheShortWayAndHalvesTheAngle) {
    // q and -q are one rotation: the halfway point is that rotation, not
    // a swing through the identity.
    const float z[3] = {0, 0, 1};
    float q[4], negated[4], r[4];
    ml_axisToQuat(q, 1.0f, z);
    for (int i = 0; i < 4; ++i) negated[i] = -q[i];
    ml_quatSlerp(r, q, negated, 0.5f);
    float len = std::sqrt(r[0] * r[0] + r[1] * r[1] + r[2] * r[2] + r[3] * r[3]);
    ASSERT_GT(len, 0.5f);
    for (int i = 0; i < 4; ++i) EXPECT_NEAR(r[i] / len, q[i], 1e-5f);

    const float y[3] = {0, 1, 0};
    float a[4], b[4], want[4];
    ml_axisToQuat(a, 0.0f, y);
    ml_axisToQuat(b, 2.0f, y);
    ml_axisToQuat(want, 1.0f, y);
    ml_quatSlerp(r, a, b, 0.5f);
    for (int i = 0; i < 4; ++i) EXPECT_NEAR(r[i], want[i], 1e-6f);
    ml_quatSlerp(r, a, b, 1.0f);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(r[i], b[i]);
    ml_quatSlerp(r, a, nullptr, -1.0f);  // a negative t gives `from` without reading `to`
    for (int i = 0; i < 4; ++i) EXPECT_EQ(r[i], a[i]);

    float angle = -1.0f, axis[3] = {9, 9, 9};
    ml_quatToAxis(&angle, axis, a);  // the identity gives the z axis
    EXPECT_EQ(angle, 0.0f);
    EXPECT_EQ(axis[2], 1.0f);
}

// ---- Rigidity texts

TEST(ml_matUnhomo, EveryAxisUsesTheXAxisTextAndPairsGoXyYzZx) {
    float m[4][4];
    ml_IDToMat(m);
    m[1][1] = 2.0f;  // the y axis is long, and still called x
    EXPECT_EQ(std::string(ml_matUnhomo(m)), "x-axis not unit: 2.000000");
    const float c = std::sqrt(0.5f);
    // y and z lean towards each other, x stays clear: only yz fails.
    ml_IDToMat(m);
    m[1][1] = c;
    m[1][2] = c;
    EXPECT_EQ(std::string(ml_matUnhomo(m)), "yz not perpendicular: 0.707107");
    ml_IDToMat(m);
    m[2][0] = c;
    m[2][2] = c;
    EXPECT_EQ(std::string(ml_matUnhomo(m)), "zx not perpendicular: 0.707107");
    ml_IDToMat(m);
    m[0][0] = c;
    m[0][1] = c;
    EXPECT_EQ(std::string(ml_matUnhomo(m)), "xy not perpendicular: 0.707107");
}

TEST(ml_matTesthomo, PrintsNothingForAPureRotation) {
    float m[4][4];
    const float axis[3] = {0.48f, 0.6f, 0.64f};
    ml_axisToMat(m, axis, 2.5f);
    CaptureStdout();
    ml_matTesthomo(m, "rotation");
    EXPECT_EQ(GetCapturedStdout(), "");
    EXPECT_EQ(ml_matIshomo(m), 1);
    m[0][0] += 0.5f;
    CaptureStdout();
    ml_matTesthomo(m, "bent");
    EXPECT_EQ(GetCapturedStdout(), std::string("bent: ") + ml_matUnhomo(m) + "\n");
}

// ---- Alignment and vectors

TEST(ml_alligntransform, TurnsTheZAxisTowardsThePoint) {
    const float point[3] = {5, 0, 0};
    float r[4][4];
    ml_alligntransform(r, ml_idmat, point, 0);
    EXPECT_NEAR(r[2][0], 1.0f, 1e-5f);
    EXPECT_NEAR(std::fabs(r[0][2]), 1.0f, 1e-5f);  // x followed the turn
    EXPECT_EQ(ml_matIshomo(r), 1);
    // A point behind folds the turn: the axis lies on the line, either way.
    const float behind[3] = {0.1f, 0, -5};
    ml_alligntransform(r, ml_idmat, behind, 0);
    EXPECT_EQ(ml_matIshomo(r), 1);
    EXPECT_GT(std::fabs(r[2][2]), 0.99f);
    float v[3] = {0, 0, 0};  // a zero vector stays zero
    EXPECT_EQ(ml_vecUnitize(v), 0.0f);
    EXPECT_FALSE(std::isnan(v[0]));
}
