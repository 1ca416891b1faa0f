// A grouping node that places its children by centre, rotation, scale and translation.
#ifndef TRANSFORM_H
#define TRANSFORM_H

#include <memory>

#include "vrmlnodes/GroupingNode.h"

class Transform : public virtual GroupingNode {
public:
    explicit Transform(znInternal* pair);
    ~Transform() override = default;
    void processEvent(Event& event) override;

    // Each setter stores the value and raises the dirty byte.
    void set_translation(SFVec3f& value, double time);
    void set_rotation(SFRotation& value, double time);
    void set_scale(SFVec3f& value, double time);
    void set_scaleOrientation(SFRotation& value, double time);
    void set_center(SFVec3f& value, double time);

    // Computes `matrix` from the fields by the VRML transform rule, for row
    // vectors, and lowers the dirty byte. A zero rotation axis counts as the
    // z axis and a zero scale component as 0.0001, so that the matrix stays
    // invertible.
    void recalc_Matrix();
    // The identity until the first recalc_Matrix.
    const float (&getMatrix() const)[4][4];

protected:
    NodeField<SFVec3f> translation;
    NodeField<SFRotation> rotation;
    NodeField<SFVec3f> scale;
    NodeField<SFRotation> scaleOrientation;
    NodeField<SFVec3f> center;
    unsigned char transformDirty = 0;
    // Made by the first recalc_Matrix: the scene graph takes the parts, not
    // the matrix, and a world has a Transform for nearly every shape.
    struct Matrix {
        float m[4][4];
    };
    std::unique_ptr<Matrix> matrix;
};

#endif
