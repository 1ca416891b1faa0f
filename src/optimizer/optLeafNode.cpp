#include "optimizer/optLeafNode.h"

#include "csNode.h"
#include "optimizer/gfx.h"
#include "optimizer/optGroupingNode.h"
#include "optimizer/optHandleTable.h"

int optLeafNode::leafAction(csNode* object, int mode, void* state, Announce list, Announce bind) {
    if (!built) {
        if (graphics && list) (graphics->*list)(object);
        if (graphics && bind && !isInlined(state)) (graphics->*bind)(object);
        if (mode == kActionTopLevel) optGroupingNode::attachTopLevel(graphics, object);
        built = 1;
    }
    return optHandleTable::handleOf(object);
}
