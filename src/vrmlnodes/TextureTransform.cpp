#include "vrmlnodes/TextureTransform.h"

TextureTransform::TextureTransform(znInternal* pair)
    : BaseNode(pair),
      translation(sharedField<SFVec2f>("translation")),
      rotation(sharedField<SFFloat>("rotation")),
      scale(sharedField<SFVec2f>("scale")),
      center(sharedField<SFVec2f>("center")) {}

void TextureTransform::processEvent(Event& event) {
    const char* name = event.getName();
    if (!name) return;
    switch (nameAt(name, 4)) {
        case 'c': deliver(this, &TextureTransform::set_center, event); break;
        case 't': deliver(this, &TextureTransform::set_translation, event); break;
        case 'r': deliver(this, &TextureTransform::set_rotation, event); break;
        case 's': deliver(this, &TextureTransform::set_scale, event); break;
        default: break;
    }
}

void TextureTransform::set_translation(SFVec2f& value, double) {
    assign(translation, value);
    setMatrix();
}

void TextureTransform::set_rotation(SFFloat& value, double) {
    assign(rotation, value);
    setMatrix();
}

void TextureTransform::set_scale(SFVec2f& value, double) {
    assign(scale, value);
    setMatrix();
}

void TextureTransform::set_center(SFVec2f& value, double) {
    assign(center, value);
    setMatrix();
}

void TextureTransform::setMatrix() { transformDirty = 1; }
