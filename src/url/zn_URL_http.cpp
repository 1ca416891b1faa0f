#include "url/zn_URL_http.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <memory>

#include "base/zn_text.h"
#include "url/url_messages.h"
#include "url/zn_URL_curl.h"
#include "url/zn_URL_files.h"
#include "url/zn_URL_pathstack.h"

#ifndef WRL_VERSION
#define WRL_VERSION "unknown"
#endif

namespace {

using Clock = std::chrono::steady_clock;

// What one transfer has seen so far.
struct Transfer {
    Transfer(int fd, long timeout) : fd(fd), timeout(timeout) {}
    int fd;
    long timeout;  // seconds
    Clock::time_point lastByte = Clock::now();
    bool stalled = false;
    bool writeFailed = false;
    std::size_t size = 0;
    std::string start;
};

std::size_t onBody(char* data, std::size_t, std::size_t size, void* user) {
    auto& transfer = *static_cast<Transfer*>(user);
    transfer.lastByte = Clock::now();
    if (transfer.start.size() < kReplyProbeLength)
        transfer.start.append(data, std::min(size, kReplyProbeLength - transfer.start.size()));
    if (!znWriteAll(transfer.fd, data, size)) {
        transfer.writeFailed = true;
        return 0;  // ends the transfer
    }
    transfer.size += size;
    return size;
}

std::size_t onHeader(char*, std::size_t, std::size_t size, void* user) {
    static_cast<Transfer*>(user)->lastByte = Clock::now();
    return size;
}

// Called about once a second while nothing arrives: a server that sends no
// byte for the time-out, before its headers or after them, is given up.
int onProgress(void* user, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
    auto& transfer = *static_cast<Transfer*>(user);
    if (Clock::now() - transfer.lastByte < std::chrono::seconds(transfer.timeout)) return 0;
    transfer.stalled = true;
    return 1;
}

// A URL as the wire wants it, or empty. The scheme must be followed by
// "//": libcurl would take "http:/x" to name the host "x".
std::string wireURL(const std::string& url) {
    if (url.find("://") != url.find(':')) return "";
    return znResolveRemoteURL(nullptr, url.c_str(), true);
}

znFetchResult failed(znFetchOutcome outcome, std::string detail) {
    znFetchResult result;
    result.outcome = outcome;
    result.detail = std::move(detail);
    return result;
}

}  // namespace

long znHttpTimeout() {
    const char* text = std::getenv(kTimeoutVariable);
    if (text == nullptr || *text == '\0') return kDefaultTimeoutSeconds;
    char* end = nullptr;
    errno = 0;
    const long seconds = std::strtol(text, &end, 10);
    if (errno != 0 || *end != '\0' || seconds <= 0) return kDefaultTimeoutSeconds;
    return seconds;
}

znFetchResult znHttpFetch(const std::string& url, int fd) {
    const auto unreachable = [&url](const std::string& reason) {
        return failed(znFetchOutcome::unreachable, znFormatText(kFetchFailed, url.c_str(), reason.c_str()));
    };
    std::string missing;
    const znCurl* lib = znCurlLibrary(&missing);
    if (lib == nullptr) return unreachable(missing);
    const std::string wire = wireURL(url);
    if (wire.empty()) return unreachable(lib->easy_strerror(CURLE_URL_MALFORMAT));
    const std::unique_ptr<CURL, void (*)(CURL*)> handle(lib->easy_init(), lib->easy_cleanup);
    CURL* curl = handle.get();
    if (curl == nullptr) return unreachable(lib->easy_strerror(CURLE_FAILED_INIT));

    Transfer transfer(fd, znHttpTimeout());
    char error[CURL_ERROR_SIZE] = "";
    const char* proxy = std::getenv(kProxyVariable);
    const std::string agent = znFormatText(kUserAgentFormat, WRL_VERSION);

    // A guest in its host's process raises no signals and leaves the host's
    // handlers alone: no SIGALRM for time-outs, no change to SIGPIPE
    // (sockets are written without raising it).
    lib->easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
    lib->easy_setopt(curl, CURLOPT_URL, wire.c_str());
    lib->easy_setopt(curl, CURLOPT_PROTOCOLS_STR, "http,https");
    lib->easy_setopt(curl, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    lib->easy_setopt(curl, CURLOPT_FOLLOWLOCATION, 1L);
    lib->easy_setopt(curl, CURLOPT_MAXREDIRS, kMaxRedirects);
    // An error status ends the transfer before its page reaches the file.
    lib->easy_setopt(curl, CURLOPT_FAILONERROR, 1L);
    // Every content encoding that libcurl can undo is asked for and undone.
    lib->easy_setopt(curl, CURLOPT_ACCEPT_ENCODING, "");
    lib->easy_setopt(curl, CURLOPT_USERAGENT, agent.c_str());
    lib->easy_setopt(curl, CURLOPT_PROXY, proxy ? proxy : "");
    lib->easy_setopt(curl, CURLOPT_CONNECTTIMEOUT, transfer.timeout);
    lib->easy_setopt(curl, CURLOPT_NOPROGRESS, 0L);
    lib->easy_setopt(curl, CURLOPT_XFERINFOFUNCTION, onProgress);
    lib->easy_setopt(curl, CURLOPT_XFERINFODATA, &transfer);
    lib->easy_setopt(curl, CURLOPT_WRITEFUNCTION, onBody);
    lib->easy_setopt(curl, CURLOPT_WRITEDATA, &transfer);
    lib->easy_setopt(curl, CURLOPT_HEADERFUNCTION, onHeader);
    lib->easy_setopt(curl, CURLOPT_HEADERDATA, &transfer);
    lib->easy_setopt(curl, CURLOPT_ERRORBUFFER, error);

    const CURLcode code = lib->easy_perform(curl);
    long status = 0;
    lib->easy_getinfo(curl, CURLINFO_RESPONSE_CODE, &status);

    const std::string reason = error[0] ? error : lib->easy_strerror(code);
    if (transfer.stalled || code == CURLE_OPERATION_TIMEDOUT)
        return failed(znFetchOutcome::timedOut, znFormatText(kTimedOut, url.c_str(), transfer.timeout));
    if (transfer.writeFailed) return failed(znFetchOutcome::notWritten, "");
    if (code == CURLE_HTTP_RETURNED_ERROR)
        return failed(znFetchOutcome::refused, znFormatText(kServerStatus, url.c_str(), status));
    if (code == CURLE_TOO_MANY_REDIRECTS)
        return failed(znFetchOutcome::refused, znFormatText(kFetchFailed, url.c_str(), reason.c_str()));
    if (code != CURLE_OK)
        return failed(znFetchOutcome::unreachable, znFormatText(kFetchFailed, url.c_str(), reason.c_str()));
    // A redirect without a place to go, or a status that is no success.
    if (status < 200 || status >= 300)
        return failed(znFetchOutcome::refused, znFormatText(kServerStatus, url.c_str(), status));
    if (transfer.size == 0) return failed(znFetchOutcome::unreachable, znFormatText(kEmptyReply, url.c_str()));

    znFetchResult result;
    result.outcome = znFetchOutcome::fetched;
    result.start = std::move(transfer.start);
    return result;
}
