// Inline: the top-level nodes of another file become the children of a
// csInline, the file found beside the file that names it, locally,
// gzipped or on a web server; URLs that fail are reported and the next is
// tried; a DEF'd Inline used twice reads once; worlds that inline
// themselves and chains too deep stop with their messages.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <fstream>
#include <string>
#include <vector>

#include "csInline.h"
#include "vrmlnodes/Inline.h"
#include "scene_world.h"
#include "url/zn_URL_web.h"
#include "url_test_server.h"

using testing::ElementsAre;
using testing::HasSubstr;
using wrltest::childAs;
using wrltest::messageLine;
using wrltest::SceneLoad;
using wrltest::ScopedEnv;
using wrltest::TempDir;

namespace {

const char* const kHeader = "#VRML V2.0 utf8\n";

// Writes `text` to `name` under `dir`, making the directories on the way.
void put(const std::string& dir, const std::string& name, const std::string& text) {
    for (size_t slash = name.find('/'); slash != std::string::npos; slash = name.find('/', slash + 1))
        mkdir((dir + "/" + name.substr(0, slash)).c_str(), 0755);
    std::ofstream(dir + "/" + name, std::ios::binary) << text;
}

// How many csInline groups stand one inside the other from `node` down.
int nestedInlines(csNode* node) {
    int depth = 0;
    for (auto* group = dynamic_cast<csInline*>(node); group; ++depth) {
        csInline* next = nullptr;
        for (int i = 0; i < group->getChildCount() && !next; ++i) next = dynamic_cast<csInline*>(group->getChild(i));
        group = next;
    }
    return depth;
}

}  // namespace

TEST(optInline, FileBesideTheNamingFileBecomesTheChildren) {
    SceneLoad world;
    const std::string& dir = world.directory();
    put(dir, "parts/part.wrl",
        std::string(kHeader) + "DEF BOX Shape { geometry Box { } }\nInline { url \"deeper/leaf.wrl\" }\n");
    put(dir, "parts/deeper/leaf.wrl", std::string(kHeader) + "Group { }\n");
    TempDir elsewhere;
    wrltest::ScopedDirectory cwd(elsewhere.path());
    csEnvironment* scene = world.load(
        "DEF IN Inline { url [ \"missing.wrl\" \"parts/part.wrl\" ] bboxCenter 1 2 3 bboxSize 4 5 6 }");

    auto* in = childAs<csInline>(scene, 0);
    ASSERT_NE(in, nullptr);
    EXPECT_STREQ(in->getName(), "IN");
    EXPECT_THAT(in->getUrl(), ElementsAre("missing.wrl", "parts/part.wrl"));
    wrltest::expectVec3(in->getBboxCenter(), 1, 2, 3);
    wrltest::expectVec3(in->getBboxSize(), 4, 5, 6);
    ASSERT_EQ(in->getChildCount(), 2);
    // A shape at the top of the inlined file is a child like any other:
    // no top-level group of its own.
    auto* axis = childAs<csTransform>(in, 0);
    ASSERT_NE(axis, nullptr);
    EXPECT_STREQ(axis->getChild(0)->getName(), "BOX");
    auto* leaf = childAs<csInline>(in, 1);
    ASSERT_NE(leaf, nullptr);
    EXPECT_NE(childAs<csGroup>(leaf, 0), nullptr) << "the nested file is found beside part.wrl";
    EXPECT_THAT(world.lastErrors(), HasSubstr(messageLine("Inline:  Can't open missing.wrl!")));
}

TEST(optInline, AnInlineUsedTwiceReadsItsFileOnce) {
    SceneLoad world;
    put(world.directory(), "part.wrl", std::string(kHeader) + "Shape { geometry Sphere { } }\n");
    csEnvironment* scene = world.load("DEF IN Inline { url \"part.wrl\" }\nTransform { children USE IN }\n");
    auto* in = childAs<csInline>(scene, 0);
    ASSERT_NE(in, nullptr);
    EXPECT_EQ(childAs<csInline>(childAs<csTransform>(scene, 1), 0), in);
    EXPECT_EQ(in->getChildCount(), 1);
    EXPECT_EQ(wrltest::occurrences(world.lastErrors(), "Done loading URL:  part.wrl"), 1);
}

TEST(optInline, GzippedFilesAreReadUnpacked) {
    SceneLoad world;
    TempDir tmp;
    ScopedEnv tmpPath("ZN_TMP_PATH", tmp.path().c_str());
    put(world.directory(), "packed.wrl.gz", wrltest::gzipBytes(std::string(kHeader) + "Group { }\nGroup { }\n"));
    csEnvironment* scene = world.load("Inline { url \"packed.wrl.gz\" }");
    auto* in = childAs<csInline>(scene, 0);
    ASSERT_NE(in, nullptr);
    EXPECT_EQ(in->getChildCount(), 2);
}

TEST(optInline, WorldsThatInlineThemselvesStopWithAMessage) {
    SceneLoad world;
    const std::string& dir = world.directory();
    put(dir, "self.wrl", std::string(kHeader) + "Group { }\nInline { url \"self.wrl\" }\n");
    put(dir, "ping.wrl", std::string(kHeader) + "Inline { url \"./pong.wrl\" }\n");
    put(dir, "pong.wrl", std::string(kHeader) + "Inline { url \"ping.wrl\" }\n");
    csEnvironment* scene = world.load("Inline { url \"self.wrl\" }\nInline { url \"ping.wrl\" }\n");
    // self.wrl is read once below the world, and its own Inline reads
    // nothing; ping.wrl comes round again after pong.wrl.
    EXPECT_EQ(nestedInlines(scene->getChild(0)), 2);
    EXPECT_EQ(nestedInlines(scene->getChild(1)), 3);
    const std::string& errors = world.lastErrors();
    EXPECT_EQ(wrltest::occurrences(errors, messageLine("Inline:  self.wrl inlines itself; it is not read again.")), 1);
    EXPECT_EQ(wrltest::occurrences(errors, messageLine("Inline:  ping.wrl inlines itself; it is not read again.")), 1);
}

TEST(optInline, ChainsDeeperThanTheLimitAreCut) {
    SceneLoad world;
    for (int i = 1; i <= 20; ++i)
        put(world.directory(), "chain" + std::to_string(i) + ".wrl",
            std::string(kHeader) + "Inline { url \"chain" + std::to_string(i + 1) + ".wrl\" }\n");
    csEnvironment* scene = world.load("Inline { url \"chain1.wrl\" }");
    EXPECT_EQ(nestedInlines(scene->getChild(0)), Inline::kDepthLimit + 1);
    EXPECT_THAT(world.lastErrors(),
                HasSubstr(messageLine("Inline:  chain17.wrl lies more than 16 Inlines deep; it is not read.")));
    EXPECT_EQ(world.lastErrors().find("chain18"), std::string::npos);
}

TEST(optInline, RemoteFilesComeThroughTheCacheAndResolveBesideThemselves) {
    TempDir tmp;
    ScopedEnv tmpPath("ZN_TMP_PATH", tmp.path().c_str());
    ScopedEnv noProxy("ZNPROXY", nullptr);
    zn_URL_web::remoteRequests = 1;  // past the note on proxies
    // Every request gets this world, which inlines a file beside itself.
    wrltest::TestHttpServer server(std::string(kHeader) + "Group { }\nInline { url \"again.wrl\" }\n");
    SceneLoad world;
    csEnvironment* scene = world.load("Inline { url \"" + server.url("/w/remote.wrl") + "\" }");
    server.stop();
    EXPECT_EQ(server.requests(),
              (std::vector<std::string>{"GET /w/remote.wrl HTTP/1.1", "GET /w/again.wrl HTTP/1.1"}));
    EXPECT_EQ(nestedInlines(scene->getChild(0)), 3);
    EXPECT_THAT(world.lastErrors(), HasSubstr(messageLine("Inline:  again.wrl inlines itself; it is not read again.")));
}

TEST(optInline, WhatABrokenFileGaveStaysAndAnEmptyURLReadsNothing) {
    SceneLoad world;
    put(world.directory(), "broken.wrl", std::string(kHeader) + "Group { }\nGroup { children [ \n");
    csEnvironment* scene = world.load("Inline { url \"broken.wrl\" }\nInline { }\n");
    auto* broken = childAs<csInline>(scene, 0);
    ASSERT_NE(broken, nullptr);
    EXPECT_EQ(broken->getChildCount(), 1);
    EXPECT_THAT(world.lastErrors(), HasSubstr("Unable to parse file."));
    auto* empty = childAs<csInline>(scene, 1);
    ASSERT_NE(empty, nullptr);
    EXPECT_EQ(empty->getChildCount(), 0);
}
