#include "optimizer/optDirectionalLight.h"

#include "csDirectionalLight.h"

optDirectionalLight::optDirectionalLight(znInternal* pair)
    : BaseNode(pair), DirectionalLight(pair), optLightNode(new csDirectionalLight(), "Unnamed DirectionalLight Node") {}

void optDirectionalLight::copyOwnValues() {
    if (direction)
        static_cast<csDirectionalLight*>(light.get())->setDirection(direction->getX(), direction->getY(), direction->getZ());
}
