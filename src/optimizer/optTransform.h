// The back-end of Transform: a csTransform that takes the node's
// translation, rotation, scale, scale orientation and centre.
#ifndef OPT_TRANSFORM_H
#define OPT_TRANSFORM_H

#include "optimizer/optGroupingNode.h"
#include "vrmlnodes/Transform.h"

class optTransform : public Transform, public optGroupingNode {
public:
    explicit optTransform(znInternal* pair);
    ~optTransform() override = default;
    // Copies changed values into the csTransform, then does what every
    // grouping node does.
    int action(SFTime& time, int mode, void* state) override;
};

#endif
