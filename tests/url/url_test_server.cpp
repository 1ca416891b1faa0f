#include "url_test_server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#include <zlib.h>

#include <chrono>
#include <cstdio>
#include <stdexcept>

#include "base/base_messages.h"

namespace wrltest {

namespace {

constexpr auto kServerLifetime = std::chrono::seconds(20);
constexpr int kPollMillis = 50;
constexpr int kRequestMillis = 2000;

int listenOnLoopback(int& port) {
    const int fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0) throw std::runtime_error("socket failed");
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = 0;
    socklen_t length = sizeof address;
    if (::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        ::getsockname(fd, reinterpret_cast<sockaddr*>(&address), &length) != 0) {
        ::close(fd);
        throw std::runtime_error("bind failed");
    }
    port = ntohs(address.sin_port);
    return fd;
}

std::string formatLine(const char* format, const std::string& text) {
    char line[1024];
    std::snprintf(line, sizeof line, format, text.c_str());
    return line;
}

}  // namespace

TestHttpServer::TestHttpServer(std::string reply) : reply_(std::move(reply)) {
    listenFd_ = listenOnLoopback(port_);
    if (::listen(listenFd_, 8) != 0) throw std::runtime_error("listen failed");
    thread_ = std::thread([this] { run(); });
}

TestHttpServer::~TestHttpServer() { stop(); }

std::string TestHttpServer::url(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(port_) + path;
}

void TestHttpServer::stop() {
    stopping_ = true;
    if (thread_.joinable()) thread_.join();
    if (listenFd_ >= 0) ::close(listenFd_);
    listenFd_ = -1;
}

std::vector<std::string> TestHttpServer::requests() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return requests_;
}

void TestHttpServer::run() {
    const auto deadline = std::chrono::steady_clock::now() + kServerLifetime;
    while (!stopping_ && std::chrono::steady_clock::now() < deadline) {
        pollfd waiting{listenFd_, POLLIN, 0};
        if (::poll(&waiting, 1, kPollMillis) <= 0) continue;
        const int client = ::accept4(listenFd_, nullptr, nullptr, SOCK_CLOEXEC);
        if (client < 0) continue;
        serve(client);
        ::close(client);
    }
}

void TestHttpServer::serve(int client) {
    std::string request;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(kRequestMillis);
    while (request.find('\n') == std::string::npos && std::chrono::steady_clock::now() < deadline) {
        pollfd waiting{client, POLLIN, 0};
        if (::poll(&waiting, 1, kPollMillis) <= 0) continue;
        char block[512];
        const ssize_t n = ::recv(client, block, sizeof block, 0);
        if (n <= 0) break;
        request.append(block, static_cast<std::size_t>(n));
    }
    {
        std::lock_guard<std::mutex> lock(mutex_);
        requests_.push_back(request);
    }
    const char* data = reply_.data();
    std::size_t left = reply_.size();
    while (left > 0) {
        const ssize_t n = ::send(client, data, left, MSG_NOSIGNAL);
        if (n <= 0) break;
        data += n;
        left -= static_cast<std::size_t>(n);
    }
    ::shutdown(client, SHUT_WR);
}

int unusedPort() {
    int port = 0;
    ::close(listenOnLoopback(port));
    return port;
}

std::string gzipBytes(const std::string& text) {
    z_stream stream{};
    // 16 over the window bits asks for a gzip header and trailer.
    if (deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, 15 + 16, 8, Z_DEFAULT_STRATEGY) != Z_OK)
        throw std::runtime_error("deflateInit2 failed");
    std::string out(deflateBound(&stream, text.size()) + 32, '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
    stream.avail_in = static_cast<uInt>(text.size());
    stream.next_out = reinterpret_cast<Bytef*>(out.data());
    stream.avail_out = static_cast<uInt>(out.size());
    const int result = deflate(&stream, Z_FINISH);
    deflateEnd(&stream);
    if (result != Z_STREAM_END) throw std::runtime_error("deflate failed");
    out.resize(stream.total_out);
    return out;
}

std::string messageLine(const std::string& text) { return formatLine(kMessageFormat, text); }
std::string alertLine(const std::string& text) { return formatLine(kAlertFormat, text); }

}  // namespace wrltest
