#include "url/zn_URL_web.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "base/base_messages.h"
#include "base/zn_memory_budget.h"
#include "base/zn_reports.h"
#include "base/zn_text.h"
#include "url/zn_URL_files.h"
#include "url/zn_URL_http.h"

std::atomic<int> zn_URL_web::remoteRequests{0};

namespace {

// FNV-1a: the same for a URL in every run and every build, as it must be
// for names that outlive the process.
std::uint64_t urlHash(const std::string& url) {
    std::uint64_t hash = 0xcbf29ce484222325ULL;
    for (const unsigned char c : url) {
        hash ^= c;
        hash *= 0x100000001b3ULL;
    }
    return hash;
}

// Error pages are told from files by words near their start. The start is
// read as text: a null byte ends it.
bool looksLikeNotFound(const std::string& reply) {
    std::string_view start(reply.data(), std::min(reply.size(), kReplyProbeLength));
    start = start.substr(0, start.find('\0'));
    for (const char* word : kNotFoundWords)
        if (start.find(word) != std::string_view::npos) return true;
    return false;
}

}  // namespace

std::string zn_URL_web::cacheName(const std::string& url) {
    std::string name = znLastPathComponent(url);
    if (name.size() > kCacheNameTail) name.erase(0, name.size() - kCacheNameTail);
    return znFormatText(kCacheNameFormat, znTmpPath().c_str(), static_cast<unsigned long long>(urlHash(url)),
                        name.c_str());
}

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
    // Under a remote world a name from the root lies on the world's server.
    std::string name = url ? url : "";
    const char* top = pathStack.top();
    if (name[0] == '/' && znIsRemoteURL(top)) {
        const std::string resolved = znResolveRemoteURL(top, name.c_str());
        if (!resolved.empty()) name = resolved;
    }
    std::string work = znResolveURLPath(url ? name.c_str() : nullptr, push, pathStack, znURLAbsoluteRule::kept);
    if (url == nullptr) return nullptr;
    if (!standInURL.empty() && (name == standInURL || work == standInURL))
        return znStorePath(standInFile, path, sizeof path);
    // Whatever is formed from here on must fit the path buffer in the end.
    if (!znFitsPathBuffer(work, sizeof path)) return nullptr;

    if (!znIsRemoteURL(work.c_str())) {
        if (!znIsLocalFile(work.c_str())) return nullptr;
        FILE* probe = std::fopen(work.c_str(), "r");
        if (probe == nullptr) return nullptr;
        std::fclose(probe);
        const char* local = znStorePath(work, path, sizeof path);
        return local ? gunzip(local) : nullptr;
    }

    if (remoteRefused) {
        znAlert(znFormatText(kRemoteRefused, work.c_str()).c_str());
        return nullptr;
    }
    if (++remoteRequests == 1 && std::getenv(kProxyVariable) == nullptr) znAlert(kProxyNote);
    // A fragment names a place in the file, not a file of its own.
    const std::size_t fragment = work.find('#');
    if (fragment != std::string::npos) work.erase(fragment);

    if (get_remote(work.c_str()) != 0) return nullptr;
    const char* local = znStorePath(cacheName(work), path, sizeof path);
    return local ? gunzip(local) : nullptr;
}

int zn_URL_web::get_remote(const char* url) {
    const std::string address = url ? url : "";
    if (znLastPathComponent(address).size() < 2) {
        znAlert(kInvalidUrlName);
        return -1;
    }
    const std::string cache = cacheName(address);
    // A cache name that does not fit the path buffer could never be handed
    // on: refuse before any traffic.
    if (!znFitsPathBuffer(cache, sizeof path)) return -1;

    // A cached copy is used as it is: no check of age or size.
    if (FILE* cached = std::fopen(cache.c_str(), "r")) {
        std::fclose(cached);
        return 0;
    }

    znMessage(kConnecting);
    const std::string notWritten = znFormatText(kCacheNotWritten, cache.c_str());
    znStagedFile staged(cache);
    if (staged.fd() < 0) {
        znAlert(notWritten.c_str());
        return -1;
    }
    const znFetchResult got = znHttpFetch(address, staged.fd());
    switch (got.outcome) {
        case znFetchOutcome::fetched:
            break;
        case znFetchOutcome::timedOut:
            znAlert(got.detail.c_str());
            return -1;
        case znFetchOutcome::notWritten:
            znAlert(notWritten.c_str());
            return -1;
        case znFetchOutcome::refused:
            znMessage(got.detail.c_str());
            znAlert(kRemoteNotFound);
            return -1;
        case znFetchOutcome::unreachable:
            znMessage(got.detail.c_str());
            znAlert(kHostUnreachable);
            return -1;
    }
    if (looksLikeNotFound(got.start)) {
        znAlert(kRemoteNotFound);
        return -1;
    }
    znMessage(znFormatText(kCreatingCacheFile, cache.c_str()).c_str());
    if (!staged.commit(0666)) {
        znAlert(notWritten.c_str());
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
    const std::size_t limit = znBudget().limit();
    switch (znUnpackGzip(file, target, limit)) {
        case znUnpacked::done:
            return znStorePath(target, path, sizeof path);
        case znUnpacked::tooLarge:
            znAlert(znFormatText(kUnpackTooLarge, file, znSizeText(limit).c_str(), kMemoryLimitVariable).c_str());
            return nullptr;
        case znUnpacked::damaged:
            break;
    }
    return nullptr;
}

void zn_URL_web::readAs(const char* url, const char* localPath) {
    standInURL = url != nullptr && localPath != nullptr ? url : "";
    standInFile = url != nullptr && localPath != nullptr ? localPath : "";
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

zn_URL* new_zn_URL_web() { return new zn_URL_web; }
