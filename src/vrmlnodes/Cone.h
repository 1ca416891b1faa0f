// A cone centred on the origin.
#ifndef CONE_H
#define CONE_H

#include "vrmlnodes/VRMLNodebase.h"

class Cone : public VRMLNode {
public:
    explicit Cone(znInternal* pair);
    ~Cone() override = default;

protected:
    NodeField<SFFloat> bottomRadius;
    NodeField<SFFloat> height;
    NodeField<SFBool> side;
    NodeField<SFBool> bottom;
};

#endif
