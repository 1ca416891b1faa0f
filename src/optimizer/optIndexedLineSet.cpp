#include "optimizer/optIndexedLineSet.h"

#include "optimizer/optimizer_messages.h"

namespace {
// Lines are drawn this many pixels wide.
constexpr float kLineWidth = 3.0f;
}  // namespace

optIndexedLineSet::optIndexedLineSet(znInternal* pair)
    : BaseNode(pair), optUnlitGeometry(pair, kUnnamedIndexedLineSet) {}

// ---- Data sets and index lists ---------------------------------------------------

void optIndexedLineSet::recalcCoord(csCoordSet3f* set) { takeCoords(set); }

void optIndexedLineSet::recalcColor(csColorSet4f* set) { takeColours(set); }

// A line has no winding: the list is packed as it stands.
void optIndexedLineSet::recalcCoordIndex(std::vector<int>* list) {
    if (!list || list->empty()) return;
    if (list->back() != kOptTerminator) list->push_back(kOptTerminator);
    auto* set = new csIndexSet(optCountOf(*list));
    coordIndexSet.reset(set);
    optPackIndexes(*list, false, set->index(), geometry->stripLength());
    geometry->setCoordIndexSet(set);
    geometry->setPrimCount(geometry->stripLength().getCount());
}

// Per vertex the list less its terminators names a colour for each point;
// per line it names one for each line, terminators kept in their places.
// With no list at all each line takes its own colour.
void optIndexedLineSet::recalcColorIndex(std::vector<int>* list) {
    if (!list) {
        geometry->setColorPerVertex(0);
        geometry->setColorBind(csGeoSet::PER_PRIM);
        geometry->setColorIndexSet(optIdentityIndexSet(geometry->getPrimCount()));
        return;
    }
    if (list->empty()) return;
    const bool perVertex = optFlag(colorPerVertex, true);
    auto* set = new csIndexSet(optCountOf(*list));
    colorIndexSet.reset(set);
    optCopyIndexes(*list, set->index(), false, !perVertex);
    geometry->setColorPerVertex(perVertex ? 1 : 0);
    geometry->setColorBind(perVertex ? csGeoSet::PER_VERTEX : csGeoSet::PER_PRIM);
    geometry->setColorIndexSet(set);
}

void optIndexedLineSet::bindColours() {
    optBindByIndexField(colorIndex, coordIndex, optFlag(colorPerVertex, true),
                        [this](std::vector<int>* list) { recalcColorIndex(list); });
}

// ---- Building and refreshing -----------------------------------------------------

void optIndexedLineSet::build(SFTime& time) {
    recalcCoord(optFetch<csCoordSet3f>(coordObject, time));
    std::vector<int> corners = optListOf(coordIndex);
    recalcCoordIndex(&corners);
    if (coords) {
        recalcColor(optFetch<csColorSet4f>(colorObject, time));
        if (colors) bindColours();
    }
    geometry->setWidth(kLineWidth);
    colorIndexDirty = coordIndexDirty = 0;
}

// Coordinates, then the coordinate index, then colours and their index:
// each step marks what depends on it for the steps after it.
void optIndexedLineSet::refresh(SFTime& time) {
    refreshCoords(time);
    if (coordIndexDirty) {
        std::vector<int> list = optListOf(coordIndex);
        recalcCoordIndex(&list);
        coordIndexDirty = 0;
        if (colors) colorIndexDirty = 1;
    }
    refreshColor(time);
    if (colorIndexDirty) {
        if (colors) bindColours();
        colorIndexDirty = 0;
    }
}

// Too few colours for the binding switch colour off, leaving the set as it
// was until enough come.
void optIndexedLineSet::refreshColor(SFTime& time) {
    Color* color = colorNode();
    MFColor* values = color ? color->getColor() : nullptr;
    if (!colorDirty && !optDirty(values)) return;
    if (!colorObject) {
        recalcColor(nullptr);
    } else if (optTooFewColours(values, coordNode(), optFlag(colorPerVertex, true), geometry->getPrimCount())) {
        geometry->setColorBind(csGeoSet::OFF);
    } else {
        recalcColor(optFetch<csColorSet4f>(colorObject, time));
        if (colors) colorIndexDirty = 1;
    }
    colorDirty = 0;
    optClean(values);
}
