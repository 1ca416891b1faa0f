// The web client under remote files: HTTP/1.1 and https through libcurl,
// redirects followed, gzip transfer encoding undone, and a time-out for a
// server that goes quiet.
#ifndef ZN_URL_HTTP_H
#define ZN_URL_HTTP_H

#include <cstddef>
#include <string>

// ZN_HTTP_TIMEOUT in seconds; the default when it is unset, no whole
// number or not above 0.
long znHttpTimeout();

enum class znFetchOutcome {
    fetched,      // the body is written
    refused,      // the server answered, but not with the file
    unreachable,  // no server, no connection, a broken exchange, or no data
    timedOut,     // nothing came for the time-out
    notWritten,   // the body could not be written
};

struct znFetchResult {
    znFetchOutcome outcome = znFetchOutcome::unreachable;
    std::string start;   // the first bytes of the body, up to kReplyProbeLength
    std::string detail;  // for any outcome but fetched: what went wrong, to report
};

// Fetches `url` and writes its body to the descriptor `fd`. The proxy is
// ZNPROXY when set, and none otherwise: proxy settings meant for other
// programs are not followed. Each fetch has a connection of its own, closed
// when it ends: the URL objects live as long as their worlds, which hosts
// keep, and must not hold sockets all that time. Safe from any thread.
znFetchResult znHttpFetch(const std::string& url, int fd);

#endif
