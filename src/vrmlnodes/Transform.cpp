#include "vrmlnodes/Transform.h"

#include <cmath>

#include "math/math_quaternion.h"

namespace {

// Components below this are taken as zero when an axis is checked.
constexpr float kAxisEpsilon = 0.0001f;
constexpr float kSmallestScale = 0.0001f;

// The axis and angle of a rotation field; the VRML default without one.
void readRotation(SFRotation* field, float axis[3], float& angle) {
    axis[0] = field ? field->getAxisX() : 0.0f;
    axis[1] = field ? field->getAxisY() : 0.0f;
    axis[2] = field ? field->getAxisZ() : 1.0f;
    angle = field ? field->getRotation() : 0.0f;
    if (std::fabs(axis[0]) < kAxisEpsilon && std::fabs(axis[1]) < kAxisEpsilon && std::fabs(axis[2]) < kAxisEpsilon)
        axis[2] = 1.0f;
    else
        ml_vecUnitize(axis);
}

void readVector(SFVec3f* field, float out[3], float fallback) {
    out[0] = field ? field->getX() : fallback;
    out[1] = field ? field->getY() : fallback;
    out[2] = field ? field->getZ() : fallback;
}

}  // namespace

Transform::Transform(znInternal* pair)
    : BaseNode(pair),
      translation(sharedField<SFVec3f>("translation")),
      rotation(sharedField<SFRotation>("rotation")),
      scale(sharedField<SFVec3f>("scale")),
      scaleOrientation(sharedField<SFRotation>("scaleOrientation")),
      center(sharedField<SFVec3f>("center")) {}

void Transform::processEvent(Event& event) {
    const char* name = event.getName();
    if (!name) return;
    if (nameAt(name, 4) == 't')
        deliver(this, &Transform::set_translation, event);
    else if (nameAt(name, 4) == 'r')
        deliver(this, &Transform::set_rotation, event);
    else if (nameAt(name, 9) == '\0')
        deliver(this, &Transform::set_scale, event);
    else if (nameAt(name, 9) == 'O')
        deliver(this, &Transform::set_scaleOrientation, event);
    else if (nameAt(name, 6) == 'n')
        deliver(this, &Transform::set_center, event);
    else
        dispatchChildren(event, 5, 'h');
}

void Transform::set_translation(SFVec3f& value, double) {
    assign(translation, value);
    transformDirty = 1;
}

void Transform::set_rotation(SFRotation& value, double) {
    assign(rotation, value);
    transformDirty = 1;
}

void Transform::set_scale(SFVec3f& value, double) {
    assign(scale, value);
    transformDirty = 1;
}

void Transform::set_scaleOrientation(SFRotation& value, double) {
    assign(scaleOrientation, value);
    transformDirty = 1;
}

void Transform::set_center(SFVec3f& value, double) {
    assign(center, value);
    transformDirty = 1;
}

const float (&Transform::getMatrix() const)[4][4] {
    static const Matrix identity{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};
    return matrix ? matrix->m : identity.m;
}

void Transform::recalc_Matrix() {
    float s[3], axis[3], angle, orientationAxis[3], orientationAngle;
    readVector(scale.get(), s, 1.0f);
    readRotation(rotation.get(), axis, angle);
    readRotation(scaleOrientation.get(), orientationAxis, orientationAngle);
    for (float& component : s)
        if (component == 0.0f) component = kSmallestScale;

    float t[3], c[3], minusC[3], minusAxis[3];
    readVector(translation.get(), t, 0.0f);
    readVector(center.get(), c, 0.0f);
    for (int i = 0; i < 3; ++i) {
        minusC[i] = -c[i];
        minusAxis[i] = -orientationAxis[i];
    }
    // Each step is multiplied in from the front, so the last one acts
    // first on a point: -C, -SR, S, SR, R, C, T.
    if (!matrix) matrix = std::make_unique<Matrix>();
    float(&m)[4][4] = matrix->m;
    ml_IDToMat(m);
    ml_matTranslate(m, t);
    ml_matTranslate(m, c);
    ml_matRotate(m, axis, angle);
    ml_matRotate(m, orientationAxis, orientationAngle);
    ml_matScale(m, s);
    ml_matRotate(m, minusAxis, orientationAngle);
    ml_matTranslate(m, minusC);
    transformDirty = 0;
}
