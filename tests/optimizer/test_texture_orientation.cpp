// Textures land the right way up. A picture of four coloured quadrants goes
// on faces whose texture coordinates put its bottom left at their bottom
// left: from a PNG file, from the image cache, and from a PixelTexture,
// which lists its rows from the bottom. Each corner of a face must show the
// quadrant of the picture that lies at that corner.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "csAppearance.h"
#include "csIndexedFaceSet.h"
#include "csTexture.h"
#include "csTransform.h"
#include "opCylinder.h"
#include "png_files.h"
#include "scene_world.h"

using wrltest::SceneLoad;

namespace {

enum Quadrant { kTopLeft = 0, kTopRight = 1, kBottomLeft = 2, kBottomRight = 3 };
const unsigned char kQuadrantRgb[4][3] = {{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 255}};

// The picture as a file stores it, top row first: red, green / blue, white.
std::vector<unsigned char> pictureBytes() {
    std::vector<unsigned char> bytes;
    for (Quadrant q : {kTopLeft, kTopRight, kBottomLeft, kBottomRight})
        bytes.insert(bytes.end(), kQuadrantRgb[q], kQuadrantRgb[q] + 3);
    return bytes;
}

// The same picture as a world writes it, bottom row first.
const char* const kPixelPicture = "PixelTexture { image 2 2 3 0x0000FF 0xFFFFFF 0xFF0000 0x00FF00 "
                                  "repeatS FALSE repeatT FALSE }";

int quadrantAt(const std::uint8_t* texel) {
    if (texel == nullptr) return -1;
    for (int q = 0; q < 4; ++q)
        if (texel[0] == kQuadrantRgb[q][0] && texel[1] == kQuadrantRgb[q][1] && texel[2] == kQuadrantRgb[q][2])
            return q;
    return -1;
}

Quadrant cornerAt(float x, float y) {
    if (y > 0) return x > 0 ? kTopRight : kTopLeft;
    return x > 0 ? kBottomRight : kBottomLeft;
}

std::string shape(const std::string& texture, const std::string& geometry) {
    return "Shape { appearance Appearance { texture " + texture + " } geometry " + geometry + " }\n";
}

const char* const kSquare =
    "IndexedFaceSet { coord Coordinate { point [ -1 -1 0, 1 -1 0, 1 1 0, -1 1 0 ] } coordIndex [ 0 1 2 3 ]"
    " texCoord TextureCoordinate { point [ 0 0, 1 0, 1 1, 0 1 ] } }";

// The corners that the faces use; the index sets may hold more entries.
int cornerCount(const csIndexedFaceSet& faces) {
    int count = 0;
    for (int f = 0; f < faces.faceLength().getCount(); ++f) count += faces.faceLength().get(f);
    return count;
}

csTexture* textureOf(csEnvironment* scene, int index) {
    opRep* rep = wrltest::shapeAt(scene, index);
    return rep && rep->getAppearance() ? rep->getAppearance()->getTexture() : nullptr;
}

// Every corner of the face set's faces that looks along +z (all of a flat
// square, the front of a box) against the quadrant it shows.
void expectUpright(csEnvironment* scene, int index) {
    auto* faces = wrltest::geometryAt<csIndexedFaceSet>(scene, index);
    csTexture* texture = textureOf(scene, index);
    ASSERT_NE(faces, nullptr);
    ASSERT_NE(texture, nullptr);
    ASSERT_TRUE(texture->hasImage());
    const csMFInt& corners = faces->getCoordIndexSet()->index();
    const csMFInt& imageCorners = faces->getTexCoordIndexSet()->index();
    int seen = 0;
    for (int k = 0; k < cornerCount(*faces); ++k) {
        csVec3f p = faces->getCoordSet()->point().get(corners.get(k));
        csVec3f n = faces->getNormalSet()->vector().get(faces->getNormalIndexSet()->index().get(k));
        if (n[2] < 0.99f) continue;
        csVec2f st = faces->getTexCoordSet()->point().get(imageCorners.get(k));
        SCOPED_TRACE(testing::Message() << "corner " << p[0] << " " << p[1] << " at " << st[0] << " " << st[1]);
        EXPECT_EQ(quadrantAt(texture->texel(st[0], st[1])), cornerAt(p[0], p[1]));
        ++seen;
    }
    EXPECT_EQ(seen, 4);
}

}  // namespace

TEST(TextureOrientation, PictureStandsUprightOnFacesFromFileCacheAndPixels) {
    SceneLoad world;
    wrltest::ScopedEnv caching("ZN_CACHE_IMAGES", nullptr);
    wrltest::writePngBytes(world.directory() + "/upright.png", 2, 2, 3, pictureBytes());
    const std::string file = "ImageTexture { url \"upright.png\" repeatS FALSE repeatT FALSE }";
    csEnvironment* scene = world.load(shape(file, kSquare) + shape(file, kSquare) +  // the second from the cache
                                      shape(kPixelPicture, kSquare) + shape(file, "Box { }") +
                                      shape(kPixelPicture, "Box { }"));
    ASSERT_NE(scene, nullptr) << world.lastErrors();
    for (int i = 0; i < 5; ++i) {
        SCOPED_TRACE(i);
        expectUpright(scene, i);
    }
    EXPECT_NE(textureOf(scene, 0)->getImage(), textureOf(scene, 1)->getImage()) << "a copy from the cache";
}

// The side of a cylinder: its top shows the top of the picture, its left
// (seen from the front) the left of it.
TEST(TextureOrientation, PictureStandsUprightOnTheSideOfACylinder) {
    SceneLoad world;
    csEnvironment* scene = world.load(shape(kPixelPicture, "Cylinder { top FALSE bottom FALSE }"));
    csTransform* axis = wrltest::axisAt(scene);
    auto* faces = wrltest::geometryAt<csIndexedFaceSet>(scene);
    csTexture* texture = textureOf(scene, 0);
    ASSERT_NE(faces, nullptr) << world.lastErrors();
    ASSERT_NE(texture, nullptr);
    const csMFInt& corners = faces->getCoordIndexSet()->index();
    int seen = 0;
    for (int k = 0; k < cornerCount(*faces); ++k) {
        csVec3f p = axis->getMatrix().xformPt(faces->getCoordSet()->point().get(corners.get(k)));
        // The front half, away from the middle where the picture's halves meet.
        if (p[2] < 0.5f || std::fabs(p[0]) < 0.1f) continue;
        csVec2f st = faces->getTexCoordSet()->point().get(faces->getTexCoordIndexSet()->index().get(k));
        SCOPED_TRACE(testing::Message() << "corner " << p[0] << " " << p[1] << " at " << st[0] << " " << st[1]);
        EXPECT_EQ(quadrantAt(texture->texel(st[0], st[1])), cornerAt(p[0], p[1]));
        ++seen;
    }
    EXPECT_GT(seen, 4);
}
