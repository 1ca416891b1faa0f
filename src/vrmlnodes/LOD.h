// Levels of detail of one object, finest first, chosen by the viewer's
// distance from a centre. The levels are the node's children.
#ifndef LOD_H
#define LOD_H

#include "vrmlnodes/GroupingNode.h"

class LOD : public virtual GroupingNode {
public:
    explicit LOD(znInternal* pair);
    ~LOD() override = default;
    // set_level replaces the levels, as set_children does a group's.
    void processEvent(Event& event) override;

protected:
    SFVec3f* center;  // borrowed: the node's own field
    MFFloat* range;   // borrowed: the node's own field
};

#endif
