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
    NodeField<SFVec2f> translation;
    NodeField<SFFloat> rotation;
    NodeField<SFVec2f> scale;
    NodeField<SFVec2f> center;
    unsigned char transformDirty = 0;
};

#endif
