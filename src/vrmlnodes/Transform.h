// A grouping node that places its children by centre, rotation, scale and translation.
#ifndef TRANSFORM_H
#define TRANSFORM_H

#include "vrmlnodes/GroupingNode.h"

class Transform : public GroupingNode {
public:
    explicit Transform(znInternal* pair);
    ~Transform() override = default;
    void processEvent(Event& event) override;

    void set_translation(SFVec3f& value, double time);
    void set_rotation(SFRotation& value, double time);
    void set_scale(SFVec3f& value, double time);
    void set_scaleOrientation(SFRotation& value, double time);
    void set_center(SFVec3f& value, double time);

protected:
    SFVec3f* center;  // borrowed: the node's own field
    SFRotation* rotation;  // borrowed: the node's own field
    SFVec3f* scale;  // borrowed: the node's own field
    SFRotation* scaleOrientation;  // borrowed: the node's own field
    SFVec3f* translation;  // borrowed: the node's own field
    unsigned char transformDirty = 0;
};

#endif
