// A real HTTP/1.1 server on 127.0.0.1 for the tests of remote files: the
// Python script http_test_server.py beside this file, run as a child
// process on a port the system picks and ended with the object.
#ifndef URL_TEST_SERVER_H
#define URL_TEST_SERVER_H

#include <sys/types.h>

#include <string>
#include <vector>

#include "test_support.h"

namespace wrltest {

class TestHttpServer {
public:
    // Serves the files that put() writes, and the misbehaving paths that
    // http_test_server.py describes (/redirect/, /gzip/, /stall/, ...).
    TestHttpServer();
    // Answers every GET, whatever its path, with `reply`.
    explicit TestHttpServer(const std::string& reply);
    ~TestHttpServer();
    TestHttpServer(const TestHttpServer&) = delete;
    TestHttpServer& operator=(const TestHttpServer&) = delete;

    // Writes `bytes` to the served file `path` ("/dir/name.wrl").
    void put(const std::string& path, const std::string& bytes) const;
    int port() const { return port_; }
    // "http://127.0.0.1:<port>" followed by `path`.
    std::string url(const std::string& path) const;
    // Ends the server; later connections are refused.
    void stop();
    // The request line of each request so far ("GET /a.wrl HTTP/1.1").
    std::vector<std::string> requests() const;

private:
    void start(const std::string& always);

    TempDir dir_;
    pid_t pid_ = -1;
    int input_ = -1;  // the server's standard input; it ends when this closes
    int port_ = 0;
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
