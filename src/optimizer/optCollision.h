// The back-end of Collision: a csCollision that takes the collide flag.
// Nothing reads the proxy or sends collideTime.
#ifndef OPT_COLLISION_H
#define OPT_COLLISION_H

#include "optimizer/optGroupingNode.h"
#include "vrmlnodes/Collision.h"

class optCollision : public Collision, public optGroupingNode {
public:
    explicit optCollision(znInternal* pair);
    ~optCollision() override = default;
    void set_collide(SFBool& value, double time) override;

private:
    void copyCollide();
};

#endif
