#include "vrmlnodes/Background.h"

Background::Background(znInternal* pair)
    : BaseNode(pair),
      groundAngle(exposedField<MFFloat>("groundAngle")),
      groundColor(exposedField<MFColor>("groundColor")),
      backUrl(exposedField<MFString>("backUrl")),
      bottomUrl(exposedField<MFString>("bottomUrl")),
      frontUrl(exposedField<MFString>("frontUrl")),
      leftUrl(exposedField<MFString>("leftUrl")),
      rightUrl(exposedField<MFString>("rightUrl")),
      topUrl(exposedField<MFString>("topUrl")),
      skyAngle(exposedField<MFFloat>("skyAngle")),
      skyColor(exposedField<MFColor>("skyColor")) {}

void Background::processEvent(Event& event) {
    storeEvent(event, "set_groundAngle", groundAngle, valuesDirty) ||
        storeEvent(event, "set_groundColor", groundColor, valuesDirty) ||
        storeEvent(event, "set_backUrl", backUrl, valuesDirty) ||
        storeEvent(event, "set_bottomUrl", bottomUrl, valuesDirty) ||
        storeEvent(event, "set_frontUrl", frontUrl, valuesDirty) ||
        storeEvent(event, "set_leftUrl", leftUrl, valuesDirty) ||
        storeEvent(event, "set_rightUrl", rightUrl, valuesDirty) ||
        storeEvent(event, "set_topUrl", topUrl, valuesDirty) ||
        storeEvent(event, "set_skyAngle", skyAngle, valuesDirty) ||
        storeEvent(event, "set_skyColor", skyColor, valuesDirty);
}
