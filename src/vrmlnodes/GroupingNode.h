// What every node with children shares: the children field, the list of
// their built-in objects, and the three children events.
#ifndef GROUPINGNODE_H
#define GROUPINGNODE_H

#include <list>

#include "vrmlnodes/VRMLNodebase.h"

class GroupingNode : public virtual VRMLNode {
public:
    GroupingNode();
    virtual void set_children(MFNode& value, double time);
    virtual void addChildren(MFNode& value, double time);
    // Removes as many children as `value` holds, from the front, whichever
    // nodes it names.
    virtual void removeChildren(MFNode& value, double time);
    ~GroupingNode() override = default;

    const std::list<Builtin*>& getChildObjects() const { return childObjects; }
    int areChildrenDirty() const { return childrenDirty; }
    void cleanChildren() { childrenDirty = 0; }

protected:
    // The three children events by single characters of their names:
    // set_children has `setMark` at character `setIndex`, and add and remove
    // are told apart by the first character. False when none matched.
    bool dispatchChildren(Event& event, size_t setIndex, char setMark);
    // For a node whose children stand in a field of another name, or in a
    // list of its own: takes them from `field` from now on.
    void useChildrenField(MFNode* field);

    MFNode* children;    // borrowed: the node's own field
    NodeField<SFVec3f> bboxCenter;
    NodeField<SFVec3f> bboxSize;
    std::list<Builtin*> childObjects;  // borrowed: the children's built-ins
    unsigned char childrenDirty = 1;

private:
    void refreshChildObjects();
};

#endif
