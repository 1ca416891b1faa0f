// PROTO bodies: kept once as virtual records, replayed for each instance as
// real records behind the instance node, with fresh names and IDs.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "base/zn_memory_budget.h"
#include "base/zn_reports.h"
#include "base/zn_text.h"
#include "database/database_messages.h"
#include "database/zn_database_intern.h"
#include "database/zn_database_world.h"
#include "parser/zn_lexer.h"

namespace {

constexpr int kMFNodeType = 34;
constexpr int kSFNodeType = 25;
constexpr int kFieldKind = 0;

// The marker that the parser stores as the value of a field bound by IS.
constexpr const char* kISMarker = "IZZED";

// "%s_%d" of a name and a number.
void suffixed(std::string& out, const std::string& name, int number) {
    char digits[16];
    out.reserve(name.size() + sizeof digits);
    out.assign(name);
    out += '_';
    out.append(digits, znWriteDecimal(digits, number));
}

char* copyText(const char* text) { return znCopyText(text != nullptr ? text : ""); }

}  // namespace

int znDatabaseIntern::CreateVirtualNode(char* type, char* instName, char** parents, int /*grouping*/, int count,
                                        int toplevel, int nesting) {
    currentVNode = nullptr;
    const char* nodeName = instName != nullptr ? instName : "";
    instanceEntry(nodeName).id = ++nameCounter;
    const int typeId = protoIdOf(type);
    if (typeId == 0 || count <= 0) return 0;

    const char* innermost = parents[count - 1];
    auto owner = vnodeOwners.insert(innermost, ownerCounter + 1);
    if (owner.second) ++ownerCounter;
    currentKey = *owner.first;

    auto* node = new _zndbVNode{};
    node->name = nodeName;
    node->typeName = type != nullptr ? type : "";
    node->owner = innermost;
    node->outerOwner = parents[0];
    node->typeId = typeId;
    node->nodeId = ++nodeIdCounter;
    node->path = new std::vector<std::string>;
    for (int i = count - 1; i >= 0; --i) node->path->emplace_back(parents[i]);
    node->nesting = nesting;
    node->isToplevel = toplevel;
    node->isVirtual = 1;
    node->fields = new std::vector<_zndbVNodeData*>;
    vnodes[currentKey].push_back(node);
    currentVNode = node;
    return 1;
}

int znDatabaseIntern::SetVirtualNodeData(char* /*ignored*/, char* name, char* value, int fieldType, int dataType,
                                         FieldFlags flags, std::vector<char*>* isFields) {
    // Body node names are unique, so the node being read is the only record
    // of its name under the current key.
    if (currentVNode == nullptr) return 0;
    auto* data = new _zndbVNodeData{};
    data->name = name != nullptr ? name : "";
    data->value = copyText(value);
    data->fieldType = fieldType;
    data->dataType = dataType;
    data->flags = flags;
    if (isFields != nullptr && !isFields->empty()) {
        data->isFields = new std::vector<char*>;
        for (const char* field : *isFields) data->isFields->push_back(copyText(field));
        data->isNode = currentKey;
    }
    currentVNode->fields->push_back(data);
    return 1;
}

void znDatabaseIntern::addVirtualNodes() {
    makeNodes(pendingInstance.c_str(), 0);
    if (browser != nullptr) browser->addNode(nodeList);
    pendingInstance.clear();
}

int znDatabaseIntern::isProto(const char* instName) {
    const char* type = getProto(instName);
    if (type == nullptr) return 0;
    if (nestedProtos.contains(type)) return 2;
    if (bodyProtos.contains(type)) return 1;
    return 0;
}

int znDatabaseIntern::makeNodes(const char* protoName, int suffix) {
    // Instance numbers are never given twice, also when a body holds
    // instances of its own, so the names of two expansions cannot meet.
    const int thisInstance = ++instanceCounter;
    instanceNumber = thisInstance;
    // Bodies hold instances of other PROTOs, each expanded inside the one
    // that holds it: a long chain of them must not exhaust the stack.
    if (expansionDepth >= kMaxExpansionDepth) {
        if (!expansionLimitReported) {
            char message[256];
            std::snprintf(message, sizeof message, kExpansionTooDeep, kMaxExpansionDepth,
                          protoName != nullptr ? protoName : "");
            znAlert(message);
            expansionLimitReported = 1;
        }
        return 0;
    }
    struct DepthStep {
        int& depth;
        explicit DepthStep(int& d) : depth(d) { ++depth; }
        ~DepthStep() { --depth; }
    } step(expansionDepth);
    if (const int* owner = vnodeOwners.find(protoName != nullptr ? protoName : "")) {
        auto body = vnodes.find(*owner);
        if (body != vnodes.end()) {
            // A body of two instances of a PROTO whose body holds two of
            // another doubles its nodes at every level: an instance whose
            // nodes would pass the memory limit builds nothing.
            if (!znBudget().take(kZnNodeCost, body->second.size(),
                                 [protoName] { return znFormatText(kInstanceOverLimit, protoName != nullptr ? protoName : ""); }))
                return 0;
            // The vector may not grow while it is replayed: bodies are read
            // before any instance of them.
            for (_zndbVNode* node : body->second) {
                const int kind = isProto(node->name.c_str());
                if (kind != 0) {
                    makeNode(node, suffix, thisInstance);
                    if (kind == 1)
                        makeNodes(node->typeName.c_str(), node->nodeId);
                    else
                        makeNodes(node->typeName.c_str(), suffix);
                } else {
                    makeNodes(node->typeName.c_str(), node, suffix);
                }
                instanceNumber = thisInstance;
            }
        }
    }
    return addVirtualRoutes(protoName, thisInstance);
}

int znDatabaseIntern::makeNodes(const char* /*name*/, _zndbVNode* node, int suffix) {
    if (isProto(node->name.c_str()) != 0) return makeNodes(node->typeName.c_str(), node->nodeId);
    return makeNode(node, suffix, instanceNumber);
}

int znDatabaseIntern::makeNode(_zndbVNode* v, int suffix, int instance) {
    _zndbNode* node = newNodeRecord();
    suffixed(node->name, v->name, instance);
    node->typeId = v->typeId;
    // The first instance takes the IDs of the body's records themselves.
    const bool firstExpansion = usedVirtualIds.insert(v->nodeId).second;
    if (firstExpansion) {
        node->nodeId = v->nodeId;
    } else {
        node->nodeId = ++nodeIdCounter;
        ++nameCounter;
    }
    // Only a node with DEF can be named by a route of the body.
    if (node->name[0] != kAnonymousNodeKind) instanceEntry(node->name).id = node->nodeId;
    expansions[v->nodeId] = node->nodeId;
    if (firstExpansion && v->nesting == 0) protoBodies[v->owner].push_back({1, node->name, 0});

    node->nesting = v->nesting;
    node->isToplevel = v->isToplevel;
    node->isExpanded = 1;
    node->typeName = v->typeName;
    node->parentName = v->owner;

    // IS inside an expansion points at the node that is the instance.
    int isTarget = currentTopNodeId;
    auto instanceNode = expansions.find(suffix);
    if (instanceNode != expansions.end()) isTarget = instanceNode->second;

    _zndbNodeData* tail = nullptr;
    for (_zndbVNodeData* d : *v->fields) {
        _zndbNodeData* data = newDataRecord();
        data->name = d->name;
        if (std::strcmp(d->value, kISMarker) == 0) d->value[0] = '\0';
        const bool nodeName = d->dataType == kFieldKind && std::strcmp(d->value, "NULL") != 0;
        // An instance's own names are written into the record's text, which
        // keeps its room when the record serves the next instance.
        if (d->fieldType == kMFNodeType && nodeName) {
            addSuffix(d->value, instanceNumber, data->ownValue);
            data->value = data->ownValue.data();
            data->valueOwned = 0;
        } else if (d->fieldType == kSFNodeType && nodeName && d->value[0] != '\0') {
            char number[16] = "_";
            *znWriteDecimal(number + 1, instanceNumber) = '\0';
            data->ownValue.assign(d->value).append(number);
            data->value = data->ownValue.data();
            data->valueOwned = 0;
        } else {
            // The body's own text serves every instance: the browser reads it
            // before the records go.
            data->value = d->value;
            data->valueOwned = 0;
        }
        if (d->isFields != nullptr && !d->isFields->empty()) {
            data->isFields = d->isFields;
            data->isFieldsBorrowed = 1;
            data->isNodeId = isTarget;
        }
        data->fieldType = d->fieldType;
        data->dataType = d->dataType;
        data->flags = d->flags;
        if (tail != nullptr)
            tail->next = data;
        else
            node->fields = data;
        tail = data;
    }
    appendNode(node);
    return 1;
}

char* znDatabaseIntern::addSuffix(const char* names, int suffix) {
    std::string text;
    addSuffix(names, suffix, text);
    char* out = static_cast<char*>(std::malloc(text.size() + 1));
    if (out == nullptr) znOutOfMemory();
    std::memcpy(out, text.c_str(), text.size() + 1);
    return out;
}

void znDatabaseIntern::addSuffix(const char* names, int suffix, std::string& out) {
    const char* text = names != nullptr ? names : "";
    constexpr const char* kSeparators = " [],\t\n\r\\";
    char number[16] = "_";
    char* numberEnd = znWriteDecimal(number + 1, suffix);
    *numberEnd++ = ',';
    const auto digits = static_cast<size_t>(numberEnd - number);
    out.assign(1, '[');
    for (const char* p = text; *p != '\0';) {
        p += std::strspn(p, kSeparators);
        if (*p == '\0') break;
        const size_t length = std::strcspn(p, kSeparators);
        out.append(p, length);
        out.append(number, digits);
        p += length;
    }
    out += ']';
}

int znDatabaseIntern::createVirtualRoute(char* fromType, char* fromNode, char* fromField, char* toType,
                                         char* toNode, char* toField, char** parents) {
    int count = 0;
    while (parents[count] != nullptr) ++count;
    const char* owner = parents[count - 1];
    auto* route = new _zndbVRoute{copyText(owner),  copyText(fromType), copyText(fromNode), copyText(fromField),
                                  copyText(toType), copyText(toNode),   copyText(toField)};
    vroutes[owner].push_back(route);
    return 1;
}

int znDatabaseIntern::addVirtualRoutes(const char* protoName, int suffix) {
    auto found = vroutes.find(protoName != nullptr ? protoName : "");
    if (found == vroutes.end()) return 1;
    std::string routeName;
    for (_zndbVRoute* virtualRoute : found->second) {
        _zndbRoute* route = newRoute();
        route->fromTypeId = protoIdOf(virtualRoute->fromType);
        route->toTypeId = protoIdOf(virtualRoute->toType);
        suffixed(routeName, virtualRoute->fromNode, suffix);
        route->fromNodeId = lookupInstanceId(routeName.c_str());
        suffixed(routeName, virtualRoute->toNode, suffix);
        route->toNodeId = lookupInstanceId(routeName.c_str());
        // The first route that does not resolve ends the routes of this
        // instance.
        if (route->fromTypeId == 0 || route->toTypeId == 0 || route->fromNodeId == 0 || route->toNodeId == 0) {
            delete route;
            return 0;
        }
        route->fromField = virtualRoute->fromField;
        route->toField = virtualRoute->toField;
        appendRoute(route);
    }
    return 1;
}
