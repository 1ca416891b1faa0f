#include "optimizer/optViewpoint.h"

#include "csViewpoint.h"
#include "optimizer/gfx.h"
#include "optimizer/optSceneName.h"

optViewpoint::optViewpoint(znInternal* pair) : BaseNode(pair), Viewpoint(pair) {
    viewpoint.reset(new csViewpoint());
    nameInScene(viewpoint.get(), *this, "Unnamed Viewpoint Node");
    // description is a plain field: what the file gave stays.
    viewpoint->setDescription(textOf(description.get()));
}

optViewpoint::~optViewpoint() = default;

int optViewpoint::action(SFTime&, int mode, void* state) {
    if (valuesDirty) {
        if (position) viewpoint->setPosition(position->getX(), position->getY(), position->getZ());
        if (orientation)
            viewpoint->setOrientation(orientation->getAxisX(), orientation->getAxisY(), orientation->getAxisZ(),
                                      orientation->getRotation());
        if (fieldOfView) viewpoint->setFieldOfView(fieldOfView->getValue());
        if (jump) viewpoint->setJump(jump->getValue() != 0);
        valuesDirty = 0;
    }
    return leafAction(viewpoint.get(), mode, state, &gfx::addViewpoint, &gfx::bindViewpoint);
}
