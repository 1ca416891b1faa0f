// A grouping node and nothing more.
#ifndef GROUP_H
#define GROUP_H

#include "vrmlnodes/GroupingNode.h"

class Group : public virtual GroupingNode {
public:
    explicit Group(znInternal* pair);
    ~Group() override = default;
    void processEvent(Event& event) override;
};

#endif
