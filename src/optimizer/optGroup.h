// The back-end of Group: a csGroup and nothing more.
#ifndef OPT_GROUP_H
#define OPT_GROUP_H

#include "optimizer/optGroupingNode.h"
#include "vrmlnodes/Group.h"

class optGroup : public Group, public optGroupingNode {
public:
    explicit optGroup(znInternal* pair);
    ~optGroup() override = default;
};

#endif
