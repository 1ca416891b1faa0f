#include "optimizer/optPointSet.h"

#include "optimizer/optimizer_messages.h"

optPointSet::optPointSet(znInternal* pair) : BaseNode(pair), optUnlitGeometry(pair, kUnnamedPointSet) {}

// One point for each value of the coordinate node.
void optPointSet::coordsTaken() { geometry->setPrimCount(optPointCount(coords.get(), coordNode())); }

void optPointSet::recalcColor(csColorSet4f* set) {
    takeColours(set);
    if (set) geometry->setColorBind(csGeoSet::PER_VERTEX);
}

// Each point takes the colour of its own number. A Color node with fewer
// colours than there are points gives the point set no colours of its own,
// as none does.
void optPointSet::takeColoursFromNode(SFTime& time) {
    csColorSet4f* set = optFetch<csColorSet4f>(colorObject, time);
    Color* color = colorNode();
    // The node's set is never cut when its field shrinks: the field counts.
    const int count = color && color->getColor() ? color->getColor()->getSize() : (set ? set->getCount() : 0);
    recalcColor(count < geometry->getPrimCount() ? nullptr : set);
}

void optPointSet::build(SFTime& time) {
    recalcCoord(optFetch<csCoordSet3f>(coordObject, time));
    if (coords) takeColoursFromNode(time);
}

void optPointSet::refresh(SFTime& time) {
    refreshCoords(time);
    Color* color = colorNode();
    MFColor* values = color ? color->getColor() : nullptr;
    if (!colorDirty && !optDirty(values)) return;
    takeColoursFromNode(time);
    colorDirty = 0;
    optClean(values);
}
