#include "optimizer/optAnchor.h"

#include "csAnchor.h"
#include "optimizer/optSceneName.h"

optAnchor::optAnchor(znInternal* pair) : BaseNode(pair), Anchor(pair) {
    group = new csAnchor();
    group->ref();
    nameInScene(group, *this, "Unnamed Anchor Node");
}

int optAnchor::action(SFTime& time, int mode, void* state) {
    if (valuesDirty) {
        auto* anchor = static_cast<csAnchor*>(group);
        anchor->setUrl(textsOf(url));
        anchor->setDescription(textOf(description));
        anchor->setParameter(textsOf(parameter));
        valuesDirty = 0;
    }
    return optGroupingNode::action(time, mode, state);
}
