#include "vrmlnodes/DirectionalLight.h"

DirectionalLight::DirectionalLight(znInternal* pair)
    : BaseNode(pair), direction(exposedField<SFVec3f>("direction")) {}

bool DirectionalLight::storeOwnEvent(Event& event) {
    return storeEvent(event, "set_direction", direction, valuesDirty);
}
