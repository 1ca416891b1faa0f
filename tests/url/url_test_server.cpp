#include "url_test_server.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <zlib.h>

#include <cstdio>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "base/base_messages.h"

extern char** environ;

namespace wrltest {

namespace {

constexpr int kStartMillis = 10000;

std::string formatLine(const char* format, const std::string& text) {
    char line[1024];
    std::snprintf(line, sizeof line, format, text.c_str());
    return line;
}

// The first line that the server prints: its port. 0 when none came in time.
int readPort(int fd) {
    std::string line;
    while (line.find('\n') == std::string::npos) {
        pollfd waiting{fd, POLLIN, 0};
        if (::poll(&waiting, 1, kStartMillis) <= 0) return 0;
        char block[64];
        const ssize_t n = ::read(fd, block, sizeof block);
        if (n <= 0) return 0;
        line.append(block, static_cast<std::size_t>(n));
    }
    return std::atoi(line.c_str());
}

}  // namespace

TestHttpServer::TestHttpServer() { start(""); }

TestHttpServer::TestHttpServer(const std::string& reply) { start(dir_.write("reply", reply)); }

TestHttpServer::~TestHttpServer() { stop(); }

void TestHttpServer::start(const std::string& always) {
    dir_.write("files/.keep", "");
    int input[2], output[2];
    if (::pipe2(input, O_CLOEXEC) != 0 || ::pipe2(output, O_CLOEXEC) != 0) throw std::runtime_error("pipe failed");

    std::vector<std::string> words = {WRL_PYTHON3, WRL_SOURCE_DIR "/tests/url/http_test_server.py",
                                      "--root",    dir_.path() + "/files",
                                      "--log",     dir_.path() + "/requests.log"};
    if (!always.empty()) words.insert(words.end(), {"--always", always});
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);

    // The server's own complaints go to a file: a test that captures the
    // error stream must see only the loader's.
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input[0], 0);
    posix_spawn_file_actions_adddup2(&actions, output[1], 1);
    const std::string errors = dir_.path() + "/server.err";
    posix_spawn_file_actions_addopen(&actions, 2, errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    const int spawned = ::posix_spawn(&pid_, argv[0], &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(input[0]);
    ::close(output[1]);
    input_ = input[1];
    if (spawned != 0) {
        pid_ = -1;
        ::close(output[0]);
        throw std::runtime_error(std::string("cannot start ") + WRL_PYTHON3);
    }
    port_ = readPort(output[0]);
    ::close(output[0]);
    if (port_ <= 0) {
        stop();
        throw std::runtime_error("the test HTTP server did not start: " + readFile(errors));
    }
}

void TestHttpServer::put(const std::string& path, const std::string& bytes) const {
    dir_.write("files/" + path, bytes);
}

std::string TestHttpServer::url(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(port_) + path;
}

void TestHttpServer::stop() {
    if (pid_ > 0) {
        ::kill(pid_, SIGTERM);
        int status = 0;
        ::waitpid(pid_, &status, 0);
        pid_ = -1;
    }
    if (input_ >= 0) ::close(input_);
    input_ = -1;
}

std::vector<std::string> TestHttpServer::requests() const {
    std::istringstream log(readFile(dir_.path() + "/requests.log"));
    std::vector<std::string> lines;
    for (std::string line; std::getline(log, line);) lines.push_back(line);
    return lines;
}

int unusedPort() {
    const int fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0) throw std::runtime_error("socket failed");
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    const bool bound = ::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 &&
                       ::getsockname(fd, reinterpret_cast<sockaddr*>(&address), &length) == 0;
    ::close(fd);
    if (!bound) throw std::runtime_error("bind failed");
    return ntohs(address.sin_port);
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
