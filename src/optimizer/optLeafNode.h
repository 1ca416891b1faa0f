// What the back-ends of leaf children that are no geometry share: lights,
// viewpoints, navigation information, backgrounds, fog and world
// information. Each owns one object of the toolkit that stands in the
// scene graph where the node stands; at the top of the world it joins the
// root, where the loader finds top-level lights for the light list.
#ifndef OPT_LEAF_NODE_H
#define OPT_LEAF_NODE_H

#include "vrmlnodes/VRMLNodebase.h"

class csNode;
class gfx;

class optLeafNode : public virtual VRMLNode {
protected:
    optLeafNode() = default;
    ~optLeafNode() override = default;

    // What a node tells the graphics interface about its object: null for
    // nothing.
    using Announce = void (gfx::*)(void*);

    // The action of a leaf. At the first build the object goes to the
    // graphics interface through `list`, and through `bind` unless the node
    // was read through an Inline: what a world binds at its start is its
    // own. A node at the top of the world hangs the object under the root.
    // Answers the object's handle.
    int leafAction(csNode* object, int mode, void* state, Announce list, Announce bind);
};

#endif
