// A grouping node that can take part in collision tests.
#ifndef COLLISION_H
#define COLLISION_H

#include "vrmlnodes/GroupingNode.h"

class Collision : public virtual GroupingNode {
public:
    explicit Collision(znInternal* pair);
    ~Collision() override = default;
    void processEvent(Event& event) override;

    virtual void set_collide(SFBool& value, double time);

protected:
    SFBool* collide;  // borrowed: the node's own field
    SFNode* proxy;  // borrowed: the node's own field
    SFTime* collideTime;  // borrowed: the node's own field
    Builtin* proxyObject;  // borrowed: the built-in behind proxy, or null
    unsigned char collideDirty = 0;
};

#endif
