#include "optimizer/optBox.h"

#include "optimizer/gfx_opt.h"
#include "optimizer/optSceneName.h"
#include "optimizer/optimizer_messages.h"

namespace {

constexpr int kCorners = 8;
constexpr int kFaces = 6;
constexpr int kCornersPerFace = 4;

// Corner i lies at these signs of the half sizes: the front face (+z)
// first, counter-clockwise from its lower left, then the back face.
constexpr float kCornerSigns[kCorners][3] = {
    {-1, -1, 1}, {1, -1, 1}, {1, 1, 1}, {-1, 1, 1}, {-1, -1, -1}, {1, -1, -1}, {1, 1, -1}, {-1, 1, -1},
};
// Front, back, left, right, top, bottom: corners counter-clockwise seen
// from outside, starting where the image has its lower left.
constexpr int kFaceCorners[kFaces][kCornersPerFace] = {
    {0, 1, 2, 3}, {5, 4, 7, 6}, {4, 0, 3, 7}, {1, 5, 6, 2}, {3, 2, 6, 7}, {4, 5, 1, 0},
};
constexpr float kFaceNormals[kFaces][3] = {
    {0, 0, 1}, {0, 0, -1}, {-1, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, -1, 0},
};
constexpr float kImageCorners[kCornersPerFace][2] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};

// Fills `parts` with what every box has alike.
void makeSharedParts(gfx_opt::BoxParts& parts) {
    auto* normals = new csNormalSet3f(kFaces);
    for (int f = 0; f < kFaces; ++f)
        normals->vector().set(f, csVec3f(kFaceNormals[f][0], kFaceNormals[f][1], kFaceNormals[f][2]));
    parts.normals.reset(normals);

    auto* image = new csTexCoordSet2f(kCornersPerFace);
    for (int c = 0; c < kCornersPerFace; ++c) image->point().set(c, csVec2f(kImageCorners[c][0], kImageCorners[c][1]));
    parts.image.reset(image);

    auto* cornerIndex = new csIndexSet(kFaces * kCornersPerFace);
    auto* normalIndex = new csIndexSet(kFaces * kCornersPerFace);
    auto* imageIndex = new csIndexSet(kFaces * kCornersPerFace);
    for (int f = 0; f < kFaces; ++f)
        for (int c = 0; c < kCornersPerFace; ++c) {
            const int at = f * kCornersPerFace + c;
            cornerIndex->index().set(at, kFaceCorners[f][c]);
            normalIndex->index().set(at, f);
            imageIndex->index().set(at, c);
        }
    parts.cornerIndex.reset(cornerIndex);
    parts.normalIndex.reset(normalIndex);
    parts.imageIndex.reset(imageIndex);
}

}  // namespace

optBox::optBox(znInternal* pair) : BaseNode(pair), Box(pair) {}

void optBox::build() {
    geometry.reset(new csIndexedFaceSet());
    nameInScene(geometry.get(), *this, kUnnamedBox);

    csIndexedFaceSet& box = *geometry.get();
    box.faceLength().reserve(kFaces);
    for (int f = 0; f < kFaces; ++f) box.faceLength().set(f, kCornersPerFace);
    box.setNormalPerVertex(1);
    box.setNormalBind(csGeoSet::PER_VERTEX);
    box.setPrimCount(kFaces);

    // A type without the field stands for the default box of 2 by 2 by 2.
    const float half[3] = {size ? size->getX() / 2.0f : 1.0f, size ? size->getY() / 2.0f : 1.0f,
                           size ? size->getZ() / 2.0f : 1.0f};
    auto* points = new csCoordSet3f(kCorners);
    for (int i = 0; i < kCorners; ++i)
        points->point().set(i, csVec3f(kCornerSigns[i][0] * half[0], kCornerSigns[i][1] * half[1],
                                       kCornerSigns[i][2] * half[2]));
    box.setCoordSet(points);

    // Without the world's graphics interface a box has parts of its own.
    gfx_opt::BoxParts own;
    auto* display = dynamic_cast<gfx_opt*>(getGraphics());
    gfx_opt::BoxParts& parts = display != nullptr ? display->getBoxParts() : own;
    if (!parts.normals) makeSharedParts(parts);
    box.setNormalSet(parts.normals.get());
    box.setTexCoordSet(parts.image.get());
    box.setTexCoordBind(csGeoSet::TEX_COORD_PER_VERTEX);
    box.setCoordIndexSet(parts.cornerIndex.get());
    box.setNormalIndexSet(parts.normalIndex.get());
    box.setTexCoordIndexSet(parts.imageIndex.get());

    built = 1;
}

int optBox::action(SFTime&, int, void*) {
    if (!geometry) build();
    return geometry->getHandle();
}
