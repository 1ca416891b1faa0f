#include "vrmlnodes/Cylinder.h"

Cylinder::Cylinder(znInternal* pair)
    : BaseNode(pair),
      bottom(plainField<SFBool>("bottom")),
      height(plainField<SFFloat>("height")),
      radius(plainField<SFFloat>("radius")),
      side(plainField<SFBool>("side")),
      top(plainField<SFBool>("top")) {}
