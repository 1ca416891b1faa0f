// Runtime nodes: from the database's node records, and made at run time.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <list>
#include <string>
#include <string_view>
#include <typeinfo>
#include <unordered_map>
#include <vector>

#include "browser/browser_messages.h"
#include "browser/zn_browser_intern.h"
#include "browser/zn_sim_manager.h"
#include "database/zn_database_records.h"
#include "fields/all.h"
#include "fields/zn_exception.h"
#include "fields/zn_field_pool.h"
#include "base/zn_reports.h"
#include "base/zn_text.h"
#include "nodes/zn_node.h"
#include "nodes/zn_nodetype.h"
#include "url/zn_URL.h"

namespace {
// Where the plain name starts in a stored node name.
constexpr size_t kPlainNameOffset = 7;


const char* plainName(const char* stored) {
    return std::strlen(stored) > kPlainNameOffset ? stored + kPlainNameOffset : "";
}

void report(void (*sink)(const char*), const char* format, const char* text) {
    char message[512];
    std::snprintf(message, sizeof message, format, text);
    sink(message);
}

bool isNodeValued(int fieldType) { return fieldType == SFNodeType || fieldType == MFNodeType; }

using NodeList = std::vector<znNode*, znPoolAllocator<znNode*>>;

// Taken from the front; what was taken stays until the list goes.
struct NodeQueue {
    NodeList nodes;
    std::size_t first = 0;
    bool empty() const { return first == nodes.size(); }
    znNode* front() const { return nodes[first]; }
    void pop_front() { ++first; }
};

// Lists of nodes by the name of a type.
template <class List>
using NodeLists = std::unordered_map<std::string_view, List, std::hash<std::string_view>,
                                     std::equal_to<std::string_view>,
                                     znPoolAllocator<std::pair<const std::string_view, List>>>;

// The type's own field of `name` when a node's field may take its value
// from it rather than from text: the value was not given in the node, so
// the text is the default the type was made from. Node-valued fields are
// read as text, since reading a name may resolve a reference.
znField* typeDefault(znNodeType* type, int index, FieldType fieldType, const FieldFlags& flags) {
    if (flags.valueSet() || isNodeValued(fieldType)) return nullptr;
    if (index < 0 || index >= type->getFieldCount()) return nullptr;
    znField* field = type->getZnField(index);
    return field != nullptr && field->getFieldType() == fieldType ? field : nullptr;
}

// Whether a node-valued field of a type holds no node.
bool holdsNoNode(znField* field) {
    // The raw value, as a copy of a handle would cost a pair of its own.
    void* raw = field->getData();
    if (raw == nullptr) return false;
    if (field->getFieldType() == SFNodeType) return static_cast<BaseNode*>(raw)->handleNode() == nullptr;
    return static_cast<std::vector<BaseNode>*>(raw)->empty();
}

// Whether a node may borrow the type's own entry at `index` for a field of
// this kind and these flags: it must be the very field the node would get.
bool lendable(znNodeType* type, int index, FieldType fieldType, DataType dataType, const FieldFlags& flags) {
    if (index < 0 || index >= type->getFieldCount()) return false;
    znField* shared = type->getZnField(index);
    return shared != nullptr && shared->getFieldType() == fieldType && shared->getDataType() == dataType &&
           shared->getFlags().bits == flags.bits && !shared->isVirtual();
}
}  // namespace

int znBrowserIntern::addNode(_zndbNode* first) {
    if (!first) return 0;
    int failed = 0;
    // Prototype instances, and the nodes that stand at the top of a level:
    // after the pass each instance is paired with its body's first node.
    // Kept from call to call: a world hands over a chain per node, and the
    // lists are short. addNode never runs inside itself.
    static std::vector<znNode*> protoNodes;
    static std::vector<znNode*> depth0Nodes;
    protoNodes.clear();
    depth0Nodes.clear();
    // The instances that wait for the first node of their body, by type
    // name: the expansion of nested PROTOs hands over one chain of them all,
    // and a search of every instance for every node would be quadratic.
    // Made and dropped with every chain, so from the pool.
    NodeLists<NodeList> waiting;
    // The fields an IS field stands for; one list serves every field.
    std::vector<znField*> targets;
    // The default manager keeps no table of eventIns, so an eventIn need
    // not be entered with it before anything sends to it: until then the
    // node borrows the type's. Another manager sees each eventIn as it is
    // made, as ever.
    const bool eventInsOnDemand = simManager != nullptr && typeid(*simManager) == typeid(znSimManager_default);

    for (_zndbNode* record = first; record; record = record->next) {
        const char* name = record->name.c_str();
        const char* parentName = record->parentName.c_str();
        if (record->next != nullptr && record->next->name.size() > 1)
            nodeIDs.prefetch(std::string_view(record->next->name).substr(1));

        znNodeType* type = nullptr;
        try {
            type = getType(record->typeId);
        } catch (znInvalidNodeTypeIDException&) {
            report(znAlert, kSkipNodeInvalidType, name);
            continue;
        }
        if (!type) {
            report(znAlert, kSkipNodeNullType, name);
            continue;
        }

        // A node whose ID is taken cannot enter the world: nothing of it may
        // reach the name map either, or the name would lead to the other node.
        if (nodes.count(record->nodeId)) {
            report(znMessage, kFailedInsertNode, plainName(name));
            failed = 1;
            break;
        }

        // The latest node of a name wins the name. The node borrows the text
        // that the name map keeps.
        const char* keptName = nullptr;
        if (name[0] != '\0') {
            keptName = nodeIDs.assignKept(name, record->nodeId);
            numberedNames.note(name + 1);
        }
        auto* node = keptName != nullptr ? new znNode(record->nodeId, znNode::KeptText{keptName}, type, this)
                                         : new znNode(record->nodeId, name, type, this);
        node->setDepth(record->nesting);
        node->setParent(znNode::KeptText{keepParentName(parentName)});
        node->setFirstNodeID(0);
        // Relative URLs in a node name files beside the file the node was
        // read from: the directory that the URL interface is reading now, as
        // the world's URL is set only once the load is over. Only nodes that
        // name files pay for a copy of it.
        const char* reading = urlInterface ? urlInterface->get_path() : nullptr;
        node->setUrlBase(reading && type->namesFiles() ? reading : getWorldURL());
        node->setToplevel(record->isToplevel ? 1 : 0);

        if (!waiting.empty()) {
            auto found = waiting.find(parentName);
            if (found != waiting.end()) {
                for (znNode* proto : found->second)
                    if (!proto->getFirstNode()) proto->setFirstNode(node);
                waiting.erase(found);
            }
        }

        // A type without behaviour of its own is a prototype: its nodes are
        // instances, which the body's nodes stand for.
        if (!type->getInterface()) {
            type->printSupportMsg();
            protoNodes.push_back(node);
            waiting[type->getType()].push_back(node);
        }
        node->setFirstNodeID(0);
        if (record->nesting == 0) depth0Nodes.push_back(node);

        nodes.set(record->nodeId, node);

        // The records name the fields the file set; every field of the type
        // that no record reaches holds its default. Records come in the
        // type's order, so the defaults are entered in that order too.
        int next = 0;
        for (_zndbNodeData* data = record->fields; data; data = data->next) {
            const char* fieldName = data->name.c_str();
            const FieldType fieldType = static_cast<FieldType>(data->fieldType);
            const DataType dataType = static_cast<DataType>(data->dataType);
            FieldFlags flags = data->flags;
            // Each field is looked up by its name once.
            const int index = type->getDataIDFrom(fieldName, next);
            if (index > next && !addDefaults(node, type, next, index, eventInsOnDemand)) failed = 1;
            if (index >= next) next = index + 1;
            int dataID = -1;
            if (data->isNodeId != 0) {
                znNode* target = nullptr;
                try {
                    target = getNode(data->isNodeId);
                } catch (znInvalidNodeIDException&) {
                    report(znMessage, kErrorAddingField, fieldName);
                    failed = 1;
                    continue;
                }
                targets.clear();
                if (data->isFields) {
                    for (const char* isName : *data->isFields) {
                        const int targetIndex = target->getDataID(isName);
                        if (targetIndex >= 0 && targetIndex < target->getFieldCount())
                            targets.push_back(target->getZnField(targetIndex));
                    }
                }
                if (dataType == eventIn) {
                    dataID = node->addDataAt(index, fieldType, dataType, flags, &targets, simManager->nextIndex());
                    simManager->addEventIn(node, dataID, data->name.data());
                } else {
                    dataID = node->addDataAt(index, fieldType, dataType, flags, &targets, -1);
                }
                if (dataID != -1) node->getZnField(dataID)->addISNames(data->isFields);
            } else {
                dataID = addValue(node, type, index, fieldName, fieldType, dataType, flags, data->value,
                                  eventInsOnDemand);
            }
            if (dataID == -1) {
                report(znMessage, kErrorAddingField, fieldName);
                failed = 1;
            }
        }
        if (!addDefaults(node, type, next, type->getFieldCount(), eventInsOnDemand)) failed = 1;

        if (record->isToplevel) topLevel.push_back(record->nodeId);
        node->makeClean();
        newNodes.push_back(node);
    }

    // Several instances of one prototype pair off with the bodies in file
    // order; the mark keeps each body to one instance.
    if (!protoNodes.empty()) {
        NodeLists<NodeQueue> bodies;
        for (znNode* candidate : depth0Nodes)
            if (const char* parent = candidate->getParent()) bodies[parent].nodes.push_back(candidate);
        for (znNode* proto : protoNodes) {
            auto found = bodies.find(proto->getNodeType()->getType());
            if (found == bodies.end()) continue;
            NodeQueue& queue = found->second;
            while (!queue.empty() && queue.front()->getFirstNodeID() != 0) queue.pop_front();
            if (queue.empty()) continue;
            proto->setFirstNode(queue.front());
            queue.front()->setFirstNodeID(1);
            queue.pop_front();
        }
    }
    return failed ? 0 : 1;
}

int znBrowserIntern::addValue(znNode* node, znNodeType* type, int index, const char* fieldName,
                              FieldType fieldType, DataType dataType, FieldFlags& flags, const char* value,
                              bool eventInsOnDemand) {
    int dataID = -1;
    if (dataType == eventIn) {
        if (eventInsOnDemand && lendable(type, index, fieldType, dataType, flags)) dataID = node->lendDefault(index);
        if (dataID == -1) {
            dataID = node->addDataAt(index, fieldType, dataType, flags, simManager->nextIndex());
            simManager->addEventIn(node, dataID, const_cast<char*>(fieldName));
        }
    } else if (znField* shared = typeDefault(type, index, fieldType, flags)) {
        // Where the default is the very field the node would get, the node
        // borrows it until something asks for the field.
        if (lendable(type, index, fieldType, dataType, flags)) dataID = node->lendDefault(index);
        if (dataID == -1) dataID = node->addDataAt(index, fieldType, dataType, flags, *shared);
    } else {
        const char* text = value ? value : "";
        if (isNodeValued(fieldType) && dataType == field && !flags.valueSet() && znNamesNoNode(text) &&
            lendable(type, index, fieldType, dataType, flags) && holdsNoNode(type->getZnField(index)))
            dataID = node->lendDefault(index);
        if (dataID == -1) dataID = node->addDataAt(index, fieldType, dataType, flags, text);
        // Converting the text noted a name that no node has yet: the field
        // is filled once every node of the load exists.
        if (dataID != -1 && isNodeValued(fieldType) && dataType == field && unresolvedReference) {
            unresolvedReference = 0;
            pushUnresolved(node->getZnField(dataID), text);
        }
    }
    return dataID;
}

bool znBrowserIntern::addDefaults(znNode* node, znNodeType* type, int from, int to, bool eventInsOnDemand) {
    bool entered = true;
    for (int index = from; index < to; ++index) {
        // A repeated name keeps its first index: no record ever reaches the
        // later one, which stays as it was.
        const char* fieldName = type->getNameAt(index);
        znField* shared = type->getZnField(index);
        if (fieldName == nullptr || shared == nullptr) continue;
        // What the record of an unset field carried: the type's kind of
        // field, with the mark of a value the node gave taken off.
        FieldFlags flags = shared->getFlags();
        flags.bits &= ~FieldFlags::kValueSet;
        if (addValue(node, type, index, fieldName, shared->getFieldType(), shared->getDataType(), flags, nullptr,
                     eventInsOnDemand) == -1) {
            report(znMessage, kErrorAddingField, fieldName);
            entered = false;
        }
    }
    return entered;
}

znNode* znBrowserIntern::newNode(const char* name, znNodeType* type) {
    if (!name || !type) return nullptr;
    const int id = nodes.empty() ? 1 : nodes.largest() + 1;
    auto* node = new znNode(id, name, type, this);
    if (!nodes.emplace(id, node)) {
        delete node;
        return nullptr;
    }
    const char* stored = node->getName(nullptr);
    if (!nodeIDs.insert(stored[0] ? stored + 1 : "", id).second) {
        nodes.erase(id);
        delete node;
        return nullptr;
    }
    numberedNames.note(stored[0] ? stored + 1 : "");
    return node;
}

znNode* znBrowserIntern::newNode(const char* name, int typeID) {
    try {
        return newNode(name, getType(typeID));
    } catch (znInvalidNodeTypeIDException&) {
        return nullptr;
    }
}

znField* znBrowserIntern::fieldToZnField(Field* value) {
    if (!value) return nullptr;
    // Both numberings of the field types name a runtime class; anything else
    // is a plain value with no runtime side.
    int type = value->getType();
    if (type < 0 || type > kLastFieldType) return nullptr;
    return dynamic_cast<znField*>(value);
}
