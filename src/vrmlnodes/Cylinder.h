// A cylinder centred on the origin.
#ifndef CYLINDER_H
#define CYLINDER_H

#include "vrmlnodes/VRMLNodebase.h"

class Cylinder : public VRMLNode {
public:
    explicit Cylinder(znInternal* pair);
    ~Cylinder() override = default;

protected:
    NodeField<SFBool> bottom;
    NodeField<SFFloat> height;
    NodeField<SFFloat> radius;
    NodeField<SFBool> side;
    NodeField<SFBool> top;
};

#endif
