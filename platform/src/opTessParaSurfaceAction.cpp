#include "opTessParaSurfaceAction.h"

#include <algorithm>
#include <cmath>

#include "csIndexedFaceSet.h"
#include "opCone.h"
#include "opCylinder.h"
#include "opSphere.h"
#include "opTessMesh.h"

CS_DEFINE_CLASS_TYPE(opTessParaSurfaceAction, opTessellateAction)

namespace {

constexpr float kTwoPi = 6.28318530717958647692f;
constexpr float kPi = 3.14159265358979323846f;

// The direction of texture coordinate s around the z axis. s = 0 lies at
// +y, which becomes the back (-z) once the shape is turned to stand on y,
// and s grows counter-clockwise seen from the top.
csVec3f around(float s) { return csVec3f(-std::sin(kTwoPi * s), std::cos(kTwoPi * s), 0.0f); }

void addSphere(opTessMesh& mesh, float radius, int n) {
    mesh.reserve((n + 1) * (n + 1), 6 * n * (n - 1), 2 * n * (n - 1));
    for (int i = 0; i <= n; ++i) {
        float t = static_cast<float>(i) / static_cast<float>(n);
        float latitude = -0.5f * kPi + kPi * t;
        float ring = std::cos(latitude), up = std::sin(latitude);
        if (i == 0 || i == n) ring = 0.0f, up = i == 0 ? -1.0f : 1.0f;
        for (int j = 0; j <= n; ++j) {
            // At a pole every column has its own vertex, placed in the middle
            // of its segment, so that the texture does not twist there.
            float s = (static_cast<float>(j) + (i == 0 || i == n ? 0.5f : 0.0f)) / static_cast<float>(n);
            csVec3f dir = around(static_cast<float>(j) / static_cast<float>(n));
            csVec3f normal(dir[0] * ring, dir[1] * ring, up);
            csVec3f point;
            point.scale(radius, normal);
            mesh.addVertex(point, normal, csVec2f(s, t));
        }
    }
    auto v = [n](int i, int j) { return i * (n + 1) + j; };
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j) {
            if (i == 0)
                mesh.addTriangle(v(0, j), v(1, j + 1), v(1, j));
            else if (i == n - 1)
                mesh.addTriangle(v(i, j), v(i, j + 1), v(n, j));
            else {
                mesh.addTriangle(v(i, j), v(i, j + 1), v(i + 1, j + 1));
                mesh.addTriangle(v(i, j), v(i + 1, j + 1), v(i + 1, j));
            }
        }
}

// A flat disc at height z facing up (+z) or down, as a fan of n triangles.
void addCap(opTessMesh& mesh, float radius, float z, bool up, int n) {
    csVec3f normal(0.0f, 0.0f, up ? 1.0f : -1.0f);
    // Seen from outside, the picture stands upright with the back at its top.
    float sign = up ? 1.0f : -1.0f;
    int center = mesh.addVertex(csVec3f(0.0f, 0.0f, z), normal, csVec2f(0.5f, 0.5f));
    int first = center + 1;
    for (int j = 0; j < n; ++j) {
        csVec3f dir = around(static_cast<float>(j) / static_cast<float>(n));
        mesh.addVertex(csVec3f(radius * dir[0], radius * dir[1], z), normal,
                       csVec2f(0.5f + 0.5f * dir[0], 0.5f + 0.5f * sign * dir[1]));
    }
    for (int j = 0; j < n; ++j) {
        int a = first + j, b = first + (j + 1) % n;
        if (up)
            mesh.addTriangle(center, a, b);
        else
            mesh.addTriangle(center, b, a);
    }
}

void addCylinder(opTessMesh& mesh, const opCylinder& cylinder, int n) {
    float r = cylinder.getRadius(), h = 0.5f * cylinder.getHeight();
    mesh.reserve(2 * (n + 1) + 2 * (n + 1), 6 * n + 6 * n, 4 * n);
    if (cylinder.getSide()) {
        int base = -1;
        for (int j = 0; j <= n; ++j) {
            float s = static_cast<float>(j) / static_cast<float>(n);
            csVec3f dir = around(s);
            int bottom = mesh.addVertex(csVec3f(r * dir[0], r * dir[1], -h), dir, csVec2f(s, 0.0f));
            mesh.addVertex(csVec3f(r * dir[0], r * dir[1], h), dir, csVec2f(s, 1.0f));
            if (base < 0) base = bottom;
        }
        for (int j = 0; j < n; ++j) {
            int b0 = base + 2 * j, t0 = b0 + 1, b1 = b0 + 2, t1 = b0 + 3;
            mesh.addTriangle(b0, b1, t1);
            mesh.addTriangle(b0, t1, t0);
        }
    }
    if (cylinder.getTop()) addCap(mesh, r, h, true, n);
    if (cylinder.getBottom()) addCap(mesh, r, -h, false, n);
}

void addCone(opTessMesh& mesh, const opCone& cone, int n) {
    float r = cone.getBottomRadius(), h = 0.5f * cone.getHeight();
    mesh.reserve(3 * n + 2 + n + 1, 6 * n, 2 * n);
    if (cone.getSide()) {
        // The side normal leans up by the slope of the side.
        float slant = std::sqrt(4.0f * h * h + r * r);
        float across = slant > 0.0f ? 2.0f * h / slant : 0.0f, upward = slant > 0.0f ? r / slant : 1.0f;
        for (int j = 0; j < n; ++j) {
            float s0 = static_cast<float>(j) / static_cast<float>(n);
            float s1 = static_cast<float>(j + 1) / static_cast<float>(n);
            float sm = 0.5f * (s0 + s1);
            csVec3f d0 = around(s0), d1 = around(s1), dm = around(sm);
            int a = mesh.addVertex(csVec3f(r * d0[0], r * d0[1], -h),
                                   csVec3f(across * d0[0], across * d0[1], upward), csVec2f(s0, 0.0f));
            int b = mesh.addVertex(csVec3f(r * d1[0], r * d1[1], -h),
                                   csVec3f(across * d1[0], across * d1[1], upward), csVec2f(s1, 0.0f));
            int apex = mesh.addVertex(csVec3f(0.0f, 0.0f, h), csVec3f(across * dm[0], across * dm[1], upward),
                                      csVec2f(sm, 1.0f));
            mesh.addTriangle(a, b, apex);
        }
    }
    if (cone.getBottom()) addCap(mesh, r, -h, false, n);
}

}  // namespace

int opTessParaSurfaceAction::getEffectiveSampling() const {
    return std::clamp(_sampling, kOpMinSampling, kOpMaxSampling);
}

bool opTessParaSurfaceAction::tessellate(opRep* rep) {
    int n = getEffectiveSampling();
    opTessMesh mesh;
    if (rep->isOfType(opSphere::getClassType()))
        addSphere(mesh, static_cast<opSphere*>(rep)->getRadius(), n);
    else if (rep->isOfType(opCylinder::getClassType()))
        addCylinder(mesh, *static_cast<opCylinder*>(rep), n);
    else if (rep->isOfType(opCone::getClassType()))
        addCone(mesh, *static_cast<opCone*>(rep), n);
    else
        return false;
    rep->addGeometry(mesh.build());
    return true;
}
