// A point light that shines into a cone about a direction: full within the
// beam width, nothing beyond the cut-off angle.
#ifndef SPOTLIGHT_H
#define SPOTLIGHT_H

#include "vrmlnodes/PointLight.h"

class SpotLight : public PointLight {
public:
    explicit SpotLight(znInternal* pair);
    ~SpotLight() override = default;

protected:
    bool storeOwnEvent(Event& event) override;

    SFVec3f* direction;    // borrowed: the node's own field
    SFFloat* beamWidth;    // borrowed: the node's own field
    SFFloat* cutOffAngle;  // borrowed: the node's own field
};

#endif
