#include "vrmlnodes/LightNode.h"

LightNode::LightNode()
    : on(sharedField<SFBool>("on")),
      intensity(sharedField<SFFloat>("intensity")),
      ambientIntensity(sharedField<SFFloat>("ambientIntensity")),
      color(sharedField<SFColor>("color")) {}

void LightNode::processEvent(Event& event) {
    if (storeEvent(event, "set_on", on, valuesDirty) || storeEvent(event, "set_intensity", intensity, valuesDirty) ||
        storeEvent(event, "set_ambientIntensity", ambientIntensity, valuesDirty) ||
        storeEvent(event, "set_color", color, valuesDirty))
        return;
    storeOwnEvent(event);
}
