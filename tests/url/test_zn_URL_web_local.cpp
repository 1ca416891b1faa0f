// The web URL object on local files: its own stack rules and gzip files.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>

#include "test_support.h"
#include "url/zn_URL_web.h"
#include "url_test_server.h"

using wrltest::readFile;
using wrltest::ScopedEnv;
using wrltest::TempDir;

namespace {

class WebLocal : public testing::Test {
protected:
    TempDir files;
    TempDir tmp;
    ScopedEnv tmpPath{"ZN_TMP_PATH", tmp.path().c_str()};
    zn_URL_web url;
};

}  // namespace

TEST_F(WebLocal, RelativeFileIsFoundUnderThePushedDirectoryAndAnAbsoluteOneIsNotJoined) {
    const std::string world = files.write("m/world.wrl", "w");
    files.write("m/sub/inline.wrl", "inline");
    const std::string other = files.write("n/other.wrl", "o");
    FILE* outer = url.fopenURL(world.c_str(), 1);
    ASSERT_NE(outer, nullptr);
    EXPECT_EQ(std::string(url.getURL("sub/inline.wrl", 0)), files.path() + "/m/sub/inline.wrl");
    EXPECT_EQ(std::string(url.getURL(other.c_str(), 0)), other);
    EXPECT_EQ(std::string(url.getURL(("FILE:" + other).c_str(), 0)), other);

    // Pushed too: the absolute directory goes on the stack as it is.
    FILE* inner = url.fopenURL(other.c_str(), 1);
    ASSERT_NE(inner, nullptr);
    EXPECT_EQ(std::string(url.get_path()), files.path() + "/n/");
    url.fcloseURL(inner, 1);
    url.fcloseURL(outer, 1);
    EXPECT_EQ(url.get_path(), nullptr);
}

TEST_F(WebLocal, FailedOpenTakesItsStackEntryOffAgainAndCloseWithFlagZeroDoesNotPop) {
    const std::string world = files.write("m/world.wrl", "w");
    FILE* outer = url.fopenURL(world.c_str(), 1);
    EXPECT_EQ(url.fopenURL("sub/missing.wrl", 1), nullptr);
    EXPECT_EQ(url.iopenURL("missing.wrl", 1), nullptr);
    EXPECT_EQ(std::string(url.get_path()), files.path() + "/m/");
    std::ifstream* stream = url.iopenURL(world.c_str(), 1);
    ASSERT_NE(stream, nullptr);
    url.icloseURL(stream, 0);
    delete stream;
    FILE* again = url.fopenURL(world.c_str(), 0);
    url.fcloseURL(again, 0);
    url.fcloseURL(outer, 1);
    EXPECT_EQ(std::string(url.get_path()), files.path() + "/m/");
}

TEST_F(WebLocal, GzipFileArrivesUnpackedInTheTemporaryDirectory) {
    const std::string packed = files.write("m/scene.wrl", wrltest::gzipBytes("#VRML V2.0 utf8\n"));
    const char* local = url.getURL(packed.c_str(), 0);
    ASSERT_NE(local, nullptr);
    EXPECT_EQ(std::string(local), tmp.path() + "/scene.wrl");
    EXPECT_EQ(readFile(local), "#VRML V2.0 utf8\n");
    EXPECT_EQ(readFile(packed).substr(0, 2), "\x1f\x8b");  // the packed original is left alone
    // Inside the temporary directory it is unpacked in place.
    const std::string inTmp = tmp.write("inplace.wrl", wrltest::gzipBytes("plain text"));
    EXPECT_EQ(std::string(url.getURL(inTmp.c_str(), 0)), inTmp);
    EXPECT_EQ(readFile(inTmp), "plain text");
}

TEST_F(WebLocal, OnlyBothSignatureBytesMeanGzipAndBrokenGzipLeavesNothing) {
    for (const std::string& text : {std::string("\x1f"), std::string("\x8b\x1f rest"), std::string()}) {
        const std::string file = files.write("plain.wrl", text);
        EXPECT_EQ(std::string(url.getURL(file.c_str(), 0)), file);
    }
    const std::string whole = wrltest::gzipBytes(std::string(5000, 'x'));
    const std::string cut = files.write("cut.wrl", whole.substr(0, whole.size() / 2));
    EXPECT_EQ(url.getURL(cut.c_str(), 0), nullptr);
    const std::string garbage = files.write("garbage.wrl", std::string("\x1f\x8bnot deflate at all", 20));
    EXPECT_EQ(url.getURL(garbage.c_str(), 0), nullptr);
    struct stat info;
    EXPECT_NE(stat((tmp.path() + "/cut.wrl").c_str(), &info), 0);
    EXPECT_NE(stat((tmp.path() + "/garbage.wrl").c_str(), &info), 0);
}
