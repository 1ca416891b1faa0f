// The back-end of LOD: a csLOD that holds every level as a child, with the
// ranges and the centre for the renderer to choose by.
#ifndef OPT_LOD_H
#define OPT_LOD_H

#include "optimizer/optGroupingNode.h"
#include "vrmlnodes/LOD.h"

class optLOD : public LOD, public optGroupingNode {
public:
    explicit optLOD(znInternal* pair);
    ~optLOD() override = default;
};

#endif
