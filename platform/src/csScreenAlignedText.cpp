#include "csScreenAlignedText.h"

CS_DEFINE_CLASS_TYPE(csScreenAlignedText, csGeometry)

void csScreenAlignedText::getBoxBound(csBoxBound* bound) const {
    if (bound == nullptr) return;
    bound->makeEmpty();
    bound->extendBy(csVec3f(0.0f, 0.0f, 0.0f));
}
