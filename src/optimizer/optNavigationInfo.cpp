#include "optimizer/optNavigationInfo.h"

#include <vector>

#include "csNavigationInfo.h"
#include "optimizer/gfx.h"
#include "optimizer/optSceneName.h"

optNavigationInfo::optNavigationInfo(znInternal* pair) : BaseNode(pair), NavigationInfo(pair) {
    info.reset(new csNavigationInfo());
    nameInScene(info.get(), *this, "Unnamed NavigationInfo Node");
}

optNavigationInfo::~optNavigationInfo() = default;

int optNavigationInfo::action(SFTime&, int mode, void* state) {
    if (valuesDirty) {
        if (avatarSize) {
            std::vector<float> sizes;
            avatarSize->getValue(sizes);
            info->setAvatarSize(sizes);
        }
        if (headlight) info->setHeadlight(headlight->getValue() != 0);
        if (speed) info->setSpeed(speed->getValue());
        if (type) info->setTypes(textsOf(type));
        if (visibilityLimit) info->setVisibilityLimit(visibilityLimit->getValue());
        valuesDirty = 0;
    }
    return leafAction(info.get(), mode, state, nullptr, &gfx::bindNavigationInfo);
}
