// Normals of a geometry.
#ifndef NORMAL_H
#define NORMAL_H

#include "vrmlnodes/VRMLNodebase.h"

class Normal : public VRMLNode {
public:
    explicit Normal(znInternal* pair);
    ~Normal() override = default;
    void processEvent(Event& event) override;

    virtual void set_vector(MFVec3f& value, double time);

    // The field that geometry reads and cleans once it has seen a change.
    MFVec3f* getVector() { return vector; }

protected:
    MFVec3f* vector;  // borrowed: the node's own field
    unsigned char vectorDirty = 0;
};

#endif
