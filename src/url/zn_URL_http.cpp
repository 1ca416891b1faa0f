#include "url/zn_URL_http.h"

#include <curl/curl.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <mutex>

#include "url/url_messages.h"
#include "url/zn_URL_files.h"
#include "url/zn_URL_pathstack.h"

#ifndef WRL_VERSION
#define WRL_VERSION "unknown"
#endif

namespace {

using Clock = std::chrono::steady_clock;

// libcurl's process-wide set-up, done once by whichever thread fetches
// first. It is never undone: the host may use libcurl itself, and the
// set-up counts its users.
bool curlReady() {
    static std::once_flag once;
    static bool ready = false;
    std::call_once(once, [] { ready = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK; });
    return ready;
}

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

// A URL as the wire wants it: blanks and bytes beyond ASCII, which worlds
// do write into URLs, percent-encoded. Empty when it is no URL at all.
std::string wireURL(const std::string& url) {
    CURLU* parsed = curl_url();
    std::string out;
    char* text = nullptr;
    if (parsed && curl_url_set(parsed, CURLUPART_URL, url.c_str(), CURLU_ALLOW_SPACE | CURLU_URLENCODE) == CURLUE_OK &&
        curl_url_get(parsed, CURLUPART_URL, &text, 0) == CURLUE_OK)
        out = text;
    curl_free(text);
    curl_url_cleanup(parsed);
    return out;
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
    const auto unreachable = [&url](CURLcode code) {
        return failed(znFetchOutcome::unreachable, znFormatText(kFetchFailed, url.c_str(), curl_easy_strerror(code)));
    };
    if (!curlReady()) return unreachable(CURLE_FAILED_INIT);
    const std::string wire = wireURL(url);
    if (wire.empty()) return unreachable(CURLE_URL_MALFORMAT);
    const std::unique_ptr<CURL, void (*)(CURL*)> handle(curl_easy_init(), curl_easy_cleanup);
    CURL* curl = handle.get();
    if (curl == nullptr) return unreachable(CURLE_FAILED_INIT);

    Transfer transfer(fd, znHttpTimeout());
    char error[CURL_ERROR_SIZE] = "";
    const char* proxy = std::getenv(kProxyVariable);
    const std::string agent = znFormatText(kUserAgentFormat, WRL_VERSION);

    // A guest in its host's process raises no signals and leaves the host's
    // handlers alone: no SIGALRM for time-outs, no change to SIGPIPE
    // (sockets are written without raising it).
    curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(curl, CURLOPT_URL, wire.c_str());
    curl_easy_setopt(curl, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(curl, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(curl, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(curl, CURLOPT_MAXREDIRS, kMaxRedirects);
    // An error status ends the transfer before its page reaches the file.
    curl_easy_setopt(curl, CURLOPT_FAILONERROR, 1L);
    // Every content encoding that libcurl can undo is asked for and undone.
    curl_easy_setopt(curl, CURLOPT_ACCEPT_ENCODING, "");
    curl_easy_setopt(curl, CURLOPT_USERAGENT, agent.c_str());
    curl_easy_setopt(curl, CURLOPT_PROXY, proxy ? proxy : "");
    curl_easy_setopt(curl, CURLOPT_CONNECTTIMEOUT, transfer.timeout);
    curl_easy_setopt(curl, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(curl, CURLOPT_XFERINFOFUNCTION, onProgress);
    curl_easy_setopt(curl, CURLOPT_XFERINFODATA, &transfer);
    curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, onBody);
    curl_easy_setopt(curl, CURLOPT_WRITEDATA, &transfer);
    curl_easy_setopt(curl, CURLOPT_HEADERFUNCTION, onHeader);
    curl_easy_setopt(curl, CURLOPT_HEADERDATA, &transfer);
    curl_easy_setopt(curl, CURLOPT_ERRORBUFFER, error);

    const CURLcode code = curl_easy_perform(curl);
    long status = 0;
    curl_easy_getinfo(curl, CURLINFO_RESPONSE_CODE, &status);

    const std::string reason = error[0] ? error : curl_easy_strerror(code);
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
