#include <gtest/gtest.h>

#include "csTransform.h"
#include "test_support.h"

namespace {

constexpr float kHalfPi = 1.5707964f;

// A transform that the test owns for its whole body.
struct Owned {
    csTransform* t = new csTransform();
    Owned() { t->ref(); }
    ~Owned() { t->unref(); }
};

}  // namespace

TEST(csTransform, EachPartAgreesWithTheHandComputedPoint) {
    Owned fresh;  // no part set yet: the identity
    EXPECT_TRUE(fresh.t->getMatrix().almostEqual(csMatrix4f(), 0.0f));

    Owned o;
    o.t->setTranslation(1, 2, 3);
    const csMatrix4f& m = o.t->getMatrix();
    EXPECT_EQ(m[3][0], 1.0f);  // translation stands in the last row
    EXPECT_EQ(m[3][2], 3.0f);
    EXPECT_EQ(m[0][3], 0.0f);
    o.t->setTranslation(0, 5, 0);  // the matrix follows later changes
    wrltest::expectNear(o.t->getMatrix().xformPt(csVec3f(0, 0, 0)), 0, 5, 0);

    Owned r;
    r.t->setRotation(0, 0, 1, kHalfPi);
    EXPECT_NEAR(r.t->getMatrix()[0][1], 1.0f, 1e-6f);  // row x becomes (0, 1, 0)
    wrltest::expectNear(r.t->getMatrix().xformPt(csVec3f(1, 0, 0)), 0, 1, 0);
    r.t->setCenter(1, 0, 0);  // rotation and scale act about the centre
    wrltest::expectNear(r.t->getMatrix().xformPt(csVec3f(2, 0, 0)), 1, 1, 0);

    Owned s;
    s.t->setCenter(1, 0, 0);
    s.t->setScale(2, 3, 4);
    wrltest::expectNear(s.t->getMatrix().xformPt(csVec3f(2, 0, 0)), 3, 0, 0);
    wrltest::expectNear(s.t->getMatrix().xformPt(csVec3f(1, 1, 1)), 1, 3, 4);

    Owned so;
    so.t->setScale(2, 1, 1);
    so.t->setScaleOrientation(0, 0, 1, kHalfPi);  // the x scale now acts along y
    wrltest::expectNear(so.t->getMatrix().xformPt(csVec3f(0, 1, 0)), 0, 2, 0);
    wrltest::expectNear(so.t->getMatrix().xformPt(csVec3f(1, 0, 0)), 1, 0, 0);

    Owned all;
    all.t->setTranslation(10, 0, 0);
    all.t->setRotation(0, 0, 1, kHalfPi);
    all.t->setScale(2, 2, 2);
    all.t->setCenter(0, 1, 0);
    // (1,1,0) -C-> (1,0,0) -S-> (2,0,0) -R-> (0,2,0) +C-> (0,3,0) +T-> (10,3,0)
    wrltest::expectNear(all.t->getMatrix().xformPt(csVec3f(1, 1, 0)), 10, 3, 0);

    Owned zero;
    zero.t->setRotation(0, 0, 0, 1.0f);  // a zero axis is no rotation
    EXPECT_TRUE(zero.t->getMatrix().almostEqual(csMatrix4f(), 0.0f));
}

TEST(csMatrix4f, PreTransActsBeforeTheMatrix) {
    csMatrix4f rot;
    rot.makeRot(0, 0, 1, kHalfPi);
    csMatrix4f m;
    m.preTrans(1, 0, 0, rot);  // translate first, then rotate
    wrltest::expectNear(m.xformPt(csVec3f(0, 0, 0)), 0, 1, 0);
    csMatrix4f n = rot;
    n.postTrans(rot, 1, 0, 0);  // rotate first, then translate
    wrltest::expectNear(n.xformPt(csVec3f(0, 0, 0)), 1, 0, 0);
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
