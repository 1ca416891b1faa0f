#include "csTransform.h"

CS_DEFINE_CLASS_TYPE(csTransform, csGroup)

void csTransform::setTranslation(float x, float y, float z) {
    _translation.set(x, y, z);
    _matrixDirty = true;
}

void csTransform::setRotation(float x, float y, float z, float angle) {
    _rotation.set(x, y, z, angle);
    _matrixDirty = true;
}

void csTransform::setScale(float x, float y, float z) {
    _scale.set(x, y, z);
    _matrixDirty = true;
}

void csTransform::setScaleOrientation(float x, float y, float z, float angle) {
    _scaleOrientation.set(x, y, z, angle);
    _matrixDirty = true;
}

void csTransform::setCenter(float x, float y, float z) {
    _center.set(x, y, z);
    _matrixDirty = true;
}

const csMatrix4f& csTransform::getMatrix() const {
    if (!_matrix) _matrix = std::make_unique<csMatrix4f>();
    if (!_matrixDirty) return *_matrix;
    const csVec4f& r = _rotation;
    const csVec4f& so = _scaleOrientation;
    csMatrix4f m;
    m.makeTrans(-_center[0], -_center[1], -_center[2]);
    m.postRot(m, so[0], so[1], so[2], -so[3]);
    m.postScale(m, _scale[0], _scale[1], _scale[2]);
    m.postRot(m, so[0], so[1], so[2], so[3]);
    m.postRot(m, r[0], r[1], r[2], r[3]);
    m.postTrans(m, _center[0], _center[1], _center[2]);
    m.postTrans(m, _translation[0], _translation[1], _translation[2]);
    *_matrix = m;
    _matrixDirty = false;
    return *_matrix;
}
