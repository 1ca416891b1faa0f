#include "optimizer/optText.h"

#include "csAppearance.h"
#include "csMaterial.h"
#include "csScreenAlignedText.h"
#include "csString.h"
#include "optimizer/optFontStyle.h"
#include "optimizer/optHandleTable.h"
#include "optimizer/optSceneName.h"

namespace {

// What a text without a FontStyle shows in.
constexpr int kDefaultFace = 0;
constexpr int kDefaultSize = 50;

}  // namespace

optText::optText(znInternal* pair) : BaseNode(pair), Text(pair) {
    text.reset(new csScreenAlignedText());
    nameInScene(text.get(), *this, "Unnamed Text Node");
}

optText::~optText() = default;

int optText::action(SFTime& time, int, void* state) {
    if (stringDirty) {
        text->setText(csString(joinedText));
        stringDirty = 0;
    }
    if (fontStyleDirty) {
        applyFontStyle(time);
        fontStyleDirty = 0;
    }
    // The colour is taken once, at the first call that hands down a state:
    // a shape's state carries its appearance. A call without a state (the
    // text at the top of a world) leaves it for later.
    auto* record = static_cast<ActionState*>(state);
    if (record && !coloured) {
        if (record->appearance) colourFrom(record->appearance);
        coloured = 1;
    }
    built = 1;
    return optHandleTable::handleOf(text.get());
}

// A fontStyle field that holds a node of another type counts as none.
void optText::applyFontStyle(SFTime& time) {
    auto* style = fontStyleObject ? dynamic_cast<optFontStyle*>(fontStyleObject->getCPPScript()) : nullptr;
    if (!style) {
        text->setFace(kDefaultFace);
        text->setSize(kDefaultSize);
        return;
    }
    optFontStyle::Target target(text.get());
    fontStyleObject->action(time, kActionFetch, text.get());
}

void optText::colourFrom(csAppearance* appearance) {
    appearance->setLightEnable(0);
    csMaterial* material = appearance->getMaterial();
    if (!material) return;
    float r = 0.0f, g = 0.0f, b = 0.0f;
    material->getEmissiveColor(&r, &g, &b);
    if (r == 0.0f && g == 0.0f && b == 0.0f) material->getDiffuseColor(&r, &g, &b);
    text->setColor(r, g, b, 1.0f);
}
