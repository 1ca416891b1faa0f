// The back-end of Viewpoint: a csViewpoint, listed on the root with every
// other, and bound there when it is the first of the world's own file.
#ifndef OPT_VIEWPOINT_H
#define OPT_VIEWPOINT_H

#include "csRefPtr.h"
#include "optimizer/optLeafNode.h"
#include "vrmlnodes/Viewpoint.h"

class csViewpoint;

class optViewpoint : public Viewpoint, public optLeafNode {
public:
    explicit optViewpoint(znInternal* pair);
    ~optViewpoint() override;
    // Takes changed values; answers the viewpoint, whatever the mode.
    int action(SFTime& time, int mode, void* state) override;

    csViewpoint* getViewpoint() const { return viewpoint.get(); }

private:
    csRefPtr<csViewpoint> viewpoint;  // holds one reference
};

#endif
