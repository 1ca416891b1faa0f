// A grouping node that the viewer's movement turns about an axis, so that
// its children keep facing the viewer.
#ifndef BILLBOARD_H
#define BILLBOARD_H

#include "vrmlnodes/GroupingNode.h"

class Billboard : public virtual GroupingNode {
public:
    explicit Billboard(znInternal* pair);
    ~Billboard() override = default;
    void processEvent(Event& event) override;

protected:
    SFVec3f* axisOfRotation;  // borrowed: the node's own field
    unsigned char valuesDirty = 1;
};

#endif
