// Every text that URL access prints or puts on the wire, and the fixed
// names it forms, so that tests assert the exact words.
#ifndef URL_MESSAGES_H
#define URL_MESSAGES_H

#include <cstddef>

// Path buffers of the two URL objects. A path that would not fit with its
// terminating null is refused, never cut.
inline constexpr std::size_t kDefaultPathBufferSize = 256;
inline constexpr std::size_t kWebPathBufferSize = 512;

inline constexpr const char* kFileScheme = "file:/";       // case ignored
inline constexpr const char* kHttpSchemeLoose = "http:/";  // case ignored: remote or not
inline constexpr const char* kHttpScheme = "http://";      // exact: what the client can parse
inline constexpr const char* kNoStackDirectory = "./";

// Environment and files.
inline constexpr const char* kTmpPathVariable = "ZN_TMP_PATH";
inline constexpr const char* kDefaultTmpPath = "/tmp";
inline constexpr const char* kProxyVariable = "ZNPROXY";
inline constexpr const char* kCacheNameFormat = "%s/.zncache%s";
inline constexpr const char* kUnpackedNameFormat = "%s/%s";

// The wire.
inline constexpr const char* kRequestFormat = "GET %s\n";
inline constexpr const char* kPortFormat = "%d";
inline constexpr int kDefaultHttpPort = 80;
inline constexpr std::size_t kReadBlockSize = 4096;
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
// buffer, and a cache file that cannot be written.
inline constexpr const char* kPathTooLong = "URL or path too long (at most %d bytes): %.80s...\n";
inline constexpr const char* kCacheNotWritten = "Could not create the cache file %s.\n";

// The socket layer: its own error numbers, and their texts.
inline constexpr int kErrorBadPort = 11000;
inline constexpr int kErrorFamily = 11001;
inline constexpr int kErrorUnknownHost = 11002;
inline constexpr const char* kBadPortText = "bad port number or unknown service";
inline constexpr const char* kUnknownFamilyText = "unknown family in received address";
inline constexpr const char* kUnknownHostText = "unknown host";
inline constexpr const char* kFdPrintfFailed = "fd_printf can't print to %d using %s\n";

#endif
