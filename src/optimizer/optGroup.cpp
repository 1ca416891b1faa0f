#include "optimizer/optGroup.h"

#include "csGroup.h"

optGroup::optGroup(znInternal* pair) : BaseNode(pair), Group(pair) {
    group = new csGroup();
    group->ref();
    group->setName(sceneName("Unnamed Group Node"));
}
