#include "vrmlnodes/Sphere.h"

Sphere::Sphere(znInternal* pair)
    : BaseNode(pair),
      radius(plainField<SFFloat>("radius")) {}
