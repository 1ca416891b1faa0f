// The name a node's scene object carries.
#ifndef OPT_SCENE_NAME_H
#define OPT_SCENE_NAME_H

#include "csObject.h"
#include "vrmlnodes/VRMLNodebase.h"

// Names `object` after the DEF name of `node`, or else by `unnamed`, the
// fixed name of its kind, which must be a literal. The DEF name is copied,
// as the scene outlives the world; the fixed name is shared by every
// object of its kind.
inline void nameInScene(csObject* object, VRMLNode& node, const char* unnamed) {
    if (const char* defined = node.getDefName())
        object->setName(defined);
    else
        object->setStaticName(unnamed);
}

#endif
