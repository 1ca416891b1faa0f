#include "vrmlnodes/ImageTexture.h"

ImageTexture::ImageTexture(znInternal* pair)
    : BaseNode(pair),
      url(exposedField<MFString>("url")),
      repeatS(plainField<SFBool>("repeatS")),
      repeatT(plainField<SFBool>("repeatT")) {}

void ImageTexture::processEvent(Event& event) {
    const char* name = event.getName();
    if (!name) return;
    if (nameAt(name, 4) == 'u') deliver(this, &ImageTexture::set_url, event);
}

void ImageTexture::set_url(MFString& value, double) {
    assign(url, value);
    urlDirty = 1;
}
