// The base kept for bindable nodes that an extension adds.
#ifndef BINDABLENODE_H
#define BINDABLENODE_H

#include "vrmlnodes/VRMLNodebase.h"

class BindableNode : public virtual VRMLNode {
public:
    BindableNode();
    ~BindableNode() override = default;

protected:
    SFBool* isBound;  // borrowed: the node's own eventOut
};

#endif
