#include "vrmlnodes/Transform.h"

Transform::Transform(znInternal* pair)
    : BaseNode(pair),
      center(exposedField<SFVec3f>("center")),
      rotation(exposedField<SFRotation>("rotation")),
      scale(exposedField<SFVec3f>("scale")),
      scaleOrientation(exposedField<SFRotation>("scaleOrientation")),
      translation(exposedField<SFVec3f>("translation")) {}

void Transform::processEvent(Event& event) {
    const char* name = event.getName();
    if (!name) return;
    if (nameAt(name, 4) == 't')
        deliver(this, &Transform::set_translation, event);
    else if (nameAt(name, 4) == 'r')
        deliver(this, &Transform::set_rotation, event);
    else if (nameAt(name, 9) == '\0')
        deliver(this, &Transform::set_scale, event);
    else if (nameAt(name, 9) == 'O')
        deliver(this, &Transform::set_scaleOrientation, event);
    else if (nameAt(name, 6) == 'n')
        deliver(this, &Transform::set_center, event);
    else
        dispatchChildren(event, 5, 'h');
}

void Transform::set_translation(SFVec3f& value, double) {
    assign(translation, value);
    transformDirty = 1;
}

void Transform::set_rotation(SFRotation& value, double) {
    assign(rotation, value);
    transformDirty = 1;
}

void Transform::set_scale(SFVec3f& value, double) {
    assign(scale, value);
    transformDirty = 1;
}

void Transform::set_scaleOrientation(SFRotation& value, double) {
    assign(scaleOrientation, value);
    transformDirty = 1;
}

void Transform::set_center(SFVec3f& value, double) {
    assign(center, value);
    transformDirty = 1;
}
