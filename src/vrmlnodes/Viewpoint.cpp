#include "vrmlnodes/Viewpoint.h"

Viewpoint::Viewpoint(znInternal* pair)
    : BaseNode(pair),
      fieldOfView(sharedField<SFFloat>("fieldOfView")),
      jump(sharedField<SFBool>("jump")),
      orientation(sharedField<SFRotation>("orientation")),
      position(sharedField<SFVec3f>("position")),
      description(sharedField<SFString>("description")) {}

void Viewpoint::processEvent(Event& event) {
    storeEvent(event, "set_fieldOfView", fieldOfView, valuesDirty) || storeEvent(event, "set_jump", jump, valuesDirty) ||
        storeEvent(event, "set_orientation", orientation, valuesDirty) ||
        storeEvent(event, "set_position", position, valuesDirty);
}
