// The database's records of finished nodes and of routes, as the browser
// reads them. Plain structures made with malloc: whoever takes a chain over
// releases it with free.
#ifndef ZN_DATABASE_RECORDS_H
#define ZN_DATABASE_RECORDS_H

#include <vector>

#include "fields/zn_field.h"

// Length of the fixed name fields of these records, the end byte included.
constexpr int kDbRecordNameLength = 100;

// One field of a finished node.
struct _zndbNodeData {
    char name[kDbRecordNameLength];
    // The empty text when none. A node read from the file borrows the
    // parser's text, which lives until EndNode returns: a mesh's values are
    // never copied. An expanded node owns its texts (see valueOwned).
    char* value;
    int fieldType;
    int dataType;
    FieldFlags flags;
    int reserved;
    // The node that holds the IS target, 0 when the field has none.
    int isNodeId;
    std::vector<char*>* isFields;  // owning, strings from strdup
    _zndbNodeData* next;           // owning
    int valueOwned;                // 1 when `value` is released with the record
};

// One finished node; a chain of them reaches the browser at once.
struct _zndbNode {
    int typeId;
    int nodeId;
    char name[kDbRecordNameLength];        // stored form
    char typeName[kDbRecordNameLength];
    char parentName[kDbRecordNameLength];  // empty for a node of the file itself
    int isToplevel;
    int reservedA;
    int nesting;  // 0: the node stands at the top of its level
    int reservedB;
    int isExpanded;
    int reservedC;
    int reservedD;
    _zndbNodeData* fields;  // owning
    _zndbNode* next;        // owning
};

// One ROUTE, by node IDs.
struct _zndbRoute {
    int id;
    int fromTypeId;
    int fromNodeId;
    char fromField[kDbRecordNameLength];
    int toTypeId;
    int toNodeId;
    char toField[kDbRecordNameLength];
    _zndbRoute* next;  // owning
};

#endif
