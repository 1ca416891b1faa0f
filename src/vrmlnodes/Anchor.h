// A grouping node whose children lead to another world or place when the
// user picks them: where to (url), what to tell the user (description) and
// what to tell whoever opens it (parameter).
#ifndef ANCHOR_H
#define ANCHOR_H

#include "vrmlnodes/GroupingNode.h"

class Anchor : public virtual GroupingNode {
public:
    explicit Anchor(znInternal* pair);
    ~Anchor() override = default;
    void processEvent(Event& event) override;

protected:
    MFString* url;          // borrowed: the node's own field
    SFString* description;  // borrowed: the node's own field
    MFString* parameter;    // borrowed: the node's own field
    unsigned char valuesDirty = 1;
};

#endif
