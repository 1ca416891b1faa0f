// Unconnected points.
#ifndef POINTSET_H
#define POINTSET_H

#include "vrmlnodes/VRMLNodebase.h"

class PointSet : public VRMLNode {
public:
    explicit PointSet(znInternal* pair);
    ~PointSet() override = default;
    void processEvent(Event& event) override;

    void set_coord(SFNode& value, double time);
    void set_color(SFNode& value, double time);

protected:
    SFNode* coord;  // borrowed: the node's own field
    SFNode* color;  // borrowed: the node's own field
    Builtin* coordObject;  // borrowed: the built-in behind coord, or null
    Builtin* colorObject;  // borrowed: the built-in behind color, or null
    unsigned char coordDirty = 0;
    unsigned char colorDirty = 0;
};

#endif
