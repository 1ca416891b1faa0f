#include "optimizer/optLightNode.h"

#include "csLight.h"
#include "optimizer/optSceneName.h"

optLightNode::optLightNode(csLight* made, const char* unnamed) {
    light.reset(made);
    nameInScene(light.get(), *this, unnamed);
}

optLightNode::~optLightNode() = default;

int optLightNode::action(SFTime&, int mode, void* state) {
    if (valuesDirty) {
        if (on) light->setOn(on->getValue() != 0);
        if (intensity) light->setIntensity(intensity->getValue());
        if (ambientIntensity) light->setAmbientIntensity(ambientIntensity->getValue());
        if (color) light->setColor(color->getRed(), color->getGreen(), color->getBlue());
        copyOwnValues();
        valuesDirty = 0;
    }
    return leafAction(light.get(), mode, state, nullptr, nullptr);
}
