// Every text that URL access prints or puts on the wire, and the fixed
// names it forms, so that tests assert the exact words.
#ifndef URL_MESSAGES_H
#define URL_MESSAGES_H

#include <cstddef>

// Path buffers of the two URL objects. A path that would not fit with its
// terminating null is refused, never cut.
inline constexpr std::size_t kDefaultPathBufferSize = 256;
inline constexpr std::size_t kWebPathBufferSize = 512;

inline constexpr const char* kFileScheme = "file:/";  // case ignored
inline constexpr const char* kLocalHostAuthority = "//localhost";  // case ignored
// Names that the web client fetches, case ignored.
inline constexpr const char* kRemoteSchemes[] = {"http:/", "https:/"};
inline constexpr const char* kNoStackDirectory = "./";

// Environment and files.
inline constexpr const char* kTmpPathVariable = "ZN_TMP_PATH";
inline constexpr const char* kDefaultTmpPath = "/tmp";
inline constexpr const char* kProxyVariable = "ZNPROXY";
inline constexpr const char* kTimeoutVariable = "ZN_HTTP_TIMEOUT";
inline constexpr long kDefaultTimeoutSeconds = 30;
// Temporary directory, hash of the whole URL, the URL's last path component.
inline constexpr const char* kCacheNameFormat = "%s/.zncache%016llx-%s";
// Of the last path component only this many bytes, the last ones, go into a
// cache name: the hash tells URLs apart, and a file name has a length limit.
inline constexpr std::size_t kCacheNameTail = 100;
inline constexpr const char* kUnpackedNameFormat = "%s/%s";

// The web client: libcurl, opened by its versioned name when first needed.
inline constexpr const char* kCurlLibrary = "libcurl.so.4";
inline constexpr long kMaxRedirects = 10;
inline constexpr const char* kUserAgentFormat = "wrlLoader/%s";
// Only this much of a reply is looked at for the refusal words below.
inline constexpr std::size_t kReplyProbeLength = 255;
inline constexpr const char* kNotFoundWords[] = {"Not Found", "not found", "NOT FOUND",
                                                 "<HEAD>",    "<head>",    "HTTP/1.0"};

// Reports.
inline constexpr const char* kInvalidUrlName = "This is an invalid url name.\n";
inline constexpr const char* kConnecting = "Connecting to the remote server...";
inline constexpr const char* kHostUnreachable = "Host unreachable or remote file not found\n";
inline constexpr const char* kRemoteNotFound = "Remote file not found.\n";
inline constexpr const char* kCreatingCacheFile = "Creating a cache file: %s.\n";
inline constexpr const char* kProxyNote =
    "ZNPROXY environment variable not defined.  \n"
    "If you need to use a proxy server, set ZNPROXY:\n"
    "   Example:  setenv ZNPROXY http://proxy.example.com:8080/\n\n";
// The texts below are this subsystem's own: a name that does not fit its
// buffer, a cache file that cannot be written, a server that went quiet,
// and what the web client or the server said about a failure.
inline constexpr const char* kPathTooLong = "URL or path too long (at most %d bytes): %.80s...\n";
inline constexpr const char* kCacheNotWritten = "Could not create the cache file %s.\n";
inline constexpr const char* kTimedOut = "No data from %s for %ld seconds: given up.\n";
inline constexpr const char* kFetchFailed = "%s: %s";
inline constexpr const char* kServerStatus = "%s: the server answered %ld.";
inline constexpr const char* kEmptyReply = "%s: the server sent no data.";
// A gzip file whose text passes the memory limit: its name, the limit and
// the limit's variable.
inline constexpr const char* kUnpackTooLarge = "%s unpacks to more than %s, the memory limit (%s): it is not read.\n";
// A name that is no regular file (a directory, a device, a pipe).
inline constexpr const char* kNotARegularFile = "%s is no regular file: it is not read.\n";
// A remote name in a load that stays off the network.
inline constexpr const char* kRemoteRefused = "%s: remote files are not read in this load.\n";

#endif
