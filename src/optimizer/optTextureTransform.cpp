#include "optimizer/optTextureTransform.h"

#include "csAppearance.h"
#include "optimizer/optHandleTable.h"

optTextureTransform::optTextureTransform(znInternal* pair)
    : BaseNode(pair), TextureTransform(pair), matrix(std::make_unique<csMatrix4f>()) {
    matrix->makeIdent();
}

void optTextureTransform::setMatrix() {
    const float cx = center ? center->getX() : 0.0f, cy = center ? center->getY() : 0.0f;
    csMatrix4f& m = *matrix;
    // Each step is multiplied in from the front of the matrix.
    m.makeIdent();
    m.preTrans(cx, cy, 0.0f, m);
    m.preScale(scale ? scale->getX() : 1.0f, scale ? scale->getY() : 1.0f, 1.0f, m);
    m.preRot(0.0f, 0.0f, 1.0f, rotation ? rotation->getValue() : 0.0f, m);
    m.preTrans(-cx, -cy, 0.0f, m);
    m.preTrans(translation ? translation->getX() : 0.0f, translation ? translation->getY() : 0.0f, 0.0f, m);
    transformDirty = 1;
}

int optTextureTransform::action(SFTime&, int mode, void* state) {
    if (mode == kActionFetch && !built) {
        setMatrix();
        built = 1;
    }
    if (transformDirty) {
        auto* record = static_cast<ActionState*>(state);
        if (record && record->appearance) record->appearance->setTexTransform(*matrix);
        transformDirty = 0;
    }
    return optHandleTable::handleOf(matrix.get());
}
