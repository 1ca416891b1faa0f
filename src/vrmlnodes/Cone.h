// A cone centred on the origin.
#ifndef CONE_H
#define CONE_H

#include "vrmlnodes/VRMLNodebase.h"

class Cone : public VRMLNode {
public:
    explicit Cone(znInternal* pair);
    ~Cone() override = default;

protected:
    SFFloat* bottomRadius;  // borrowed: the node's own field
    SFFloat* height;  // borrowed: the node's own field
    SFBool* side;  // borrowed: the node's own field
    SFBool* bottom;  // borrowed: the node's own field
};

#endif
