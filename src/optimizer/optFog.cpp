#include "optimizer/optFog.h"

#include "csFog.h"
#include "optimizer/gfx.h"
#include "optimizer/optSceneName.h"

optFog::optFog(znInternal* pair) : BaseNode(pair), Fog(pair) {
    fog.reset(new csFog());
    nameInScene(fog.get(), *this, "Unnamed Fog Node");
}

optFog::~optFog() = default;

int optFog::action(SFTime&, int mode, void* state) {
    if (valuesDirty) {
        if (color) fog->setColor(color->getRed(), color->getGreen(), color->getBlue());
        if (fogType) fog->setFogType(textOf(fogType));
        if (visibilityRange) fog->setVisibilityRange(visibilityRange->getValue());
        valuesDirty = 0;
    }
    return leafAction(fog.get(), mode, state, nullptr, &gfx::bindFog);
}
