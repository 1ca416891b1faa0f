// A sphere centred on the origin.
#ifndef SPHERE_H
#define SPHERE_H

#include "vrmlnodes/VRMLNodebase.h"

class Sphere : public VRMLNode {
public:
    explicit Sphere(znInternal* pair);
    ~Sphere() override = default;

protected:
    SFFloat* radius;  // borrowed: the node's own field
};

#endif
