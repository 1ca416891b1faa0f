// The back-end of PointLight: a csPointLight.
#ifndef OPT_POINT_LIGHT_H
#define OPT_POINT_LIGHT_H

#include "optimizer/optLightNode.h"
#include "vrmlnodes/PointLight.h"

class optPointLight : public PointLight, public optLightNode {
public:
    explicit optPointLight(znInternal* pair);
    ~optPointLight() override = default;

    // What a point light and a spot light share: location, radius and
    // attenuation into `light`.
    static void copyPointValues(csLight* light, SFVec3f* location, SFFloat* radius, SFVec3f* attenuation);

protected:
    void copyOwnValues() override;
};

#endif
