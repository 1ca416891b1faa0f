/*
 * wrlLoader: loads a VRML 97 file or URL into a cs scene graph.
 *
 *   csNode* scene = wrlLoad(name);
 *
 *   wrlLoadOptions options;          // or the defaults: pass null
 *   options.banner = false;
 *   wrlLoadResult result;
 *   csRefPtr<csNode> scene(wrlLoadWith("world.wrl", &options, &result));
 *   if (result.status == WRL_PARSE_ERROR) ... result.errorFile, result.errorLine
 *
 * `name` is a local file name (looked up along OPTPATH when it does not
 * open as given) or an http URL. The result is a csEnvironment holding the
 * scene, or null when the file was not found, is no file, or is a VRML 1.0
 * file. A file that fails to parse gives what was read before the error.
 *
 * Ownership: the caller owns the scene. It arrives without a reference of
 * its own: hold it in a csRefPtr, or ref() it, and unref() it when done
 * (an unref() of a scene never ref'ed also ends it). When the scene ends,
 * the runtime world that built it ends with it, unless the load was asked
 * to keep the world (wrlLoadOptions::keepWorld).
 *
 * Threads: the functions here may be called from any thread. Loads are
 * serialised inside the library: a second load waits for the first.
 *
 * The library is a guest of its host: it never reads standard input that
 * is not a terminal, never ends the process, and leaves the host's
 * handlers alone. ZNBUILTINS names the Node Support file; without it the
 * library reads the one installed beside it (share/wrlLoader/znbuiltins.wrl
 * of its install), so that a program needs no environment.
 */
#ifndef WRL_LOADER_PUBLIC_H
#define WRL_LOADER_PUBLIC_H

#include <cstddef>
#include <string>

class csNode;
class ZN;

// How a load ended.
enum wrlLoadStatus {
    WRL_LOADED = 0,       // the scene came back whole
    WRL_NOT_FOUND = 1,    // no such file, or no file at all (a directory)
    WRL_PARSE_ERROR = 2,  // a syntax error stopped the parse: the scene holds what came before it
    WRL_REFUSED = 3,      // a VRML 1.0 file
    WRL_FAILED = 4        // the load ended on an error of its own (memory ran out, say)
};

// The kinds of report: a note of progress, a recoverable problem, a skipped
// or wrong item, a question put to the user.
enum wrlReportKind { WRL_INFO = 0, WRL_MESSAGE = 1, WRL_ALERT = 2, WRL_QUESTION = 3 };

struct wrlReport {
    wrlReportKind kind;
    const char* text;
    const char* file;  // the file being read, or ""
    int line;          // its line, or 0
};

struct wrlLoadOptions {
    // Questions (an unknown type: what is the right one?) may be put on
    // standard input when it is a terminal. Otherwise, or when false, each
    // question takes its default answer at once.
    bool questions = true;
    // The one-line banner on standard output.
    bool banner = true;
    // Receives every report of the load; null: the reports are written on
    // standard error.
    void (*report)(const wrlReport* report, void* data) = nullptr;
    void* reportData = nullptr;
    // Answers a question in place of the terminal: return nonzero for yes.
    // A question for a name (`name` not null) takes the name, at most
    // `size` bytes with its end.
    int (*answer)(const char* question, char* name, std::size_t size, void* data) = nullptr;
    void* answerData = nullptr;
    // The runtime world stays alive after the scene ends, for a host that
    // goes on using it; wrlReleaseWorld ends it.
    bool keepWorld = false;
    // Names on web servers (http, https) are fetched. False: they are
    // refused with a report, and the load stays off the network, as a host
    // that reads worlds from strangers may want.
    bool remote = true;
};

struct wrlLoadResult {
    wrlLoadStatus status = WRL_FAILED;
    // Why the scene did not come back whole, in words; empty when it did.
    std::string reason;
    // The syntax error that stopped the parse (WRL_PARSE_ERROR): the file,
    // its line, the message and the text the parse stopped at.
    std::string errorFile;
    int errorLine = 0;
    std::string errorMessage;
    std::string errorText;
    // Reports of problems (messages and alerts) during the load.
    int warnings = 0;
    // The runtime world of the load, while it lives.
    ZN* world = nullptr;
};

// The load of a file name or URL, with options (null: the defaults) and a
// result (may be null).
csNode* wrlLoadWith(const char* nameOrUrl, const wrlLoadOptions* options, wrlLoadResult* result);

// The load of a world given as text, `length` bytes at `text`. Its relative
// names (Inline, textures, EXTERNPROTO, Scripts) are looked up from
// `baseUrl`, a file name or URL that the text stands for; null: a file
// "memory.wrl" in the working directory.
csNode* wrlLoadFromMemory(const char* text, std::size_t length, const char* baseUrl, const wrlLoadOptions* options,
                          wrlLoadResult* result);

// Ends a world that a load kept (wrlLoadOptions::keepWorld).
void wrlReleaseWorld(ZN* world);

// The original entry: a load with the default options.
extern "C" csNode* wrlLoad(char* filename);

#endif
