// Nodes of a file and routes: from the parser's calls to the records that
// the browser turns into runtime nodes.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ostream>

#include "base/zn_memory_budget.h"
#include "base/zn_text.h"
#include "database/database_messages.h"
#include "database/zn_database_intern.h"
#include "database/zn_database_world.h"
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
    // A node of the file without DEF has a name that nothing can ask for:
    // no ROUTE can spell it, and no PROTO body holds it. Most nodes of a
    // big world are such nodes, and the tables by name are left to the
    // others.
    const bool unnamed = count == 0 && nodeName[0] == kAnonymousNodeKind;
    // Nothing below enters another name before the node's ID is set.
    InstanceName* named = unnamed ? nullptr : &instanceEntry(nodeName);
    // The first type a name was given stays its type.
    if (named != nullptr && named->type < 0) {
        auto type = typeNumbers.insert(typeName, static_cast<int>(typeNames.size()));
        if (type.second) typeNames.emplace_back(typeName);
        named->type = *type.first;
    }
    // A body whose top holds a grouping node, or an instance of a PROTO that
    // stands at the top itself, makes its PROTO stand at the top.
    if (count != 0 && nesting == 0 && (grouping || standsAtTop(typeName))) groupingMark = 1;
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
    // Inlines may read one file many times over.
    if (!znBudget().take(kZnNodeCost, 1, [typeName] { return znFormatText(kNodeOverLimit, typeName); })) return 0;
    _zndbNode* node = newNodeRecord();
    node->name = nodeName;
    node->typeName = typeName;
    node->typeId = typeId;
    node->nodeId = ++nodeIdCounter;
    currentTopNodeId = node->nodeId;
    // A later DEF of the name takes the name over.
    if (named != nullptr) named->id = node->nodeId;
    node->nesting = nesting;
    // A PROTO instance at the top of the file stands at the top when its
    // body does.
    if (nesting == 0 && typeId > systemTypeCount) toplevel = standsAtTop(typeName) ? 1 : 0;
    node->isToplevel = toplevel;
    appendNode(node);
    currentNode = node;
    return 1;
}

bool znDatabaseIntern::standsAtTop(const char* typeName) {
    const int typeId = protoIdOf(typeName);
    if (typeId <= systemTypeCount || browser == nullptr) return false;
    return browser->typeStandsAtTop(typeId);
}

int znDatabaseIntern::SetNodeData(char* ignored, char* name, char* value, int fieldType, int dataType,
                                  FieldFlags flags, std::vector<char*>* isFields) {
    if (!isRealNode) return SetVirtualNodeData(ignored, name, value, fieldType, dataType, flags, isFields);
    if (currentNode == nullptr) return 0;
    _zndbNodeData* data = newDataRecord();
    data->name = name != nullptr ? name : "";
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
            znReleaseIsFields(*data);
            if (data->valueOwned) std::free(data->value);
            delete data;
            data = next;
        }
        _zndbNode* next = head->next;
        delete head;
        head = next;
    }
}

namespace {
// A cleared record: a spare one when there is any, else a new one. A spare
// keeps the room of its names, so that a file of many nodes stops
// allocating for them once the first few are done.
void clear(_zndbNode& node) {
    std::string name = std::move(node.name);
    std::string typeName = std::move(node.typeName);
    std::string parentName = std::move(node.parentName);
    node = _zndbNode{};
    node.name = std::move(name);
    node.typeName = std::move(typeName);
    node.parentName = std::move(parentName);
    node.name.clear();
    node.typeName.clear();
    node.parentName.clear();
}
void clear(_zndbNodeData& data) {
    std::string name = std::move(data.name);
    std::string ownValue = std::move(data.ownValue);
    data = _zndbNodeData{};
    data.name = std::move(name);
    data.name.clear();
    data.ownValue = std::move(ownValue);
    data.ownValue.clear();
}
template <class Record>
Record* clearedRecord(std::vector<Record*>& spares) {
    if (spares.empty()) return new Record;
    Record* record = spares.back();
    spares.pop_back();
    clear(*record);
    return record;
}
}  // namespace

_zndbNode* znDatabaseIntern::newNodeRecord() { return clearedRecord(spareNodes); }

_zndbNodeData* znDatabaseIntern::newDataRecord() { return clearedRecord(spareData); }

void znDatabaseIntern::recycleChain(_zndbNode* head) {
    while (head != nullptr) {
        for (_zndbNodeData* data = head->fields; data != nullptr;) {
            _zndbNodeData* next = data->next;
            znReleaseIsFields(*data);
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
    auto* route = new _zndbRoute;
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
    if (route->fromTypeId == 0 || route->toTypeId == 0 || route->fromNodeId == 0 || route->toNodeId == 0) {
        delete route;
        return 0;
    }
    route->fromField = fromField != nullptr ? fromField : "";
    route->toField = toField != nullptr ? toField : "";
    appendRoute(route);
    return 1;
}
