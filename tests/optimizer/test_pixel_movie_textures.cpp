// PixelTexture: the node's pixels become the texture's image, rows turned
// top down, one to four components, repeat modes, and images that are not
// whole. MovieTexture keeps its movie and says once that it shows none.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "csAppearance.h"
#include "csImage.h"
#include "csMaterial.h"
#include "csMovieTexture.h"
#include "opRep.h"
#include "scene_world.h"
#include "url_test_server.h"

using testing::ElementsAre;
using testing::HasSubstr;
using wrltest::SceneLoad;

namespace {

std::vector<int> bytesOf(const csImage* image) {
    const csMFByte& field = image->pixels();
    return std::vector<int>(field.getData(), field.getData() + field.getCount());
}

csAppearance* appearanceAt(csEnvironment* scene, int index) {
    opRep* rep = wrltest::shapeAt(scene, index);
    return rep ? rep->getAppearance() : nullptr;
}

csTexture* textureAt(csEnvironment* scene, int index) {
    csAppearance* look = appearanceAt(scene, index);
    return look ? look->getTexture() : nullptr;
}

std::string shapeWith(const std::string& texture) {
    return "Shape { appearance Appearance { material Material { } texture " + texture + " } geometry Box { } }\n";
}

}  // namespace

TEST(optPixelTexture, TwoByThreePixelsGiveATwoByThreeImageTopRowFirst) {
    SceneLoad world;
    csEnvironment* scene = world.load(shapeWith("DEF P PixelTexture { image 2 3 1 0x00 0x11 0x22 0x33 0x44 0x55 repeatS FALSE }"));
    csTexture* texture = textureAt(scene, 0);
    ASSERT_NE(texture, nullptr);
    EXPECT_STREQ(texture->getName(), "P");
    const csImage* image = texture->getImage();
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->getWidth(), 2);
    EXPECT_EQ(image->getHeight(), 3);
    EXPECT_EQ(image->getComponents(), 1);
    EXPECT_EQ(texture->getFormat(), csTexture::LUMINANCE);
    // The world lists rows from the bottom of the picture up.
    EXPECT_THAT(bytesOf(image), ElementsAre(0x44, 0x55, 0x22, 0x33, 0x00, 0x11));
    EXPECT_EQ(texture->getRepeatS(), csTexture::CLAMP);
    EXPECT_EQ(texture->getRepeatT(), csTexture::REPEAT);
    // A grey image leaves the material's colour alone.
    EXPECT_EQ(appearanceAt(scene, 0)->getMaterial()->getDiffuseColor(), csVec3f(0.8f, 0.8f, 0.8f));
    EXPECT_EQ(world.lastErrors().find("optPixelTexture"), std::string::npos);
}

TEST(optPixelTexture, EachPixelGivesItsComponentsHighestByteFirst) {
    SceneLoad world;
    csEnvironment* scene = world.load(shapeWith("PixelTexture { image 1 1 2 0xA1B2 }") +
                                      shapeWith("PixelTexture { image 1 1 3 0xFF8000 }") +
                                      shapeWith("PixelTexture { image 1 1 4 0x11223344 }"));
    EXPECT_THAT(bytesOf(textureAt(scene, 0)->getImage()), ElementsAre(0xA1, 0xB2));
    EXPECT_THAT(bytesOf(textureAt(scene, 1)->getImage()), ElementsAre(0xFF, 0x80, 0x00));
    EXPECT_EQ(textureAt(scene, 1)->getFormat(), csTexture::RGB);
    EXPECT_THAT(bytesOf(textureAt(scene, 2)->getImage()), ElementsAre(0x11, 0x22, 0x33, 0x44));
    EXPECT_EQ(textureAt(scene, 2)->getFormat(), csTexture::RGBA);
}

TEST(optMovieTexture, KeepsItsMovieAndSaysOncePerWorldThatItShowsNone) {
    const std::string text = shapeWith("DEF M MovieTexture { url [ \"a.mpg\" \"b.mpg\" ] loop TRUE speed 2 repeatT FALSE }") +
                             shapeWith("MovieTexture { }");
    const std::string notice =
        wrltest::messageLine("optMovieTexture:  Movies are not decoded: a MovieTexture shows no picture.");
    SceneLoad world;
    csEnvironment* scene = world.load(text);
    auto* movie = dynamic_cast<csMovieTexture*>(textureAt(scene, 0));
    ASSERT_NE(movie, nullptr);
    EXPECT_STREQ(movie->getName(), "M");
    EXPECT_THAT(movie->getUrl(), ElementsAre("a.mpg", "b.mpg"));
    EXPECT_TRUE(movie->getLoop());
    EXPECT_FLOAT_EQ(movie->getSpeed(), 2.0f);
    EXPECT_EQ(movie->getRepeatS(), csTexture::REPEAT);
    EXPECT_EQ(movie->getRepeatT(), csTexture::CLAMP);
    EXPECT_EQ(movie->getImage(), nullptr);
    const std::string& errors = world.lastErrors();
    ASSERT_NE(errors.find(notice), std::string::npos);
    EXPECT_EQ(errors.find(notice, errors.find(notice) + 1), std::string::npos);

    world.load(text);
    EXPECT_THAT(world.lastErrors(), HasSubstr(notice)) << "a new world is told again";
}
