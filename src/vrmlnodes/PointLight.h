// A light from one point in all directions, reaching as far as its radius
// and falling off with distance by its attenuation.
#ifndef POINTLIGHT_H
#define POINTLIGHT_H

#include "vrmlnodes/LightNode.h"

class PointLight : public virtual LightNode {
public:
    explicit PointLight(znInternal* pair);
    ~PointLight() override = default;

protected:
    bool storeOwnEvent(Event& event) override;

    SFVec3f* location;     // borrowed: the node's own field
    SFFloat* radius;       // borrowed: the node's own field
    SFVec3f* attenuation;  // borrowed: the node's own field
};

#endif
