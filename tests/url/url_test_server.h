// A one-thread HTTP stand-in on 127.0.0.1 for the URL tests: it answers
// every connection with the same bytes and records the request lines.
#ifndef URL_TEST_SERVER_H
#define URL_TEST_SERVER_H

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace wrltest {

class TestHttpServer {
public:
    // Listens on an ephemeral port at once; gives up by itself after a
    // bounded time so that no test can hang on it.
    explicit TestHttpServer(std::string reply);
    ~TestHttpServer();
    TestHttpServer(const TestHttpServer&) = delete;
    TestHttpServer& operator=(const TestHttpServer&) = delete;

    int port() const { return port_; }
    // "http://127.0.0.1:<port>" followed by `path`.
    std::string url(const std::string& path) const;
    // Closes the listening socket; later connections are refused.
    void stop();
    // What each connection sent, up to and including its first line feed.
    std::vector<std::string> requests() const;

private:
    void run();
    void serve(int client);

    std::string reply_;
    int listenFd_ = -1;
    int port_ = 0;
    std::atomic<bool> stopping_{false};
    mutable std::mutex mutex_;
    std::vector<std::string> requests_;
    std::thread thread_;
};

// A port on 127.0.0.1 on which nothing listens.
int unusedPort();

// `text` as a gzip file.
std::string gzipBytes(const std::string& text);

// The exact lines that znMessage and znAlert print for `text`.
std::string messageLine(const std::string& text);
std::string alertLine(const std::string& text);

}  // namespace wrltest

#endif
