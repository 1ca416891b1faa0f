#include "optimizer/optBillboard.h"

#include "csBillboard.h"

optBillboard::optBillboard(znInternal* pair) : BaseNode(pair), Billboard(pair) {
    group = new csBillboard();
    group->ref();
    group->setName(sceneName("Unnamed Billboard Node"));
}

int optBillboard::action(SFTime& time, int mode, void* state) {
    if (valuesDirty && axisOfRotation)
        static_cast<csBillboard*>(group)->setAxisOfRotation(axisOfRotation->getX(), axisOfRotation->getY(),
                                                           axisOfRotation->getZ());
    valuesDirty = 0;
    return optGroupingNode::action(time, mode, state);
}
