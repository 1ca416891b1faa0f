// Points of a geometry.
#ifndef COORDINATE_H
#define COORDINATE_H

#include "vrmlnodes/VRMLNodebase.h"

class Coordinate : public VRMLNode {
public:
    explicit Coordinate(znInternal* pair);
    ~Coordinate() override = default;
    void processEvent(Event& event) override;

    virtual void set_point(MFVec3f& value, double time);

    // The field that geometry reads and cleans once it has seen a change.
    MFVec3f* getPoint() { return point; }

protected:
    MFVec3f* point;  // borrowed: the node's own field
    unsigned char pointDirty = 0;
};

#endif
