// A group whose children are moved by the VRML transform rule.
#ifndef CS_TRANSFORM_H
#define CS_TRANSFORM_H

#include <memory>

#include "csGroup.h"
#include "csMatrix4f.h"
#include "csVec.h"

class csTransform : public csGroup {
    CS_DECLARE_CLASS_TYPE;

    csTransform() = default;

    void setTranslation(float x, float y, float z);
    // Rotations take an axis and an angle in radians.
    void setRotation(float x, float y, float z, float angle);
    void setScale(float x, float y, float z);
    void setScaleOrientation(float x, float y, float z, float angle);
    void setCenter(float x, float y, float z);

    const csVec3f& getTranslation() const { return _translation; }
    const csVec4f& getRotation() const { return _rotation; }  // axis x, y, z, angle
    const csVec3f& getScale() const { return _scale; }
    const csVec4f& getScaleOrientation() const { return _scaleOrientation; }
    const csVec3f& getCenter() const { return _center; }

    // The matrix of the parts, for row vectors: a point p of a child goes to
    // p * M, where M = T(-C) * R(SR)^-1 * S * R(SR) * R * T(C) * T(T).
    // That is the VRML order T x C x R x SR x S x -SR x -C for column
    // vectors. A zero rotation axis counts as no rotation.
    const csMatrix4f& getMatrix() const;

protected:
    ~csTransform() override = default;

private:
    csVec3f _translation;
    csVec4f _rotation{0.0f, 0.0f, 1.0f, 0.0f};
    csVec3f _scale{1.0f, 1.0f, 1.0f};
    csVec4f _scaleOrientation{0.0f, 0.0f, 1.0f, 0.0f};
    csVec3f _center;
    mutable bool _matrixDirty = false;
    // Made at the first getMatrix: a scene of many transforms is mostly
    // built and handed on by its parts, and a matrix is a third of the rest.
    mutable std::unique_ptr<csMatrix4f> _matrix;
};

#endif
