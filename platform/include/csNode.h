// Base of everything that can stand in a scene graph.
#ifndef CS_NODE_H
#define CS_NODE_H

#include "csContainer.h"

class csNode : public csContainer {
    CS_DECLARE_CLASS_TYPE;

protected:
    csNode() = default;
    ~csNode() override = default;
};

#endif
