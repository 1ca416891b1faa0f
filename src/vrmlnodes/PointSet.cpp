#include "vrmlnodes/PointSet.h"

PointSet::PointSet(znInternal* pair)
    : BaseNode(pair),
      coord(exposedField<SFNode>("coord")),
      color(exposedField<SFNode>("color")),
      coordObject(childOf(coord)),
      colorObject(childOf(color)) {}

void PointSet::processEvent(Event& event) {
    const char* name = event.getName();
    if (!name) return;
    if (nameAt(name, 6) == 'o')
        deliver(this, &PointSet::set_coord, event);
    else if (nameAt(name, 6) == 'l')
        deliver(this, &PointSet::set_color, event);
}

void PointSet::set_coord(SFNode& value, double) {
    assign(coord, value);
    coordObject = childOf(coord);
    coordDirty = 1;
}

void PointSet::set_color(SFNode& value, double) {
    assign(color, value);
    colorObject = childOf(color);
    colorDirty = 1;
}
