// Runtime world changes: the script interface's creation and replacement of
// nodes, and loads requested now and performed at the next frame.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <list>
#include <string>
#include <vector>

#include "browser/browser_messages.h"
#include "browser/zn_browser_event.h"
#include "browser/zn_browser_intern.h"
#include "browser/zn_sim_manager.h"
#include "fields/all.h"
#include "fields/zn_exception.h"
#include "base/zn_reports.h"
#include "nodes/zn_node.h"
#include "url/zn_URL_files.h"

namespace {
// Counts the temporary files of this process; part of each name.
int tmpFileCounter = 0;

// A file of its own for the text of one createVrmlFromString, made so that
// no other process can take the name between choice and creation. Removed
// when the object goes, whatever became of the parse.
class TemporaryWorldFile {
public:
    explicit TemporaryWorldFile(const char* text) {
        const std::string tmp = znTmpPath();
        const char* dir = tmp.c_str();
        ++tmpFileCounter;
        char pattern[4096];
        int n = std::snprintf(pattern, sizeof pattern, kTmpFilePattern, dir, tmpFileCounter);
        if (n < 0 || n >= static_cast<int>(sizeof pattern)) {
            reportFailure(dir);
            return;
        }
        int fd = mkstemp(pattern);
        if (fd < 0) {
            reportFailure(pattern);
            return;
        }
        path = pattern;
        FILE* file = fdopen(fd, "w");
        if (!file) {
            close(fd);
            reportFailure(pattern);
            return;
        }
        std::fprintf(file, kStringWorldFormat, text ? text : "");
        if (std::fclose(file) != 0) reportFailure(pattern);
    }
    ~TemporaryWorldFile() {
        if (!path.empty()) unlink(path.c_str());
    }
    TemporaryWorldFile(const TemporaryWorldFile&) = delete;
    TemporaryWorldFile& operator=(const TemporaryWorldFile&) = delete;

    const std::string& name() const { return path; }

private:
    static void reportFailure(const char* what) {
        char message[4200];
        std::snprintf(message, sizeof message, kTmpFileFailed, what);
        znMessage(message);
    }
    std::string path;
};
}  // namespace

// Reads `urls` into the world beside what is there, and answers the
// top-level nodes of that read alone; the world's own list stays as it was.
static void readBeside(znBrowserIntern& browser, std::list<int>& topLevel, std::vector<const char*>& urls,
                       void (*keep)(void* sink, znNode* node), void* sink) {
    std::list<int> saved;
    saved.swap(topLevel);
    try {
        browser.readURL(urls, 2);
    } catch (InvalidVRMLSyntaxException&) {
        // The throw has left its line; what was read before the fault stays.
    }
    for (int id : topLevel) {
        try {
            keep(sink, browser.getNode(id));
        } catch (znInvalidNodeIDException&) {
            char message[256];
            std::snprintf(message, sizeof message, kSkipInvalidTopLevel, id);
            znAlert(message);
        }
    }
    topLevel.swap(saved);
}

std::vector<BaseNode>* znBrowserIntern::createVrmlFromString(const char* text) {
    auto* result = new std::vector<BaseNode>;
    TemporaryWorldFile file(text);
    std::vector<const char*> urls;
    if (!file.name().empty()) urls.push_back(file.name().c_str());
    if (urls.empty()) return result;
    readBeside(
        *this, topLevel, urls,
        [](void* sink, znNode* node) { static_cast<std::vector<BaseNode>*>(sink)->push_back(*node); },
        result);
    return result;
}

int znBrowserIntern::createVrmlFromString(const char* text, BaseNode** out) {
    std::vector<BaseNode>* nodesRead = createVrmlFromString(text);
    int count = static_cast<int>(nodesRead->size());
    // Handles would point into storage that goes with the list: the caller
    // receives the nodes themselves, last first.
    for (int i = 0; i < count && out; ++i) out[i] = (*nodesRead)[static_cast<size_t>(count - 1 - i)].handleNode();
    delete nodesRead;
    return count;
}

void znBrowserIntern::createVrmlFromURL(std::vector<const char*>& urls, BaseNode& node, const char* eventIn) {
    znMFNode value(this);
    FieldFlags flags;
    value.setType(MFNodeType, field, flags);
    std::vector<BaseNode> created;
    readBeside(
        *this, topLevel, urls,
        [](void* sink, znNode* n) { static_cast<std::vector<BaseNode>*>(sink)->push_back(*n); }, &created);
    value.setValue(created);
    // Delivered at once, not through the manager, so that it also works
    // where the manager queues nothing.
    znEvent event(eventIn, getTime(), static_cast<Field&>(value));
    try {
        getNode(node.getID())->processEvent(event);
    } catch (znInvalidNodeIDException&) {
        char message[256];
        std::snprintf(message, sizeof message, kCantProcessCreatedEvent, node.getID());
        znAlert(message);
    }
}

void znBrowserIntern::createVrmlFromURL(const char** urls, BaseNode& node, const char* eventIn) {
    std::vector<const char*> list;
    for (; urls && *urls; ++urls) list.push_back(*urls);
    createVrmlFromURL(list, node, eventIn);
}

void znBrowserIntern::replaceWorld(std::vector<BaseNode> replacement) {
    // Changes what is ticked, not what exists.
    simManager->deleteTopNodes();
    for (BaseNode& node : replacement) simManager->postSensor(node.getID());
}

void znBrowserIntern::replaceWorld(BaseNode* replacement, int count) {
    std::vector<BaseNode> list;
    for (int i = 0; i < count && replacement; ++i) list.push_back(replacement[i]);
    replaceWorld(list);
}

int znBrowserIntern::loadURL(std::vector<const char*>& urls, std::vector<const char*>& parameters) {
    // A filter that answers non-zero has taken the request over.
    if (urlFilter && urlFilter(urls, parameters)) return 0;
    for (const char* url : pendingURLs) std::free(const_cast<char*>(url));
    pendingURLs.clear();
    for (const char* url : urls) pendingURLs.push_back(strdup(url ? url : ""));
    worldLoaded = 1;
    urlPending = 1;
    return 1;
}

int znBrowserIntern::loadURL(const char** urls, const char** parameters) {
    std::vector<const char*> urlList;
    std::vector<const char*> parameterList;
    for (; urls && *urls; ++urls) urlList.push_back(*urls);
    for (; parameters && *parameters; ++parameters) parameterList.push_back(*parameters);
    return loadURL(urlList, parameterList);
}

int znBrowserIntern::loadURL() {
    if (!urlPending) return 0;
    urlPending = 0;
    topLevel.clear();
    std::vector<const char*> urls(pendingURLs.begin(), pendingURLs.end());
    try {
        readURL(urls, 0);
    } catch (InvalidVRMLSyntaxException&) {
        // The throw has written "Couldn't load URL". The request counts as
        // a world: frames go on running, on an empty one.
        worldLoaded = 1;
        return 0;
    }
    return 1;
}

void znBrowserIntern::setDescription(const char* text) {
    std::free(description);
    description = text ? strdup(text) : nullptr;
}
