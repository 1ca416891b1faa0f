#include "csShape.h"

#include "csAppearance.h"
#include "csGeometry.h"

CS_DEFINE_CLASS_TYPE(csShape, csNode)

void csShape::addGeometry(csGeometry* geometry) {
    if (geometry != nullptr) _geometry.append(geometry);
}

bool csShape::removeGeometry(int index) { return _geometry.removeIndex(index); }

bool csShape::removeGeometry(csGeometry* geometry) { return _geometry.removeIndex(_geometry.find(geometry)); }

csGeometry* csShape::getGeometry(int index) const { return static_cast<csGeometry*>(_geometry.get(index)); }

void csShape::setAppearance(csAppearance* appearance) { _appearance.reset(appearance); }

csField* csShape::getField(short number) {
    if (number == GEOMETRY) return &_geometry;
    return csNode::getField(number);
}
csShape::~csShape() = default;
csShape::csShape() = default;
