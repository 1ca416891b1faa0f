#include "vrmlnodes/ElevationGrid.h"

#include <cstring>

ElevationGrid::ElevationGrid(znInternal* pair)
    : BaseNode(pair),
      color(exposedField<SFNode>("color")),
      normal(exposedField<SFNode>("normal")),
      texCoord(exposedField<SFNode>("texCoord")),
      height(plainField<MFFloat>("height")),
      ccw(plainField<SFBool>("ccw")),
      colorPerVertex(plainField<SFBool>("colorPerVertex")),
      creaseAngle(plainField<SFFloat>("creaseAngle")),
      normalPerVertex(plainField<SFBool>("normalPerVertex")),
      solid(plainField<SFBool>("solid")),
      xDimension(plainField<SFInt32>("xDimension")),
      xSpacing(plainField<SFFloat>("xSpacing")),
      zDimension(plainField<SFInt32>("zDimension")),
      zSpacing(plainField<SFFloat>("zSpacing")),
      colorObject(childOf(color)),
      normalObject(childOf(normal)),
      texCoordObject(childOf(texCoord)) {}

void ElevationGrid::processEvent(Event& event) {
    const char* name = event.getName();
    if (!name) return;
    if (std::strcmp(name, "set_height") == 0)
        deliver(this, &ElevationGrid::set_height, event);
    else if (std::strcmp(name, "set_color") == 0)
        deliver(this, &ElevationGrid::set_color, event);
    else if (std::strcmp(name, "set_normal") == 0)
        deliver(this, &ElevationGrid::set_normal, event);
    else if (std::strcmp(name, "set_texCoord") == 0)
        deliver(this, &ElevationGrid::set_texCoord, event);
}

void ElevationGrid::set_height(MFFloat& value, double) {
    assign(height, value);
    gridDirty = 1;
}

void ElevationGrid::set_color(SFNode& value, double) {
    assign(color, value);
    colorObject = childOf(color);
    gridDirty = 1;
}

void ElevationGrid::set_normal(SFNode& value, double) {
    assign(normal, value);
    normalObject = childOf(normal);
    gridDirty = 1;
}

void ElevationGrid::set_texCoord(SFNode& value, double) {
    assign(texCoord, value);
    texCoordObject = childOf(texCoord);
    gridDirty = 1;
}
