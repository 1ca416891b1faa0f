// A two-dimensional transform of texture coordinates.
#ifndef TEXTURETRANSFORM_H
#define TEXTURETRANSFORM_H

#include "vrmlnodes/VRMLNodebase.h"

class TextureTransform : public VRMLNode {
public:
    explicit TextureTransform(znInternal* pair);
    // Each setter stores the value and calls setMatrix.
    virtual void set_translation(SFVec2f& value, double time);
    virtual void set_rotation(SFFloat& value, double time);
    virtual void set_scale(SFVec2f& value, double time);
    virtual void set_center(SFVec2f& value, double time);
    // Takes in changed values. Here it only raises the dirty byte; a
    // back-end rebuilds its matrix as well.
    virtual void setMatrix();
    ~TextureTransform() override = default;
    void processEvent(Event& event) override;

protected:
    SFVec2f* translation;  // borrowed: the node's own field
    SFFloat* rotation;     // borrowed: the node's own field
    SFVec2f* scale;        // borrowed: the node's own field
    SFVec2f* center;       // borrowed: the node's own field
    unsigned char transformDirty = 0;
};

#endif
