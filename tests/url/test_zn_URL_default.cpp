// The local-file URL object: how names meet the directory stack.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "test_support.h"
#include "url/zn_URL_default.h"

using wrltest::TempDir;

namespace {

std::string readAll(FILE* file) {
    std::string text;
    char block[256];
    std::size_t n;
    while ((n = std::fread(block, 1, sizeof block, file)) > 0) text.append(block, n);
    return text;
}

}  // namespace

TEST(zn_URL_default, RelativeFileIsFoundUnderThePushedDirectoryAndANestedPushJoinsItsOwn) {
    TempDir dir;
    const std::string world = dir.write("models/world.wrl", "world");
    dir.write("models/inline.wrl", "inline");
    dir.write("models/b/proto.wrl", "p");
    dir.write("models/b/texture.rgb", "t");
    zn_URL_default url;

    FILE* outer = url.fopenURL(world.c_str(), 1);
    ASSERT_NE(outer, nullptr);
    EXPECT_EQ(std::string(url.get_path()), dir.path() + "/models/");

    FILE* inner = url.fopenURL("inline.wrl", 0);
    ASSERT_NE(inner, nullptr);
    EXPECT_EQ(readAll(inner), "inline");
    url.fcloseURL(inner, 0);
    EXPECT_EQ(std::string(url.get_path()), dir.path() + "/models/");

    // A nested push joins its subdirectory to the top.
    std::ifstream* proto = url.iopenURL("b/proto.wrl", 1);
    ASSERT_NE(proto, nullptr);
    EXPECT_TRUE(proto->is_open());
    EXPECT_EQ(std::string(url.get_path()), dir.path() + "/models/b/");
    EXPECT_EQ(std::string(url.getURL("texture.rgb", 0)), dir.path() + "/models/b/texture.rgb");
    url.icloseURL(proto, 1);
    delete proto;
    EXPECT_EQ(std::string(url.get_path()), dir.path() + "/models/");

    url.fcloseURL(outer, 1);
    EXPECT_EQ(url.get_path(), nullptr);
}

TEST(zn_URL_default, NamesMeetTheTopDirectoryUnlessTheyNameAScheme) {
    zn_URL_default url;
    EXPECT_STREQ(url.addpath("world.wrl", 1), "world.wrl");  // a bare name pushes "./"
    EXPECT_STREQ(url.get_path(), "./");
    EXPECT_STREQ(url.addpath("next.wrl", 1), "./next.wrl");
    url.addpath("models/world.wrl", 1);
    EXPECT_STREQ(url.addpath("/abs/x.wrl", 0), "./models//abs/x.wrl");  // a leading slash is still joined
    EXPECT_STREQ(url.addpath("http://host/x.wrl", 0), "http://host/x.wrl");
    EXPECT_STREQ(url.addpath("fIlE:/x/y.wrl", 0), "/x/y.wrl");
    EXPECT_STREQ(url.addpath("file:/abs/sub/x.wrl", 1), "/abs/sub/x.wrl");
    EXPECT_STREQ(url.get_path(), "/abs/sub/");
    // Other writers' spellings of the same file, and escaped bytes.
    EXPECT_STREQ(url.addpath("file:///abs/x.wrl", 0), "/abs/x.wrl");
    EXPECT_STREQ(url.addpath("FILE://LocalHost/abs/my%20world%2a.wrl", 0), "/abs/my world*.wrl");
    EXPECT_STREQ(url.addpath("file://otherhost/abs/x.wrl", 0), "//otherhost/abs/x.wrl");
    EXPECT_STREQ(url.addpath("file:/abs/100%.wrl", 0), "/abs/100%.wrl");

    TempDir dir;
    const std::string world = dir.write("w.wrl", "w");
    zn_URL_default spelled;
    EXPECT_EQ(std::string(spelled.addpath(("FILE:" + world).c_str(), 1)), world);  // the slash is kept
    EXPECT_EQ(std::string(spelled.get_path()), dir.path() + "/");
}

TEST(zn_URL_default, OnlyFlagOnePopsAndPoppedTextStaysValid) {
    zn_URL_default url;
    url.addpath("a/x.wrl", 1);
    url.delpath(2);
    url.delpath(-1);
    url.delpath(0);
    url.fcloseURL(nullptr, 0);
    url.icloseURL(nullptr, 2);
    EXPECT_STREQ(url.get_path(), "a/");
    const char* kept = url.get_path();
    url.delpath(1);
    EXPECT_EQ(url.get_path(), nullptr);
    url.delpath(1);  // an empty stack stays empty
    EXPECT_EQ(url.get_path(), nullptr);
    url.addpath("other/y.wrl", 1);
    EXPECT_STREQ(kept, "a/");
}

TEST(zn_URL_default, MissingFileKeepsItsStackEntry) {
    TempDir dir;
    zn_URL_default url;
    const std::string missing = dir.path() + "/none/x.wrl";
    EXPECT_EQ(url.fopenURL(missing.c_str(), 1), nullptr);
    EXPECT_EQ(std::string(url.get_path()), dir.path() + "/none/");
    EXPECT_EQ(url.getURL("y.wrl", 0), nullptr);

    // A stream comes back in its failed state rather than as null.
    std::ifstream* stream = url.iopenURL("z.wrl", 0);
    ASSERT_NE(stream, nullptr);
    EXPECT_FALSE(stream->is_open());
    delete stream;
}
