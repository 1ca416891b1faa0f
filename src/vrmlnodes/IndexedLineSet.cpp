#include "vrmlnodes/IndexedLineSet.h"

#include <cstring>

IndexedLineSet::IndexedLineSet(znInternal* pair)
    : BaseNode(pair),
      coord(exposedField<SFNode>("coord")),
      color(sharedField<SFNode>("color")),
      colorIndex(plainField<MFInt32>("colorIndex")),
      coordIndex(plainField<MFInt32>("coordIndex")),
      colorPerVertex(sharedField<SFBool>("colorPerVertex")),
      coordObject(childOf(coord)),
      colorObject(childOf(color)) {}

IndexedLineSet::IndexedLineSet(int)
    : coord(&ownCoord),
      color(&ownColor),
      colorIndex(&ownColorIndex),
      coordIndex(&ownCoordIndex),
      colorPerVertex(&ownColorPerVertex),
      coordObject(nullptr),
      colorObject(nullptr) {}

void IndexedLineSet::processEvent(Event& event) {
    const char* name = event.getName();
    if (!name) return;
    if (std::strcmp(name, "set_coord") == 0)
        deliver(this, &IndexedLineSet::set_coord, event);
    else if (std::strcmp(name, "set_color") == 0)
        deliver(this, &IndexedLineSet::set_color, event);
    else if (std::strcmp(name, "set_colorIndex") == 0)
        deliver(this, &IndexedLineSet::set_colorIndex, event);
    else if (std::strcmp(name, "set_coordIndex") == 0)
        deliver(this, &IndexedLineSet::set_coordIndex, event);
}

void IndexedLineSet::set_coord(SFNode& value, double) {
    assign(coord, value);
    coordObject = childOf(coord);
    coordDirty = 1;
}

void IndexedLineSet::set_color(SFNode& value, double) {
    assign(color, value);
    colorObject = childOf(color);
    colorDirty = 1;
}

void IndexedLineSet::set_colorIndex(MFInt32& value, double) {
    assign(colorIndex, value);
    colorIndexDirty = 1;
}

void IndexedLineSet::set_coordIndex(MFInt32& value, double) {
    assign(coordIndex, value);
    coordIndexDirty = 1;
}
