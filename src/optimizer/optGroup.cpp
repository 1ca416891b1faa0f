#include "optimizer/optGroup.h"

#include "csGroup.h"
#include "optimizer/optSceneName.h"

optGroup::optGroup(znInternal* pair) : BaseNode(pair), Group(pair) {
    group = new csGroup();
    group->ref();
    nameInScene(group, *this, "Unnamed Group Node");
}
