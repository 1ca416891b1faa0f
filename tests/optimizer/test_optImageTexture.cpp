// ImageTexture: images found beside the world, the image cache and its
// switch, remote images through the URL cache, and files that give no image.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

#include <fstream>
#include <string>
#include <vector>

#include "csAppearance.h"
#include "csImage.h"
#include "csMaterial.h"
#include "csMessages.h"
#include "csTexture.h"
#include "csTransform.h"
#include "opRep.h"
#include "png_files.h"
#include "optimizer/optImageTexture.h"
#include "optimizer/optimizer_messages.h"
#include "scene_world.h"
#include "url/zn_URL_web.h"
#include "url_test_server.h"
#include "vrmlnodes/vrmlnode_messages.h"

using testing::HasSubstr;
using testing::Not;
using wrltest::childAs;
using wrltest::messageLine;
using wrltest::pattern;
using wrltest::SceneLoad;
using wrltest::ScopedEnv;
using wrltest::TempDir;
using wrltest::writePng;

namespace {

std::vector<unsigned char> pixelsOf(const csImage* image) {
    const csMFByte& field = image->pixels();
    return std::vector<unsigned char>(field.getData(), field.getData() + field.getCount());
}

std::string texturedShape(const std::string& def, const std::string& texture) {
    return "Shape { appearance Appearance { texture DEF " + def + " ImageTexture { " + texture +
           " } } geometry Box {} }\n";
}

// The csTexture that the top-level shape `index` shows.
csTexture* textureOf(csEnvironment* scene, int index) {
    opRep* rep = wrltest::shapeAt(scene, index);
    csAppearance* look = rep ? rep->getAppearance() : nullptr;
    return look ? look->getTexture() : nullptr;
}

void setUrl(optImageTexture* node, const char* name) {
    MFString urls;
    std::string text = name;
    urls.addValue(text);
    node->set_url(urls, 1.0);
}

// Loads worlds beside their images. The image cache lives as long as the
// process, so no two tests name an image alike.
class ImageTextureLoad : public testing::Test {
protected:
    optImageTexture* texture(const char* def) { return dynamic_cast<optImageTexture*>(world.builtinNamed(def)); }
    std::string beside(const std::string& name) const { return world.directory() + "/" + name; }

    SceneLoad world;
    ScopedEnv caching{"ZN_CACHE_IMAGES", nullptr};
};

}  // namespace

TEST_F(ImageTextureLoad, ImageBesideTheWorldIsFoundFromAnotherWorkingDirectory) {
    writePng(beside("beside.png"), 3, 2, 3);
    TempDir elsewhere;
    wrltest::ScopedDirectory cwd(elsewhere.path());
    csEnvironment* scene = world.load(texturedShape("T", "url \"beside.png\""));

    csTexture* shown = textureOf(scene, 0);
    ASSERT_NE(shown, nullptr);
    EXPECT_STREQ(shown->getName(), "T");
    EXPECT_STREQ(shown->getFileName(), beside("beside.png").c_str());
    EXPECT_EQ(shown->getFormat(), csTexture::RGB);
    const csImage* image = shown->getImage();
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->getWidth(), 3);
    EXPECT_EQ(image->getHeight(), 2);
    EXPECT_EQ(pixelsOf(image), pattern(3, 2, 3));
    EXPECT_THAT(world.lastErrors(), Not(HasSubstr("Can't open")));
    // Only nodes that name files keep the directory they were read from.
    EXPECT_STREQ(texture("T")->getUrlBase(), (world.directory() + "/").c_str());
    world.load("DEF S Shape { }\n");
    EXPECT_EQ(dynamic_cast<BaseNode*>(world.builtinNamed("S"))->getUrlBase(), nullptr);
}

TEST_F(ImageTextureLoad, SecondTextureOfOneFileIsACacheHitWithItsOwnCopy) {
    writePng(beside("shared.png"), 4, 3, 3, 7);
    csEnvironment* scene = world.load(texturedShape("A", "url \"shared.png\" repeatS FALSE") +
                                      texturedShape("B", "url \"shared.png\""));
    optImageTexture* first = texture("A");
    optImageTexture* second = texture("B");
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_STREQ(first->getFileName(), beside("shared.png").c_str());
    EXPECT_EQ(second->getFileName(), nullptr) << "a hit reads no file";
    ASSERT_NE(first->getImageRecord(), nullptr);
    EXPECT_EQ(first->getImageRecord(), second->getImageRecord());
    EXPECT_EQ(second->getImageRecord()->hits, 1);
    const csImage* copy = second->getTexture()->getImage();
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy, first->getTexture()->getImage());
    EXPECT_EQ(pixelsOf(copy), pattern(4, 3, 3, 7));
    EXPECT_EQ(second->getTexture()->getFormat(), csTexture::RGB);
    EXPECT_EQ(textureOf(scene, 1), second->getTexture());
    // Repeat modes stay each texture's own.
    EXPECT_EQ(first->getTexture()->getRepeatS(), csTexture::CLAMP);
    EXPECT_EQ(second->getTexture()->getRepeatS(), csTexture::REPEAT);
}

TEST_F(ImageTextureLoad, CacheSwitchedOffReadsTheFileForEachTexture) {
    for (const char* off : {"0", "F", "f", "false", "FALSE", "0x1"}) EXPECT_FALSE(optImageTexture::cachingImages(off)) << off;
    for (const char* on : {"", "1", "true", "yes", "no", " 0"}) EXPECT_TRUE(optImageTexture::cachingImages(on)) << on;
    EXPECT_TRUE(optImageTexture::cachingImages(nullptr));

    writePng(beside("uncached.png"), 2, 2, 3);
    ScopedEnv off("ZN_CACHE_IMAGES", "0");
    world.load(texturedShape("A", "url \"uncached.png\"") + texturedShape("B", "url \"uncached.png\""));
    for (const char* def : {"A", "B"}) {
        SCOPED_TRACE(def);
        optImageTexture* node = texture(def);
        ASSERT_NE(node, nullptr);
        EXPECT_STREQ(node->getFileName(), beside("uncached.png").c_str());
        EXPECT_EQ(node->getImageRecord(), nullptr);
        EXPECT_NE(node->getTexture()->getImage(), nullptr);
    }
    // Nothing was cached either: with the cache back on the file is read.
    ScopedEnv on("ZN_CACHE_IMAGES", "");
    world.load(texturedShape("C", "url \"uncached.png\""));
    EXPECT_NE(texture("C")->getFileName(), nullptr);
}

TEST_F(ImageTextureLoad, RemoteImageGoesThroughTheURLCache) {
    writePng(beside("served.png"), 2, 3, 3, 5);
    const std::string bytes = wrltest::readFile(beside("served.png"));
    TempDir tmp;
    ScopedEnv tmpPath("ZN_TMP_PATH", tmp.path().c_str());
    ScopedEnv noProxy("ZNPROXY", nullptr);
    zn_URL_web::remoteRequests = 1;  // past the note on proxies
    wrltest::TestHttpServer server(bytes);
    const std::string address = server.url("/images/remote_served.png");

    world.load(texturedShape("R", "url \"" + address + "\""));
    optImageTexture* remote = texture("R");
    ASSERT_NE(remote, nullptr);
    const std::string cached = zn_URL_web::cacheName(address);
    EXPECT_STREQ(remote->getFileName(), cached.c_str());
    ASSERT_NE(remote->getTexture()->getImage(), nullptr);
    EXPECT_EQ(pixelsOf(remote->getTexture()->getImage()), pattern(2, 3, 3, 5));
    server.stop();
    EXPECT_EQ(server.requests(), std::vector<std::string>{"GET /images/remote_served.png HTTP/1.1"});

    // With the image cache off the file is read again, from the URL cache:
    // the server is gone.
    ScopedEnv off("ZN_CACHE_IMAGES", "f");
    world.load(texturedShape("S", "url \"" + address + "\""));
    EXPECT_STREQ(texture("S")->getFileName(), cached.c_str());
    EXPECT_NE(texture("S")->getTexture()->getImage(), nullptr);
}

TEST_F(ImageTextureLoad, MissingUnreadableAndOverlongNamesAreReportedAndSkipped) {
    std::ofstream(beside("junk.png")) << "this is no picture at all";
    writePng(beside("whole.png"), 8, 8, 3);
    const std::string whole = wrltest::readFile(beside("whole.png"));
    std::ofstream(beside("cut.png"), std::ios::binary) << whole.substr(0, whole.size() / 2);
    writePng(beside("third.png"), 1, 1, 3);
    const std::string longName(2000, 'x');

    const std::string urls = "url [ \"absent.png\" \"junk.png\" \"cut.png\" \"" + longName + ".png\" \"third.png\" ]";
    world.load(texturedShape("T", urls));
    const std::string& errors = world.lastErrors();
    for (const std::string& name : {std::string("absent.png"), std::string("junk.png"), std::string("cut.png"),
                                    longName + ".png"})
        EXPECT_THAT(errors, HasSubstr(messageLine("optImageTexture:  Can't open " + name + "!")));
    EXPECT_THAT(errors, HasSubstr("csTexture: cannot read image " + beside("junk.png") + ": " +
                                  kCsImageUnknownFormat + "\n"));
    EXPECT_THAT(errors, HasSubstr("csTexture: cannot read image " + beside("cut.png") + ": " + kCsImageCorrupt));
    EXPECT_THAT(errors, Not(HasSubstr("third.png!")));
    optImageTexture* node = texture("T");
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->isImageReady(), 1);
    EXPECT_STREQ(node->getFileName(), beside("third.png").c_str());

    // Only the name that gave an image is cached: the failures come again.
    world.load(texturedShape("U", urls));
    EXPECT_THAT(world.lastErrors(), HasSubstr(messageLine("optImageTexture:  Can't open junk.png!")));
    EXPECT_EQ(texture("U")->getFileName(), nullptr) << "the last name came from the cache";
}

TEST_F(ImageTextureLoad, NoUsableURLLeavesATextureWithoutImageAndANewURLBringsOne) {
    csEnvironment* scene = world.load(texturedShape("E", "url [ ]") + texturedShape("M", "url \"nowhere.png\"") +
                                      "Shape { appearance Appearance { texture ImageTexture { } } }\n");
    ASSERT_NE(textureOf(scene, 2), nullptr);
    EXPECT_STREQ(textureOf(scene, 2)->getName(), "Unnamed ImageTexture Node");
    EXPECT_EQ(world.lastErrors(), messageLine("Done loading URL:  world1.wrl") +
                                      messageLine("optImageTexture:  Can't open nowhere.png!"))
        << "an empty url is no failure";
    for (const char* def : {"E", "M"}) {
        SCOPED_TRACE(def);
        optImageTexture* node = texture(def);
        ASSERT_NE(node, nullptr);
        EXPECT_EQ(node->isImageReady(), 0);
        EXPECT_EQ(node->getTexture()->getImage(), nullptr);
        EXPECT_EQ(node->getFileName(), nullptr);
    }

    writePng(beside("after.png"), 2, 1, 4);
    optImageTexture* node = texture("M");
    setUrl(node, "after.png");
    EXPECT_STREQ(node->getFileName(), beside("after.png").c_str());
    ASSERT_NE(node->getTexture()->getImage(), nullptr);
    EXPECT_EQ(node->getTexture()->getImage()->getWidth(), 2);
    EXPECT_EQ(node->getTexture()->getFormat(), csTexture::RGBA);
}

// A texture whose url changes shows what the new url gives, once the
// shape's refresh pass has run: a picture that arrives is enabled and
// greys the material, one that goes leaves the material's own colour.
TEST_F(ImageTextureLoad, ShapeFollowsAPictureThatANewURLBringsOrTakesAway) {
    csEnvironment* scene = world.load(
        "DEF S Shape { appearance Appearance { material Material { diffuseColor 1 0 0 }\n"
        "  texture DEF T ImageTexture { url \"arrives.png\" } } geometry Box { } }\n");
    csAppearance* look = wrltest::shapeAt(scene)->getAppearance();
    ASSERT_NE(look, nullptr);
    EXPECT_FALSE(look->getTexEnable());
    optImageTexture* node = texture("T");
    ASSERT_NE(node, nullptr);
    Builtin* shape = world.builtinNamed("S");
    SFTime time(1.0);

    writePng(beside("arrives.png"), 2, 2, 3);
    setUrl(node, "arrives.png");
    shape->action(time, kActionRefresh, nullptr);
    EXPECT_TRUE(look->getTexEnable());
    EXPECT_EQ(look->getMaterial()->getDiffuseColor(), csVec3f(0.8f, 0.8f, 0.8f));

    wrltest::stderrOf([&] { setUrl(node, "gone.png"); });
    EXPECT_EQ(node->getTexture()->getImage(), nullptr) << "the old picture does not stay";
    shape->action(time, kActionRefresh, nullptr);
    EXPECT_FALSE(look->getTexEnable());
    EXPECT_EQ(look->getMaterial()->getDiffuseColor(), csVec3f(1, 0, 0));
}
