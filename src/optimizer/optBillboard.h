// The back-end of Billboard: a csBillboard with the axis to turn about.
#ifndef OPT_BILLBOARD_H
#define OPT_BILLBOARD_H

#include "optimizer/optGroupingNode.h"
#include "vrmlnodes/Billboard.h"

class optBillboard : public Billboard, public optGroupingNode {
public:
    explicit optBillboard(znInternal* pair);
    ~optBillboard() override = default;
    // Takes a changed axis, then builds or refreshes as every group does.
    int action(SFTime& time, int mode, void* state) override;
};

#endif
