// A node with an ordered list of children.
#ifndef CS_GROUP_H
#define CS_GROUP_H

#include "csNode.h"

class csGroup : public csNode {
    CS_DECLARE_CLASS_TYPE;

    // Field numbers of a group.
    enum { CHILDREN = 2 };

    csGroup() = default;

    // Every insertion goes through insertChild, which refs the child.
    void addChild(csNode* child);
    void insertChild(int index, csNode* child);
    // Removes the first occurrence and unrefs it; false when absent.
    bool removeChild(csNode* child);
    bool removeChild(int index);
    // Cuts the child list to `count` children, unreffing those cut off from
    // the end. The list never grows here: a count at or above the present
    // one changes nothing, and a negative count empties the group.
    void setChildCount(int count);
    // Replaces child `index`; the old child is held until the new one is in.
    bool replaceChild(int index, csNode* child);
    int findChild(const csNode* child) const;
    int getChildCount() const { return _children.getCount(); }
    csNode* getChild(int index) const;

    csField* getField(short number) override;

protected:
    ~csGroup() override = default;

private:
    csMFRef _children;
};

#endif
