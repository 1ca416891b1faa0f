// The back-end half of every node with children: keeps a scene-graph group
// in step with the children field, hands each child the state it needs,
// scopes the first DirectionalLight among the children, and attaches a
// top-level group to the scene root.
#ifndef OPT_GROUPING_NODE_H
#define OPT_GROUPING_NODE_H

#include "vrmlnodes/GroupingNode.h"

class csEnvironment;
class csGroup;
class csNode;

class optGroupingNode : public virtual GroupingNode {
public:
    // Builds or refreshes the group; answers the scoping environment when
    // there is one, else the group.
    int action(SFTime& time, int mode, void* state) override;
    ~optGroupingNode() override;

    csGroup* getGroup() const { return group; }
    csEnvironment* getEnvironment() const { return environment; }

    // Shared with optSwitch, which has the same shape without being a
    // grouping node. The first DirectionalLight among the children lights only the
    // children: a new environment lists it and takes `owner` under it. The
    // one place where that scope is made, for groups and switches alike.
    static csEnvironment* scopeLight(csNode* light, csGroup* owner);
    // Hands `owner` to the graphics interface as a top-level object: a
    // group, or a leaf such as a light that stands at the top of the world.
    static void attachTopLevel(gfx* graphics, csNode* owner);
    // The handle that answers for a built group: its environment, if any.
    static int handleFor(csGroup* owner, csEnvironment* scope);

protected:
    optGroupingNode() = default;

    csGroup* group = nullptr;              // owning one reference; made by the concrete class
    csEnvironment* environment = nullptr;  // owning one reference; null until a light is scoped
    ActionState* state = nullptr;          // owning; made at the first action
    // Whether the children were read from another file, which the state
    // handed to them tells them.
    bool childrenInlined = false;

private:
    void rebuildChildren(SFTime& time);
    void removeAllChildren();
};

#endif
