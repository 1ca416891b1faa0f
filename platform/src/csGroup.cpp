#include "csGroup.h"

CS_DEFINE_CLASS_TYPE(csGroup, csNode)

void csGroup::addChild(csNode* child) { insertChild(getChildCount(), child); }

void csGroup::insertChild(int index, csNode* child) {
    if (child == nullptr) return;
    _children.insert(index, child);
}

bool csGroup::removeChild(csNode* child) { return removeChild(findChild(child)); }

bool csGroup::removeChild(int index) { return _children.removeIndex(index); }

void csGroup::setChildCount(int count) {
    if (count < 0) count = 0;
    while (getChildCount() > count) _children.removeIndex(getChildCount() - 1);
}

bool csGroup::replaceChild(int index, csNode* child) {
    if (child == nullptr || index < 0 || index >= getChildCount()) return false;
    _children.set(index, child);
    return true;
}

int csGroup::findChild(const csNode* child) const { return _children.find(child); }

csNode* csGroup::getChild(int index) const {
    return static_cast<csNode*>(_children.get(index));
}

csField* csGroup::getField(short number) {
    if (number == CHILDREN) return &_children;
    return csNode::getField(number);
}
