// Surface colours and lighting of a shape.
#ifndef MATERIAL_H
#define MATERIAL_H

#include "vrmlnodes/VRMLNodebase.h"

class Material : public VRMLNode {
public:
    explicit Material(znInternal* pair);
    ~Material() override = default;
    void processEvent(Event& event) override;

    // Each setter stores the value and raises its own flag only.
    void set_diffuseColor(SFColor& value, double time);
    void set_ambientIntensity(SFFloat& value, double time);
    void set_specularColor(SFColor& value, double time);
    void set_emissiveColor(SFColor& value, double time);
    void set_shininess(SFFloat& value, double time);
    void set_transparency(SFFloat& value, double time);

protected:
    NodeField<SFColor> diffuseColor;
    NodeField<SFFloat> ambientIntensity;
    NodeField<SFColor> specularColor;
    NodeField<SFColor> emissiveColor;
    NodeField<SFFloat> shininess;
    NodeField<SFFloat> transparency;
    unsigned char ambientDirty = 1;
    unsigned char diffuseDirty = 1;
    unsigned char specularDirty = 1;
    unsigned char emissiveDirty = 1;
    unsigned char shininessDirty = 1;
    unsigned char transparencyDirty = 1;
};

#endif
