#include "vrmlnodes/Material.h"

Material::Material(znInternal* pair)
    : BaseNode(pair),
      diffuseColor(sharedField<SFColor>("diffuseColor")),
      ambientIntensity(sharedField<SFFloat>("ambientIntensity")),
      specularColor(sharedField<SFColor>("specularColor")),
      emissiveColor(sharedField<SFColor>("emissiveColor")),
      shininess(sharedField<SFFloat>("shininess")),
      transparency(sharedField<SFFloat>("transparency")) {}

void Material::processEvent(Event& event) {
    const char* name = event.getName();
    if (!name) return;
    switch (nameAt(name, 4)) {
        case 'd': deliver(this, &Material::set_diffuseColor, event); return;
        case 'a': deliver(this, &Material::set_ambientIntensity, event); return;
        case 'e': deliver(this, &Material::set_emissiveColor, event); return;
        case 't': deliver(this, &Material::set_transparency, event); return;
        default: break;
    }
    if (nameAt(name, 5) == 'p')
        deliver(this, &Material::set_specularColor, event);
    else if (nameAt(name, 5) == 'h')
        deliver(this, &Material::set_shininess, event);
}

void Material::set_diffuseColor(SFColor& value, double) {
    assign(diffuseColor, value);
    diffuseDirty = 1;
}

void Material::set_ambientIntensity(SFFloat& value, double) {
    assign(ambientIntensity, value);
    ambientDirty = 1;
}

void Material::set_specularColor(SFColor& value, double) {
    assign(specularColor, value);
    specularDirty = 1;
}

void Material::set_emissiveColor(SFColor& value, double) {
    assign(emissiveColor, value);
    emissiveDirty = 1;
}

void Material::set_shininess(SFFloat& value, double) {
    assign(shininess, value);
    shininessDirty = 1;
}

void Material::set_transparency(SFFloat& value, double) {
    assign(transparency, value);
    transparencyDirty = 1;
}
