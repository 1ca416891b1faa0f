// Points of a geometry.
#ifndef COORDINATE_H
#define COORDINATE_H

#include "vrmlnodes/VRMLNodebase.h"

class Coordinate : public VRMLNode {
public:
    explicit Coordinate(znInternal* pair);
    ~Coordinate() override = default;
    void processEvent(Event& event) override;

    void set_point(MFVec3f& value, double time);

protected:
    MFVec3f* point;  // borrowed: the node's own field
    unsigned char pointDirty = 0;
};

#endif
