#include "scripts/zn_scriptinterface.h"

#include <unistd.h>

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "browser/zn_browser.h"
#include "base/zn_reports.h"
#include "nodes/zn_nodetype.h"
#include "scripts/script_messages.h"
#include "scripts/zn_scriptinterfaces.h"
#include "url/zn_URL.h"
#include "url/zn_URL_files.h"
#include "url/zn_URL_pathstack.h"

namespace {

// The name that the chosen interface reads; one per process, as the
// interfaces copy what they need at once.
char scriptFileName[znScriptInterface::kFileNameSize];

// Rises with every inline script of the process, so that each one gets a
// name of its own even before the random part.
int inlineCounter = 0;

void warnUnregistered(const char* what) {
    char text[2 * znScriptInterface::kFileNameSize + 256];
    std::snprintf(text, sizeof text, kScriptInterfaceWarning, what, what);
    znAlert(text);
}

bool copyName(const char* name) {
    int n = std::snprintf(scriptFileName, sizeof scriptFileName, "%s", name);
    if (n >= 0 && n < static_cast<int>(sizeof scriptFileName)) return true;
    char text[256];
    std::snprintf(text, sizeof text, kScriptNameTooLong, znScriptInterface::kFileNameSize - 1, name);
    znMessage(text);
    scriptFileName[0] = '\0';
    return false;
}

// Makes the temporary file of an inline script, created exclusively so that
// no other process can slip in between naming and writing; false when no
// name could be made.
bool makeInlineFile() {
    const std::string tmp = znTmpPath();
    const char* dir = tmp.c_str();
    int n = std::snprintf(scriptFileName, sizeof scriptFileName, kInlineCachePattern, dir, inlineCounter++);
    if (n < 0 || n >= static_cast<int>(sizeof scriptFileName)) {
        scriptFileName[0] = '\0';
        return false;
    }
    int fd = mkstemp(scriptFileName);
    if (fd < 0) return false;
    close(fd);
    return true;
}

}  // namespace

int znScriptInterface::saveScript(const char* fileName, const char* text) {
    if (!fileName || !text) return -1;
    FILE* file = std::fopen(fileName, "w");
    if (!file) return -1;
    int written = std::fputs(text, file);
    std::fclose(file);
    // An empty script writes nothing and is still a failure: the interface
    // would find an empty file.
    return (written == EOF || *text == '\0') ? -1 : 0;
}

znScriptInterface* znScriptInterface::newInterface(std::vector<const char*>& urls, znNodeType& type) {
    for (const char* url : urls) {
        while (url && std::isspace(static_cast<unsigned char>(*url))) ++url;
        Browser* browser = type.getBrowser();
        zn_URL* access = browser ? browser->getURLInterface() : nullptr;
        // A remote file, or a relative name in a remote world, comes through
        // the URL object's cache; the URL object joins the relative name to
        // the world's address.
        const bool relative = url && *url && !std::strchr(url, ':') && url[0] != '/';
        if (znIsRemoteURL(url) || (relative && access && znIsRemoteURL(access->get_path())))
            url = access ? access->getURL(url, 0) : nullptr;
        std::string extension;
        scriptFileName[0] = '\0';
        if (!url || !*url) continue;

        if (const char* colon = std::strchr(url, ':')) {
            std::string prefix(url, static_cast<size_t>(colon - url) + 1);
            const char* language = findExtension(prefix.c_str());
            if (!language) {
                warnUnregistered(prefix.c_str());
                continue;
            }
            extension = std::string(".") + language;
            if (!makeInlineFile() || saveScript(scriptFileName, colon + 1) != 0) {
                char text[kFileNameSize + 64];
                std::snprintf(text, sizeof text, kInlineCacheFailed, scriptFileName);
                znMessage(text);
                continue;
            }
        } else {
            const char* dot = std::strrchr(url, '.');
            if (!dot) continue;
            extension = dot;
            if (!copyName(url)) continue;
        }

        const char* bare = extension.c_str() + 1;
        if (znExecFn exec = findScriptExec(bare)) {
            char* made = exec(type.getBrowser(), scriptFileName);
            if (!made || (made != scriptFileName && !copyName(made))) continue;
        }
        if (extension.empty()) continue;
        znInterfaceFn make = findInterface(bare);
        znNodeConstFn lookup = findNodeConst(bare);
        if (make) return make(scriptFileName, type, lookup);
        warnUnregistered(extension.c_str());
    }
    return nullptr;
}
