#include "csGeoSet.h"

CS_DEFINE_CLASS_TYPE(csGeoSet, csGeometry)

void csGeoSet::getBoxBound(csBoxBound* bound) const {
    if (bound == nullptr) return;
    bound->makeEmpty();
    if (!_coords) return;
    const csMFVec3f& points = _coords->point();
    const csVec3f* data = points.getData();
    for (int i = 0; i < points.getCount(); ++i) bound->extendBy(data[i]);
}
