#include "vrmlnodes/Cylinder.h"

Cylinder::Cylinder(znInternal* pair)
    : BaseNode(pair),
      bottom(sharedField<SFBool>("bottom")),
      height(sharedField<SFFloat>("height")),
      radius(sharedField<SFFloat>("radius")),
      side(sharedField<SFBool>("side")),
      top(sharedField<SFBool>("top")) {}
