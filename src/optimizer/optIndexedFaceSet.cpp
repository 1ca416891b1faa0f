#include "optimizer/optIndexedFaceSet.h"

#include <algorithm>

#include "csAppearance.h"
#include "csBoxBound.h"
#include "csTexture.h"
#include "fields/zn_array.h"
#include "optimizer/optSceneName.h"
#include "optimizer/opt_geometry.h"
#include "optimizer/opt_normals.h"
#include "optimizer/optimizer_messages.h"
#include "vrmlnodes/Color.h"
#include "vrmlnodes/Coordinate.h"
#include "vrmlnodes/Normal.h"
#include "vrmlnodes/TextureCoordinate.h"

optIndexedFaceSet::optIndexedFaceSet(znInternal* pair) : BaseNode(pair), IndexedFaceSet(pair) { makeGeometry(); }

optIndexedFaceSet::optIndexedFaceSet(int) : IndexedFaceSet(0) { makeGeometry(); }

void optIndexedFaceSet::makeGeometry() {
    geometry.reset(new csIndexedFaceSet());
    nameInScene(geometry.get(), *this, kUnnamedIndexedFaceSet);
}

const char* optIndexedFaceSet::objectName() {
    const char* name = getDefName();
    return name ? name : kUnnamedIndexedFaceSet;
}

bool optIndexedFaceSet::counterClockwise() const { return optFlag(ccw, true); }

bool optIndexedFaceSet::hasRGBTexture() const { return optHasRGBTexture(appearanceHandle); }

Coordinate* optIndexedFaceSet::coordNode() const { return optNodeBehind<Coordinate>(coordObject); }
Color* optIndexedFaceSet::colorNode() const { return optNodeBehind<Color>(colorObject); }
TextureCoordinate* optIndexedFaceSet::texCoordNode() const { return optNodeBehind<TextureCoordinate>(texCoordObject); }
Normal* optIndexedFaceSet::normalNode() const { return optNodeBehind<Normal>(normalObject); }

int optIndexedFaceSet::pointCount() const { return optPointCount(coords.get(), coordNode()); }

// ---- Data sets ------------------------------------------------------------------

void optIndexedFaceSet::recalcCoord(csCoordSet3f* set) {
    if (!set) {
        optAlertNoCoordinates(objectName());
        return;
    }
    coords.reset(set);
    geometry->setCoordSet(set);
}

void optIndexedFaceSet::recalcColor(csColorSet4f* set) {
    if (!set) {
        geometry->setColorBind(csGeoSet::OFF);
        return;
    }
    colors.reset(set);
    geometry->setColorSet(set);
}

void optIndexedFaceSet::recalcTexCoord(csTexCoordSet2f* set) {
    if (!set) {
        generateTexCoords();
        return;
    }
    texCoords.reset(set);
    geometry->setTexCoordSet(set);
}

void optIndexedFaceSet::recalcNormal(csNormalSet3f* set) {
    if (!set) {
        generateNormals();
        return;
    }
    normals.reset(set);
    geometry->setNormalSet(set);
}

void optIndexedFaceSet::replaceColorsWithGrey() {
    geometry->setColorBind(csGeoSet::OVERALL);
    recalcColor(optTexturedGrey());
}

// The image spans the longest side of the bound as s and the second longest
// as t, both from the minimum corner, with t scaled to keep the image square.
void optIndexedFaceSet::generateTexCoords() {
    const int count = pointCount();
    texCoords.reset(new csTexCoordSet2f());
    csBoxBound bound;
    geometry->getBoxBound(&bound);
    float size[3];
    for (int axis = 0; axis < 3; ++axis) size[axis] = bound.max[axis] - bound.min[axis];
    // Longest first; on equal sizes the earlier axis stays ahead.
    int order[3] = {0, 1, 2};
    for (int i = 1; i < 3; ++i)
        for (int j = i; j > 0 && size[order[j]] > size[order[j - 1]]; --j) std::swap(order[j], order[j - 1]);
    const int s = order[0], t = order[1];
    if (size[s] > 0.0f && size[t] > 0.0f) {
        csMFVec2f& out = texCoords->point();
        out.setCount(count);
        const csVec3f* points = coords->point().getData();
        const float aspect = size[t] / size[s];
        for (int i = 0; i < count; ++i) {
            const csVec3f& p = points[i];
            out.set(i, csVec2f((p[s] - bound.min[s]) / size[s], ((p[t] - bound.min[t]) / size[t]) * aspect));
        }
    }
    geometry->setTexCoordSet(texCoords.get());
}

// One normal per corner, in sets as long as the index list with its
// terminators.
void optIndexedFaceSet::generateNormals() {
    const std::vector<int>& list = optValuesOf(coordIndex);
    const int length = optCountOf(list);
    auto* normalSet = new csNormalSet3f(length);
    auto* indexSet = new csIndexSet(length);
    normals.reset(normalSet);
    normalIndexSet.reset(indexSet);
    optGenerateNormals(list, !counterClockwise(), coords ? coords->point().getData() : nullptr, pointCount(),
                       creaseAngle ? creaseAngle->getValue() : 0.0f, normalSet->vector(), indexSet->index());
    geometry->setNormalSet(normalSet);
    geometry->setNormalIndexSet(indexSet);
}

// ---- Index lists ------------------------------------------------------------------

// With a false ccw the faces come out reversed, each with its corners
// reversed: the list is walked from its end, behind a leading terminator.
void optIndexedFaceSet::recalcCoordIndex(std::vector<int>* list) {
    if (!list || list->empty()) return;
    const bool reverse = !counterClockwise();
    if (!reverse) {
        if (list->back() != kOptTerminator) list->push_back(kOptTerminator);
    } else {
        if (list->back() == kOptTerminator) list->pop_back();
        list->insert(list->begin(), kOptTerminator);
    }
    auto* set = new csIndexSet(optCountOf(*list));
    coordIndexSet.reset(set);
    optPackIndexes(*list, reverse, set->index(), geometry->faceLength());
    geometry->setCoordIndexSet(set);
    geometry->setPrimCount(geometry->faceLength().getCount());
}

void optIndexedFaceSet::recalcColorIndex(std::vector<int>* list) { recalcBoundIndex(list, Bound::color); }

void optIndexedFaceSet::recalcNormalIndex(std::vector<int>* list) { recalcBoundIndex(list, Bound::normal); }

// Colours and normals bind per face or per vertex by their own flag. With
// no list at all each face takes its own entry; that identity set goes to
// the colour slot for normals too.
void optIndexedFaceSet::recalcBoundIndex(std::vector<int>* list, Bound which) {
    const bool isColor = which == Bound::color;
    if (!list) {
        csIndexSet* identity = optIdentityIndexSet(geometry->getPrimCount());
        if (isColor) {
            geometry->setColorPerVertex(0);
            geometry->setColorBind(csGeoSet::PER_PRIM);
        } else {
            geometry->setNormalPerVertex(0);
            geometry->setNormalBind(csGeoSet::PER_PRIM);
        }
        geometry->setColorIndexSet(identity);
        return;
    }
    if (list->empty()) return;
    const bool perVertex = optFlag(isColor ? colorPerVertex : normalPerVertex, true);
    const bool reverse = !counterClockwise();
    if (!isColor && perVertex && reverse && list->back() == kOptTerminator) list->pop_back();
    auto* set = new csIndexSet(optCountOf(*list));
    (isColor ? colorIndexSet : normalIndexSet).reset(set);
    optCopyIndexes(*list, set->index(), reverse, !perVertex);
    const csGeoSet::BindEnum bind = perVertex ? csGeoSet::PER_VERTEX : csGeoSet::PER_PRIM;
    if (isColor) {
        geometry->setColorPerVertex(perVertex ? 1 : 0);
        geometry->setColorBind(bind);
        geometry->setColorIndexSet(set);
    } else {
        geometry->setNormalPerVertex(perVertex ? 1 : 0);
        geometry->setNormalBind(bind);
        geometry->setNormalIndexSet(set);
    }
}

// Without a list texture coordinates follow the coordinate index set; an
// empty list keeps the present set.
void optIndexedFaceSet::recalcTexCoordIndex(std::vector<int>* list) {
    geometry->setTexCoordBind(csGeoSet::TEX_COORD_PER_VERTEX);
    if (!list) {
        geometry->setTexCoordIndexSet(coordIndexSet.get());
        return;
    }
    if (list->empty()) {
        geometry->setTexCoordIndexSet(texCoordIndexSet.get());
        return;
    }
    auto* set = new csIndexSet(optCountOf(*list));
    texCoordIndexSet.reset(set);
    const bool reverse = !counterClockwise();
    if (reverse && list->back() == kOptTerminator) list->pop_back();
    optCopyIndexes(*list, set->index(), reverse, false);
    geometry->setTexCoordIndexSet(set);
}

// An index field's list, or with an empty field the coordinate list for
// per-vertex binding and none at all for per-face binding.
void optIndexedFaceSet::recalcFromIndexField(MFInt32* field, bool perVertex, Bound which) {
    optBindByIndexField(field, coordIndex, perVertex, [this, which](std::vector<int>* list) { recalcBoundIndex(list, which); });
}

std::vector<int> optIndexedFaceSet::listOrCorners(MFInt32* field) const {
    std::vector<int> list = optListOf(field);
    if (list.empty()) list = optListOf(coordIndex);
    return list;
}

// ---- Building and refreshing ---------------------------------------------------------

// A data set whose flag or node field is dirty is taken again from its node
// and then bound by `indexStep`; without a node it is generated.
template <class Set, class IndexStep>
void optIndexedFaceSet::refreshSet(unsigned char& setDirty, Field* values, Builtin* child,
                                   void (optIndexedFaceSet::*recalc)(Set*), IndexStep indexStep, SFTime& time) {
    if (!setDirty && !optDirty(values)) return;
    if (!child) {
        (this->*recalc)(nullptr);
    } else {
        (this->*recalc)(optFetch<Set>(child, time));
        indexStep();
    }
    setDirty = 0;
    optClean(values);
}

int optIndexedFaceSet::action(SFTime& time, int mode, void* state) {
    if (mode == kActionFetch && !built) build(time, static_cast<const ActionState*>(state));
    // Nothing is refreshed before the first build: it would build the
    // geometry for nobody, and report its faults twice.
    if (built) refresh(time);
    return geometry->getHandle();
}

void optIndexedFaceSet::build(SFTime& time, const ActionState* state) {
    appearanceHandle = state && state->appearance ? state->appearance->getHandle() : 0;
    recalcCoord(optFetch<csCoordSet3f>(coordObject, time));
    if (coords) {
        std::vector<int> corners = optListOf(coordIndex);
        recalcCoordIndex(&corners);

        if (colorObject && hasRGBTexture()) {
            replaceColorsWithGrey();
        } else {
            csColorSet4f* colorSet = optFetch<csColorSet4f>(colorObject, time);
            recalcColor(colorSet);
            if (colorSet) {
                std::vector<int> list = optListOf(colorIndex);
                if (!list.empty())
                    recalcColorIndex(&list);
                else
                    recalcColorIndex(optFlag(colorPerVertex, true) ? &corners : nullptr);
            }
        }

        csTexCoordSet2f* texCoordSet = optFetch<csTexCoordSet2f>(texCoordObject, time);
        recalcTexCoord(texCoordSet);
        std::vector<int> texList = texCoordSet ? optListOf(texCoordIndex) : std::vector<int>();
        recalcTexCoordIndex(texList.empty() ? &corners : &texList);

        csNormalSet3f* normalSet = optFetch<csNormalSet3f>(normalObject, time);
        // Generated normals read the field itself: the copy can go first.
        if (!normalSet) std::vector<int>().swap(corners);
        recalcNormal(normalSet);
        if (normalSet) {
            std::vector<int> list = optListOf(normalIndex);
            if (!list.empty())
                recalcNormalIndex(&list);
            else
                recalcNormalIndex(optFlag(normalPerVertex, true) ? &corners : nullptr);
        }
    }
    geometry->setSolid(optFlag(solid, true) ? 1 : 0);
    geometry->setConvex(optFlag(convex, true) ? 1 : 0);

    built = 1;
    coordDirty = colorDirty = texCoordDirty = normalDirty = 0;
    if (Coordinate* node = coordNode()) optClean(node->getPoint());
    if (Color* node = colorNode()) optClean(node->getColor());
    if (TextureCoordinate* node = texCoordNode()) optClean(node->getPoint());
    if (Normal* node = normalNode()) optClean(node->getVector());
}

// Each step rebuilds one dirty part and then what depends on it, in the
// order coordinates, coordinate index, texture coordinates, colours,
// normals.
void optIndexedFaceSet::refresh(SFTime& time) {
    Coordinate* coordinate = coordNode();
    MFVec3f* points = coordinate ? coordinate->getPoint() : nullptr;
    if (coordDirty || optDirty(points)) {
        recalcCoord(optFetch<csCoordSet3f>(coordObject, time));
        coordDirty = 0;
        optClean(points);
        // What hangs on the shape follows it, unless a change of its own
        // is about to rebuild it from its node.
        Color* color = colorNode();
        if (!colorDirty) {
            if (!colorObject)
                recalcColor(nullptr);
            else
                colorDirty = 1;
        } else if (colorObject && color && !optDirty(color->getColor())) {
            colorDirty = 1;
        }
        TextureCoordinate* texCoordinate = texCoordNode();
        if (!texCoordDirty || (texCoordObject && !(texCoordinate && optDirty(texCoordinate->getPoint()))))
            recalcTexCoord(nullptr);
        Normal* normalValues = normalNode();
        if (!normalDirty || (normalObject && !(normalValues && optDirty(normalValues->getVector()))))
            recalcNormal(nullptr);
    }

    if (coordIndexDirty) {
        std::vector<int> list = optListOf(coordIndex);
        recalcCoordIndex(&list);
        coordIndexDirty = 0;
        if (!colorIndexDirty) recalcColorIndex(nullptr);
        if (!texCoordIndexDirty) recalcTexCoordIndex(nullptr);
        if (!normalIndexDirty) recalcNormalIndex(nullptr);
    }

    // An index list about to be refreshed on its own is left to that step.
    TextureCoordinate* texCoordinate = texCoordNode();
    refreshSet(texCoordDirty, texCoordinate ? texCoordinate->getPoint() : nullptr, texCoordObject,
               &optIndexedFaceSet::recalcTexCoord, [this] {
                   if (texCoordIndexDirty) return;
                   std::vector<int> list = listOrCorners(texCoordIndex);
                   recalcTexCoordIndex(&list);
               }, time);
    if (texCoordIndexDirty) {
        std::vector<int> list = listOrCorners(texCoordIndex);
        recalcTexCoordIndex(&list);
        texCoordIndexDirty = 0;
    }

    refreshColor(time);
    if (colorIndexDirty) {
        recalcFromIndexField(colorIndex, optFlag(colorPerVertex, true), Bound::color);
        colorIndexDirty = 0;
    }

    Normal* normalValues = normalNode();
    refreshSet(normalDirty, normalValues ? normalValues->getVector() : nullptr, normalObject,
               &optIndexedFaceSet::recalcNormal, [this] {
                   if (!normalIndexDirty) recalcFromIndexField(normalIndex, optFlag(normalPerVertex, true), Bound::normal);
               }, time);
    if (normalIndexDirty) {
        recalcFromIndexField(normalIndex, optFlag(normalPerVertex, true), Bound::normal);
        normalIndexDirty = 0;
    }
}

// Too few colours for the binding switch colour off, leaving the set and its
// index as they were until enough come; a three-component texture replaces
// them with grey. New colours bind as a new colour index would.
void optIndexedFaceSet::refreshColor(SFTime& time) {
    Color* color = colorNode();
    MFColor* values = color ? color->getColor() : nullptr;
    if (!colorDirty && !optDirty(values)) return;
    if (!colorObject) {
        recalcColor(nullptr);
    } else if (hasRGBTexture()) {
        replaceColorsWithGrey();
        colorIndexDirty = 0;
    } else {
        const bool perVertex = optFlag(colorPerVertex, true);
        if (optTooFewColours(values, coordNode(), perVertex, geometry->getPrimCount())) {
            geometry->setColorBind(csGeoSet::OFF);
        } else {
            recalcColor(optFetch<csColorSet4f>(colorObject, time));
            if (!colorIndexDirty) recalcFromIndexField(colorIndex, perVertex, Bound::color);
        }
    }
    colorDirty = 0;
    optClean(values);
}
