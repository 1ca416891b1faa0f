#include "url/zn_URL_web.h"

#include <strings.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "base/zn_reports.h"
#include "url/zn_URL_files.h"

int zn_URL_web::remoteRequests = 0;

namespace {

// The cache is no directory but a set of files in the temporary directory,
// one per last path component: two urls that end alike share one file.
std::string cacheName(const std::string& url) {
    return znFormatText(kCacheNameFormat, znTmpPath().c_str(), znLastPathComponent(url).c_str());
}

// Error pages and replies with a status line are told from files by words
// near their start. The start is read as text: a null byte ends it.
bool looksLikeNotFound(const std::string& reply) {
    std::string_view start(reply.data(), std::min(reply.size(), kReplyProbeLength));
    start = start.substr(0, start.find('\0'));
    for (const char* word : kNotFoundWords)
        if (start.find(word) != std::string_view::npos) return true;
    return false;
}

}  // namespace

FILE* zn_URL_web::fopenURL(const char* url, int push) {
    const char* local = getURL(url, push);
    if (local == nullptr) {
        if (push) pathStack.pop();
        return nullptr;
    }
    return std::fopen(local, "r");
}

std::ifstream* zn_URL_web::iopenURL(const char* url, int push) {
    const char* local = getURL(url, push);
    if (local == nullptr) {
        if (push) pathStack.pop();
        return nullptr;
    }
    return new std::ifstream(local);
}

const char* zn_URL_web::getURL(const char* url, int push) {
    std::string work = znResolveURLPath(url, push, pathStack, znURLAbsoluteRule::kept);
    if (url == nullptr) return nullptr;
    // Whatever is formed from here on must fit the path buffer in the end.
    if (!znFitsPathBuffer(work, sizeof path)) return nullptr;

    if (strncasecmp(work.c_str(), kHttpSchemeLoose, std::strlen(kHttpSchemeLoose)) != 0) {
        FILE* probe = std::fopen(work.c_str(), "r");
        if (probe == nullptr) return nullptr;
        std::fclose(probe);
        const char* local = znStorePath(work, path, sizeof path);
        return local ? gunzip(local) : nullptr;
    }

    const char* proxy = std::getenv(kProxyVariable);
    ++remoteRequests;
    if (proxy) {
        // The proxy is a URL prefix with its trailing slash: the request goes
        // to the proxy and names the whole url as its path.
        work.insert(0, proxy);
        if (!znFitsPathBuffer(work, sizeof path)) return nullptr;
    } else if (remoteRequests == 1) {
        znAlert(kProxyNote);
    }

    if (get_remote(work.c_str()) != 0) return nullptr;
    const char* local = znStorePath(cacheName(work), path, sizeof path);
    return local ? gunzip(local) : nullptr;
}

int zn_URL_web::get_remote(const char* url) {
    const std::string name = znLastPathComponent(url ? url : "");
    if (name.size() < 2) {
        znAlert(kInvalidUrlName);
        return -1;
    }
    const std::string cache = cacheName(url);
    // A cache name that does not fit the path buffer could never be handed
    // on: refuse before any traffic.
    if (!znFitsPathBuffer(cache, sizeof path)) return -1;

    // A cached copy is used as it is: no check of age or size.
    if (FILE* cached = std::fopen(cache.c_str(), "r")) {
        std::fclose(cached);
        return 0;
    }

    znMessage(kConnecting);
    std::string data;
    if (getURL(data, url) == 0) {
        znAlert(kHostUnreachable);
        return -1;
    }
    if (looksLikeNotFound(data)) {
        znAlert(kRemoteNotFound);
        return -1;
    }
    znMessage(znFormatText(kCreatingCacheFile, cache.c_str()).c_str());
    if (!znReplaceFile(cache, data.data(), data.size(), 0666)) {
        znAlert(znFormatText(kCacheNotWritten, cache.c_str()).c_str());
        return -1;
    }
    return 0;
}

const char* zn_URL_web::gunzip(const char* file) {
    unsigned char magic[2] = {0, 0};
    std::size_t got = 0;
    if (FILE* f = std::fopen(file, "rb")) {
        got = std::fread(magic, 1, sizeof magic, f);
        std::fclose(f);
    }
    if (got < 2 || magic[0] != 0x1f || magic[1] != 0x8b) return file;

    // `file` may be the path buffer itself: form the target before storing.
    const std::string target =
        znFormatText(kUnpackedNameFormat, znTmpPath().c_str(), znLastPathComponent(file).c_str());
    if (!znFitsPathBuffer(target, sizeof path)) return nullptr;
    if (!znUnpackGzip(file, target)) return nullptr;
    return znStorePath(target, path, sizeof path);
}

int zn_URL_web::fcloseURL(FILE* file, int push) {
    if (push == 1) pathStack.pop();
    if (file) std::fclose(file);
    return 0;
}

int zn_URL_web::icloseURL(std::ifstream* stream, int push) {
    if (push == 1) pathStack.pop();
    if (stream) stream->close();
    return 0;
}

const char* zn_URL_web::get_path() { return pathStack.top(); }

int zn_URL_web::getURL(std::string& data, const char* url) {
    data.clear();
    const std::size_t schemeLength = std::strlen(kHttpScheme);
    if (url == nullptr || std::strncmp(url, kHttpScheme, schemeLength) != 0) return 0;

    const char* hostStart = url + schemeLength;
    if (*hostStart == '\0') return 0;
    // The host's first character is taken as it is, even a ":" or "/".
    const char* p = hostStart + 1;
    while (*p && *p != ':' && *p != '/') ++p;
    const std::string host(hostStart, p);

    int port = kDefaultHttpPort;
    if (*p == ':') {
        port = std::atoi(p + 1);
        while (*p && *p != '/') ++p;
    }
    const char* path = *p ? p : "/";
    return getURLbyParts(data, host.c_str(), port, path);
}

int zn_URL_web::getURLbyParts(std::string& data, const char* host, int port, const char* path) {
    data.clear();
    char portText[16];
    std::snprintf(portText, sizeof portText, kPortFormat, port);

    const int fd = sn_start_inet_stream_client(host, portText);
    if (fd < 0) return 0;
    // The request has no version word: the server answers with the bare body.
    if (fd_printf(fd, kRequestFormat, path) < 1) {
        ::close(fd);
        return 0;
    }
    char block[kReadBlockSize];
    for (;;) {
        const ssize_t n = ::read(fd, block, sizeof block);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) break;
        // The count is answered as an int: a reply that outgrows it fails.
        if (data.size() > static_cast<std::size_t>(INT_MAX) - static_cast<std::size_t>(n)) {
            ::close(fd);
            data.clear();
            return 0;
        }
        data.append(block, static_cast<std::size_t>(n));
    }
    ::close(fd);
    return static_cast<int>(data.size());
}

zn_URL* new_zn_URL_web() { return new zn_URL_web; }
