// The back-end of WorldInfo: a csWorldInfo, which the root keeps when it
// is the first of the world's own file.
#ifndef OPT_WORLD_INFO_H
#define OPT_WORLD_INFO_H

#include "csRefPtr.h"
#include "optimizer/optLeafNode.h"
#include "vrmlnodes/WorldInfo.h"

class csWorldInfo;

class optWorldInfo : public WorldInfo, public optLeafNode {
public:
    explicit optWorldInfo(znInternal* pair);
    ~optWorldInfo() override;
    // Answers the object, whatever the mode.
    int action(SFTime& time, int mode, void* state) override;

    csWorldInfo* getWorldInfo() const { return worldInfo.get(); }

private:
    csRefPtr<csWorldInfo> worldInfo;  // holds one reference
};

#endif
