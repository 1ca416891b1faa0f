// Material, texture and texture transform of a shape.
#ifndef APPEARANCE_H
#define APPEARANCE_H

#include "vrmlnodes/VRMLNodebase.h"

class Appearance : public VRMLNode {
public:
    explicit Appearance(znInternal* pair);
    ~Appearance() override = default;
    void processEvent(Event& event) override;

    void set_material(SFNode& value, double time);
    void set_texture(SFNode& value, double time);
    void set_textureTransform(SFNode& value, double time);
    // Passes the call on to material, texture and texture transform, in
    // that order, as it came. Answers 0.
    int action(SFTime& time, int mode, void* state) override;

    // The built-in behind the material field, or null.
    Builtin* getMaterialObject() const { return materialObject; }

protected:
    SFNode* material;  // borrowed: the node's own field
    NodeField<SFNode> texture;  // the node's field
    NodeField<SFNode> textureTransform;  // the node's field
    Builtin* materialObject;  // borrowed: the built-in behind material, or null
    Builtin* textureObject;  // borrowed: the built-in behind texture, or null
    Builtin* textureTransformObject;  // borrowed: the built-in behind textureTransform, or null
    unsigned char materialDirty = 1;
    unsigned char textureDirty = 1;
    unsigned char textureTransformDirty = 1;
};

#endif
