// The directory stack that both URL objects keep, and the rules that join a
// name to it.
#ifndef ZN_URL_PATHSTACK_H
#define ZN_URL_PATHSTACK_H

#include <cstdarg>
#include <deque>
#include <memory>
#include <string>
#include <vector>

class znURLPathStack {
public:
    bool empty() const { return entries.empty(); }
    const char* top() const;  // null when empty
    void push(std::string directory);
    void pop();               // nothing when empty

private:
    // Owning; the front is the top. Each text lives in its own allocation so
    // that a pointer handed out by top() never moves.
    std::deque<std::unique_ptr<std::string>> entries;
    // Owning. Callers may hold get_path() answers past the matching close, so
    // popped texts live on until the object goes.
    std::vector<std::unique_ptr<std::string>> retired;
};

// How a name that begins with "/" meets the stack: the local-file object
// joins it like any relative name, the web object leaves it alone.
enum class znURLAbsoluteRule { joined, kept };

// The path that the rest of a "file:" URL names, from its slash on:
// "///a" and "//localhost/a" are "/a", and escapes such as "%20" are
// decoded.
std::string znFileURLPath(const std::string& path);

// Strips a leading "file:" (any case, slash kept), joins the name to the top
// of the stack where the rules say so and, for a nonzero push, pushes the
// name's directory. A null url resolves like an empty one.
std::string znResolveURLPath(const char* url, int push, znURLPathStack& stack,
                             znURLAbsoluteRule absolute);

// True for a name that the web client fetches: "http:/" or "https:/", case
// ignored.
bool znIsRemoteURL(const char* name);
// True for a name that URL access reads by its scheme rather than as a file
// name: a remote one, or "file:/" (case ignored).
bool znIsURL(const char* name);
// `reference` resolved against the remote `base` (a file or a directory)
// by the rules of the web: "/x" goes to base's server, "//host/x" keeps
// base's scheme, "../x" climbs. Without a base, `reference` itself in its
// plain form. With `encoded`, blanks and bytes beyond ASCII, which worlds
// do write into URLs, come percent-encoded, as the wire wants them. Empty
// when the two make no URL.
std::string znResolveRemoteURL(const char* base, const char* reference, bool encoded = false);

// True when `path` and its null fit a buffer of `size` bytes; otherwise the
// path is refused with an alert.
bool znFitsPathBuffer(const std::string& path, std::size_t size);

// Copies `path` with its null into `buffer` of `size` bytes. A path that
// does not fit is refused with an alert and the answer is null.
const char* znStorePath(const std::string& path, char* buffer, std::size_t size);

// The text after the last "/", or all of it.
std::string znLastPathComponent(const std::string& path);

#endif
