#include "optimizer/optBackground.h"

#include <vector>

#include "csBackground.h"
#include "optimizer/gfx.h"
#include "optimizer/optSceneName.h"
#include "optimizer/opt_set_fill.h"

namespace {

std::vector<float> numbersOf(MFFloat* field) {
    std::vector<float> numbers;
    if (field) field->getValue(numbers);
    return numbers;
}

std::vector<csVec3f> coloursOf(MFColor* field) {
    std::vector<csVec3f> colours;
    std::vector<_znArray<float>>* values = nullptr;
    if (field) field->getValue(&values);
    if (values)
        for (const _znArray<float>& c : *values)
            colours.emplace_back(optComponent(c, 0), optComponent(c, 1), optComponent(c, 2));
    return colours;
}

}  // namespace

optBackground::optBackground(znInternal* pair) : BaseNode(pair), Background(pair) {
    background.reset(new csBackground());
    nameInScene(background.get(), *this, "Unnamed Background Node");
}

optBackground::~optBackground() = default;

int optBackground::action(SFTime&, int mode, void* state) {
    if (valuesDirty) {
        background->setGroundAngles(numbersOf(groundAngle));
        background->setGroundColors(coloursOf(groundColor));
        background->setSkyAngles(numbersOf(skyAngle));
        if (skyColor) background->setSkyColors(coloursOf(skyColor));
        background->setUrl(csBackground::BACK, textsOf(backUrl));
        background->setUrl(csBackground::BOTTOM, textsOf(bottomUrl));
        background->setUrl(csBackground::FRONT, textsOf(frontUrl));
        background->setUrl(csBackground::LEFT, textsOf(leftUrl));
        background->setUrl(csBackground::RIGHT, textsOf(rightUrl));
        background->setUrl(csBackground::TOP, textsOf(topUrl));
        valuesDirty = 0;
    }
    return leafAction(background.get(), mode, state, nullptr, &gfx::bindBackground);
}
