#include "vrmlnodes/Viewpoint.h"

Viewpoint::Viewpoint(znInternal* pair)
    : BaseNode(pair),
      fieldOfView(exposedField<SFFloat>("fieldOfView")),
      jump(exposedField<SFBool>("jump")),
      orientation(exposedField<SFRotation>("orientation")),
      position(exposedField<SFVec3f>("position")),
      description(plainField<SFString>("description")) {}

void Viewpoint::processEvent(Event& event) {
    storeEvent(event, "set_fieldOfView", fieldOfView, valuesDirty) || storeEvent(event, "set_jump", jump, valuesDirty) ||
        storeEvent(event, "set_orientation", orientation, valuesDirty) ||
        storeEvent(event, "set_position", position, valuesDirty);
}
