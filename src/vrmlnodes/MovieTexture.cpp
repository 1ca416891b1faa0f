#include "vrmlnodes/MovieTexture.h"

MovieTexture::MovieTexture(znInternal* pair)
    : BaseNode(pair),
      url(exposedField<MFString>("url")),
      loop(exposedField<SFBool>("loop")),
      speed(exposedField<SFFloat>("speed")),
      repeatS(plainField<SFBool>("repeatS")),
      repeatT(plainField<SFBool>("repeatT")) {}

void MovieTexture::processEvent(Event& event) {
    storeEvent(event, "set_url", url, valuesDirty) || storeEvent(event, "set_loop", loop, valuesDirty) ||
        storeEvent(event, "set_speed", speed, valuesDirty);
}
