// The back-end of NavigationInfo: a csNavigationInfo, bound on the root
// when it is the first of the world's own file.
#ifndef OPT_NAVIGATION_INFO_H
#define OPT_NAVIGATION_INFO_H

#include "csRefPtr.h"
#include "optimizer/optLeafNode.h"
#include "vrmlnodes/NavigationInfo.h"

class csNavigationInfo;

class optNavigationInfo : public NavigationInfo, public optLeafNode {
public:
    explicit optNavigationInfo(znInternal* pair);
    ~optNavigationInfo() override;
    // Takes changed values; answers the object, whatever the mode.
    int action(SFTime& time, int mode, void* state) override;

    csNavigationInfo* getNavigationInfo() const { return info.get(); }

private:
    csRefPtr<csNavigationInfo> info;  // holds one reference
};

#endif
