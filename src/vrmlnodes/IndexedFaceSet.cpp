#include "vrmlnodes/IndexedFaceSet.h"

#include <cstring>

namespace {
constexpr size_t kEventPrefixLength = 4;
}  // namespace

IndexedFaceSet::IndexedFaceSet(znInternal* pair)
    : BaseNode(pair),
      coord(exposedField<SFNode>("coord")),
      texCoord(exposedField<SFNode>("texCoord")),
      color(exposedField<SFNode>("color")),
      normal(exposedField<SFNode>("normal")),
      colorIndex(plainField<MFInt32>("colorIndex")),
      coordIndex(plainField<MFInt32>("coordIndex")),
      normalIndex(plainField<MFInt32>("normalIndex")),
      texCoordIndex(plainField<MFInt32>("texCoordIndex")),
      ccw(plainField<SFBool>("ccw")),
      convex(plainField<SFBool>("convex")),
      creaseAngle(plainField<SFFloat>("creaseAngle")),
      solid(plainField<SFBool>("solid")),
      colorPerVertex(plainField<SFBool>("colorPerVertex")),
      normalPerVertex(plainField<SFBool>("normalPerVertex")),
      coordObject(childOf(coord)),
      texCoordObject(childOf(texCoord)),
      colorObject(childOf(color)),
      normalObject(childOf(normal)) {}

void IndexedFaceSet::processEvent(Event& event) {
    const char* name = event.getName();
    if (!name) return;
    // Every event of this node begins "set_"; what follows names it.
    if (std::strlen(name) < kEventPrefixLength) return;
    const char* rest = name + kEventPrefixLength;
    if (std::strcmp(rest, "coord") == 0)
        deliver(this, &IndexedFaceSet::set_coord, event);
    else if (std::strcmp(rest, "texCoord") == 0)
        deliver(this, &IndexedFaceSet::set_texCoord, event);
    else if (std::strcmp(rest, "color") == 0)
        deliver(this, &IndexedFaceSet::set_color, event);
    else if (std::strcmp(rest, "normal") == 0)
        deliver(this, &IndexedFaceSet::set_normal, event);
    else if (std::strncmp(rest, "colorIndex", 6) == 0)
        deliver(this, &IndexedFaceSet::set_colorIndex, event);
    else if (std::strncmp(rest, "coordIndex", 6) == 0)
        deliver(this, &IndexedFaceSet::set_coordIndex, event);
    else if (std::strncmp(rest, "normalIndex", 7) == 0)
        deliver(this, &IndexedFaceSet::set_normalIndex, event);
    else if (std::strncmp(rest, "texCoordIndex", 9) == 0)
        deliver(this, &IndexedFaceSet::set_texCoordIndex, event);
}

void IndexedFaceSet::set_coord(SFNode& value, double) {
    assign(coord, value);
    coordObject = childOf(coord);
    coordDirty = 1;
}

void IndexedFaceSet::set_texCoord(SFNode& value, double) {
    assign(texCoord, value);
    texCoordObject = childOf(texCoord);
    texCoordDirty = 1;
}

void IndexedFaceSet::set_color(SFNode& value, double) {
    assign(color, value);
    colorObject = childOf(color);
    colorDirty = 1;
}

void IndexedFaceSet::set_normal(SFNode& value, double) {
    assign(normal, value);
    normalObject = childOf(normal);
    normalDirty = 1;
}

void IndexedFaceSet::set_colorIndex(MFInt32& value, double) {
    assign(colorIndex, value);
    colorIndexDirty = 1;
}

void IndexedFaceSet::set_coordIndex(MFInt32& value, double) {
    assign(coordIndex, value);
    coordIndexDirty = 1;
}

void IndexedFaceSet::set_normalIndex(MFInt32& value, double) {
    assign(normalIndex, value);
    normalIndexDirty = 1;
}

void IndexedFaceSet::set_texCoordIndex(MFInt32& value, double) {
    assign(texCoordIndex, value);
    texCoordIndexDirty = 1;
}
