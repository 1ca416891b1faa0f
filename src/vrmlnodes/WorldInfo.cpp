#include "vrmlnodes/WorldInfo.h"

WorldInfo::WorldInfo(znInternal* pair)
    : BaseNode(pair), info(plainField<MFString>("info")), title(plainField<SFString>("title")) {}
