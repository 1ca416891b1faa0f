#include "vrmlnodes/BindableNode.h"

BindableNode::BindableNode() : isBound(eventOutField<SFBool>("isBound")) {}
