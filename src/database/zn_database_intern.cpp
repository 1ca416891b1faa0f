#include "database/zn_database_intern.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "database/zn_database_world.h"
#include "database/database_messages.h"
#include "base/zn_reports.h"
#include "base/zn_text.h"
#include "parser/zn_lexer.h"
#include "parser/zn_parser.h"

namespace {

bool hasParents(char** parents) { return parents != nullptr && parents[0] != nullptr; }

char* copyOrEmpty(const char* text) { return znCopyText(text != nullptr ? text : ""); }

}  // namespace

znDatabaseIntern::znDatabaseIntern(znDatabaseWorld* owner) : browser(owner), parser(nullptr) {
    proto.url = copyOrEmpty(nullptr);
    parser = new znParser(this);
    cleanupDatabase();
}

znDatabaseIntern::~znDatabaseIntern() {
    delete parser;
    clearProtoFields();
    clearVirtualRecords();
    freeNodeChain(nodeList);
    for (_zndbNode* node : spareNodes) delete node;
    for (_zndbNodeData* data : spareData) delete data;
    for (_zndbRoute* route = routeHead; route != nullptr;) {
        _zndbRoute* next = route->next;
        delete route;
        route = next;
    }
    std::free(proto.url);
    for (char* text : keptTexts) std::free(text);
}

void znDatabaseIntern::clearProtoFields() {
    for (_zndbData* item = proto.fields; item != nullptr;) {
        _zndbData* next = item->next;
        std::free(item->value);
        delete item;
        item = next;
    }
    proto.fields = nullptr;
}

// --- prototypes -------------------------------------------------------------

int znDatabaseIntern::CreatePrototype(char* name, char** parents, char* url, int flagA, int sensor, char* text,
                                      char* init) {
    clearProtoFields();
    const char* typeName = name != nullptr ? name : "";
    proto.name = typeName;
    proto.text = text != nullptr ? text : "";
    if (hasParents(parents) && !bodyProtos.contains(typeName) && !nestedProtos.contains(typeName))
        nestedProtos.insert(typeName, 0);
    ++protoCounter;
    proto.id = nextTypeID();
    protoIds[typeName] = proto.id;
    std::free(proto.url);
    proto.url = copyOrEmpty(url);
    proto.flagA = flagA;
    proto.isSensor = sensor;
    proto.bodyIsGrouping = groupingMark;
    if (!hasParents(parents)) groupingMark = 0;
    // The node type borrows the init text, so each one is kept.
    proto.init = nullptr;
    if (init != nullptr) {
        keptTexts.push_back(znCopyText(init));
        proto.init = keptTexts.back();
    }
    return 1;
}

int znDatabaseIntern::SetPrototypeData(char* /*ignored*/, char* name, char* value, int fieldType, int dataType,
                                       FieldFlags flags) {
    auto* item = new _zndbData;
    item->name = name != nullptr ? name : "";
    item->value = copyOrEmpty(value);
    item->fieldType = fieldType;
    item->dataType = dataType;
    item->flags = flags;
    item->next = nullptr;
    _zndbData** tail = &proto.fields;
    while (*tail != nullptr) tail = &(*tail)->next;
    *tail = item;
    return 1;
}

int znDatabaseIntern::EndPrototype() {
    return browser != nullptr ? browser->addType(&proto, proto.fields) : 1;
}

const std::vector<znProtoBodyEntry>* znDatabaseIntern::getProtoBody(const char* typeName) {
    if (typeName == nullptr) return nullptr;
    auto found = protoBodies.find(typeName);
    return found != protoBodies.end() ? &found->second : nullptr;
}

void znDatabaseIntern::createToplevelUSE(const char* name) {
    if (browser != nullptr) browser->addToToplevelList(name);
}

// --- the browser's operations -----------------------------------------------

int znDatabaseIntern::ParseSystem(zn_URL* url) {
    protoIds.clear();
    const int result = parser->InitParser(znParser::kOutput, url, browser != nullptr ? browser->ZNType() : 0);
    systemTypeCount = static_cast<int>(protoIds.size());
    return result;
}

const char* znDatabaseIntern::LoadURL(std::vector<const char*>& urls) {
    // Only the first URL is read; the others are not tried.
    if (urls.empty() || urls[0] == nullptr) return nullptr;
    return parser->ParseURL(urls[0]) != 0 ? urls[0] : nullptr;
}

void znDatabaseIntern::DeleteDatabase() {
    if (parser != nullptr) parser->forgetWorld();
    bodyProtos.clear();
    nestedProtos.clear();
    instanceIndex.clear();
    instanceNames.clear();
    typeNumbers.clear();
    typeNames.clear();
    vnodeOwners.clear();
    clearVirtualRecords();
    expansions.clear();
    usedVirtualIds.clear();
    protoBodies.clear();
    pendingInstance.clear();
    // The Node Support file is read once: its types stay known, those of
    // the world go with it.
    for (auto it = protoIds.begin(); it != protoIds.end();) {
        it = it->second > systemTypeCount ? protoIds.erase(it) : std::next(it);
    }
}

void znDatabaseIntern::clearVirtualRecords() {
    for (auto& entry : vnodes) {
        for (_zndbVNode* node : entry.second) {
            for (_zndbVNodeData* data : *node->fields) {
                std::free(data->value);
                if (data->isFields != nullptr) {
                    for (char* name : *data->isFields) std::free(name);
                    delete data->isFields;
                }
                delete data;
            }
            delete node->fields;
            delete node->path;
            delete node;
        }
    }
    vnodes.clear();
    for (auto& entry : vroutes) {
        for (_zndbVRoute* route : entry.second) {
            for (char* text : {route->owner, route->fromType, route->fromNode, route->fromField, route->toType,
                               route->toNode, route->toField})
                std::free(text);
            delete route;
        }
    }
    vroutes.clear();
    currentVNode = nullptr;
}

void znDatabaseIntern::cleanupDatabase() {
    DeleteDatabase();
    // Node IDs go on counting: a node of the old world that something still
    // names can never be taken for a new one.
    instanceCounter = 0;
    instanceNumber = 0;
    nameCounter = 0;
    ownerCounter = 0;
    routeCounter = 0;
    groupingMark = 0;
    expansionLimitReported = 0;
    isRealNode = 0;
    currentNode = nullptr;
    currentTopNodeId = 0;
}

int znDatabaseIntern::GetAllRoutes() {
    routeCounter = 0;
    return 1;
}

void znDatabaseIntern::setRouteHead(_zndbRoute* head) {
    routeHead = head;
    routeTail = head;
    while (routeTail != nullptr && routeTail->next != nullptr) routeTail = routeTail->next;
}

const char* znDatabaseIntern::getProto(const char* instName) {
    if (instName == nullptr) return nullptr;
    const int* index = instanceIndex.find(instName);
    const int type = index != nullptr ? instanceNames[static_cast<size_t>(*index)].type : -1;
    return type >= 0 ? typeNames[static_cast<size_t>(type)].c_str() : nullptr;
}

znDatabaseIntern::InstanceName& znDatabaseIntern::instanceEntry(std::string_view name) {
    const auto entry = instanceIndex.insert(name, static_cast<int>(instanceNames.size()));
    if (entry.second) instanceNames.emplace_back();
    return instanceNames[static_cast<size_t>(*entry.first)];
}

int znDatabaseIntern::protoIdOf(const char* typeName) const {
    if (typeName == nullptr) return 0;
    auto found = protoIds.find(typeName);
    return found != protoIds.end() ? found->second : 0;
}

int znDatabaseIntern::lookupInstanceId(const char* name) const {
    if (name == nullptr) return 0;
    const int* index = instanceIndex.find(name);
    return index != nullptr ? instanceNames[static_cast<size_t>(*index)].id : 0;
}
