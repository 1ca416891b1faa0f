// Chains of node records as the database hands them to the browser, built
// by the tests and freed with them.
#ifndef WRL_NODE_RECORDS_H
#define WRL_NODE_RECORDS_H

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "database/zn_database_records.h"

namespace wrltest {

class NodeChain {
public:
    NodeChain() = default;
    NodeChain(const NodeChain&) = delete;
    NodeChain& operator=(const NodeChain&) = delete;
    ~NodeChain() {
        for (_zndbNode* node = head; node;) {
            for (_zndbNodeData* data = node->fields; data;) {
                _zndbNodeData* next = data->next;
                if (data->isFields) {
                    for (char* name : *data->isFields) std::free(name);
                    delete data->isFields;
                }
                std::free(data->value);
                delete data;
                data = next;
            }
            _zndbNode* next = node->next;
            delete node;
            node = next;
        }
    }

    _zndbNode* node(int typeId, int nodeId, const char* name, const char* parent = "", int nesting = 0,
                    int toplevel = 0) {
        auto* record = new _zndbNode;
        record->typeId = typeId;
        record->nodeId = nodeId;
        record->name = name;
        record->parentName = parent;
        record->nesting = nesting;
        record->isToplevel = toplevel;
        if (tail)
            tail->next = record;
        else
            head = record;
        tail = record;
        return record;
    }

    _zndbNodeData* field(const char* name, int fieldType, int dataType, const char* value, int isNodeId = 0,
                         std::vector<const char*> isNames = {}) {
        auto* data = new _zndbNodeData;
        data->name = name;
        data->value = strdup(value);
        data->fieldType = fieldType;
        data->dataType = dataType;
        data->isNodeId = isNodeId;
        if (!isNames.empty()) {
            data->isFields = new std::vector<char*>;
            for (const char* isName : isNames) data->isFields->push_back(strdup(isName));
        }
        _zndbNodeData** slot = &tail->fields;
        while (*slot) slot = &(*slot)->next;
        *slot = data;
        return data;
    }

    _zndbNode* head = nullptr;

private:
    _zndbNode* tail = nullptr;
};

}  // namespace wrltest

#endif
