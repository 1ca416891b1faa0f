#include "optimizer/optIndexedFaceSet.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "csAppearance.h"
#include "csBoxBound.h"
#include "csTexture.h"
#include "fields/zn_array.h"
#include "optimizer/opt_geometry.h"
#include "optimizer/optimizer_messages.h"
#include "vrmlnodes/Color.h"
#include "vrmlnodes/Coordinate.h"
#include "vrmlnodes/Normal.h"
#include "vrmlnodes/TextureCoordinate.h"

namespace {

// Below this in every component, the cross product of two edges is taken
// for zero: the corner is collinear and gives the face no normal.
constexpr float kCollinear = 0.0001f;
// A texture of three components takes over from per-vertex colours.
const csVec4f kTexturedGrey(0.8f, 0.8f, 0.8f, 1.0f);

// Whether two unit normals lie within the crease angle: acos(dot) at most
// the angle, with the dot product taken in single precision and a product
// beyond [-1, 1] merging nothing. acos falls as the dot product rises, so
// the test is a threshold on the dot product, found once per angle by
// bisection over the floats of [-1, 1]; smoothing then needs no acos.
class CreaseTest {
public:
    explicit CreaseTest(float angle) {
        if (!within(1.0f, angle)) return;  // negative or NaN: nothing merges
        merging = true;
        if (within(-1.0f, angle)) {
            threshold = -1.0f;
            return;
        }
        std::int64_t below = keyOf(-1.0f), atOrAbove = keyOf(1.0f);
        while (atOrAbove - below > 1) {
            std::int64_t middle = below + (atOrAbove - below) / 2;
            if (within(floatOf(middle), angle))
                atOrAbove = middle;
            else
                below = middle;
        }
        threshold = floatOf(atOrAbove);
    }
    bool merges(float dot) const { return merging && dot >= threshold && dot <= 1.0f; }

private:
    static bool within(float dot, float angle) { return std::acos(static_cast<double>(dot)) <= angle; }
    // Floats in their order as integers: -0 and +0 meet at 0.
    static std::int64_t keyOf(float f) {
        std::uint32_t bits;
        std::memcpy(&bits, &f, sizeof bits);
        return (bits & 0x80000000u) ? -static_cast<std::int64_t>(bits & 0x7fffffffu) : static_cast<std::int64_t>(bits);
    }
    static float floatOf(std::int64_t key) {
        std::uint32_t bits = key < 0 ? (0x80000000u | static_cast<std::uint32_t>(-key)) : static_cast<std::uint32_t>(key);
        float f;
        std::memcpy(&f, &bits, sizeof f);
        return f;
    }

    bool merging = false;
    float threshold = 2.0f;
};

// An index of the coordinate list as the normal generator takes it: one
// that names no point is mended to the first point when below -1, else to
// the last.
int mended(int e, int points) {
    if (e < kOptTerminator) return 0;
    if (e >= points) return points - 1;
    return e;
}

}  // namespace

optIndexedFaceSet::optIndexedFaceSet(znInternal* pair) : BaseNode(pair), IndexedFaceSet(pair) { makeGeometry(); }

optIndexedFaceSet::optIndexedFaceSet(int) : IndexedFaceSet(0) { makeGeometry(); }

void optIndexedFaceSet::makeGeometry() {
    geometry.reset(new csIndexedFaceSet());
    geometry->setName(objectName());
}

const char* optIndexedFaceSet::objectName() {
    const char* name = getDefName();
    return name ? name : kUnnamedIndexedFaceSet;
}

bool optIndexedFaceSet::counterClockwise() const { return optFlag(ccw, true); }

bool optIndexedFaceSet::hasRGBTexture() const {
    csAppearance* appearance = csObject::fromHandleAs<csAppearance>(appearanceHandle);
    csTexture* texture = appearance ? appearance->getTexture() : nullptr;
    return texture && texture->getFormat() == csTexture::RGB;
}

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
    auto* grey = new csColorSet4f(1);
    grey->color().set(0, kTexturedGrey);
    geometry->setColorBind(csGeoSet::OVERALL);
    recalcColor(grey);
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

// One normal per corner. Each face takes the normal of its first three
// corners that are not collinear, seen in processing order; then at every
// point the normals of its corners that lie within the crease angle of one
// another are averaged. Corners are bucketed by point, so the work is
// linear in the corners and quadratic only in the corners at one point.
void optIndexedFaceSet::generateNormals() {
    const std::vector<int>& list = optValuesOf(coordIndex);
    const int length = optCountOf(list);
    const int points = pointCount();
    const csVec3f* point = coords ? coords->point().getData() : nullptr;
    auto* normalSet = new csNormalSet3f(length);
    auto* indexSet = new csIndexSet(length);
    normals.reset(normalSet);
    normalIndexSet.reset(indexSet);
    csMFVec3f& normalOut = normalSet->vector();
    csMFInt& indexOut = indexSet->index();

    const bool reverse = !counterClockwise();
    const int walked = (reverse && length > 0 && list[static_cast<size_t>(length - 1)] == kOptTerminator) ? length - 1 : length;
    auto entry = [&](int i) { return list[static_cast<size_t>(reverse ? walked - 1 - i : i)]; };

    // Face normals, and the number of corners at each point.
    std::vector<int> start(static_cast<size_t>(points) + 1, 0);
    int corner = 0;
    int faceStart = 0;   // the face's first corner: its corners so far are faceStart to corner
    int inFace = 0;
    bool hasNormal = false;
    csVec3f faceNormal, triple[3];
    for (int i = 0; i < walked; ++i) {
        int e = entry(i);
        if (e < kOptTerminator || e >= points) {
            std::fprintf(stderr, "%s%d\n", kInvalidIndex, e);
            e = mended(e, points);
        }
        if (e == kOptTerminator) {
            hasNormal = false;
            faceStart = corner;
            inFace = 0;
            continue;
        }
        if (!hasNormal) {
            const csVec3f p = e < points ? point[e] : csVec3f();
            if (inFace < 3) {
                triple[inFace] = p;
            } else {
                triple[0] = triple[1];
                triple[1] = triple[2];
                triple[2] = p;
            }
            if (inFace >= 2) {
                csVec3f a, b;
                a.sub(triple[2], triple[1]);
                a.normalize();
                b.sub(triple[0], triple[1]);
                b.normalize();
                faceNormal.cross(a, b);
                if (std::fabs(faceNormal[0]) >= kCollinear || std::fabs(faceNormal[1]) >= kCollinear ||
                    std::fabs(faceNormal[2]) >= kCollinear) {
                    faceNormal.normalize();
                    hasNormal = true;
                    for (int c = faceStart; c <= corner; ++c) {
                        normalOut.set(c, faceNormal);
                        indexOut.set(c, c);
                    }
                }
            }
        } else {
            normalOut.set(corner, faceNormal);
            indexOut.set(corner, corner);
        }
        if (e < points) ++start[static_cast<size_t>(e) + 1];
        ++corner;
        ++inFace;
    }

    // The corners of each point, in processing order. Walked from the last
    // corner down, each point's end moves back to its start.
    for (int v = 0; v < points; ++v) start[static_cast<size_t>(v) + 1] += start[static_cast<size_t>(v)];
    std::vector<int> cornersAt(static_cast<size_t>(start[static_cast<size_t>(points)]));
    for (int i = walked - 1; i >= 0; --i) {
        int e = entry(i);
        if (e < kOptTerminator || e >= points) e = mended(e, points);
        if (e == kOptTerminator) continue;
        --corner;
        if (e < points) cornersAt[static_cast<size_t>(--start[static_cast<size_t>(e) + 1])] = corner;
    }
    // Point v's corners now run from start[v + 1] to start[v + 2]; shift back.
    start.erase(start.begin());
    start.push_back(static_cast<int>(cornersAt.size()));

    // Smoothing reads the face normals only, never a normal smoothed before.
    const CreaseTest crease(creaseAngle ? creaseAngle->getValue() : 0.0f);
    std::vector<csVec3f> scratch;
    for (int v = 0; v < points; ++v) {
        const int first = start[static_cast<size_t>(v)];
        const int count = start[static_cast<size_t>(v) + 1] - first;
        if (static_cast<int>(scratch.size()) < count) scratch.resize(static_cast<size_t>(count));
        const int* at = cornersAt.data() + first;
        for (int k = 0; k < count; ++k) scratch[static_cast<size_t>(k)] = normalOut.get(at[k]);
        for (int a = 0; a < count; ++a) {
            const csVec3f& own = scratch[static_cast<size_t>(a)];
            csVec3f sum = own;
            for (int b = 0; b < count; ++b)
                if (b != a && crease.merges(own.dot(scratch[static_cast<size_t>(b)])))
                    sum.add(sum, scratch[static_cast<size_t>(b)]);
            sum.normalize();
            normalOut.set(at[a], sum);
        }
    }
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
    znMemoryGuard guard;
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
