// The database's records of finished types, nodes and routes, as the world
// reads them. Made with new: whoever takes a chain over releases it with
// delete. Names are of any length, as DEF names of exported files are.
#ifndef ZN_DATABASE_RECORDS_H
#define ZN_DATABASE_RECORDS_H

#include <cstdlib>
#include <string>
#include <vector>

#include "fields/zn_field.h"

// One interface item of a type.
struct _zndbData {
    std::string name;
    char* value = nullptr;  // owning; the empty text when none
    int fieldType = 0;
    int dataType = 0;
    FieldFlags flags;
    _zndbData* next = nullptr;  // owning
};

// The type being declared; one record, reused for each prototype.
struct _zndbProto {
    int id = 0;
    char* url = nullptr;  // owning; the empty text when none
    std::string name;
    int flagA = 0;
    int isSensor = 0;
    int bodyIsGrouping = 0;
    char* init = nullptr;  // borrowed from the database's kept texts, may be null
    std::string text;
    _zndbData* fields = nullptr;  // owning
};

// One field of a finished node.
struct _zndbNodeData {
    std::string name;
    // The empty text when none. A node read from the file borrows the
    // parser's text, which lives until EndNode returns: a mesh's values are
    // never copied. An expanded node owns its texts (see valueOwned).
    char* value = nullptr;
    int fieldType = 0;
    int dataType = 0;
    FieldFlags flags;
    int reserved = 0;
    // The node that holds the IS target, 0 when the field has none.
    int isNodeId = 0;
    std::vector<char*>* isFields = nullptr;  // owning, strings from strdup, unless borrowed
    _zndbNodeData* next = nullptr;           // owning
    int valueOwned = 0;                      // 1 when `value` is released with the record
    // 1 when `isFields` is a PROTO body's own list: every instance's record
    // reads the body's, which outlives the records.
    int isFieldsBorrowed = 0;
    // Where an expanded node's record writes the names it gives its own
    // node-valued fields; `value` then points into it. Kept, with its room,
    // when the record is used again.
    std::string ownValue;
};

// Releases the IS names of `data` that the record owns.
inline void znReleaseIsFields(_zndbNodeData& data) {
    if (data.isFields != nullptr && !data.isFieldsBorrowed) {
        for (char* name : *data.isFields) std::free(name);
        delete data.isFields;
    }
    data.isFields = nullptr;
}

// One finished node; a chain of them reaches the browser at once.
struct _zndbNode {
    int typeId = 0;
    int nodeId = 0;
    std::string name;        // stored form
    std::string typeName;
    std::string parentName;  // empty for a node of the file itself
    int isToplevel = 0;
    int reservedA = 0;
    int nesting = 0;  // 0: the node stands at the top of its level
    int reservedB = 0;
    int isExpanded = 0;
    int reservedC = 0;
    int reservedD = 0;
    _zndbNodeData* fields = nullptr;  // owning
    _zndbNode* next = nullptr;        // owning
};

// One ROUTE, by node IDs.
struct _zndbRoute {
    int id = 0;
    int fromTypeId = 0;
    int fromNodeId = 0;
    std::string fromField;
    int toTypeId = 0;
    int toNodeId = 0;
    std::string toField;
    _zndbRoute* next = nullptr;  // owning
};

#endif
