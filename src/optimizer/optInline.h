// The back-end of Inline: a csInline whose children are built from the
// top-level nodes of the file the Inline reads at its first build. What is
// built below it knows that it came from another file.
#ifndef OPT_INLINE_H
#define OPT_INLINE_H

#include "optimizer/optGroupingNode.h"
#include "vrmlnodes/Inline.h"

class optInline : public Inline, public optGroupingNode {
public:
    explicit optInline(znInternal* pair);
    ~optInline() override = default;
    // Reads the file when it has not been read, then builds or refreshes
    // the children as every group does, with the file counted as being
    // built meanwhile.
    int action(SFTime& time, int mode, void* state) override;
    void set_url(MFString& value, double time) override;
};

#endif
