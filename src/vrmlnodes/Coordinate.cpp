#include "vrmlnodes/Coordinate.h"

Coordinate::Coordinate(znInternal* pair)
    : BaseNode(pair),
      point(exposedField<MFVec3f>("point")) {}

void Coordinate::processEvent(Event& event) {
    const char* name = event.getName();
    if (!name) return;
    if (nameAt(name, 4) == 'p') deliver(this, &Coordinate::set_point, event);
}

void Coordinate::set_point(MFVec3f& value, double) {
    assign(point, value);
    pointDirty = 1;
}
