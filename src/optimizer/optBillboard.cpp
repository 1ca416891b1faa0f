#include "optimizer/optBillboard.h"

#include "csBillboard.h"
#include "optimizer/optSceneName.h"

optBillboard::optBillboard(znInternal* pair) : BaseNode(pair), Billboard(pair) {
    group = new csBillboard();
    group->ref();
    nameInScene(group, *this, "Unnamed Billboard Node");
}

int optBillboard::action(SFTime& time, int mode, void* state) {
    if (valuesDirty && axisOfRotation)
        static_cast<csBillboard*>(group)->setAxisOfRotation(axisOfRotation->getX(), axisOfRotation->getY(),
                                                           axisOfRotation->getZ());
    valuesDirty = 0;
    return optGroupingNode::action(time, mode, state);
}
