#include "vrmlnodes/IndexedFaceSet.h"

#include <cstring>

namespace {
constexpr size_t kEventPrefixLength = 4;
}  // namespace

IndexedFaceSet::IndexedFaceSet(znInternal* pair)
    : BaseNode(pair),
      IndexedLineSet(pair),
      texCoordIndex(plainField<MFInt32>("texCoordIndex")),
      normalIndex(plainField<MFInt32>("normalIndex")),
      normalPerVertex(sharedField<SFBool>("normalPerVertex")),
      ccw(sharedField<SFBool>("ccw")),
      solid(sharedField<SFBool>("solid")),
      convex(sharedField<SFBool>("convex")),
      creaseAngle(sharedField<SFFloat>("creaseAngle")),
      texCoord(sharedField<SFNode>("texCoord")),
      normal(sharedField<SFNode>("normal")),
      texCoordObject(childOf(texCoord)),
      normalObject(childOf(normal)) {}

IndexedFaceSet::IndexedFaceSet(int)
    : IndexedLineSet(0),
      texCoordIndex(&ownTexCoordIndex),
      normalIndex(&ownNormalIndex),
      normalPerVertex(&ownNormalPerVertex),
      ccw(&ownCcw),
      solid(&ownSolid),
      convex(&ownConvex),
      creaseAngle(&ownCreaseAngle),
      texCoord(&ownTexCoord),
      normal(&ownNormal),
      texCoordObject(nullptr),
      normalObject(nullptr) {}

void IndexedFaceSet::processEvent(Event& event) {
    const char* name = event.getName();
    if (!name) return;
    // Every event of this node begins "set_"; what follows names it.
    if (std::strlen(name) < kEventPrefixLength) return;
    const char* rest = name + kEventPrefixLength;
    if (std::strcmp(rest, "coord") == 0)
        deliver<IndexedLineSet>(this, &IndexedLineSet::set_coord, event);
    else if (std::strcmp(rest, "texCoord") == 0)
        deliver(this, &IndexedFaceSet::set_texCoord, event);
    else if (std::strcmp(rest, "color") == 0)
        deliver<IndexedLineSet>(this, &IndexedLineSet::set_color, event);
    else if (std::strcmp(rest, "normal") == 0)
        deliver(this, &IndexedFaceSet::set_normal, event);
    else if (std::strncmp(rest, "colorIndex", 6) == 0)
        deliver<IndexedLineSet>(this, &IndexedLineSet::set_colorIndex, event);
    else if (std::strncmp(rest, "coordIndex", 6) == 0)
        deliver<IndexedLineSet>(this, &IndexedLineSet::set_coordIndex, event);
    else if (std::strncmp(rest, "normalIndex", 7) == 0)
        deliver(this, &IndexedFaceSet::set_normalIndex, event);
    else if (std::strncmp(rest, "texCoordIndex", 9) == 0)
        deliver(this, &IndexedFaceSet::set_texCoordIndex, event);
}

void IndexedFaceSet::set_texCoord(SFNode& value, double) {
    assign(texCoord, value);
    texCoordObject = childOf(texCoord);
    texCoordDirty = 1;
}

void IndexedFaceSet::set_normal(SFNode& value, double) {
    assign(normal, value);
    normalObject = childOf(normal);
    normalDirty = 1;
}

void IndexedFaceSet::set_normalIndex(MFInt32& value, double) {
    assign(normalIndex, value);
    normalIndexDirty = 1;
}

void IndexedFaceSet::set_texCoordIndex(MFInt32& value, double) {
    assign(texCoordIndex, value);
    texCoordIndexDirty = 1;
}
