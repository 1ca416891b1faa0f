// Names too long for the fixed path buffers are refused, never cut or
// written past the end.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "test_support.h"
#include "url/url_messages.h"
#include "url/zn_URL_default.h"
#include "url/zn_URL_web.h"
#include "url_test_server.h"

using testing::HasSubstr;
using testing::StartsWith;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;
using wrltest::ScopedEnv;
using wrltest::TempDir;

namespace {

std::string tooLongReport(std::size_t bufferSize, const std::string& name) {
    char text[200];
    std::snprintf(text, sizeof text, kPathTooLong, static_cast<int>(bufferSize - 1), name.c_str());
    return wrltest::alertLine(text);
}

}  // namespace

TEST(UrlBounds, DefaultRefusesAThousandCharacterUrlAndHoldsExactly255) {
    const std::string name = "dir/" + std::string(996, 'x');
    zn_URL_default url;
    CaptureStderr();
    EXPECT_EQ(url.fopenURL(name.c_str(), 0), nullptr);
    EXPECT_EQ(url.iopenURL(name.c_str(), 0), nullptr);
    EXPECT_EQ(url.getURL(name.c_str(), 0), nullptr);
    EXPECT_THAT(GetCapturedStderr(), StartsWith(tooLongReport(kDefaultPathBufferSize, name)));

    const std::string fits(255, 'a');
    EXPECT_EQ(std::string(url.addpath(fits.c_str(), 0)), fits);
    EXPECT_EQ(wrltest::stderrOf([&] { EXPECT_EQ(url.addpath((fits + "a").c_str(), 0), nullptr); }),
              tooLongReport(kDefaultPathBufferSize, fits + "a"));

    // A join that outgrows the buffer is refused, and a refused push still
    // keeps the stack balanced.
    ASSERT_NE(url.addpath((std::string(200, 'd') + "/w.wrl").c_str(), 1), nullptr);
    CaptureStderr();
    EXPECT_EQ(url.addpath(std::string(60, 'f').c_str(), 0), nullptr);
    EXPECT_EQ(url.fopenURL(("sub/" + std::string(1000, 'x')).c_str(), 1), nullptr);
    EXPECT_THAT(GetCapturedStderr(), HasSubstr("URL or path too long (at most 255 bytes)"));
    url.delpath(1);
    EXPECT_EQ(std::string(url.get_path()), std::string(200, 'd') + "/");
}

TEST(UrlBounds, WebRefusesAThousandCharacterUrlWithoutAConnection) {
    TempDir tmp;
    ScopedEnv tmpPath("ZN_TMP_PATH", tmp.path().c_str());
    wrltest::TestHttpServer server("data");
    const std::string address = server.url("/" + std::string(1000 - server.url("/").size(), 'x'));
    ASSERT_EQ(address.size(), 1000u);
    zn_URL_web url;
    EXPECT_EQ(wrltest::stderrOf([&] { EXPECT_EQ(url.fopenURL(address.c_str(), 1), nullptr); }),
              tooLongReport(kWebPathBufferSize, address));
    EXPECT_EQ(url.get_path(), nullptr);
    server.stop();
    EXPECT_TRUE(server.requests().empty());
}

TEST(UrlBounds, WebRefusesACacheNameThatOutgrowsTheBuffer) {
    TempDir tmp;
    const std::string deep = tmp.path() + "/" + std::string(480, 'd');
    ScopedEnv tmpPath("ZN_TMP_PATH", deep.c_str());
    wrltest::TestHttpServer server("data");
    zn_URL_web::remoteRequests = 1;
    zn_URL_web url;
    EXPECT_THAT(wrltest::stderrOf([&] { EXPECT_EQ(url.getURL(server.url("/scene.wrl").c_str(), 0), nullptr); }),
                HasSubstr("URL or path too long (at most 511 bytes)"));
    server.stop();
    EXPECT_TRUE(server.requests().empty());
}
