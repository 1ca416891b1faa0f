// The back-end of Anchor: a csAnchor with its URLs, description and
// parameters. Following the link is the host's business.
#ifndef OPT_ANCHOR_H
#define OPT_ANCHOR_H

#include "optimizer/optGroupingNode.h"
#include "vrmlnodes/Anchor.h"

class optAnchor : public Anchor, public optGroupingNode {
public:
    explicit optAnchor(znInternal* pair);
    ~optAnchor() override = default;
    // Takes changed values, then builds or refreshes as every group does.
    int action(SFTime& time, int mode, void* state) override;
};

#endif
