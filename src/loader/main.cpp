#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <map>
#include <memory>
#include <mutex>
#include <new>
#include <string>
#include <vector>

#include "browser/zn_browser_intern.h"
#include "csEnvironment.h"
#include "csLight.h"
#include "fields/zn_exception.h"
#include "loader/loader_messages.h"
#include "loader/wrl_loader.h"
#include "loader/zn.h"
#include "loader/zn_interfaces.h"
#include "base/zn_memory_budget.h"
#include "base/zn_text.h"
#include "optimizer/gfx_opt.h"
#include "scripts/zn_cppsi.h"
#include "scripts/zn_scriptinterfaces.h"
#include "url/zn_URL_files.h"
#include "url/zn_URL_web.h"

#ifndef WRL_VERSION
#define WRL_VERSION "unknown"
#endif

csEnvironment* topSceneNode = nullptr;
ZN* _ZNmain = nullptr;

namespace {

constexpr int kPathBufferSize = 512;
constexpr int kSearchPathBufferSize = 512;
constexpr int kHeaderBufferSize = 256;
constexpr const char kWebPrefix[] = "./http://";

wrlLoader* theLoader = nullptr;  // owning, kept for the life of the process

char fullPathBuffer[kPathBufferSize];

// Formats "dir/name" into `out`. False when it does not fit: a cut name
// would name some other file.
bool joinPath(char* out, int size, const char* dir, const char* name) {
    int n = std::snprintf(out, static_cast<size_t>(size), "%s/%s", dir, name);
    return n >= 0 && n < size;
}

// Only a regular file: the open of a pipe would wait for a writer.
bool isReadable(const char* path) {
    if (!znIsRegularFile(path)) return false;
    FILE* f = std::fopen(path, "r");
    if (f == nullptr) return false;
    std::fclose(f);
    return true;
}

bool isDirectory(const char* path) {
    struct stat status;
    return stat(path, &status) == 0 && S_ISDIR(status.st_mode);
}

// Why a name that is there gives no world: a directory, or a device, a
// pipe or a socket, none of which reads to an end.
const char* reasonNotAFile(const char* path) {
    if (isDirectory(path)) return kReasonDirectory;
    struct stat status;
    return stat(path, &status) == 0 ? kReasonNotAFile : kReasonNotFound;
}

// Copies OPTPATH into `out`; false when it is unset, which is no search
// path at all (an empty one would still try "/" and the name). A value too
// long for the buffer keeps only the elements that fit whole, so that no
// element is searched under a cut name.
bool readSearchPath(char* out, int size) {
    const char* value = std::getenv("OPTPATH");
    out[0] = '\0';
    if (value == nullptr) return false;
    size_t len = std::strlen(value);
    if (len < static_cast<size_t>(size)) {
        std::memcpy(out, value, len + 1);
        return true;
    }
    size_t keep = 0;
    for (size_t i = 0; i < static_cast<size_t>(size); ++i)
        if (value[i] == ':') keep = i;
    std::memcpy(out, value, keep);
    out[keep] = '\0';
    char text[160];
    std::snprintf(text, sizeof text, kSearchPathTooLong, size - 1);
    znMessage(text);
    return true;
}

// Loads run one at a time: the browser core keeps process-wide cells. The
// end of a world takes the same lock, as a host may let go of a scene on
// any thread; it is recursive because a world may end inside a load.
std::recursive_mutex& loadLock() {
    static std::recursive_mutex lock;
    return lock;
}

}  // namespace

// What a load makes besides its scene. It ends with the scene, or, for a
// world that the host keeps, at wrlReleaseWorld.
struct wrlLoader::World {
    ZN* system = nullptr;
    gfx_opt* graphics = nullptr;
    zn_URL* access = nullptr;
    csEnvironment* root = nullptr;  // borrowed: the scene that owns this

    World() = default;
    World(const World&) = delete;
    World& operator=(const World&) = delete;
    ~World() {
        std::lock_guard<std::recursive_mutex> lock(loadLock());
        if (_ZNmain == system) _ZNmain = nullptr;
        if (topSceneNode == root) topSceneNode = nullptr;
        if (system == nullptr) return;
        // The nodes go first: their scene objects know the graphics
        // interface.
        znReleaseParts(*system);
        delete access;
        delete graphics;
        delete system;
    }
};

namespace {

// Worlds that their hosts keep past their scenes.
std::map<ZN*, std::shared_ptr<wrlLoader::World>>& keptWorlds() {
    static std::map<ZN*, std::shared_ptr<wrlLoader::World>> worlds;
    return worlds;
}


}  // namespace

char* getFullPath(char* name, char* path) {
    fullPathBuffer[0] = '\0';
    if (path == nullptr) return nullptr;
    char* element = path;
    if (*path != '\0') {
        char* colon = std::strchr(element, ':');
        while (colon != nullptr) {
            *colon = '\0';
            if (joinPath(fullPathBuffer, kPathBufferSize, element, name) && isReadable(fullPathBuffer))
                return fullPathBuffer;
            element = colon + 1;
            if (*element == '\0') break;
            colon = std::strchr(element, ':');
        }
    }
    if (joinPath(fullPathBuffer, kPathBufferSize, element, name) && isReadable(fullPathBuffer))
        return fullPathBuffer;
    fullPathBuffer[0] = '\0';
    return nullptr;
}

void printHeader() { std::printf(kBannerFormat, WRL_VERSION, __DATE__); }

csNode* wrlLoader::actualLoad(char* filename) {
    Outcome outcome;
    return actualLoad(filename, outcome);
}

csNode* wrlLoader::actualLoad(const char* filename, Outcome& outcome) {
    topSceneNode = new csEnvironment();
    outcome.world = std::make_shared<World>();
    outcome.world->root = topSceneNode;
    if (outcome.banner) printHeader();

    std::vector<const char*> urls;
    urls.push_back(filename);

    _ZNmain = new ZN(0);
    outcome.world->system = _ZNmain;
    _ZNmain->scriptInterfaces->add(newZnCPPSI, "so", nullptr, nullptr, nullptr, nullptr, 1);
    outcome.world->graphics = new gfx_opt(_ZNmain);
    outcome.world->graphics->setRoot(topSceneNode);
    _ZNmain->appInterfaces->add(outcome.world->graphics);

    znBrowser* browser = _ZNmain->browser;
    // The loader reads worlds, EXTERNPROTOs and textures from web servers as
    // well as from files.
    auto* access = new zn_URL_web;
    if (!outcome.remote) access->refuseRemote();
    outcome.world->access = access;
    // A world given as text stands for the name it was given.
    if (!outcome.standIn.empty()) outcome.world->access->readAs(filename, outcome.standIn.c_str());
    browser->setURLInterface(outcome.world->access);
    browser->registerZNType(1);
    browser->init();

    if (std::strncmp(filename, kWebPrefix, sizeof kWebPrefix - 1) != 0) {
        if (std::strlen(filename) >= static_cast<size_t>(kPathBufferSize)) {
            char text[200];
            std::snprintf(text, sizeof text, kNameTooLong, kPathBufferSize - 1, filename);
            znMessage(text);
            outcome.status = WRL_NOT_FOUND;
            outcome.reason = kReasonNameTooLong;
            return nullptr;
        }
        char pathBuffer[kPathBufferSize];
        std::strcpy(pathBuffer, filename);
        FILE* file = nullptr;
        if (!outcome.standIn.empty()) {
            file = std::fopen(outcome.standIn.c_str(), "r");
            if (file == nullptr) {
                outcome.status = WRL_FAILED;
                outcome.reason = kReasonNoTextFile;
                return nullptr;
            }
        } else if (znIsURL(filename)) {
            // A URL is fetched, or found in the cache, by the URL object; its
            // header is read from the copy that the parse will read, and
            // OPTPATH does not apply.
            const char* local = browser->getURLInterface()->getURL(filename, 0);
            file = local != nullptr && !isDirectory(local) ? std::fopen(local, "r") : nullptr;
            if (file == nullptr) {
                outcome.status = WRL_NOT_FOUND;
                outcome.reason = kReasonNotFound;
                return nullptr;
            }
        } else if (znIsRegularFile(pathBuffer)) {
            file = std::fopen(pathBuffer, "r");
        }

        char searchPath[kSearchPathBufferSize];
        const bool searching = readSearchPath(searchPath, kSearchPathBufferSize);

        if (file == nullptr) {
            char* found = getFullPath(pathBuffer, searching ? searchPath : nullptr);
            if (found == nullptr) {
                outcome.status = WRL_NOT_FOUND;
                outcome.reason = reasonNotAFile(filename);
                return nullptr;
            }
            // getFullPath fills a buffer of the same size, so this fits.
            std::strcpy(pathBuffer, found);
            file = znIsRegularFile(pathBuffer) ? std::fopen(pathBuffer, "r") : nullptr;
            if (file == nullptr) {
                outcome.status = WRL_NOT_FOUND;
                outcome.reason = reasonNotAFile(pathBuffer);
                return nullptr;
            }
        }

        char header[kHeaderBufferSize] = "";
        if (std::fgets(header, sizeof header, file) == nullptr) header[0] = '\0';
        std::fclose(file);
        // A byte order mark, as editors on some systems write, comes first.
        const char* text = std::strncmp(header, kByteOrderMark, 3) == 0 ? header + 3 : header;
        if (std::strncmp(text, kVrml1Header, std::strlen(kVrml1Header)) == 0) {
            std::fprintf(stderr, kVrml1Refusal, pathBuffer);
            outcome.status = WRL_REFUSED;
            outcome.reason = kReasonVrml1;
            return nullptr;
        }
    }

    browser->loadURL(urls, urls);
    browser->executeFrame(0.0);

    // Lights at top level also go into the environment's light list, in
    // child order; they stay children as well.
    topSceneNode->validateField(csGroup::CHILDREN);
    int count = topSceneNode->getChildCount();
    if (csLight::_ClassType == nullptr) csLight::initClass();
    for (int i = 0; i < count; ++i) {
        topSceneNode->validateField(csGroup::CHILDREN);
        csNode* child = topSceneNode->getChild(i);
        if (child != nullptr && child->isOfType(csLight::_ClassType))
            topSceneNode->lights().append(child);
    }
    outcome.status = WRL_LOADED;
    return topSceneNode;
}

namespace {

// A load with its options, its reports and its result, and the end of
// whatever it made that nobody is to hold.
csNode* load(const char* name, const wrlLoadOptions& options, wrlLoadResult& result,
             const std::string& standIn = std::string()) {
    std::lock_guard<std::recursive_mutex> lock(loadLock());
    znHostReports reports(options);
    znReportScope scope(reports);
    znBudgetScope budget;
    if (theLoader == nullptr) theLoader = new wrlLoader();

    wrlLoader::Outcome outcome;
    outcome.banner = options.banner;
    outcome.remote = options.remote;
    outcome.standIn = standIn;
    csNode* scene = nullptr;
    try {
        scene = theLoader->actualLoad(name, outcome);
    } catch (const std::bad_alloc&) {
        znAlert(kOutOfMemory);
        outcome.status = WRL_FAILED;
        outcome.reason = kReasonOutOfMemory;
        scene = nullptr;
    } catch (const Exception& caught) {
        znTerminate();
        outcome.status = WRL_FAILED;
        outcome.reason = caught.text;
        scene = nullptr;
    } catch (const std::exception& caught) {
        znTerminate();
        outcome.status = WRL_FAILED;
        outcome.reason = caught.what();
        scene = nullptr;
    } catch (...) {
        znTerminate();
        outcome.status = WRL_FAILED;
        outcome.reason = kReasonException;
        scene = nullptr;
    }

    result.status = outcome.status;
    result.reason = outcome.reason;
    result.warnings = reports.counts[static_cast<int>(znReportKind::message)] +
                      reports.counts[static_cast<int>(znReportKind::alert)];
    if (scene != nullptr && reports.parseFailed) {
        const znReportContext::SyntaxError& error = reports.parseError;
        result.status = WRL_PARSE_ERROR;
        result.reason = kReasonParseError;
        result.errorFile = error.file;
        result.errorLine = error.line;
        result.errorMessage = error.message;
        result.errorText = error.text;
    }

    std::shared_ptr<wrlLoader::World> world = outcome.world;
    csEnvironment* root = world != nullptr ? world->root : nullptr;
    if (scene == nullptr) {
        // Nothing is handed over: the world and its empty scene end here.
        world.reset();
        outcome.world.reset();
        if (root != nullptr) root->unref();
        return nullptr;
    }
    result.world = world->system;
    if (options.keepWorld)
        keptWorlds().emplace(world->system, world);
    else
        root->setKeeper(world);
    return scene;
}

// The result a public entry fills, cleared: the caller's, or `ignored`.
wrlLoadResult& clearedResult(wrlLoadResult* given, wrlLoadResult& ignored) {
    wrlLoadResult& out = given != nullptr ? *given : ignored;
    out = wrlLoadResult();
    return out;
}

// A call that names no world finds none.
csNode* nothingNamed(wrlLoadResult& out) {
    out.status = WRL_NOT_FOUND;
    out.reason = kReasonNotFound;
    return nullptr;
}

}  // namespace

void znTerminate() { znAlert(kUncaughtException); }

csNode* wrlLoadWith(const char* nameOrUrl, const wrlLoadOptions* options, wrlLoadResult* result) {
    const wrlLoadOptions defaults;
    wrlLoadResult ignored;
    wrlLoadResult& out = clearedResult(result, ignored);
    if (nameOrUrl == nullptr) return nothingNamed(out);
    return load(nameOrUrl, options != nullptr ? *options : defaults, out);
}

csNode* wrlLoadFromMemory(const char* text, std::size_t length, const char* baseUrl, const wrlLoadOptions* options,
                          wrlLoadResult* result) {
    const wrlLoadOptions defaults;
    wrlLoadResult ignored;
    wrlLoadResult& out = clearedResult(result, ignored);
    if (text == nullptr) return nothingNamed(out);
    // The text is read as a file of its own, private to this load and gone
    // with it; its relative names are looked up from `baseUrl`.
    std::string file = znTmpPath() + kMemoryFilePattern;
    const int fd = mkstemp(&file[0]);
    bool written = fd >= 0;
    for (std::size_t done = 0; written && done < length;) {
        const ssize_t n = write(fd, text + done, length - done);
        if (n <= 0) written = false;
        else done += static_cast<std::size_t>(n);
    }
    if (fd >= 0) close(fd);
    if (!written) {
        if (fd >= 0) std::remove(file.c_str());
        out.status = WRL_FAILED;
        out.reason = kReasonNoTextFile;
        return nullptr;
    }
    const std::string name = baseUrl != nullptr && *baseUrl != '\0' ? baseUrl : kMemoryBaseName;
    csNode* scene = load(name.c_str(), options != nullptr ? *options : defaults, out, file);
    std::remove(file.c_str());
    return scene;
}

void wrlReleaseWorld(ZN* world) {
    std::shared_ptr<wrlLoader::World> ended;
    {
        std::lock_guard<std::recursive_mutex> lock(loadLock());
        auto found = keptWorlds().find(world);
        if (found == keptWorlds().end()) return;
        ended = std::move(found->second);
        keptWorlds().erase(found);
    }
}

extern "C" csNode* wrlLoad(char* filename) { return wrlLoadWith(filename, nullptr, nullptr); }
