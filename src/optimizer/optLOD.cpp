#include "optimizer/optLOD.h"

#include "csLOD.h"
#include "optimizer/optSceneName.h"

optLOD::optLOD(znInternal* pair) : BaseNode(pair), LOD(pair) {
    auto* lod = new csLOD();
    group = lod;
    group->ref();
    nameInScene(group, *this, "Unnamed LOD Node");
    // center and range are plain fields: what the file gave stays.
    if (center) lod->setCenter(center->getX(), center->getY(), center->getZ());
    std::vector<float> ranges;
    if (range) range->getValue(ranges);
    lod->setRanges(ranges);
}
