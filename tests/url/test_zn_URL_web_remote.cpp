// Remote files from a real HTTP/1.1 server: the cache, redirects, gzip,
// refusals, time-outs and the proxy.
#include <dirent.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <fstream>
#include <string>

#include "test_support.h"
#include "url/url_messages.h"
#include "url/zn_URL_http.h"
#include "url/zn_URL_web.h"
#include "url_test_server.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using wrltest::alertLine;
using wrltest::messageLine;
using wrltest::readFile;
using wrltest::ScopedEnv;
using wrltest::stderrOf;
using wrltest::TempDir;
using wrltest::TestHttpServer;

namespace {

const std::string kScene = "#VRML V2.0 utf8\nShape {}\n";

class Remote : public testing::Test {
protected:
    // Past the first request, so that only the tests of the proxy note see it.
    void SetUp() override { zn_URL_web::remoteRequests = 1; }

    // The names in the temporary directory: what fetching left behind.
    std::vector<std::string> tmpFiles() const {
        std::vector<std::string> names;
        DIR* dir = opendir(tmp.path().c_str());
        while (dirent* entry = dir ? readdir(dir) : nullptr)
            if (std::string(entry->d_name) != "." && std::string(entry->d_name) != "..") names.push_back(entry->d_name);
        if (dir) closedir(dir);
        return names;
    }
    // What getURL answered for `address` and what it reported.
    std::string fetched(const std::string& address, std::string* report = nullptr) {
        const char* local = nullptr;
        const std::string err = stderrOf([&] { local = url.getURL(address.c_str(), 0); });
        if (report) *report = err;
        return local ? readFile(local) : "(null)";
    }

    TempDir tmp;
    ScopedEnv tmpPath{"ZN_TMP_PATH", tmp.path().c_str()};
    ScopedEnv noProxy{"ZNPROXY", nullptr};
    zn_URL_web url;
    TestHttpServer server;
};

}  // namespace

TEST_F(Remote, FetchedOnceIntoItsCacheFileThenServedFromItWithTheServerStopped) {
    server.put("/models/scene.wrl", kScene);
    const std::string address = server.url("/models/scene.wrl");
    const std::string cache = zn_URL_web::cacheName(address);
    EXPECT_EQ(cache.rfind(tmp.path() + "/.zncache", 0), 0u);
    EXPECT_THAT(cache, testing::EndsWith("-scene.wrl"));

    std::string report;
    EXPECT_EQ(fetched(address, &report), kScene);
    EXPECT_EQ(std::string(url.getURL(address.c_str(), 0)), cache);
    EXPECT_EQ(report, messageLine(kConnecting) + messageLine("Creating a cache file: " + cache + ".\n"));
    struct stat info;
    ASSERT_EQ(stat(cache.c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0666u);

    server.put("/models/scene.wrl", "changed on the server");
    server.stop();
    EXPECT_EQ(fetched(address, &report), kScene);
    EXPECT_EQ(report, "");
    FILE* again = url.fopenURL(address.c_str(), 0);
    ASSERT_NE(again, nullptr);
    url.fcloseURL(again, 0);
    EXPECT_THAT(server.requests(), ElementsAre("GET /models/scene.wrl HTTP/1.1"));
}

TEST_F(Remote, FilesOfOneNameInDifferentFoldersKeepTheirOwnContents) {
    server.put("/a/same.wrl", "first");
    server.put("/b/same.wrl", "second");
    EXPECT_EQ(fetched(server.url("/a/same.wrl")), "first");
    EXPECT_EQ(fetched(server.url("/b/same.wrl")), "second");
    EXPECT_NE(zn_URL_web::cacheName(server.url("/a/same.wrl")), zn_URL_web::cacheName(server.url("/b/same.wrl")));
    server.stop();
    EXPECT_EQ(fetched(server.url("/a/same.wrl")), "first");
    EXPECT_EQ(fetched(server.url("/b/same.wrl")), "second");
    EXPECT_EQ(server.requests().size(), 2u);
}

TEST_F(Remote, RedirectsAreFollowedUpToTen) {
    server.put("/w/scene.wrl", kScene);
    const std::string ten = server.url("/redirect/9/w/scene.wrl");
    EXPECT_EQ(fetched(ten), kScene);
    EXPECT_TRUE(std::ifstream(zn_URL_web::cacheName(ten)).good());  // kept under the name asked for
    EXPECT_EQ(server.requests().size(), 11u);
    EXPECT_EQ(server.requests().back(), "GET /w/scene.wrl HTTP/1.1");

    std::string report;
    EXPECT_EQ(fetched(server.url("/redirect/10/w/scene.wrl"), &report), "(null)");
    EXPECT_THAT(report, HasSubstr(alertLine(kRemoteNotFound)));
    EXPECT_EQ(server.requests().size(), 22u);
}

TEST_F(Remote, ErrorStatusesAreNotFoundAndLeaveNothingBehind) {
    for (const std::string& path : {std::string("/missing.wrl"), std::string("/status/500/x.wrl"),
                                    std::string("/status/403/y.wrl")}) {
        std::string report;
        EXPECT_EQ(fetched(server.url(path), &report), "(null)");
        const std::string status = path == "/missing.wrl" ? "404" : path.substr(8, 3);
        EXPECT_EQ(report, messageLine(kConnecting) +
                              messageLine(server.url(path) + ": the server answered " + status + ".") +
                              alertLine(kRemoteNotFound));
    }
    EXPECT_TRUE(tmpFiles().empty());
}

TEST_F(Remote, NotFoundWordsNearTheStartOfAServedFileRefuseIt) {
    const std::string word = "Not Found";
    for (const std::string& page :
         {std::string("<html>404 Not Found</html>"), std::string("file not found"), std::string("NOT FOUND"),
          std::string("<HTML><HEAD><TITLE>x</TITLE></HEAD></HTML>"), "HTTP/1.0 200 OK\r\n\r\n" + kScene,
          std::string(255 - word.size(), '#') + word + "\n"}) {  // ends exactly on byte 255
        SCOPED_TRACE(page);
        server.put("/page.wrl", page);
        std::string report;
        EXPECT_EQ(fetched(server.url("/page.wrl"), &report), "(null)");
        EXPECT_THAT(report, HasSubstr(alertLine(kRemoteNotFound)));
    }
    EXPECT_TRUE(tmpFiles().empty());
    // Reaching byte 256, or behind a null byte, the words are a file's like any other.
    for (const std::string& page :
         {std::string(256 - word.size(), '#') + word + "\n", std::string("binary\0 Not Found", 17)}) {
        const std::string path = "/a" + std::to_string(page.size()) + ".bin";
        server.put(path, page);
        EXPECT_EQ(fetched(server.url(path)), page);
    }
}

TEST_F(Remote, NoServerOrNoDataIsReportedAsUnreachable) {
    const std::string nobody = "http://127.0.0.1:" + std::to_string(wrltest::unusedPort()) + "/x.wrl";
    std::string report;
    EXPECT_EQ(fetched(nobody, &report), "(null)");
    EXPECT_THAT(report, testing::StartsWith(messageLine(kConnecting) + "\nMessage:  " + nobody + ": "));
    EXPECT_THAT(report, testing::EndsWith(alertLine(kHostUnreachable)));
    // One slash short names no host: nothing is asked of anyone.
    const std::string oneSlash = "http:/127.0.0.1:" + std::to_string(wrltest::unusedPort()) + "/x.wrl";
    EXPECT_EQ(fetched(oneSlash, &report), "(null)");
    EXPECT_THAT(report, HasSubstr(oneSlash + ": URL using bad/illegal format"));

    server.put("/empty.wrl", "");
    EXPECT_EQ(fetched(server.url("/empty.wrl"), &report), "(null)");
    EXPECT_EQ(report, messageLine(kConnecting) + messageLine(server.url("/empty.wrl") + ": the server sent no data.") +
                          alertLine(kHostUnreachable));

    // An https URL is spoken to in TLS, which a plain server does not answer.
    const std::string secure = "https://127.0.0.1:" + std::to_string(server.port()) + "/x.wrl";
    EXPECT_EQ(fetched(secure, &report), "(null)");
    EXPECT_THAT(report, HasSubstr(alertLine(kHostUnreachable)));
    EXPECT_TRUE(tmpFiles().empty());
}

TEST_F(Remote, ShortLastComponentIsAnInvalidName) {
    server.put("/ab", kScene);
    for (const std::string path : {"/a", "/dir/"}) {
        std::string report;
        EXPECT_EQ(fetched(server.url(path), &report), "(null)");
        EXPECT_EQ(report, alertLine(kInvalidUrlName));
    }
    EXPECT_EQ(fetched(server.url("/ab")), kScene);
    EXPECT_THAT(server.requests(), ElementsAre("GET /ab HTTP/1.1"));
}

TEST_F(Remote, GzipArrivesUnpackedWhetherTheFileOrTheTransferIsPacked) {
    server.put("/packed/scene.wrl", wrltest::gzipBytes(kScene));
    server.put("/plain/scene.wrl", kScene);
    const std::string packedFile = server.url("/packed/scene.wrl");
    const std::string packedTransfer = server.url("/gzip/plain/scene.wrl");
    EXPECT_EQ(fetched(packedFile), kScene);
    EXPECT_EQ(std::string(url.getURL(packedFile.c_str(), 0)), zn_URL_web::cacheName(packedFile));
    EXPECT_EQ(fetched(packedTransfer), kScene);
    server.stop();
    EXPECT_EQ(fetched(packedFile), kScene);
    EXPECT_EQ(readFile(zn_URL_web::cacheName(packedTransfer)), kScene);
}

TEST_F(Remote, AServerThatGoesQuietCostsTheTimeOutAndIsReported) {
    ScopedEnv timeout("ZN_HTTP_TIMEOUT", "2");
    server.put("/w/scene.wrl", kScene);
    // Quiet after its headers, and quiet from the start.
    for (const std::string path : {"/stall/w/scene.wrl", "/silent/w/scene.wrl"}) {
        const auto start = std::chrono::steady_clock::now();
        std::string report;
        EXPECT_EQ(fetched(server.url(path), &report), "(null)");
        const auto took = std::chrono::steady_clock::now() - start;
        EXPECT_GE(took, std::chrono::milliseconds(1500));
        EXPECT_LT(took, std::chrono::seconds(15));
        EXPECT_EQ(report, messageLine(kConnecting) +
                              alertLine("No data from " + server.url(path) + " for 2 seconds: given up.\n"));
    }
    EXPECT_TRUE(tmpFiles().empty());
}

TEST(HttpTimeout, WholePositiveSecondsOrTheDefault) {
    for (const auto& [text, seconds] : std::vector<std::pair<const char*, long>>{
             {nullptr, 30}, {"", 30}, {"7", 7}, {"0", 30}, {"-4", 30}, {"2s", 30}, {"many", 30}}) {
        ScopedEnv timeout("ZN_HTTP_TIMEOUT", text);
        EXPECT_EQ(znHttpTimeout(), seconds) << (text ? text : "unset");
    }
}

TEST_F(Remote, NamesUnderARemoteWorldAreFetchedFromItsServer) {
    server.put("/worlds/world.wrl", kScene);
    server.put("/worlds/protos/box.wrl", "box");
    server.put("/shared/a b.png", "blank");
    server.put("/up.wrl", "up");
    ASSERT_NE(url.getURL(server.url("/worlds/world.wrl").c_str(), 1), nullptr);
    EXPECT_EQ(std::string(url.get_path()), server.url("/worlds/"));
    EXPECT_EQ(fetched("protos/box.wrl"), "box");
    EXPECT_EQ(fetched("/shared/a b.png"), "blank");  // from the server's root, blank encoded
    EXPECT_EQ(fetched("../up.wrl"), "up");
    EXPECT_EQ(fetched("world.wrl#Entry"), kScene);  // a fragment names no file of its own: cached
    EXPECT_THAT(server.requests(), ElementsAre("GET /worlds/world.wrl HTTP/1.1", "GET /worlds/protos/box.wrl HTTP/1.1",
                                               "GET /shared/a%20b.png HTTP/1.1", "GET /up.wrl HTTP/1.1"));
}

TEST_F(Remote, ProxyIsAskedForTheWholeURL) {
    TestHttpServer proxy(kScene);
    ScopedEnv viaProxy("ZNPROXY", proxy.url("/").c_str());
    zn_URL_web::remoteRequests = 0;
    std::string report;
    EXPECT_EQ(fetched("http://models.example/lib/chair.wrl", &report), kScene);
    EXPECT_THAT(report, Not(HasSubstr("ZNPROXY")));
    EXPECT_TRUE(std::ifstream(zn_URL_web::cacheName("http://models.example/lib/chair.wrl")).good());
    EXPECT_THAT(proxy.requests(), ElementsAre("GET http://models.example/lib/chair.wrl HTTP/1.1"));
}

TEST_F(Remote, ProxyNoteComesWithTheFirstRemoteRequestOnly) {
    server.put("/one.wrl", kScene);
    server.put("/two.wrl", kScene);
    zn_URL_web::remoteRequests = 0;
    std::string first, second;
    fetched(server.url("/one.wrl"), &first);
    fetched(server.url("/two.wrl"), &second);
    EXPECT_EQ(first.find(alertLine(kProxyNote)), 0u);
    EXPECT_THAT(first, HasSubstr("setenv ZNPROXY http://"));
    EXPECT_THAT(second, Not(HasSubstr("ZNPROXY")));
}
