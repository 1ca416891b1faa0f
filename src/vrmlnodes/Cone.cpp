#include "vrmlnodes/Cone.h"

Cone::Cone(znInternal* pair)
    : BaseNode(pair),
      bottomRadius(sharedField<SFFloat>("bottomRadius")),
      height(sharedField<SFFloat>("height")),
      side(sharedField<SFBool>("side")),
      bottom(sharedField<SFBool>("bottom")) {}
