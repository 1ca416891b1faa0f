#include "optimizer/optTransform.h"

#include "csTransform.h"
#include "optimizer/optSceneName.h"

optTransform::optTransform(znInternal* pair) : BaseNode(pair), Transform(pair) {
    group = new csTransform();
    group->ref();
    nameInScene(group, *this, "Unnamed Transform Node");
    // The parsed values reach the fields without passing a setter: the first
    // action must copy them as it would copy a change.
    transformDirty = 1;
}

int optTransform::action(SFTime& time, int mode, void* state) {
    if (transformDirty) {
        auto* transform = static_cast<csTransform*>(group);
        if (translation) transform->setTranslation(translation->getX(), translation->getY(), translation->getZ());
        if (rotation)
            transform->setRotation(rotation->getAxisX(), rotation->getAxisY(), rotation->getAxisZ(),
                                   rotation->getRotation());
        if (scale) transform->setScale(scale->getX(), scale->getY(), scale->getZ());
        if (scaleOrientation)
            transform->setScaleOrientation(scaleOrientation->getAxisX(), scaleOrientation->getAxisY(),
                                           scaleOrientation->getAxisZ(), scaleOrientation->getRotation());
        if (center) transform->setCenter(center->getX(), center->getY(), center->getZ());
        transformDirty = 0;
    }
    return optGroupingNode::action(time, mode, state);
}
