// Remote files: the one-line request, the cache, the refusals and the proxy.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>

#include "test_support.h"
#include "url/url_messages.h"
#include "url/zn_URL_web.h"
#include "url_test_server.h"

using testing::HasSubstr;
using testing::Not;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;
using wrltest::alertLine;
using wrltest::messageLine;
using wrltest::readFile;
using wrltest::ScopedEnv;
using wrltest::TempDir;
using wrltest::TestHttpServer;

namespace {

const std::string kScene = "#VRML V2.0 utf8\nShape {}\n";

class Remote : public testing::Test {
protected:
    // Past the first request, so that only the tests of the proxy note see it.
    void SetUp() override { zn_URL_web::remoteRequests = 1; }

    bool exists(const std::string& path) const {
        struct stat info;
        return stat(path.c_str(), &info) == 0;
    }
    std::string cacheFile(const std::string& name) const { return tmp.path() + "/.zncache" + name; }

    TempDir tmp;
    ScopedEnv tmpPath{"ZN_TMP_PATH", tmp.path().c_str()};
    ScopedEnv noProxy{"ZNPROXY", nullptr};
    zn_URL_web url;
};

}  // namespace

TEST_F(Remote, FetchedIntoTheCacheThenServedFromItWithTheServerStopped) {
    TestHttpServer server(kScene);
    const std::string address = server.url("/models/scene.wrl");

    CaptureStderr();
    const char* first = url.getURL(address.c_str(), 0);
    const std::string report = GetCapturedStderr();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(std::string(first), cacheFile("scene.wrl"));
    EXPECT_EQ(readFile(first), kScene);
    EXPECT_EQ(report, messageLine(kConnecting) +
                          messageLine("Creating a cache file: " + cacheFile("scene.wrl") + ".\n"));
    server.stop();
    ASSERT_EQ(server.requests(), std::vector<std::string>{"GET /models/scene.wrl\n"});
    struct stat info;
    ASSERT_EQ(stat(cacheFile("scene.wrl").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0666u);

    CaptureStderr();
    FILE* again = url.fopenURL(address.c_str(), 0);
    EXPECT_EQ(GetCapturedStderr(), "");
    ASSERT_NE(again, nullptr);
    url.fcloseURL(again, 0);
}

TEST_F(Remote, CachedCopyIsUsedEvenAfterTheServerChanged) {
    {
        TestHttpServer server("old");
        ASSERT_NE(url.getURL(server.url("/x.wrl").c_str(), 0), nullptr);
    }
    TestHttpServer server("new");
    const char* local = url.getURL(server.url("/elsewhere/x.wrl").c_str(), 0);
    ASSERT_NE(local, nullptr);
    EXPECT_EQ(readFile(local), "old");
    server.stop();
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(Remote, StatusLineOrNotFoundPageInTheFirst255BytesIsRefusedAndNotCached) {
    const std::string word = "Not Found";
    for (const std::string& page :
         {"HTTP/1.0 200 OK\r\nContent-Type: model/vrml\r\n\r\n" + kScene, std::string("<html>404 Not Found</html>"),
          std::string("file not found"), std::string("NOT FOUND"),
          std::string("<HTML><HEAD><TITLE>x</TITLE></HEAD></HTML>"), std::string("<html><head></head>"),
          std::string(255 - word.size(), '#') + word + "\n"}) {  // ends exactly on byte 255
        SCOPED_TRACE(page);
        TestHttpServer server(page);
        EXPECT_THAT(wrltest::stderrOf([&] { EXPECT_EQ(url.getURL(server.url("/scene.wrl").c_str(), 0), nullptr); }),
                    HasSubstr(alertLine(kRemoteNotFound)));
        EXPECT_FALSE(exists(cacheFile("scene.wrl")));
    }
    // Reaching byte 256, or behind a null byte, the words are a file's like any other.
    for (const std::string& page : {std::string(256 - word.size(), '#') + word + "\n",
                                   std::string("binary\0 Not Found", 17)}) {
        TestHttpServer server(page);
        CaptureStderr();
        const char* local = url.getURL(server.url("/a" + std::to_string(page.size()) + ".bin").c_str(), 0);
        EXPECT_THAT(GetCapturedStderr(), Not(HasSubstr(alertLine(kRemoteNotFound))));
        ASSERT_NE(local, nullptr);
        EXPECT_EQ(readFile(local), page);
    }
}

TEST_F(Remote, UnreachablePortOrEmptyReplyIsReportedAsUnreachable) {
    const std::string address = "http://127.0.0.1:" + std::to_string(wrltest::unusedPort()) + "/x.wrl";
    EXPECT_EQ(wrltest::stderrOf([&] { EXPECT_EQ(url.getURL(address.c_str(), 0), nullptr); }),
              messageLine(kConnecting) + alertLine(kHostUnreachable));
    EXPECT_FALSE(exists(cacheFile("x.wrl")));
    TestHttpServer server("");
    EXPECT_THAT(wrltest::stderrOf([&] { EXPECT_EQ(url.getURL(server.url("/x.wrl").c_str(), 0), nullptr); }),
                HasSubstr(alertLine(kHostUnreachable)));
}

TEST_F(Remote, ShortLastComponentIsAnInvalidName) {
    TestHttpServer server(kScene);
    for (const std::string path : {"/a", "/dir/"}) {
        EXPECT_EQ(wrltest::stderrOf([&] { EXPECT_EQ(url.getURL(server.url(path).c_str(), 0), nullptr); }),
                  alertLine(kInvalidUrlName));
    }
    EXPECT_NE(url.getURL(server.url("/ab").c_str(), 0), nullptr);
    server.stop();
    EXPECT_EQ(server.requests(), std::vector<std::string>{"GET /ab\n"});
}

TEST_F(Remote, NoPathAsksForTheRoot) {
    TestHttpServer server(kScene);
    std::string data;
    EXPECT_EQ(zn_URL_web::getURL(data, server.url("").c_str()), static_cast<int>(kScene.size()));
    EXPECT_EQ(data, kScene);
    EXPECT_EQ(zn_URL_web::getURL(data, "http://"), 0);
    EXPECT_EQ(zn_URL_web::getURL(data, nullptr), 0);
    server.stop();
    EXPECT_EQ(server.requests(), std::vector<std::string>{"GET /\n"});
}

TEST_F(Remote, GzippedRemoteFileArrivesUnpacked) {
    TestHttpServer server(wrltest::gzipBytes(kScene));
    const char* local = url.getURL(server.url("/packed/scene.wrl").c_str(), 0);
    ASSERT_NE(local, nullptr);
    EXPECT_EQ(std::string(local), cacheFile("scene.wrl"));
    EXPECT_EQ(readFile(local), kScene);
    server.stop();
    // Served again from the cache, still plain.
    EXPECT_EQ(readFile(url.getURL(server.url("/packed/scene.wrl").c_str(), 0)), kScene);
}

TEST_F(Remote, RelativeNameUnderARemoteWorldIsFetchedBesideIt) {
    TestHttpServer server(kScene);
    ASSERT_NE(url.getURL(server.url("/worlds/world.wrl").c_str(), 1), nullptr);
    EXPECT_EQ(std::string(url.get_path()), server.url("/worlds/"));
    EXPECT_NE(url.getURL("protos/box.wrl", 0), nullptr);
    server.stop();
    EXPECT_EQ(server.requests(),
              (std::vector<std::string>{"GET /worlds/world.wrl\n", "GET /worlds/protos/box.wrl\n"}));
}

TEST_F(Remote, ProxyPrefixBecomesTheRequestPath) {
    TestHttpServer proxy(kScene);
    ScopedEnv viaProxy("ZNPROXY", proxy.url("/").c_str());
    zn_URL_web::remoteRequests = 0;
    CaptureStderr();
    const char* local = url.getURL("http://models.example/lib/chair.wrl", 0);
    const std::string report = GetCapturedStderr();
    ASSERT_NE(local, nullptr);
    EXPECT_EQ(std::string(local), cacheFile("chair.wrl"));
    EXPECT_THAT(report, Not(HasSubstr("ZNPROXY")));
    proxy.stop();
    EXPECT_EQ(proxy.requests(), std::vector<std::string>{"GET /http://models.example/lib/chair.wrl\n"});
}

TEST_F(Remote, ProxyNoteComesWithTheFirstRemoteRequestOnly) {
    TestHttpServer server(kScene);
    zn_URL_web::remoteRequests = 0;
    CaptureStderr();
    EXPECT_NE(url.getURL(server.url("/one.wrl").c_str(), 0), nullptr);
    EXPECT_NE(url.getURL(server.url("/two.wrl").c_str(), 0), nullptr);
    const std::string report = GetCapturedStderr();
    EXPECT_EQ(report.find(alertLine(kProxyNote)), 0u);
    EXPECT_EQ(report.find(alertLine(kProxyNote), 1), std::string::npos);
    EXPECT_THAT(report, HasSubstr("setenv ZNPROXY http://"));
    server.stop();
    EXPECT_EQ(server.requests().size(), 2u);
}
