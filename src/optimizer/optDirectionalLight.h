// The back-end of DirectionalLight: a csDirectionalLight.
#ifndef OPT_DIRECTIONAL_LIGHT_H
#define OPT_DIRECTIONAL_LIGHT_H

#include "optimizer/optLightNode.h"
#include "vrmlnodes/DirectionalLight.h"

class optDirectionalLight : public DirectionalLight, public optLightNode {
public:
    explicit optDirectionalLight(znInternal* pair);
    ~optDirectionalLight() override = default;

protected:
    void copyOwnValues() override;
};

#endif
