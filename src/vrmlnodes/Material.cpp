#include "vrmlnodes/Material.h"

Material::Material(znInternal* pair)
    : BaseNode(pair),
      ambientIntensity(exposedField<SFFloat>("ambientIntensity")),
      diffuseColor(exposedField<SFColor>("diffuseColor")),
      emissiveColor(exposedField<SFColor>("emissiveColor")),
      shininess(exposedField<SFFloat>("shininess")),
      specularColor(exposedField<SFColor>("specularColor")),
      transparency(exposedField<SFFloat>("transparency")) {}

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
    materialDirty = 1;
}

void Material::set_ambientIntensity(SFFloat& value, double) {
    assign(ambientIntensity, value);
    materialDirty = 1;
}

void Material::set_emissiveColor(SFColor& value, double) {
    assign(emissiveColor, value);
    materialDirty = 1;
}

void Material::set_transparency(SFFloat& value, double) {
    assign(transparency, value);
    materialDirty = 1;
}

void Material::set_specularColor(SFColor& value, double) {
    assign(specularColor, value);
    materialDirty = 1;
}

void Material::set_shininess(SFFloat& value, double) {
    assign(shininess, value);
    materialDirty = 1;
}
