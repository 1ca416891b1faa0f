#include "optimizer/optElevationGrid.h"

#include <algorithm>
#include <climits>
#include <string>
#include <vector>

#include "base/zn_text.h"
#include "csAppearance.h"
#include "base/zn_reports.h"
#include "optimizer/optSceneName.h"
#include "optimizer/opt_face_builder.h"
#include "optimizer/opt_geometry.h"
#include "optimizer/optimizer_messages.h"
#include "vrmlnodes/Color.h"
#include "vrmlnodes/Normal.h"
#include "vrmlnodes/TextureCoordinate.h"

namespace {

const std::vector<float>& valuesOf(MFFloat* field) {
    static const std::vector<float> none;
    std::vector<float>* values = nullptr;
    if (field) field->getValue(&values);
    return values ? *values : none;
}

}  // namespace

optElevationGrid::optElevationGrid(znInternal* pair) : BaseNode(pair), ElevationGrid(pair) {
    geometry.reset(new csIndexedFaceSet());
    nameInScene(geometry.get(), *this, kUnnamedElevationGrid);
}

int optElevationGrid::action(SFTime& time, int mode, void* state) {
    if (mode == kActionFetch && !built) {
        const auto* record = static_cast<const ActionState*>(state);
        appearanceHandle = record && record->appearance ? record->appearance->getHandle() : 0;
        build(time);
        built = 1;
    } else if (built && (gridDirty || childChanged())) {
        build(time);
    }
    return geometry->getHandle();
}

bool optElevationGrid::childChanged() {
    Color* colours = optNodeBehind<Color>(colorObject);
    Normal* normals = optNodeBehind<Normal>(normalObject);
    TextureCoordinate* texCoords = optNodeBehind<TextureCoordinate>(texCoordObject);
    return (colours && optDirty(colours->getColor())) || (normals && optDirty(normals->getVector())) ||
           (texCoords && optDirty(texCoords->getPoint()));
}

void optElevationGrid::cleanChildren() {
    if (Color* node = optNodeBehind<Color>(colorObject)) optClean(node->getColor());
    if (Normal* node = optNodeBehind<Normal>(normalObject)) optClean(node->getVector());
    if (TextureCoordinate* node = optNodeBehind<TextureCoordinate>(texCoordObject)) optClean(node->getPoint());
}

void optElevationGrid::reportShort(const char* what, int have, int need) {
    znMessage(znFormatText(kGridShortOfValues, sceneName(kUnnamedElevationGrid), have, what, need).c_str());
}

// A grid of fewer heights than points keeps the rows that its heights fill
// whole: a missing height has no value worth guessing.
// A grid too large to number its corners builds nothing.
void optElevationGrid::measure(int& columns, int& rows) {
    columns = xDimension ? std::max(0, xDimension->getValue()) : 0;
    rows = zDimension ? std::max(0, zDimension->getValue()) : 0;
    const long long heights = static_cast<long long>(valuesOf(height).size());
    if (static_cast<long long>(columns) * rows > heights) {
        const int whole = static_cast<int>(heights / columns);
        znMessage(znFormatText(kGridShortOfHeights, sceneName(kUnnamedElevationGrid), static_cast<int>(heights),
                               columns, rows, whole)
                      .c_str());
        rows = whole;
    }
    // Four corners and a terminator for each square.
    if (columns > 1 && rows > 1 && 5LL * (columns - 1) * (rows - 1) > INT_MAX) {
        znMessage(znFormatText(kGridTooLarge, sceneName(kUnnamedElevationGrid), columns, rows).c_str());
        columns = rows = 0;
    }
}

void optElevationGrid::build(SFTime& time) {
    int columns = 0, rows = 0;
    measure(columns, rows);
    const int points = columns * rows;
    const std::vector<float>& heights = valuesOf(height);
    const float dx = xSpacing ? xSpacing->getValue() : 1.0f;
    const float dz = zSpacing ? zSpacing->getValue() : 1.0f;

    auto* coords = new csCoordSet3f(points);
    csMFVec3f& point = coords->point();
    for (int j = 0; j < rows; ++j)
        for (int i = 0; i < columns; ++i) {
            const int k = i + j * columns;
            point.set(k, csVec3f(dx * static_cast<float>(i), heights[static_cast<size_t>(k)], dz * static_cast<float>(j)));
        }
    geometry->setCoordSet(coords);

    // Point (i, j) is number i + j * columns. Seen from above, a square's
    // corners (i, j), (i, j + 1), (i + 1, j + 1), (i + 1, j) run counter-
    // clockwise, so that the grid faces up.
    const int squares = columns > 1 && rows > 1 ? (columns - 1) * (rows - 1) : 0;
    optFaceBuilder faces(optFlag(ccw, true), 5LL * squares);
    for (int j = 0; j + 1 < rows; ++j)
        for (int i = 0; i + 1 < columns; ++i) {
            const int a = i + j * columns;
            faces.quad(a, a + columns, a + columns + 1, a + 1);
        }
    faces.compileFaces(*geometry.get());

    bindColours(time, faces, points);
    bindNormals(time, faces, points);
    bindTexCoords(time, columns, rows);
    geometry->setSolid(optFlag(solid, true) ? 1 : 0);
    // The squares of a grid never fold over seen from above.
    geometry->setConvex(1);
    gridDirty = 0;
    cleanChildren();
}

void optElevationGrid::bindColours(SFTime& time, const optFaceBuilder& faces, int points) {
    geometry->setColorSet(nullptr);
    geometry->setColorIndexSet(nullptr);
    geometry->setColorBind(csGeoSet::OFF);
    if (!colorObject) return;
    if (optHasRGBTexture(appearanceHandle)) {
        geometry->setColorSet(optTexturedGrey());
        geometry->setColorBind(csGeoSet::OVERALL);
        return;
    }
    csColorSet4f* colours = optFetch<csColorSet4f>(colorObject, time);
    if (!colours) return;
    const bool perVertex = optFlag(colorPerVertex, true);
    const int need = perVertex ? points : faces.faceCount();
    if (colours->getCount() < need) {
        reportShort("colours", colours->getCount(), need);
        return;
    }
    geometry->setColorSet(colours);
    geometry->setColorPerVertex(perVertex ? 1 : 0);
    geometry->setColorBind(perVertex ? csGeoSet::PER_VERTEX : csGeoSet::PER_PRIM);
    geometry->setColorIndexSet(perVertex ? geometry->getCoordIndexSet() : optIdentityIndexSet(need));
}

void optElevationGrid::bindNormals(SFTime& time, const optFaceBuilder& faces, int points) {
    csNormalSet3f* normals = optFetch<csNormalSet3f>(normalObject, time);
    const bool perVertex = optFlag(normalPerVertex, true);
    const int need = perVertex ? points : faces.faceCount();
    if (normals && normals->getCount() < need) {
        reportShort("normals", normals->getCount(), need);
        normals = nullptr;
    }
    if (!normals) {
        faces.generateNormals(*geometry.get(), creaseAngle ? creaseAngle->getValue() : 0.0f);
        return;
    }
    geometry->setNormalSet(normals);
    geometry->setNormalPerVertex(perVertex ? 1 : 0);
    geometry->setNormalBind(perVertex ? csGeoSet::PER_VERTEX : csGeoSet::PER_PRIM);
    geometry->setNormalIndexSet(perVertex ? geometry->getCoordIndexSet() : optIdentityIndexSet(need));
}

// Without coordinates of its own the image spans the grid: s from 0 at the
// first column to 1 at the last, t likewise over the rows.
void optElevationGrid::bindTexCoords(SFTime& time, int columns, int rows) {
    const int points = columns * rows;
    csTexCoordSet2f* texCoords = optFetch<csTexCoordSet2f>(texCoordObject, time);
    if (texCoords && texCoords->getCount() < points) {
        reportShort("texture coordinates", texCoords->getCount(), points);
        texCoords = nullptr;
    }
    if (!texCoords) {
        texCoords = new csTexCoordSet2f(points);
        csMFVec2f& out = texCoords->point();
        const float ds = columns > 1 ? 1.0f / static_cast<float>(columns - 1) : 0.0f;
        const float dt = rows > 1 ? 1.0f / static_cast<float>(rows - 1) : 0.0f;
        for (int j = 0; j < rows; ++j)
            for (int i = 0; i < columns; ++i)
                out.set(i + j * columns, csVec2f(ds * static_cast<float>(i), dt * static_cast<float>(j)));
    }
    geometry->setTexCoordSet(texCoords);
    geometry->setTexCoordBind(csGeoSet::TEX_COORD_PER_VERTEX);
    geometry->setTexCoordIndexSet(geometry->getCoordIndexSet());
}
