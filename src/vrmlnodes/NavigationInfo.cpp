#include "vrmlnodes/NavigationInfo.h"

NavigationInfo::NavigationInfo(znInternal* pair)
    : BaseNode(pair),
      avatarSize(exposedField<MFFloat>("avatarSize")),
      headlight(exposedField<SFBool>("headlight")),
      speed(exposedField<SFFloat>("speed")),
      type(exposedField<MFString>("type")),
      visibilityLimit(exposedField<SFFloat>("visibilityLimit")) {}

void NavigationInfo::processEvent(Event& event) {
    storeEvent(event, "set_avatarSize", avatarSize, valuesDirty) ||
        storeEvent(event, "set_headlight", headlight, valuesDirty) ||
        storeEvent(event, "set_speed", speed, valuesDirty) || storeEvent(event, "set_type", type, valuesDirty) ||
        storeEvent(event, "set_visibilityLimit", visibilityLimit, valuesDirty);
}
