#include "optimizer/optMaterial.h"

#include "csMaterial.h"
#include "optimizer/optHandleTable.h"
#include "optimizer/optSceneName.h"

optMaterial::optMaterial(znInternal* pair) : BaseNode(pair), Material(pair) {
    material.reset(new csMaterial());
    nameInScene(material.get(), *this, "Unnamed Material Node");
    built = 1;
}

optMaterial::~optMaterial() = default;

int optMaterial::action(SFTime&, int, void*) {
    // The ambient colour is the diffuse colour scaled by the intensity, so
    // it follows a change of either.
    if ((ambientDirty || diffuseDirty) && ambientIntensity && diffuseColor) {
        float intensity = ambientIntensity->getValue();
        material->setAmbientColor(intensity * diffuseColor->getRed(), intensity * diffuseColor->getGreen(),
                                  intensity * diffuseColor->getBlue());
    }
    ambientDirty = 0;
    if (diffuseDirty && diffuseColor)
        material->setDiffuseColor(diffuseColor->getRed(), diffuseColor->getGreen(), diffuseColor->getBlue());
    diffuseDirty = 0;
    if (specularDirty && specularColor)
        material->setSpecularColor(specularColor->getRed(), specularColor->getGreen(), specularColor->getBlue());
    specularDirty = 0;
    if (emissiveDirty && emissiveColor)
        material->setEmissiveColor(emissiveColor->getRed(), emissiveColor->getGreen(), emissiveColor->getBlue());
    emissiveDirty = 0;
    // Shininess and transparency pass as VRML gives them.
    if (shininessDirty && shininess) material->setShininess(shininess->getValue());
    shininessDirty = 0;
    if (transparencyDirty && transparency) material->setTransparency(transparency->getValue());
    transparencyDirty = 0;
    return optHandleTable::handleOf(material.get());
}
