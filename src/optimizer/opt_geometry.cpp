#include "optimizer/opt_geometry.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <string>

#include "csAppearance.h"
#include "csGeoSet.h"
#include "csMaterial.h"
#include "csTexture.h"
#include "base/zn_reports.h"
#include "optimizer/optimizer_messages.h"
#include "vrmlnodes/Coordinate.h"

int optCountOf(const std::vector<int>& list) {
    return list.size() > static_cast<size_t>(INT_MAX) ? INT_MAX : static_cast<int>(list.size());
}

void optCopyIndexes(const std::vector<int>& list, csMFInt& out, bool reverse, bool keepTerminators) {
    const int n = std::min(optCountOf(list), out.getCount());
    int next = 0;
    for (int i = 0; i < n; ++i) {
        const int e = list[static_cast<size_t>(reverse ? n - 1 - i : i)];
        if (e != kOptTerminator || keepTerminators) out.set(next++, e);
    }
}

void optPackIndexes(const std::vector<int>& list, bool reverse, csMFInt& indexes, csMFInt& lengths) {
    const int n = optCountOf(list);
    lengths.clear();
    lengths.reserve(static_cast<int>(std::count(list.begin(), list.end(), kOptTerminator)));
    int next = 0, inPrimitive = 0;
    for (int i = 0; i < n; ++i) {
        const int e = list[static_cast<size_t>(reverse ? n - 1 - i : i)];
        if (e != kOptTerminator) {
            indexes.set(next++, e);
            ++inPrimitive;
        } else {
            lengths.append(inPrimitive);
            inPrimitive = 0;
        }
    }
}

csIndexSet* optIdentityIndexSet(int count) {
    auto* identity = new csIndexSet(count);
    for (int i = 0; i < count; ++i) identity->index().set(i, i);
    return identity;
}

const std::vector<int>& optValuesOf(MFInt32* field) {
    static const std::vector<int> none;
    if (!field) return none;
    std::vector<int>* values = nullptr;
    field->getValue(&values);
    return values ? *values : none;
}

int optPointCount(const csCoordSet3f* set, Coordinate* node) {
    if (!set) return 0;
    int count = set->point().getCount();
    if (node && node->getPoint() && node->getPoint()->getSize() < count) count = node->getPoint()->getSize();
    return count;
}

bool optTooFewColours(MFColor* values, Coordinate* coordinate, bool perVertex, int primitives) {
    const int colours = values ? values->getSize() : 0;
    if (!perVertex) return colours < primitives;
    const int points = coordinate && coordinate->getPoint() ? coordinate->getPoint()->getSize() : 0;
    return colours < points;
}

bool optHasRGBTexture(int appearanceHandle) {
    csAppearance* appearance = csObject::fromHandleAs<csAppearance>(appearanceHandle);
    // The appearance has settled whether its texture shows.
    if (!appearance || !appearance->getTexEnable()) return false;
    csTexture* texture = appearance->getTexture();
    return texture && texture->getFormat() == csTexture::RGB;
}

csColorSet4f* optTexturedGrey() {
    auto* grey = new csColorSet4f(1);
    grey->color().set(0, csVec4f(0.8f, 0.8f, 0.8f, 1.0f));
    return grey;
}

void optAlertNoCoordinates(const char* name) {
    const char* text = name ? name : "";
    int size = std::snprintf(nullptr, 0, kGeometryHasNoCoordinates, text);
    if (size < 0) {
        znAlert(kGeometryHasNoCoordinates);
        return;
    }
    std::string out(static_cast<size_t>(size) + 1, '\0');
    std::snprintf(&out[0], out.size(), kGeometryHasNoCoordinates, text);
    out.resize(static_cast<size_t>(size));
    znAlert(out.c_str());
}

void optDrawUnlit(csGeoSet& geometry, csAppearance* appearance, bool ownColours) {
    if (!appearance) return;
    // The appearance turns lighting back on whenever it renews its
    // material, so this is said again on every pass.
    appearance->setLightEnable(0);
    appearance->setTexEnable(0);
    const csMaterial* material = appearance->getMaterial();
    if (ownColours || !material) return;
    const csVec3f black;
    const csVec3f& rgb = material->getEmissiveColor() == black ? material->getDiffuseColor()
                                                               : material->getEmissiveColor();
    const csVec4f wanted(rgb[0], rgb[1], rgb[2], 1.0f);
    const csColorSet4f* shown = geometry.getColorSet();
    if (shown && shown->getCount() > 0 && shown->color().get(0) == wanted &&
        geometry.getColorBind() == csGeoSet::OVERALL)
        return;
    auto* colour = new csColorSet4f(1);
    colour->color().set(0, wanted);
    geometry.setColorSet(colour);
    geometry.setColorBind(csGeoSet::OVERALL);
}
