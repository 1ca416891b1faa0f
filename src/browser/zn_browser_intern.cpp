#include "browser/zn_browser_intern.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "browser/browser_messages.h"
#include "browser/zn_sim_manager.h"
#include "database/zn_database.h"
#include "database/zn_database_intern.h"
#include "fields/all.h"
#include "fields/zn_exception.h"
#include "base/zn_reports.h"
#include "base/zn_text.h"
#include "nodes/zn_node.h"
#include "nodes/zn_nodetype.h"
#include "scripts/zn_scriptinterface.h"
#include "url/zn_URL_default.h"

namespace {
// Where the plain name starts in a stored node name.
constexpr int kPlainNameOffset = 7;

// The number behind the last "_" of `name`, when one can be read and it is
// at least 1; the stem then ends at `*stemEnd`.
bool numberedSuffix(const char* name, int* number, size_t* stemEnd) {
    const char* underscore = std::strrchr(name, '_');
    if (!underscore) return false;
    char* end = nullptr;
    errno = 0;
    long n = std::strtol(underscore + 1, &end, 10);
    if (end == underscore + 1 || errno == ERANGE || n < 1 || n > 1000000000L) return false;
    *number = static_cast<int>(n);
    *stemEnd = static_cast<size_t>(underscore - name);
    return true;
}

std::string formatted(const char* format, const std::string& stem, int n) {
    return znFormatText(format, stem.c_str(), n);
}
}  // namespace

znBrowserIntern::znBrowserIntern(ZN* sys)
    : worldURL(nullptr), description(nullptr), worldLoaded(0), unresolvedReference(0),
      urlFilter(nullptr), database(nullptr), addingType(0), urlPending(0), urlInterface(nullptr),
      system(sys), znType(-1), clockStarted(0), currentTime(0.0), frameRate(0.0),
      simManager(nullptr) {
    simManager = new znSimManager_default(this);
    database = new znDatabaseIntern(this);
}

znBrowserIntern::~znBrowserIntern() {
    clearAll();
    delete database;
    for (auto& entry : types) delete entry.second;
    types.clear();
    while (!resolveStack.empty()) {
        delete resolveStack.top();
        resolveStack.pop();
    }
    for (const char* url : pendingURLs) std::free(const_cast<char*>(url));
    for (char* url : typeURLs) std::free(url);
    // The manager is the browser's: addSimManager ends the one it replaces.
    delete simManager;
}

const char* znBrowserIntern::getName() { return kBrowserName; }
const char* znBrowserIntern::getVersion() { return kBrowserVersion; }

int znBrowserIntern::nextEventIndex() { return simManager->nextIndex(); }

void znBrowserIntern::replaceDatabase(znDatabase* db) {
    if (!db || db == database) return;
    delete database;
    database = db;
}

int znBrowserIntern::setURLInterface(zn_URL* url) {
    urlInterface = url != nullptr ? url : defaultURLInterface();
    return 0;
}

zn_URL* znBrowserIntern::defaultURLInterface() {
    if (!defaultURL) defaultURL = std::make_unique<zn_URL_default>();
    return defaultURL.get();
}

int znBrowserIntern::addUrlFilter(znUrlFilter filter) {
    urlFilter = filter;
    return 0;
}

int znBrowserIntern::init() {
    if (urlInterface == nullptr) urlInterface = defaultURLInterface();
    database->ParseSystem(urlInterface);
    return 1;
}

// --- Reading a world -------------------------------------------------------------

const char* znBrowserIntern::readURL(std::vector<const char*>& urls, int mode) {
    const char* read = nullptr;
    if (mode == 2 || mode == 3) {
        read = database->LoadURL(urls);
        if (!read) throw InvalidVRMLSyntaxException(kCantAddToWorld);
    } else {
        clearAll();
        database->cleanupDatabase();
        read = database->LoadURL(urls);
        if (!read) {
            clearAll();
            throw InvalidVRMLSyntaxException(kCouldntLoadURL);
        }
    }
    if (mode == 2) {
        initializeNewNodes();
        return read;
    }
    updateScene();
    std::free(worldURL);
    worldURL = strdup(read);
    worldLoaded = 1;
    currentTime = -1.0;
    return read;
}

const char* znBrowserIntern::readURL(const char** urls, int mode) {
    std::vector<const char*> list;
    for (; urls && *urls; ++urls) list.push_back(*urls);
    return readURL(list, mode);
}

void znBrowserIntern::updateScene() {
    initializeNewNodes();
    if (!topLevel.empty()) {
        SFTime time(-1.0);
        for (int nodeID : topLevel) {
            simManager->postSensor(nodeID);
            if (znNode* node = nodes.find(nodeID)) node->action(time, 2, nullptr);
        }
    }
    readRoutes(nullptr);
}

void znBrowserIntern::initializeNewNodes() {
    while (!resolveStack.empty()) {
        ResolveStackElem* element = resolveStack.top();
        resolveStack.pop();
        znField* f = element->field;
        if (f && f->getFieldType() == SFNodeType) {
            BaseNode value;
            vrml2data(&value, SFNodeType, element->value.c_str());
            if (auto* single = dynamic_cast<znSFNode*>(f)) single->setValue(value);
        } else if (f && f->getFieldType() == MFNodeType) {
            std::vector<BaseNode> value;
            vrml2data(&value, MFNodeType, element->value.c_str());
            if (auto* list = dynamic_cast<znMFNode*>(f)) list->setValue(value);
        }
        delete element;
    }
    SFTime time(-1.0);
    // Initialising a node may create more nodes: the loop takes them in.
    for (std::size_t i = 0; i < newNodes.size(); ++i) {
        znNode* node = newNodes[i];
        if (!node->isDirty()) {
            node->initialize();
            node->makeDirty();
        }
        if (node->isSensor()) {
            simManager->postSensor(node->getID());
            node->action(time, 0, nullptr);
        }
    }
    // A load of a big world leaves a long list behind: it goes.
    std::vector<znNode*>().swap(newNodes);
}

void znBrowserIntern::pushUnresolved(znField* f, const char* text) {
    auto* element = new ResolveStackElem;
    element->field = f;
    element->value = text ? text : "";
    resolveStack.push(element);
}

void znBrowserIntern::clearNodeTables() {
    // In the order of their numbers, as the world was made.
    for (auto& entry : nodes.inOrder()) delete entry.second;
    nodes.clear();
    newNodes.clear();
}

void znBrowserIntern::clearAll() {
    std::free(worldURL);
    worldURL = nullptr;
    std::free(description);
    description = nullptr;
    database->DeleteDatabase();
    // The manager lets go of the nodes before they are destroyed.
    simManager->clearAllCascades();
    simManager->clearAllRoutes();
    simManager->clearAllEvents();
    clearNodeTables();
    for (auto it = types.begin(); it != types.end();) {
        znNodeType* type = it->second;
        if (type && type->getInterface()) type->getInterface()->clearNodes();
        if (type && type->getSystemProto() == 1) {
            ++it;
            continue;
        }
        if (type) typeIDs.erase(type->getType());
        delete type;
        it = types.erase(it);
    }
    nodeIDs.clear();
    numberedNames.clear();
    parentNames.clear();
    lastParentName = nullptr;
    topLevel.clear();
    worldLoaded = 0;
    clockStarted = 0;
    currentTime = 0.0;
}

// --- Tables ------------------------------------------------------------------------

void znBrowserIntern::enterType(znNodeType* type) {
    if (!type) return;
    types[type->getID()] = type;
    typeIDs[type->getType()] = type->getID();
}

const char* znBrowserIntern::keepParentName(const char* parentName) {
    if (parentName == nullptr) return nullptr;
    if (lastParentName == nullptr || *lastParentName != parentName) {
        auto found = parentNames.find(std::string_view(parentName));
        if (found == parentNames.end()) found = parentNames.emplace(parentName).first;
        lastParentName = &*found;
    }
    return lastParentName->c_str();
}

void znBrowserIntern::enterNode(znNode* node) {
    if (!node) return;
    nodes.set(node->getID(), node);
    const char* name = node->getName();
    if (name[0]) {
        nodeIDs[name + 1] = node->getID();
        numberedNames.note(name + 1);
    }
    newNodes.push_back(node);
}

int znBrowserIntern::getTypeID(const char* name) {
    if (!name) return 0;
    auto found = typeIDs.find(name);
    return found != typeIDs.end() ? found->second : 0;
}

znNodeType* znBrowserIntern::getType(int id) {
    auto found = types.find(id);
    if (id == 0 || found == types.end() || !found->second)
        znThrow<znInvalidNodeTypeIDException>(kInvalidTypeID, id);
    return found->second;
}

znNode* znBrowserIntern::getNode(int id) {
    znNode* found = nodes.find(id);
    if (id == 0 || !found) znThrow<znInvalidNodeIDException>(kInvalidNodeID, id);
    return found;
}

const int* znBrowserIntern::findNamed(std::string key, std::string& last) {
    // "a_3" stands for the greatest of "a_2", "a_1" that is there, else for
    // "a", which may be numbered in its turn.
    for (;;) {
        if (const int* id = nodeIDs.find(key)) return id;
        int n = 0;
        size_t stemEnd = 0;
        if (!numberedSuffix(key.c_str(), &n, &stemEnd)) break;
        key.resize(stemEnd);
        if (const int below = numberedNames.below(nodeIDs, key, n))
            return nodeIDs.find(formatted(kNumberedName, key, below));
    }
    last = std::move(key);
    return nullptr;
}

int znBrowserIntern::getNodeID(const char* name) {
    if (!name || !*name) return 0;
    if (const int* id = nodeIDs.find(name + 1)) return *id;
    std::string last;
    if (const int* id = findNamed(name + 1, last)) return *id;
    if (addingType) return 0;
    // The key lacks the kind that leads a stored name.
    char message[512];
    std::snprintf(message, sizeof message, kCantFindNodeID,
                  last.size() > kPlainNameOffset - 1 ? last.c_str() + kPlainNameOffset - 1 : "");
    znMessage(message);
    return 0;
}

Node* znBrowserIntern::getNode(const char* name) {
    const char* plain = name ? name : "";
    char key[512];
    std::snprintf(key, sizeof key, kFirstDefinitionKey, plain);
    std::string last;
    const int* found = findNamed(key, last);
    if (found == nullptr) znThrow<znInvalidNodeNameException>(kInvalidNodeName, last.c_str() + kFirstDefinitionPrefix);
    if (*found == 0) znThrow<znInvalidNodeIDException>(kInvalidNodeIDForName, plain, 0);
    return nodes.find(*found);
}

Node* znBrowserIntern::getNode(const char* name, Node** out) {
    Node* node = getNode(name);
    if (out) *out = node;
    return node;
}

void znBrowserIntern::addToToplevelList(const char* name) {
    if (int nodeID = getNodeID(name)) topLevel.push_back(nodeID);
}

void znBrowserIntern::addTopLevel(BaseNode& node) { simManager->postSensor(node.getID()); }

void znBrowserIntern::removeTopLevel(BaseNode& node) {
    getNode(node.getID())->setToplevel(3);
    simManager->removeSensor(node.getID());
}
