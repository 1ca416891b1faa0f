#include "vrmlnodes/Cone.h"

Cone::Cone(znInternal* pair)
    : BaseNode(pair),
      bottomRadius(plainField<SFFloat>("bottomRadius")),
      height(plainField<SFFloat>("height")),
      side(plainField<SFBool>("side")),
      bottom(plainField<SFBool>("bottom")) {}
