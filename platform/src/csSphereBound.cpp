#include "csSphereBound.h"

void csSphereBound::makeEmpty() {
    center.set(0.0f, 0.0f, 0.0f);
    radius = -1.0f;
}

void csSphereBound::extendBy(const csVec3f& point) {
    if (isEmpty()) {
        center = point;
        radius = 0.0f;
        return;
    }
    csVec3f d;
    d.sub(point, center);
    float dist = d.length();
    if (dist <= radius) return;
    // The new sphere touches the far side of the old one and the point.
    float newRadius = 0.5f * (radius + dist);
    float shift = (newRadius - radius) / dist;
    for (int i = 0; i < 3; ++i) center[i] += d[i] * shift;
    radius = newRadius;
}

bool csSphereBound::contains(const csVec3f& point) const {
    if (isEmpty()) return false;
    csVec3f d;
    d.sub(point, center);
    return d.length() <= radius;
}
