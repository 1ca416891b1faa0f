// The back-end of Fog: a csFog, bound on the root when it is the first of
// the world's own file.
#ifndef OPT_FOG_H
#define OPT_FOG_H

#include "csRefPtr.h"
#include "optimizer/optLeafNode.h"
#include "vrmlnodes/Fog.h"

class csFog;

class optFog : public Fog, public optLeafNode {
public:
    explicit optFog(znInternal* pair);
    ~optFog() override;
    // Takes changed values; answers the fog, whatever the mode.
    int action(SFTime& time, int mode, void* state) override;

    csFog* getFog() const { return fog.get(); }

private:
    csRefPtr<csFog> fog;  // holds one reference
};

#endif
