// A box centred on the origin.
#ifndef BOX_H
#define BOX_H

#include "vrmlnodes/VRMLNodebase.h"

class Box : public VRMLNode {
public:
    explicit Box(znInternal* pair);
    ~Box() override = default;

protected:
    SFVec3f* size;  // borrowed: the node's own field
};

#endif
