#include <gtest/gtest.h>

#include <cmath>

#include "csTransform.h"

namespace {

constexpr float kHalfPi = 1.5707964f;

// A transform that the test owns for its whole body.
struct Owned {
    csTransform* t = new csTransform();
    Owned() { t->ref(); }
    ~Owned() { t->unref(); }
};

void expectPoint(const csVec3f& got, float x, float y, float z) {
    EXPECT_NEAR(got[0], x, 1e-5f);
    EXPECT_NEAR(got[1], y, 1e-5f);
    EXPECT_NEAR(got[2], z, 1e-5f);
}

}  // namespace

TEST(csTransform, TranslationStandsInTheLastRow) {
    Owned o;
    o.t->setTranslation(1, 2, 3);
    const csMatrix4f& m = o.t->getMatrix();
    EXPECT_EQ(m[3][0], 1.0f);
    EXPECT_EQ(m[3][1], 2.0f);
    EXPECT_EQ(m[3][2], 3.0f);
    EXPECT_EQ(m[0][3], 0.0f);
    EXPECT_EQ(m[0][0], 1.0f);
}

TEST(csTransform, RotationAboutZTurnsXTowardsY) {
    Owned o;
    o.t->setRotation(0, 0, 1, kHalfPi);
    const csMatrix4f& m = o.t->getMatrix();
    EXPECT_NEAR(m[0][1], 1.0f, 1e-6f);   // row x becomes (0, 1, 0)
    EXPECT_NEAR(m[1][0], -1.0f, 1e-6f);  // row y becomes (-1, 0, 0)
    expectPoint(m.xformPt(csVec3f(1, 0, 0)), 0, 1, 0);
}

TEST(csTransform, RotationAndScaleActAboutTheCenter) {
    Owned o;
    o.t->setCenter(1, 0, 0);
    o.t->setRotation(0, 0, 1, kHalfPi);
    expectPoint(o.t->getMatrix().xformPt(csVec3f(2, 0, 0)), 1, 1, 0);

    Owned s;
    s.t->setCenter(1, 0, 0);
    s.t->setScale(2, 3, 4);
    expectPoint(s.t->getMatrix().xformPt(csVec3f(2, 0, 0)), 3, 0, 0);
    expectPoint(s.t->getMatrix().xformPt(csVec3f(1, 1, 1)), 1, 3, 4);
}

TEST(csTransform, ScaleOrientationTurnsTheScaleAxes) {
    Owned o;
    o.t->setScale(2, 1, 1);
    o.t->setScaleOrientation(0, 0, 1, kHalfPi);  // the x scale now acts along y
    expectPoint(o.t->getMatrix().xformPt(csVec3f(0, 1, 0)), 0, 2, 0);
    expectPoint(o.t->getMatrix().xformPt(csVec3f(1, 0, 0)), 1, 0, 0);
}

TEST(csTransform, AllPartsInTheVrmlOrder) {
    Owned o;
    o.t->setTranslation(10, 0, 0);
    o.t->setRotation(0, 0, 1, kHalfPi);
    o.t->setScale(2, 2, 2);
    o.t->setCenter(0, 1, 0);
    // (1,1,0) -C-> (1,0,0) -S-> (2,0,0) -R-> (0,2,0) +C-> (0,3,0) +T-> (10,3,0)
    expectPoint(o.t->getMatrix().xformPt(csVec3f(1, 1, 0)), 10, 3, 0);
}

TEST(csTransform, MatrixFollowsLaterChanges) {
    Owned o;
    o.t->setTranslation(1, 0, 0);
    expectPoint(o.t->getMatrix().xformPt(csVec3f(0, 0, 0)), 1, 0, 0);
    o.t->setTranslation(0, 5, 0);
    expectPoint(o.t->getMatrix().xformPt(csVec3f(0, 0, 0)), 0, 5, 0);
}

TEST(csTransform, ZeroRotationAxisIsNoRotation) {
    Owned o;
    o.t->setRotation(0, 0, 0, 1.0f);
    csMatrix4f identity;
    EXPECT_TRUE(o.t->getMatrix().almostEqual(identity, 0.0f));
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) EXPECT_FALSE(std::isnan(o.t->getMatrix()[r][c]));
}

TEST(csMatrix4f, PreTransActsBeforeTheMatrix) {
    csMatrix4f rot;
    rot.makeRot(0, 0, 1, kHalfPi);
    csMatrix4f m;
    m.preTrans(1, 0, 0, rot);  // translate first, then rotate
    expectPoint(m.xformPt(csVec3f(0, 0, 0)), 0, 1, 0);
    csMatrix4f n = rot;
    n.postTrans(rot, 1, 0, 0);  // rotate first, then translate
    expectPoint(n.xformPt(csVec3f(0, 0, 0)), 1, 0, 0);
}

TEST(csMatrix4f, InvertUndoesAndRefusesSingular) {
    csMatrix4f m;
    m.makeRot(1, 2, 3, 0.7f);
    m.postTrans(m, 4, 5, 6);
    csMatrix4f inv;
    ASSERT_TRUE(inv.invert(m));
    csMatrix4f product;
    product.mult(m, inv);
    EXPECT_TRUE(product.almostEqual(csMatrix4f(), 1e-5f));

    csMatrix4f singular;
    singular.makeScale(1, 0, 1);
    csMatrix4f untouched;
    untouched.makeTrans(7, 7, 7);
    EXPECT_FALSE(untouched.invert(singular));
    EXPECT_EQ(untouched[3][0], 7.0f);
}
