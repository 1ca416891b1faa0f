#include "vrmlnodes/SpotLight.h"

SpotLight::SpotLight(znInternal* pair)
    : BaseNode(pair),
      PointLight(pair),
      direction(exposedField<SFVec3f>("direction")),
      beamWidth(exposedField<SFFloat>("beamWidth")),
      cutOffAngle(exposedField<SFFloat>("cutOffAngle")) {}

bool SpotLight::storeOwnEvent(Event& event) {
    return PointLight::storeOwnEvent(event) || storeEvent(event, "set_direction", direction, valuesDirty) ||
           storeEvent(event, "set_beamWidth", beamWidth, valuesDirty) ||
           storeEvent(event, "set_cutOffAngle", cutOffAngle, valuesDirty);
}
