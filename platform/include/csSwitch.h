// A group that shows at most one of its children.
#ifndef CS_SWITCH_H
#define CS_SWITCH_H

#include "csGroup.h"

class csSwitch : public csGroup {
    CS_DECLARE_CLASS_TYPE;

    enum { NO_CHILDREN = -1 };

    csSwitch() = default;

    // -1 selects no child. A number at or beyond the child count is kept as
    // it stands and selects nothing until that many children exist.
    void setWhichChild(int index) { _whichChild = index; }
    int getWhichChild() const { return _whichChild; }
    // The child that shows, or null.
    csNode* getSelectedChild() const { return getChild(_whichChild); }

protected:
    ~csSwitch() override = default;

private:
    int _whichChild = NO_CHILDREN;
};

#endif
