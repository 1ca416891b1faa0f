#include "opTessCuboidAction.h"

#include "csIndexedFaceSet.h"
#include "opCuboid.h"
#include "opTessMesh.h"

CS_DEFINE_CLASS_TYPE(opTessCuboidAction, opTessellateAction)

namespace {

// One face: its outward normal and the two edge directions u, v with
// u x v = normal, so that the corners run counter-clockwise from outside.
struct Face {
    csVec3f normal, u, v;
};

const Face kFaces[6] = {
    {{0, 0, 1}, {1, 0, 0}, {0, 1, 0}},   {{0, 0, -1}, {-1, 0, 0}, {0, 1, 0}},
    {{1, 0, 0}, {0, 0, -1}, {0, 1, 0}},  {{-1, 0, 0}, {0, 0, 1}, {0, 1, 0}},
    {{0, 1, 0}, {1, 0, 0}, {0, 0, -1}},  {{0, -1, 0}, {1, 0, 0}, {0, 0, 1}},
};

}  // namespace

bool opTessCuboidAction::tessellate(opRep* rep) {
    if (!rep->isOfType(opCuboid::getClassType())) return false;
    const csVec3f& size = static_cast<opCuboid*>(rep)->getSize();
    csVec3f half(0.5f * size[0], 0.5f * size[1], 0.5f * size[2]);
    opTessMesh mesh;
    mesh.reserve(24, 24, 6);
    const float corners[4][2] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
    for (const Face& f : kFaces) {
        int first = -1;
        for (const auto& c : corners) {
            csVec3f p;
            for (int k = 0; k < 3; ++k) p[k] = half[k] * (f.normal[k] + c[0] * f.u[k] + c[1] * f.v[k]);
            int index = mesh.addVertex(p, f.normal, csVec2f(0.5f * (c[0] + 1.0f), 0.5f * (c[1] + 1.0f)));
            if (first < 0) first = index;
        }
        mesh.addQuad(first, first + 1, first + 2, first + 3);
    }
    rep->addGeometry(mesh.build());
    return true;
}
