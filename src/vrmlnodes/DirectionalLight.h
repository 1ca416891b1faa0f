// A light from one direction, as from a far sun. It lights the other
// children of its group and what lies below them.
#ifndef DIRECTIONALLIGHT_H
#define DIRECTIONALLIGHT_H

#include "vrmlnodes/LightNode.h"

class DirectionalLight : public virtual LightNode {
public:
    explicit DirectionalLight(znInternal* pair);
    ~DirectionalLight() override = default;

protected:
    bool storeOwnEvent(Event& event) override;

    SFVec3f* direction;  // borrowed: the node's own field
};

#endif
