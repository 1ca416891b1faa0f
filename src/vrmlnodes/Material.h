// Surface colours and lighting of a shape.
#ifndef MATERIAL_H
#define MATERIAL_H

#include "vrmlnodes/VRMLNodebase.h"

class Material : public VRMLNode {
public:
    explicit Material(znInternal* pair);
    ~Material() override = default;
    void processEvent(Event& event) override;

    void set_diffuseColor(SFColor& value, double time);
    void set_ambientIntensity(SFFloat& value, double time);
    void set_emissiveColor(SFColor& value, double time);
    void set_transparency(SFFloat& value, double time);
    void set_specularColor(SFColor& value, double time);
    void set_shininess(SFFloat& value, double time);

protected:
    SFFloat* ambientIntensity;  // borrowed: the node's own field
    SFColor* diffuseColor;  // borrowed: the node's own field
    SFColor* emissiveColor;  // borrowed: the node's own field
    SFFloat* shininess;  // borrowed: the node's own field
    SFColor* specularColor;  // borrowed: the node's own field
    SFFloat* transparency;  // borrowed: the node's own field
    unsigned char materialDirty = 1;
};

#endif
