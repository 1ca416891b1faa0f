#include "optimizer/optSpotLight.h"

#include "csSpotLight.h"
#include "optimizer/optPointLight.h"

optSpotLight::optSpotLight(znInternal* pair)
    : BaseNode(pair), SpotLight(pair), optLightNode(new csSpotLight(), "Unnamed SpotLight Node") {}

void optSpotLight::copyOwnValues() {
    optPointLight::copyPointValues(light.get(), location, radius, attenuation);
    auto* spot = static_cast<csSpotLight*>(light.get());
    if (direction) spot->setDirection(direction->getX(), direction->getY(), direction->getZ());
    if (beamWidth) spot->setBeamWidth(beamWidth->getValue());
    if (cutOffAngle) spot->setCutOffAngle(cutOffAngle->getValue());
}
