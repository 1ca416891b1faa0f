#include "csAppearance.h"

#include "csMaterial.h"
#include "csTexture.h"

CS_DEFINE_CLASS_TYPE(csAppearance, csContainer)

void csAppearance::setMaterial(csMaterial* material) { _material.reset(material); }

void csAppearance::setTexture(csTexture* texture) { _texture.reset(texture); }
csAppearance::~csAppearance() = default;
csAppearance::csAppearance() = default;
