// Nodes of a file and routes: from the parser's calls to the records that
// the browser turns into runtime nodes.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ostream>

#include "browser/zn_browser_intern.h"
#include "database/zn_database_intern.h"
#include "fields/zn_exception.h"
#include "nodes/zn_nodetype.h"
#include "parser/zn_lexer.h"

namespace {

int countParents(char** parents) {
    int count = 0;
    if (parents != nullptr)
        while (parents[count] != nullptr) ++count;
    return count;
}

// The IS names of an item, copied; null when there are none.
std::vector<char*>* copyNames(const std::vector<char*>* names) {
    if (names == nullptr || names->empty()) return nullptr;
    auto* copy = new std::vector<char*>;
    copy->reserve(names->size());
    for (const char* name : *names) copy->push_back(znCopyText(name != nullptr ? name : ""));
    return copy;
}

}  // namespace

int znDatabaseIntern::CreateNode(char* type, char* instName, char** parents, int grouping, int nesting,
                                 int /*sensor*/) {
    const int count = countParents(parents);
    const char* typeName = type != nullptr ? type : "";
    const char* nodeName = instName != nullptr ? instName : "";
    // The first type a name was given stays its type.
    if (auto entry = instanceTypes.insert(nodeName, 0); entry.second) {
        auto type = typeNumbers.insert(typeName, static_cast<int>(typeNames.size()));
        if (type.second) typeNames.emplace_back(typeName);
        *entry.first = *type.first;
    }
    if (count != 0 && nesting == 0 && grouping) groupingMark = 1;
    int toplevel = grouping && count == 0 && nesting == 0 ? 1 : 0;

    if (count != 0) {
        for (int i = 0; i < count; ++i)
            if (bodyProtos.insert(parents[i], ownerCounter + 1).second) ++ownerCounter;
        isRealNode = 0;
        currentNode = nullptr;
        return CreateVirtualNode(type, instName, parents, grouping, count, toplevel, nesting);
    }

    pendingInstance.clear();
    if (bodyProtos.contains(typeName)) pendingInstance = typeName;
    isRealNode = 1;
    currentNode = nullptr;
    currentFields = currentFieldsTail = nullptr;
    recycleChain(nodeList);
    nodeList = nodeListTail = nullptr;
    ++nameCounter;

    const int typeId = protoIdOf(typeName);
    if (typeId == 0) return 0;
    _zndbNode* node = newNodeRecord();
    if (!copyName(node->name, nodeName) || !copyName(node->typeName, typeName)) {
        spareNodes.push_back(node);
        return 0;
    }
    node->typeId = typeId;
    node->nodeId = ++nodeIdCounter;
    currentTopNodeId = node->nodeId;
    // A later DEF of the name takes the name over.
    instanceIds[nodeName] = node->nodeId;
    node->nesting = nesting;
    // A PROTO instance at the top of the file stands at the top when its
    // body does.
    if (nesting == 0 && typeId > systemTypeCount && browser != nullptr) {
        try {
            toplevel = browser->getType(typeId)->isToplevel();
        } catch (znInvalidNodeTypeIDException&) {
            toplevel = 0;
        }
    }
    node->isToplevel = toplevel;
    appendNode(node);
    currentNode = node;
    return 1;
}

int znDatabaseIntern::SetNodeData(char* ignored, char* name, char* value, int fieldType, int dataType,
                                  FieldFlags flags, std::vector<char*>* isFields) {
    if (!isRealNode) return SetVirtualNodeData(ignored, name, value, fieldType, dataType, flags, isFields);
    if (currentNode == nullptr) return 0;
    _zndbNodeData* data = newDataRecord();
    if (!copyName(data->name, name)) {
        spareData.push_back(data);
        return 0;
    }
    // Borrowed: the parser's text outlives the record, which ends in EndNode.
    data->value = value != nullptr ? value : const_cast<char*>("");
    data->valueOwned = 0;
    data->isFields = copyNames(isFields);
    data->fieldType = fieldType;
    data->dataType = dataType;
    data->flags = flags;
    if (currentFieldsTail != nullptr)
        currentFieldsTail->next = data;
    else
        currentFields = data;
    currentFieldsTail = data;
    return 1;
}

void znDatabaseIntern::EndNode() {
    if (isRealNode != 1) return;
    isRealNode = 0;
    if (currentNode != nullptr) {
        currentNode->fields = currentFields;
        currentFields = currentFieldsTail = nullptr;
        if (pendingInstance.empty()) {
            if (browser != nullptr) browser->addNode(nodeList);
        } else {
            addVirtualNodes();
        }
    }
    pendingInstance.clear();
    currentNode = nullptr;
    recycleChain(nodeList);
    nodeList = nodeListTail = nullptr;
}

void znDatabaseIntern::appendNode(_zndbNode* node) {
    node->next = nullptr;
    if (nodeListTail != nullptr)
        nodeListTail->next = node;
    else
        nodeList = node;
    nodeListTail = node;
}

void znDatabaseIntern::freeNodeChain(_zndbNode* head) {
    while (head != nullptr) {
        for (_zndbNodeData* data = head->fields; data != nullptr;) {
            _zndbNodeData* next = data->next;
            if (data->isFields != nullptr) {
                for (char* name : *data->isFields) std::free(name);
                delete data->isFields;
            }
            if (data->valueOwned) std::free(data->value);
            std::free(data);
            data = next;
        }
        _zndbNode* next = head->next;
        std::free(head);
        head = next;
    }
}

namespace {
// A cleared record: a spare one when there is any, else a new one.
template <class Record>
Record* clearedRecord(std::vector<Record*>& spares) {
    if (spares.empty()) {
        auto* record = static_cast<Record*>(std::calloc(1, sizeof(Record)));
        if (record == nullptr) znParserOutOfMemory();
        return record;
    }
    Record* record = spares.back();
    spares.pop_back();
    *record = Record{};
    return record;
}
}  // namespace

_zndbNode* znDatabaseIntern::newNodeRecord() { return clearedRecord(spareNodes); }

_zndbNodeData* znDatabaseIntern::newDataRecord() { return clearedRecord(spareData); }

void znDatabaseIntern::recycleChain(_zndbNode* head) {
    while (head != nullptr) {
        for (_zndbNodeData* data = head->fields; data != nullptr;) {
            _zndbNodeData* next = data->next;
            if (data->isFields != nullptr) {
                for (char* name : *data->isFields) std::free(name);
                delete data->isFields;
            }
            if (data->valueOwned) std::free(data->value);
            spareData.push_back(data);
            data = next;
        }
        _zndbNode* next = head->next;
        spareNodes.push_back(head);
        head = next;
    }
}

void znDatabaseIntern::ReverseList(_zndbNode** head) {
    if (head == nullptr) return;
    _zndbNode* reversed = nullptr;
    for (_zndbNode* node = *head; node != nullptr;) {
        _zndbNode* next = node->next;
        node->next = reversed;
        reversed = node;
        node = next;
    }
    *head = reversed;
}

void znDatabaseIntern::DumpNodes(_zndbNode* head, std::ostream& out) {
    for (_zndbNode* node = head; node != nullptr; node = node->next) {
        out << "node " << node->nodeId << " " << node->name << " type " << node->typeId << " (" << node->typeName
            << ") parent '" << node->parentName << "' nesting " << node->nesting << " toplevel "
            << node->isToplevel << " expanded " << node->isExpanded << "\n";
        for (_zndbNodeData* data = node->fields; data != nullptr; data = data->next) {
            out << "  " << data->name << " " << data->fieldType << "/" << data->dataType << " = " << data->value;
            if (data->isNodeId != 0) {
                out << " IS " << data->isNodeId;
                if (data->isFields != nullptr)
                    for (const char* name : *data->isFields) out << " " << name;
            }
            out << "\n";
        }
    }
}

// --- routes -----------------------------------------------------------------

_zndbRoute* znDatabaseIntern::newRoute() {
    // The reader took the list over: the next route starts a new one.
    if (routeCounter == 0) routeHead = routeTail = nullptr;
    auto* route = static_cast<_zndbRoute*>(std::calloc(1, sizeof(_zndbRoute)));
    if (route == nullptr) znParserOutOfMemory();
    route->id = ++routeCounter;
    return route;
}

void znDatabaseIntern::appendRoute(_zndbRoute* route) {
    route->next = nullptr;
    if (routeTail != nullptr)
        routeTail->next = route;
    else
        routeHead = route;
    routeTail = route;
}

int znDatabaseIntern::InsertRouteByName(char* fromType, char* fromNode, char* fromField, char* toType,
                                        char* toNode, char* toField, char** parents) {
    if (countParents(parents) != 0) {
        createVirtualRoute(fromType, fromNode, fromField, toType, toNode, toField, parents);
        return 1;
    }
    _zndbRoute* route = newRoute();
    route->fromTypeId = protoIdOf(fromType);
    route->toTypeId = protoIdOf(toType);
    route->fromNodeId = lookupInstanceId(fromNode);
    route->toNodeId = lookupInstanceId(toNode);
    char from[kDbNameLength];
    char to[kDbNameLength];
    if (route->fromTypeId == 0 || route->toTypeId == 0 || route->fromNodeId == 0 || route->toNodeId == 0 ||
        !copyName(from, fromField) || !copyName(to, toField)) {
        std::free(route);
        return 0;
    }
    std::memcpy(route->fromField, from, sizeof from);
    std::memcpy(route->toField, to, sizeof to);
    appendRoute(route);
    return 1;
}
