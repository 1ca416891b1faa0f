#include "vrmlnodes/Box.h"

Box::Box(znInternal* pair)
    : BaseNode(pair),
      size(plainField<SFVec3f>("size")) {}
