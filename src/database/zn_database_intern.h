// znDatabaseIntern: turns the parser's finished declarations into flat
// records for the browser, and owns the parser.
#ifndef ZN_DATABASE_INTERN_H
#define ZN_DATABASE_INTERN_H

#include <iosfwd>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "base/zn_name_table.h"
#include "database/zn_database.h"
#include "database/zn_database_records.h"

class znParser;
class znDatabaseWorld;

// One item of a node of a PROTO body.
struct _zndbVNodeData {
    std::string name;
    char* value = nullptr;  // owning; the empty text when none
    int fieldType = 0;
    int dataType = 0;
    FieldFlags flags;
    int reserved = 0;
    // The owner key of the body when the item is bound by IS, else 0.
    int isNode = 0;
    std::vector<char*>* isFields = nullptr;  // owning, strings from strdup; null when none
};

// One node of a PROTO body, replayed for each instance.
struct _zndbVNode {
    int typeId = 0;
    int nodeId = 0;
    int reserved = 0;
    std::string name;
    std::string typeName;
    std::string owner;       // innermost enclosing PROTO
    std::string outerOwner;  // outermost enclosing PROTO
    std::vector<std::string>* path = nullptr;  // owning: enclosing PROTOs, innermost first
    int nesting = 0;
    int isToplevel = 0;
    int isVirtual = 0;
    std::vector<_zndbVNodeData*>* fields = nullptr;  // owning
};

// One ROUTE of a PROTO body, by the names the parser gave.
struct _zndbVRoute {
    char* owner;  // owning, as are all the texts
    char* fromType;
    char* fromNode;
    char* fromField;
    char* toType;
    char* toNode;
    char* toField;
};

class znDatabaseIntern : public znDatabase {
public:
    explicit znDatabaseIntern(znDatabaseWorld* world);
    ~znDatabaseIntern() override;
    znDatabaseIntern(const znDatabaseIntern&) = delete;
    znDatabaseIntern& operator=(const znDatabaseIntern&) = delete;

    int CreatePrototype(char* name, char** parents, char* url, int flagA, int sensor, char* text,
                        char* init) override;
    int SetPrototypeData(char* ignored, char* name, char* value, int fieldType, int dataType,
                         FieldFlags flags) override;
    int EndPrototype() override;
    int CreateNode(char* type, char* instName, char** parents, int grouping, int nesting, int sensor) override;
    int SetNodeData(char* ignored, char* name, char* value, int fieldType, int dataType, FieldFlags flags,
                    std::vector<char*>* isFields) override;
    void EndNode() override;
    int InsertRouteByName(char* fromType, char* fromNode, char* fromField, char* toType, char* toNode,
                          char* toField, char** parents) override;

    const char* LoadURL(std::vector<const char*>& urls) override;
    void cleanupDatabase() override;
    void DeleteDatabase() override;
    int ParseSystem(zn_URL* url) override;
    const std::vector<znProtoBodyEntry>* getProtoBody(const char* typeName) override;
    void createToplevelUSE(const char* name) override;

    int GetAllRoutes() override;
    _zndbRoute* getRouteHead() override { return routeHead; }
    void setRouteHead(_zndbRoute* head) override;
    int nextRouteID() override { return ++routeCounter; }
    int nextTypeID() override { return ++protoIdCounter; }

    // The type name of a node name, or null.
    const char* getProto(const char* instName);
    // Type IDs up to this number belong to the Node Support file.
    int getSystemTypeCount() const { return systemTypeCount; }
    znParser* getParser() { return parser; }

    // PROTO bodies (zn_database_virtual.cpp).
    int CreateVirtualNode(char* type, char* instName, char** parents, int grouping, int count, int toplevel,
                          int nesting);
    int SetVirtualNodeData(char* ignored, char* name, char* value, int fieldType, int dataType, FieldFlags flags,
                           std::vector<char*>* isFields);
    void addVirtualNodes();
    // Replays the body of `protoName` behind the current chain; `suffix` is
    // the virtual ID of the instance inside an enclosing body, 0 at the top.
    int makeNodes(const char* protoName, int suffix);
    int makeNodes(const char* name, _zndbVNode* node, int suffix);
    int makeNode(_zndbVNode* node, int suffix, int instance);
    // 2 for a PROTO declared inside a PROTO, 1 for a PROTO with a body, else 0.
    int isProto(const char* instName);
    // Every name of an MFNode text with "_<suffix>", as "[a_1,b_1,]"; the
    // caller frees the result.
    static char* addSuffix(const char* names, int suffix);
    // The same text, written into `out`.
    static void addSuffix(const char* names, int suffix, std::string& out);
    int createVirtualRoute(char* fromType, char* fromNode, char* fromField, char* toType, char* toNode,
                           char* toField, char** parents);
    int addVirtualRoutes(const char* protoName, int suffix);

    // Chains of node records (zn_database_nodes.cpp).
    static void ReverseList(_zndbNode** head);
    static void DumpNodes(_zndbNode* head, std::ostream& out);
    static void freeNodeChain(_zndbNode* head);
    // Puts a chain's records back for reuse; their owned texts go.
    void recycleChain(_zndbNode* head);

    // What the last CreateNode made; for tests and diagnostics.
    int lookupInstanceId(const char* name) const;
    int getNodeIdCounter() const { return nodeIdCounter; }

private:
    void clearProtoFields();
    void clearVirtualRecords();
    void appendNode(_zndbNode* node);
    // Cleared records, from those of earlier nodes where there are any:
    // a file of many nodes would otherwise allocate a record per field.
    _zndbNode* newNodeRecord();
    _zndbNodeData* newDataRecord();
    void appendRoute(_zndbRoute* route);
    // A new route record with the next ID, starting a new list when the
    // reader took the last one over.
    _zndbRoute* newRoute();
    int protoIdOf(const char* typeName) const;
    // What the database knows of a node name: the first type it was given,
    // and the node it names now.
    struct InstanceName {
        int type = -1;  // in `typeNames`; -1 for none
        int id = 0;     // node ID; 0 for none
    };
    // The entry of a node name, made empty when the name is new. The node
    // ID is the running number of the records, so that a route can be
    // resolved by name.
    InstanceName& instanceEntry(std::string_view name);
    // Whether nodes of a PROTO of the file stand at the top of a scene, as
    // their body does.
    bool standsAtTop(const char* typeName);

    znDatabaseWorld* browser;  // borrowed: the world that owns this database
    znParser* parser;          // owning
    _zndbProto proto;

    std::unordered_map<std::string, int> protoIds;
    znNameTable bodyProtos;
    znNameTable nestedProtos;
    // Node name to its entry in `instanceNames`: one look-up serves a node.
    znNameTable instanceIndex;
    std::vector<InstanceName> instanceNames;
    znNameTable typeNumbers;
    std::vector<std::string> typeNames;
    znNameTable vnodeOwners;
    std::unordered_map<int, std::vector<_zndbVNode*>> vnodes;  // owning
    // Virtual ID to the last real node made from it.
    std::unordered_map<int, int> expansions;
    // Virtual IDs that an expansion has taken as its own node IDs.
    std::unordered_set<int> usedVirtualIds;
    // Routes of PROTO bodies, by their innermost PROTO, in order.
    std::unordered_map<std::string, std::vector<_zndbVRoute*>> vroutes;  // owning
    // What a PROTO declaration prints as its body: the top nodes of the
    // first instance.
    std::map<std::string, std::vector<znProtoBodyEntry>> protoBodies;

    // How deep PROTO instances inside PROTO bodies are expanded.
    static constexpr int kMaxExpansionDepth = 100;
    int expansionDepth = 0;
    int expansionLimitReported = 0;

    int protoCounter = 0;
    int protoIdCounter = 0;
    int nodeIdCounter = 0;
    // Highest instance number given; instanceNumber is that of the
    // expansion running now.
    int instanceCounter = 0;
    int instanceNumber = 0;
    int nameCounter = 0;
    int ownerCounter = 0;
    int routeCounter = 0;

    std::vector<_zndbNode*> spareNodes;     // owning
    std::vector<_zndbNodeData*> spareData;  // owning
    // The chain of real records that EndNode hands to the browser.
    _zndbNode* nodeList = nullptr;  // owning until EndNode
    _zndbNode* nodeListTail = nullptr;
    _zndbNode* currentNode = nullptr;  // borrowed from nodeList; null for a refused node
    _zndbNodeData* currentFields = nullptr;
    _zndbNodeData* currentFieldsTail = nullptr;
    int currentTopNodeId = 0;
    // The body node being filled by SetVirtualNodeData.
    _zndbVNode* currentVNode = nullptr;
    int currentKey = 0;

    // The routes read so far; the browser takes the list over.
    _zndbRoute* routeHead = nullptr;  // owning until handed over
    _zndbRoute* routeTail = nullptr;
    int systemTypeCount = 0;
    // Set by a grouping node at the top of a PROTO body; read when the
    // PROTO's record is made.
    int groupingMark = 0;
    int isRealNode = 0;
    std::string pendingInstance;
    // ZNinit texts: node types keep pointers to them for the process's life.
    std::vector<char*> keptTexts;  // owning
};

#endif
