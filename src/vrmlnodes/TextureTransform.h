// A two-dimensional transform of texture coordinates.
#ifndef TEXTURETRANSFORM_H
#define TEXTURETRANSFORM_H

#include "vrmlnodes/VRMLNodebase.h"

class TextureTransform : public VRMLNode {
public:
    explicit TextureTransform(znInternal* pair);
    ~TextureTransform() override = default;
    void processEvent(Event& event) override;

    void set_center(SFVec2f& value, double time);
    void set_translation(SFVec2f& value, double time);
    void set_rotation(SFFloat& value, double time);
    void set_scale(SFVec2f& value, double time);

protected:
    SFVec2f* center;  // borrowed: the node's own field
    SFFloat* rotation;  // borrowed: the node's own field
    SFVec2f* scale;  // borrowed: the node's own field
    SFVec2f* translation;  // borrowed: the node's own field
    unsigned char transformDirty = 0;
};

#endif
