#include "vrmlnodes/PixelTexture.h"

PixelTexture::PixelTexture(znInternal* pair)
    : BaseNode(pair),
      image(exposedField<SFImage>("image")),
      repeatS(plainField<SFBool>("repeatS")),
      repeatT(plainField<SFBool>("repeatT")) {}

void PixelTexture::processEvent(Event& event) { storeEvent(event, "set_image", image, imageDirty); }
