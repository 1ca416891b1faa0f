#include "vrmlnodes/TextureCoordinate.h"

TextureCoordinate::TextureCoordinate(znInternal* pair)
    : BaseNode(pair),
      point(exposedField<MFVec2f>("point")) {}

void TextureCoordinate::processEvent(Event& event) {
    const char* name = event.getName();
    if (!name) return;
    if (nameAt(name, 4) == 'p') deliver(this, &TextureCoordinate::set_point, event);
}

void TextureCoordinate::set_point(MFVec2f& value, double) {
    assign(point, value);
    pointDirty = 1;
}
