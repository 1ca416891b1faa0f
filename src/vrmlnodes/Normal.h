// Normals of a geometry.
#ifndef NORMAL_H
#define NORMAL_H

#include "vrmlnodes/VRMLNodebase.h"

class Normal : public VRMLNode {
public:
    explicit Normal(znInternal* pair);
    ~Normal() override = default;
    void processEvent(Event& event) override;

    void set_vector(MFVec3f& value, double time);

protected:
    MFVec3f* vector;  // borrowed: the node's own field
    unsigned char vectorDirty = 0;
};

#endif
