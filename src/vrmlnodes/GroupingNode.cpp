#include "vrmlnodes/GroupingNode.h"

#include <vector>

GroupingNode::GroupingNode()
    : children(exposedField<MFNode>("children")),
      bboxCenter(sharedField<SFVec3f>("bboxCenter")),
      bboxSize(sharedField<SFVec3f>("bboxSize")) {
    refreshChildObjects();
}

void GroupingNode::refreshChildObjects() {
    childObjects.clear();
    if (children) {
        std::vector<Builtin*> found;
        Builtin::getBuiltin(*children, found);
        childObjects.assign(found.begin(), found.end());
    }
    childrenDirty = 1;
}

void GroupingNode::useChildrenField(MFNode* field) {
    children = field;
    refreshChildObjects();
}

void GroupingNode::set_children(MFNode& value, double) {
    std::vector<BaseNode> entries;
    value.getValue(entries);
    if (children) children->setValue(entries);
    refreshChildObjects();
}

void GroupingNode::addChildren(MFNode& value, double) {
    std::vector<BaseNode> entries;
    value.getValue(entries);
    if (children)
        for (BaseNode& entry : entries) children->addValue(entry);
    refreshChildObjects();
}

void GroupingNode::removeChildren(MFNode& value, double) {
    int count = value.getSize();
    for (int i = 0; i < count && children; ++i)
        if (children->getSize() > 0) children->remove(0);
    refreshChildObjects();
}

bool GroupingNode::dispatchChildren(Event& event, size_t setIndex, char setMark) {
    const char* name = event.getName();
    MFNode* value = eventValue<MFNode>(event);
    if (!name || !value) return false;
    double time = event.getTimeStamp();
    if (nameAt(name, setIndex) == setMark)
        set_children(*value, time);
    else if (name[0] == 'a')
        addChildren(*value, time);
    else if (name[0] == 'r')
        removeChildren(*value, time);
    else
        return false;
    return true;
}
