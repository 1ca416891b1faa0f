// The back-end of SpotLight: a csSpotLight.
#ifndef OPT_SPOT_LIGHT_H
#define OPT_SPOT_LIGHT_H

#include "optimizer/optLightNode.h"
#include "vrmlnodes/SpotLight.h"

class optSpotLight : public SpotLight, public optLightNode {
public:
    explicit optSpotLight(znInternal* pair);
    ~optSpotLight() override = default;

protected:
    void copyOwnValues() override;
};

#endif
