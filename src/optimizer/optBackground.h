// The back-end of Background: a csBackground, bound on the root when it is
// the first of the world's own file. Its pictures are not read: the URLs
// are kept for the renderer.
#ifndef OPT_BACKGROUND_H
#define OPT_BACKGROUND_H

#include "csRefPtr.h"
#include "optimizer/optLeafNode.h"
#include "vrmlnodes/Background.h"

class csBackground;

class optBackground : public Background, public optLeafNode {
public:
    explicit optBackground(znInternal* pair);
    ~optBackground() override;
    // Takes changed values; answers the background, whatever the mode.
    int action(SFTime& time, int mode, void* state) override;

    csBackground* getBackground() const { return background.get(); }

private:
    csRefPtr<csBackground> background;  // holds one reference
};

#endif
