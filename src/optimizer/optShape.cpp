#include "optimizer/optShape.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "csAppearance.h"
#include "csBoxBound.h"
#include "csGeometry.h"
#include "csIndexedFaceSet.h"
#include "csIndexedLineSet.h"
#include "csMaterial.h"
#include "csPointSet.h"
#include "csTransform.h"
#include "math/math_quaternion.h"
#include "opCone.h"
#include "opCuboid.h"
#include "opCylinder.h"
#include "opSphere.h"
#include "opTessCuboidAction.h"
#include "opTessParaSurfaceAction.h"
#include "optimizer/gfx_opt.h"
#include "optimizer/optActionGuard.h"
#include "optimizer/optHandleTable.h"
#include "optimizer/optSceneName.h"
#include "vrmlnodes/Appearance.h"

namespace {

constexpr const char* kUnnamedShape = "Unnamed Shape Node";
constexpr const char* kAxisConversionName = "Platform to VRML axis conversion";
constexpr const char* kTopLevelName = "VRML Toplevel Node";
constexpr const char* kQualityVariable = "TESS_QUALITY";

constexpr float kDefaultQuality = 5.0f;
constexpr float kQualityStep = 5.0f;
constexpr float kSamplesPerStep = 15.0f;

// The toolkit's cones, cylinders and spheres stand on z, its cuboids are
// turned a quarter about z against VRML's.
constexpr float kQuarterTurnBack = -1.5707964f;

constexpr int kNavigationWalk = 3;     // collision only
constexpr int kNavigationFollow = 4;   // collision and terrain following

// Gaps smaller than this count as touching.
constexpr float kTerrainEpsilon = 0.0001f;
// The most the eye sinks in one pass.
constexpr float kLargestSink = 0.2f;

template <class T>
bool isA(const csObject* object) {
    return object && object->isOfType(T::getClassType());
}

}  // namespace

optShape::optShape(znInternal* pair) : BaseNode(pair), Shape(pair) {
    axisTransform.reset(new csTransform());
}

optShape::~optShape() { delete state; }

int optShape::samplingFor(const char* quality) {
    float value = quality ? static_cast<float>(std::atof(quality)) : kDefaultQuality;
    float samples = std::floor(value / kQualityStep * kSamplesPerStep);
    if (std::isnan(samples)) return 0;
    // Beyond the range of int the conversion would be undefined.
    if (samples >= static_cast<float>(std::numeric_limits<int>::max())) return std::numeric_limits<int>::max();
    if (samples <= static_cast<float>(std::numeric_limits<int>::min())) return std::numeric_limits<int>::min();
    return static_cast<int>(samples);
}

int optShape::action(SFTime& time, int mode, void* incoming) {
    optActionGuard guard(this);
    if (!guard.entered()) return 0;
    if (!state) state = new ActionState(static_cast<ActionState*>(incoming));
    if (appearanceDirty || geometryDirty) {
        if (appearanceDirty) buildAppearance(time);
        if (geometryDirty) buildGeometry(time);
        if (shape) {
            shape->setAppearance(appearance.get());
            tessellate(shape.get());
            lightColouredFaces();
        }
    }
    const bool wasBuilt = built;
    if (!wasBuilt) setUpAxisConversion();
    // The load frame's own tick passes the top-level list with the time
    // -1.0 a second time; one top group is enough.
    if (mode == kActionTopLevel && time.getValue() == -1.0 && !topGroup) {
        topGroup.reset(new csGroup());
        topGroup->setStaticName(kTopLevelName);
        topGroup->addChild(axisTransform.get());
        if (auto* display = dynamic_cast<gfx_opt*>(graphics)) display->set_top_Node(topGroup.get());
    }
    if (!wasBuilt) {
        built = 1;
    } else {
        Shape::action(time, mode, state);
        followTerrain();
    }
    return optHandleTable::handleOf(axisTransform.get());
}

void optShape::buildAppearance(SFTime& time) {
    appearance.reset(nullptr);
    // The state must not name an appearance that may be gone while the
    // appearance node builds its children.
    state->appearance = nullptr;
    csAppearance* fetched = nullptr;
    if (appearanceObject)
        fetched = optHandleTable::objectOf<csAppearance>(appearanceObject->action(time, kActionFetch, state));
    if (!fetched) {
        fetched = new csAppearance();
        material.reset(new csMaterial());
        material->setDiffuseColor(0.0f, 0.0f, 0.0f);
        material->setEmissiveColor(1.0f, 1.0f, 1.0f);
        fetched->setMaterial(material.get());
        fetched->setLightEnable(1);
    }
    appearance.reset(fetched);
    state->appearance = fetched;
    appearanceDirty = 0;
}

void optShape::buildGeometry(SFTime& time) {
    if (shape) {
        // The old shape stays under the axis transform, emptied.
        shape->validateField(csShape::GEOMETRY);
        while (shape->getGeometryCount() > 0) {
            shape->removeGeometry(0);
            shape->validateField(csShape::GEOMETRY);
        }
        shape->setAppearance(nullptr);
        shape.reset(nullptr);
    }
    csObject* fetched = nullptr;
    if (geometryObject) fetched = optHandleTable::objectOf(geometryObject->action(time, kActionFetch, state));
    geometry.reset(fetched);
    if (!fetched || isA<csGeometry>(fetched)) {
        shape.reset(new opRep());
        nameInScene(shape.get(), *this, kUnnamedShape);
        if (fetched) shape->addGeometry(static_cast<csGeometry*>(fetched));
    } else if (isA<opRep>(fetched)) {
        // A primitive may stand in several shapes (DEF and USE), each with
        // an appearance of its own: each shape draws an instance of it that
        // shares its one tessellation.
        auto* primitive = static_cast<opRep*>(fetched);
        tessellate(primitive);
        shape.reset(primitive->makeInstance());
    }
    geometryDirty = 0;
}

void optShape::tessellate(csShape* target) {
    target->validateField(csShape::GEOMETRY);
    if (target->getGeometryCount() > 0) return;
    // Made for the shapes that have something to tessellate, which most
    // shapes of a big world have not.
    if (!surfaceTessellator) surfaceTessellator.reset(new opTessParaSurfaceAction());
    if (!cuboidTessellator) cuboidTessellator.reset(new opTessCuboidAction());
    surfaceTessellator->setSampling(samplingFor(std::getenv(kQualityVariable)));
    surfaceTessellator->apply(target);
    cuboidTessellator->apply(target);
}

// Per-vertex colours of a face set show through the material mode; without
// a Material node the faces would glow white, so they go unlit instead.
void optShape::lightColouredFaces() {
    shape->validateField(csShape::GEOMETRY);
    if (shape->getGeometryCount() == 0 || !isA<csIndexedFaceSet>(geometry.get())) return;
    if (static_cast<csIndexedFaceSet*>(geometry.get())->getColorSet() == nullptr) return;
    appearance->setMaterialModeEnable(1);
    if (appearanceHasMaterial()) return;
    appearance->setLightEnable(0);
    if (csMaterial* colours = appearance->getMaterial()) {
        colours->setDiffuseColor(0.8f, 0.8f, 0.8f);
        colours->setEmissiveColor(0.0f, 0.0f, 0.0f);
    }
}

// Whether the shape's Appearance node has a built-in behind its material
// field. A node of another type in the appearance field counts as none.
bool optShape::appearanceHasMaterial() const {
    if (!appearanceObject) return false;
    auto* node = dynamic_cast<Appearance*>(appearanceObject->getCPPScript());
    return node && node->getMaterialObject();
}

void optShape::setUpAxisConversion() {
    csShape* current = shape.get();
    if (isA<opCone>(current) || isA<opCylinder>(current) || isA<opSphere>(current))
        axisTransform->setRotation(1.0f, 0.0f, 0.0f, kQuarterTurnBack);
    else if (isA<opCuboid>(current))
        axisTransform->setRotation(0.0f, 0.0f, 1.0f, kQuarterTurnBack);
    axisTransform->addChild(current);
    axisTransform->setStaticName(kAxisConversionName);
}

// Keeps a walking viewer on top of the shape. Only a display that navigates
// with terrain following (type 4) moves; type 3 asks for collision alone,
// and that stage moves nothing, so it is not computed.
void optShape::followTerrain() {
    if (!graphics) return;
    int navigation = graphics->getNavigationType();
    if (navigation != kNavigationWalk && navigation != kNavigationFollow) return;
    if (graphics->isViewpointInterpolating()) return;
    if (isA<csIndexedLineSet>(geometry.get()) || isA<csPointSet>(geometry.get())) return;
    if (navigation != kNavigationFollow || !shape) return;

    // The eye in the shape's own coordinates.
    csMatrix4f toWorld;
    for (csTransform* transform : state->transforms) toWorld.preMult(transform->getMatrix());
    float camera[4][4];
    ml_IDToMat(camera);
    graphics->getCameraMatrix(camera);
    float product[4][4], inverse[4][4];
    ml_matMult(product, toWorld.mat, camera);
    if (!ml_matInvert(inverse, product)) return;
    const float x = inverse[3][0], y = inverse[3][1], z = inverse[3][2];

    csBoxBound bound;
    shape->validateField(csShape::GEOMETRY);
    for (int i = 0; i < shape->getGeometryCount(); ++i) {
        csBoxBound part;
        if (csGeometry* g = shape->getGeometry(i)) g->getBoxBound(&part);
        bound.extendBy(part);
    }
    const float d = graphics->getCollisionDistance();
    const bool over = bound.contains(x, 0.0f, z - d) || bound.contains(x + d, 0.0f, z) ||
                      bound.contains(x, 0.0f, z + d) || bound.contains(x - d, 0.0f, z);
    if (!over) return;
    const float eye = graphics->getEyeHeight() - kTerrainEpsilon;
    const float step = graphics->getStepHeight();
    const float gap = (y - eye) - bound.max[1];
    if (gap > kTerrainEpsilon)
        graphics->followTerrain(std::max(-gap, -kLargestSink));
    else if (gap < -kTerrainEpsilon && gap > -step)
        graphics->followTerrain(-gap);
    else
        graphics->followTerrain(0.0f);
}
