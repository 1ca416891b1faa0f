// Whole worlds named by their URLs: the world and the files it names come
// from the web server (or the cache), file URLs read local files.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "test_support.h"
#include "url/url_messages.h"
#include "url/zn_URL_web.h"
#include "url_test_server.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using wrltest::loadWorld;
using wrltest::sceneText;
using wrltest::ScopedEnv;
using wrltest::TempDir;
using wrltest::TestHttpServer;

namespace {

const std::string kHeader = "#VRML V2.0 utf8\n";

class RemoteWorld : public testing::Test {
protected:
    void SetUp() override { zn_URL_web::remoteRequests = 1; }

    TempDir tmp;
    ScopedEnv tmpPath{"ZN_TMP_PATH", tmp.path().c_str()};
    ScopedEnv noProxy{"ZNPROXY", nullptr};
    TestHttpServer server;
};

}  // namespace

TEST_F(RemoteWorld, ItsPrototypeInlineAndTextureComeFromBesideIt) {
    server.put("/w/world.wrl", kHeader +
                                   "EXTERNPROTO Near [ field SFVec3f at ] \"lib/far.wrl\"\n"
                                   "Near { at 1 2 3 }\n"
                                   "Inline { url \"parts/part.wrl\" }\n"
                                   "Shape { appearance Appearance { texture ImageTexture { url \"tex/checker.png\" } }"
                                   " geometry Box {} }\n");
    server.put("/w/lib/far.wrl", kHeader + "PROTO Far [ field SFVec3f at 0 0 0 ] { Transform { translation IS at } }\n");
    // A name from the root of the server.
    server.put("/w/parts/part.wrl", kHeader +
                                        "Shape { appearance Appearance { texture ImageTexture { url \"/w/tex/checker.png\" } }"
                                        " geometry Sphere { radius 4 } }\n");
    server.put("/w/tex/checker.png", wrltest::readFile(WRL_SOURCE_DIR "/data/examples/checker.png"));
    // Each load reads the picture from its file, the second one from the cache.
    ScopedEnv noImageCache("ZN_CACHE_IMAGES", "f");

    wrltest::WorldLoad first = loadWorld(server.url("/w/world.wrl"));
    ASSERT_NE(first.scene, nullptr) << first.err;
    const std::string scene = sceneText(first.scene);
    EXPECT_THAT(scene, HasSubstr("translation: 1 2 3"));
    EXPECT_THAT(scene, HasSubstr("radius: 4"));
    EXPECT_THAT(scene, HasSubstr("csImage\n"));
    EXPECT_EQ(wrltest::occurrences(scene, "width: 8"), 2);
    EXPECT_THAT(server.requests(), ElementsAre("GET /w/world.wrl HTTP/1.1", "GET /w/lib/far.wrl HTTP/1.1",
                                               "GET /w/tex/checker.png HTTP/1.1", "GET /w/parts/part.wrl HTTP/1.1"));

    // The cache serves the whole world again with the server gone.
    server.stop();
    wrltest::WorldLoad again = loadWorld(server.url("/w/world.wrl"));
    ASSERT_NE(again.scene, nullptr) << again.err;
    EXPECT_EQ(sceneText(again.scene), scene);
    EXPECT_THAT(again.err, Not(HasSubstr(kConnecting)));
}

TEST_F(RemoteWorld, AMissingOrVrml1WorldIsNotLoaded) {
    wrltest::WorldLoad missing = loadWorld(server.url("/none.wrl"));
    EXPECT_EQ(missing.scene, nullptr);
    EXPECT_THAT(missing.err, HasSubstr(wrltest::alertLine(kRemoteNotFound)));

    server.put("/old.wrl", "#VRML V1.0 ascii\nSeparator { }\n");
    wrltest::WorldLoad old = loadWorld(server.url("/old.wrl"));
    EXPECT_EQ(old.scene, nullptr);
    EXPECT_THAT(old.err, HasSubstr(server.url("/old.wrl") + " is a VRML 1.0 file."));
}

TEST_F(RemoteWorld, AQuietServerInAListCostsTheTimeOutAndTheNextURLServes) {
    ScopedEnv timeout("ZN_HTTP_TIMEOUT", "2");
    server.put("/a/part.wrl", kHeader + "Shape { geometry Sphere { radius 5 } }\n");
    server.put("/b/part.wrl", kHeader + "Shape { geometry Sphere { radius 6 } }\n");
    const std::string world = tmp.write("world.wrl", kHeader + "Inline { url [ \"" + server.url("/stall/a/part.wrl") +
                                                         "\" \"" + server.url("/b/part.wrl") + "\" ] }\n");
    const auto start = std::chrono::steady_clock::now();
    wrltest::WorldLoad load = loadWorld(world);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(15));
    ASSERT_NE(load.scene, nullptr);
    EXPECT_THAT(sceneText(load.scene), HasSubstr("radius: 6"));
    EXPECT_THAT(sceneText(load.scene), Not(HasSubstr("radius: 5")));
    EXPECT_THAT(load.err, HasSubstr("No data from " + server.url("/stall/a/part.wrl") + " for 2 seconds: given up."));
}

TEST(FileURLWorld, LoadsAsItsPathDoes) {
    TempDir dir;
    const std::string world = dir.write("sub/world.wrl", kHeader +
                                                             "Inline { url \"part.wrl\" }\n"
                                                             "Shape { geometry Box { size 1 2 3 } }\n");
    dir.write("sub/part.wrl", kHeader + "Shape { geometry Cone { } }\n");
    wrltest::WorldLoad byPath = loadWorld(world);
    wrltest::WorldLoad byURL = loadWorld("file://" + world);
    ASSERT_NE(byPath.scene, nullptr);
    ASSERT_NE(byURL.scene, nullptr) << byURL.err;
    EXPECT_THAT(sceneText(byURL.scene), HasSubstr("opCone"));
    EXPECT_EQ(sceneText(byURL.scene), sceneText(byPath.scene));
    EXPECT_EQ(loadWorld("file://" + dir.path() + "/sub/none.wrl").scene, nullptr);
    dir.write("my world.wrl", kHeader + "Inline { url \"sub/part.wrl\" }\n");
    wrltest::WorldLoad escaped = loadWorld("file://localhost" + dir.path() + "/my%20world.wrl");
    ASSERT_NE(escaped.scene, nullptr) << escaped.err;
    EXPECT_THAT(sceneText(escaped.scene), HasSubstr("opCone"));
}
