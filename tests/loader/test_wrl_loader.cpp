#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstring>
#include <exception>
#include <string>
#include <vector>

#include "csEnvironment.h"
#include "loader/wrl_loader.h"
#include "loader/zn.h"
#include "test_support.h"

using testing::HasSubstr;

namespace {

const char* kVrml97 = "#VRML V2.0 utf8\n";
const char* kVrml10 = "#VRML V1.0 ascii\nSeparator { }\n";

using LoadResult = wrltest::WorldLoad;
LoadResult load(const std::string& name) { return wrltest::loadWorld(name); }

}  // namespace

TEST(WrlLoad, ReturnsAnEnvironmentForAVrml97File) {
    wrltest::TempDir dir;
    LoadResult r = load(dir.write("scene.wrl", kVrml97));
    ASSERT_NE(r.scene, nullptr);
    EXPECT_TRUE(r.scene->isOfType(csEnvironment::getClassType()));
    EXPECT_EQ(r.scene, static_cast<csNode*>(topSceneNode));
    EXPECT_THAT(r.out, HasSubstr("VRML 97 loader"));
}

TEST(WrlLoad, AMissingFileOrOneOnlyFromTheRootWithoutOptpathGivesNullAndNoMessage) {
    wrltest::TempDir elsewhere, models;
    // The name without its leading "/" is no file from here, but "/" and
    // the name is.
    const std::string fromRoot = models.write("scene.wrl", kVrml97).substr(1);
    wrltest::ScopedDirectory cwd(elsewhere.path());
    {
        wrltest::ScopedEnv noPath("OPTPATH", nullptr);
        for (const std::string& missing : {fromRoot, std::string("/nonexistent/dir/none.wrl")}) {
            LoadResult r = load(missing);
            EXPECT_EQ(r.scene, nullptr);
            EXPECT_EQ(r.err, "");
        }
    }
    // An empty OPTPATH is a search path of one empty element.
    wrltest::ScopedEnv emptyPath("OPTPATH", "");
    EXPECT_NE(load(fromRoot).scene, nullptr);
}

TEST(WrlLoad, FileFoundOnlyThroughOptpathPassesTheHeaderTest) {
    wrltest::TempDir elsewhere, models;
    std::string found = models.write("old.wrl", kVrml10);
    models.write("new.wrl", kVrml97);
    std::string optpath = "/nonexistent:" + models.path();
    wrltest::ScopedEnv path("OPTPATH", optpath.c_str());
    wrltest::ScopedDirectory cwd(elsewhere.path());

    LoadResult old = load("old.wrl");
    EXPECT_EQ(old.scene, nullptr);
    EXPECT_THAT(old.err, HasSubstr(found + " is a VRML 1.0 file.  Please look at "));
    EXPECT_THAT(old.err, HasSubstr(" for VRML 1.0 to VRML 2.0 translators.\n\n\n"));

    EXPECT_NE(load("new.wrl").scene, nullptr);
}

TEST(WrlLoad, EmptyFilesAndWebNamesGoOnToTheLoadAndNullGivesNull) {
    wrltest::TempDir dir;
    EXPECT_NE(load(dir.write("empty.wrl", "")).scene, nullptr);
    EXPECT_NE(load("./http://127.0.0.1:9/none.wrl").scene, nullptr);  // no local test
    EXPECT_EQ(wrlLoad(nullptr), nullptr);
}

TEST(WrlLoad, SecondLoadMakesAnIndependentWorld) {
    wrltest::TempDir dir;
    std::string path = dir.write("scene.wrl", kVrml97);
    LoadResult first = load(path);
    ZN* firstSystem = _ZNmain;
    LoadResult second = load(path);
    ASSERT_NE(first.scene, nullptr);
    ASSERT_NE(second.scene, nullptr);
    EXPECT_NE(first.scene, second.scene);
    EXPECT_NE(firstSystem, _ZNmain);
    EXPECT_EQ(second.scene, static_cast<csNode*>(topSceneNode));
    // The earlier system object and its browser stay alive.
    EXPECT_NE(firstSystem->browser, nullptr);
}

TEST(WrlLoad, OverlongNamesAreRefusedWithoutOverflow) {
    std::string name(1000, 'a');
    LoadResult r = load(name);
    EXPECT_EQ(r.scene, nullptr);
    EXPECT_THAT(r.err, HasSubstr("File name too long"));
}

TEST(getFullPath, TriesEachElementThenTheLastAndSkipsWhatCannotBe) {
    wrltest::TempDir a, b;
    std::string inB = b.write("f.wrl", kVrml97);
    std::string path = "/nonexistent:" + a.path() + ":" + b.path();
    std::vector<char> buf(path.begin(), path.end());
    buf.push_back('\0');
    char name[] = "f.wrl";
    char* found = getFullPath(name, buf.data());
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(std::string(found), inB);
    EXPECT_STREQ(buf.data(), "/nonexistent");  // the caller's string is cut at its colons

    // A trailing colon means the root directory: "/" + name, and name here
    // is the path without its leading slash.
    std::string relative = inB.substr(1);
    std::vector<char> fromRoot(relative.begin(), relative.end());
    fromRoot.push_back('\0');
    char rootPath[] = "/nonexistent:";
    found = getFullPath(fromRoot.data(), rootPath);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(std::string(found), inB);

    char none[] = "none.wrl";
    EXPECT_EQ(getFullPath(none, nullptr), nullptr);
    char nowhere[] = "/nonexistent:/also/nonexistent";
    EXPECT_EQ(getFullPath(none, nowhere), nullptr);
    char empty[] = "";
    EXPECT_EQ(getFullPath(none, empty), nullptr);
    std::string longDir(600, 'd');  // overlong candidates are skipped
    std::vector<char> longPath(longDir.begin(), longDir.end());
    longPath.push_back('\0');
    EXPECT_EQ(getFullPath(none, longPath.data()), nullptr);
}
