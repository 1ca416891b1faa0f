#include "optimizer/optPointLight.h"

#include "csPointLight.h"

optPointLight::optPointLight(znInternal* pair)
    : BaseNode(pair), PointLight(pair), optLightNode(new csPointLight(), "Unnamed PointLight Node") {}

void optPointLight::copyPointValues(csLight* light, SFVec3f* location, SFFloat* radius, SFVec3f* attenuation) {
    auto* point = static_cast<csPointLight*>(light);
    if (location) point->setLocation(location->getX(), location->getY(), location->getZ());
    if (radius) point->setRadius(radius->getValue());
    if (attenuation) point->setAttenuation(attenuation->getX(), attenuation->getY(), attenuation->getZ());
}

void optPointLight::copyOwnValues() { copyPointValues(light.get(), location, radius, attenuation); }
