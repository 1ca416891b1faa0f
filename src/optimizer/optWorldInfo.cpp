#include "optimizer/optWorldInfo.h"

#include "csWorldInfo.h"
#include "optimizer/gfx.h"
#include "optimizer/optSceneName.h"

optWorldInfo::optWorldInfo(znInternal* pair) : BaseNode(pair), WorldInfo(pair) {
    worldInfo.reset(new csWorldInfo());
    nameInScene(worldInfo.get(), *this, "Unnamed WorldInfo Node");
    // Both fields are plain: what the file gave stays.
    worldInfo->setTitle(textOf(title));
    worldInfo->setInfo(textsOf(info));
}

optWorldInfo::~optWorldInfo() = default;

int optWorldInfo::action(SFTime&, int mode, void* state) {
    return leafAction(worldInfo.get(), mode, state, nullptr, &gfx::addWorldInfo);
}
