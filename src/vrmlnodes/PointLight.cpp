#include "vrmlnodes/PointLight.h"

PointLight::PointLight(znInternal* pair)
    : BaseNode(pair),
      location(exposedField<SFVec3f>("location")),
      radius(exposedField<SFFloat>("radius")),
      attenuation(exposedField<SFVec3f>("attenuation")) {}

bool PointLight::storeOwnEvent(Event& event) {
    return storeEvent(event, "set_location", location, valuesDirty) ||
           storeEvent(event, "set_radius", radius, valuesDirty) ||
           storeEvent(event, "set_attenuation", attenuation, valuesDirty);
}
