// A cylinder centred on the origin.
#ifndef CYLINDER_H
#define CYLINDER_H

#include "vrmlnodes/VRMLNodebase.h"

class Cylinder : public VRMLNode {
public:
    explicit Cylinder(znInternal* pair);
    ~Cylinder() override = default;

protected:
    SFBool* bottom;  // borrowed: the node's own field
    SFFloat* height;  // borrowed: the node's own field
    SFFloat* radius;  // borrowed: the node's own field
    SFBool* side;  // borrowed: the node's own field
    SFBool* top;  // borrowed: the node's own field
};

#endif
