#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "browser/zn_browser_intern.h"
#include "csEnvironment.h"
#include "csLight.h"
#include "loader/loader_messages.h"
#include "loader/wrl_loader.h"
#include "loader/zn.h"
#include "loader/zn_text.h"
#include "loader/zn_interfaces.h"
#include "optimizer/gfx_opt.h"
#include "scripts/zn_cppsi.h"
#include "scripts/zn_scriptinterfaces.h"
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

bool isReadable(const char* path) {
    FILE* f = std::fopen(path, "r");
    if (f == nullptr) return false;
    std::fclose(f);
    return true;
}

// Copies OPTPATH into `out`. A value too long for the buffer keeps only the
// elements that fit whole, so that no element is searched under a cut name.
void readSearchPath(char* out, int size) {
    const char* value = std::getenv("OPTPATH");
    out[0] = '\0';
    if (value == nullptr) return;
    size_t len = std::strlen(value);
    if (len < static_cast<size_t>(size)) {
        std::memcpy(out, value, len + 1);
        return;
    }
    size_t keep = 0;
    for (size_t i = 0; i < static_cast<size_t>(size); ++i)
        if (value[i] == ':') keep = i;
    std::memcpy(out, value, keep);
    out[keep] = '\0';
    char text[160];
    std::snprintf(text, sizeof text, kSearchPathTooLong, size - 1);
    znMessage(text);
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
    topSceneNode = new csEnvironment();
    printHeader();

    std::vector<const char*> urls;
    urls.push_back(filename);

    _ZNmain = new ZN(0);
    _ZNmain->scriptInterfaces->add(newZnCPPSI, "so", nullptr, nullptr, nullptr, nullptr, 1);
    _ZNmain->appInterfaces->add(new gfx_opt(_ZNmain));

    znBrowser* browser = _ZNmain->browser;
    // The loader reads worlds, EXTERNPROTOs and textures from web servers as
    // well as from files.
    browser->setURLInterface(new_zn_URL_web());
    browser->registerZNType(1);
    browser->init();

    if (std::strncmp(filename, kWebPrefix, sizeof kWebPrefix - 1) != 0) {
        if (std::strlen(filename) >= static_cast<size_t>(kPathBufferSize)) {
            char text[200];
            std::snprintf(text, sizeof text, kNameTooLong, kPathBufferSize - 1, filename);
            znMessage(text);
            return nullptr;
        }
        char pathBuffer[kPathBufferSize];
        std::strcpy(pathBuffer, filename);
        FILE* file = nullptr;
        if (znIsURL(filename)) {
            // A URL is fetched, or found in the cache, by the URL object; its
            // header is read from the copy that the parse will read, and
            // OPTPATH does not apply.
            const char* local = browser->getURLInterface()->getURL(filename, 0);
            file = local ? std::fopen(local, "r") : nullptr;
            if (file == nullptr) return nullptr;
        } else {
            file = std::fopen(pathBuffer, "r");
        }

        char searchPath[kSearchPathBufferSize];
        readSearchPath(searchPath, kSearchPathBufferSize);

        if (file == nullptr) {
            char* found = getFullPath(filename, searchPath);
            if (found == nullptr) return nullptr;
            // getFullPath fills a buffer of the same size, so this fits.
            std::strcpy(pathBuffer, found);
            file = std::fopen(pathBuffer, "r");
            if (file == nullptr) return nullptr;
        }

        char header[kHeaderBufferSize] = "";
        if (std::fgets(header, sizeof header, file) == nullptr) header[0] = '\0';
        std::fclose(file);
        // A byte order mark, as editors on some systems write, comes first.
        const char* text = std::strncmp(header, kByteOrderMark, 3) == 0 ? header + 3 : header;
        if (std::strncmp(text, kVrml1Header, std::strlen(kVrml1Header)) == 0) {
            std::fprintf(stderr, kVrml1Refusal, pathBuffer);
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
    return topSceneNode;
}

extern "C" csNode* wrlLoad(char* filename) {
    if (theLoader == nullptr) theLoader = new wrlLoader();
    if (filename == nullptr) return nullptr;
    return theLoader->actualLoad(filename);
}
