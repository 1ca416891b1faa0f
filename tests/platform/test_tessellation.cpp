#include <gtest/gtest.h>

#include <cmath>

#include "csGroup.h"
#include "csIndexedFaceSet.h"
#include "csMatrix4f.h"
#include "opCone.h"
#include "opCuboid.h"
#include "opCylinder.h"
#include "opSphere.h"
#include "opTessCuboidAction.h"
#include "opTessParaSurfaceAction.h"

namespace {

// Holds one reference on each object for the test's body.
template <class T>
struct Held {
    T* p = new T();
    Held() { p->ref(); }
    ~Held() { p->unref(); }
    T* operator->() const { return p; }
};

csIndexedFaceSet* facesOf(opRep* rep) {
    rep->validateField(csShape::GEOMETRY);
    if (rep->getGeometryCount() != 1) return nullptr;
    csGeometry* g = rep->getGeometry(0);
    return g->isOfType(csIndexedFaceSet::getClassType()) ? static_cast<csIndexedFaceSet*>(g) : nullptr;
}

// Every face's corners, walked by the face length list, must name
// existing vertices, and its winding must agree with its vertex normals.
void expectConsistentFaces(const csIndexedFaceSet* faces) {
    const csMFInt& lengths = faces->faceLength();
    const csMFInt& index = faces->getCoordIndexSet()->index();
    const csMFVec3f& points = faces->getCoordSet()->point();
    const csMFVec3f& normals = faces->getNormalSet()->vector();
    ASSERT_EQ(lengths.getCount(), faces->getPrimCount());
    int corner = 0;
    for (int f = 0; f < lengths.getCount(); ++f) {
        int n = lengths.get(f);
        ASSERT_GE(n, 3);
        ASSERT_LE(corner + n, index.getCount());
        for (int k = 0; k < n; ++k) {
            int v = index.get(corner + k);
            ASSERT_GE(v, 0);
            ASSERT_LT(v, points.getCount());
        }
        csVec3f a = points.get(index.get(corner)), b = points.get(index.get(corner + 1)),
                c = points.get(index.get(corner + 2));
        csVec3f ab, ac, geometric;
        ab.sub(b, a);
        ac.sub(c, a);
        geometric.cross(ab, ac);
        if (geometric.length() > 1e-6f) {
            csVec3f sum;
            for (int k = 0; k < n; ++k) sum.add(sum, normals.get(index.get(corner + k)));
            EXPECT_GT(geometric.dot(sum), 0.0f) << "face " << f << " winds against its normals";
        }
        corner += n;
    }
    EXPECT_EQ(corner, index.getCount());
}

}  // namespace

TEST(opTessParaSurfaceAction, SphereAtSampling15Has420TrianglesWithUnitOutwardNormals) {
    Held<opSphere> sphere;
    sphere->setRadius(3.0f);
    Held<opTessParaSurfaceAction> tess;
    tess->setSampling(15);
    EXPECT_EQ(tess->apply(sphere.p), 1);
    csIndexedFaceSet* faces = facesOf(sphere.p);
    ASSERT_NE(faces, nullptr);
    EXPECT_EQ(faces->getPrimCount(), 2 * 15 * 14);
    for (int f = 0; f < faces->getPrimCount(); ++f) ASSERT_EQ(faces->faceLength().get(f), 3);
    EXPECT_EQ(faces->getTexCoordSet()->point().getCount(), 16 * 16);
    EXPECT_EQ(faces->getNormalBind(), csGeoSet::PER_VERTEX);
    expectConsistentFaces(faces);
    const csMFVec3f& points = faces->getCoordSet()->point();
    const csMFVec3f& normals = faces->getNormalSet()->vector();
    ASSERT_EQ(points.getCount(), 16 * 16);
    ASSERT_EQ(normals.getCount(), points.getCount());
    for (int i = 0; i < points.getCount(); ++i) {
        csVec3f n = normals.get(i), p = points.get(i);
        EXPECT_NEAR(n.length(), 1.0f, 1e-5f) << "vertex " << i;
        EXPECT_NEAR(p.length(), 3.0f, 1e-4f) << "vertex " << i;
        csVec3f out = p;
        out.normalize();
        EXPECT_GT(n.dot(out), 0.9999f) << "vertex " << i;
    }
    EXPECT_EQ(tess->apply(sphere.p), 0) << "a shape with geometry is left alone";
}

TEST(opTessParaSurfaceAction, TextureSeamStartsAtTheBackOnceUpright) {
    Held<opSphere> sphere;
    Held<opTessParaSurfaceAction> tess;
    tess->setSampling(16);  // an even sampling has a row on the equator
    tess->apply(sphere.p);
    csIndexedFaceSet* faces = facesOf(sphere.p);
    ASSERT_NE(faces, nullptr);
    // Turned upright (-90 degrees about x), the vertex with s = 0 on the
    // equator lies at the back, -z, and t = 1 lies on top.
    csMatrix4f upright;
    upright.makeRot(1, 0, 0, -1.5707964f);
    const csMFVec2f& tc = faces->getTexCoordSet()->point();
    const csMFVec3f& points = faces->getCoordSet()->point();
    bool seen = false;
    for (int i = 0; i < tc.getCount(); ++i) {
        csVec3f p = upright.xformPt(points.get(i));
        if (tc.get(i)[0] == 0.0f && std::fabs(p[1]) < 1e-5f) {
            EXPECT_NEAR(p[2], -1.0f, 1e-5f);
            seen = true;
        }
        if (tc.get(i)[1] == 1.0f) {
            EXPECT_NEAR(p[1], 1.0f, 1e-5f);
        }
    }
    EXPECT_TRUE(seen);
}

TEST(opTessParaSurfaceAction, ConeAndCylinderPartsFollowTheirSwitches) {
    Held<opCone> cone;
    cone->setHeight(4.0f);
    Held<opTessParaSurfaceAction> tess;
    tess->setSampling(8);
    tess->apply(cone.p);
    ASSERT_NE(facesOf(cone.p), nullptr);
    EXPECT_EQ(facesOf(cone.p)->getPrimCount(), 8 + 8);
    expectConsistentFaces(facesOf(cone.p));

    Held<opCylinder> cylinder;
    tess->setSampling(10);
    tess->apply(cylinder.p);
    ASSERT_NE(facesOf(cylinder.p), nullptr);
    EXPECT_EQ(facesOf(cylinder.p)->getPrimCount(), 2 * 10 + 10 + 10);
    expectConsistentFaces(facesOf(cylinder.p));
    cylinder->setTop(false);  // a changed parameter drops the old polygons
    EXPECT_EQ(cylinder->getGeometryCount(), 0);
    tess->apply(cylinder.p);
    EXPECT_EQ(facesOf(cylinder.p)->getPrimCount(), 2 * 10 + 10);
}

TEST(opTessParaSurfaceAction, SamplingIsHeldToItsBounds) {
    Held<opSphere> sphere;
    Held<opTessParaSurfaceAction> tess;
    tess->setSampling(0);
    EXPECT_EQ(tess->getSampling(), 0);
    EXPECT_EQ(tess->getEffectiveSampling(), kOpMinSampling);
    tess->apply(sphere.p);
    ASSERT_NE(facesOf(sphere.p), nullptr);
    EXPECT_EQ(facesOf(sphere.p)->getPrimCount(), 2 * 3 * 2);
    tess->setSampling(1 << 30);
    EXPECT_EQ(tess->getEffectiveSampling(), kOpMaxSampling);
}

TEST(opTessellateAction, EachActionTakesOnlyItsOwnPrimitivesAndWalksDownGroups) {
    Held<opCuboid> cuboid;
    Held<opSphere> sphere;
    Held<opTessParaSurfaceAction> surfaces;
    Held<opTessCuboidAction> cuboids;
    EXPECT_EQ(surfaces->apply(cuboid.p), 0);
    EXPECT_EQ(cuboids->apply(sphere.p), 0);
    EXPECT_EQ(cuboid->getGeometryCount(), 0);
    EXPECT_EQ(sphere->getGeometryCount(), 0);
    EXPECT_EQ(surfaces->apply(nullptr), 0);

    Held<csGroup> top;
    auto* inner = new csGroup();
    top->addChild(inner);
    inner->addChild(new opSphere());
    inner->addChild(new opCone());
    top->addChild(new opCylinder());
    EXPECT_EQ(surfaces->apply(top.p), 3);
}

TEST(opTessCuboidAction, SixQuadsWithTheWholeTextureEach) {
    Held<opCuboid> cuboid;
    cuboid->setSize(2.0f, 4.0f, 6.0f);
    Held<opTessCuboidAction> tess;
    EXPECT_EQ(tess->apply(cuboid.p), 1);
    csIndexedFaceSet* faces = facesOf(cuboid.p);
    ASSERT_NE(faces, nullptr);
    EXPECT_EQ(faces->getPrimCount(), 6);
    EXPECT_EQ(faces->getCoordSet()->point().getCount(), 24);
    expectConsistentFaces(faces);
    csBoxBound bound;
    faces->getBoxBound(&bound);
    EXPECT_TRUE(bound.min.almostEqual(csVec3f(-1, -2, -3), 0.0f));
    EXPECT_TRUE(bound.max.almostEqual(csVec3f(1, 2, 3), 0.0f));
    const csMFVec2f& tc = faces->getTexCoordSet()->point();
    for (int f = 0; f < 6; ++f) {
        EXPECT_EQ(tc.get(4 * f), csVec2f(0, 0));
        EXPECT_EQ(tc.get(4 * f + 2), csVec2f(1, 1));
    }
}

TEST(opRep, InstanceKeepsKindParametersAndNameAndSharesTheFaces) {
    Held<opCuboid> cuboid;
    cuboid->setSize(2.0f, 4.0f, 6.0f);
    cuboid->setName("Crate");
    Held<opTessCuboidAction> tess;
    tess->apply(cuboid.p);
    opRep* made = cuboid->makeInstance();
    made->ref();
    ASSERT_TRUE(made->isOfType(opCuboid::getClassType()));
    auto* instance = static_cast<opCuboid*>(made);
    EXPECT_EQ(instance->getSize(), csVec3f(2, 4, 6));
    EXPECT_STREQ(instance->getName(), "Crate");
    EXPECT_EQ(instance->getAppearance(), nullptr);
    ASSERT_NE(facesOf(instance), nullptr);
    EXPECT_EQ(facesOf(instance), facesOf(cuboid.p));
    EXPECT_TRUE(instance->isTessellated());

    // A new size makes the instance's faces stale, not the original's.
    instance->setSize(1.0f, 1.0f, 1.0f);
    EXPECT_EQ(instance->getGeometryCount(), 0);
    EXPECT_NE(facesOf(cuboid.p), nullptr);
    made->unref();

    for (opRep* primitive : {static_cast<opRep*>(new opSphere()), static_cast<opRep*>(new opCone()),
                             static_cast<opRep*>(new opCylinder()), new opRep()}) {
        primitive->ref();
        opRep* copy = primitive->makeInstance();
        copy->ref();
        EXPECT_EQ(copy->getType(), primitive->getType());
        copy->unref();
        primitive->unref();
    }
}
