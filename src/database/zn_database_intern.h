// znDatabaseIntern: turns the parser's finished declarations into flat
// records for the browser, and owns the parser.
#ifndef ZN_DATABASE_INTERN_H
#define ZN_DATABASE_INTERN_H

#include <map>
#include <string>
#include <vector>

#include "database/zn_database.h"

class znParser;
class znBrowserIntern;

// Length of every fixed name field of the records, the end byte included.
constexpr int kDbNameLength = 100;

// One interface item of a type.
struct _zndbData {
    char name[kDbNameLength];
    char* value;  // owning; the empty text when none
    int fieldType;
    int dataType;
    FieldFlags flags;
    _zndbData* next;  // owning
};

// The type being declared; one record, reused for each prototype.
struct _zndbProto {
    int id;
    char* url;  // owning; the empty text when none
    char name[kDbNameLength];
    int flagA;
    int isSensor;
    int bodyIsGrouping;
    char* init;  // borrowed from the database's kept texts, may be null
    char text[kDbNameLength];
    _zndbData* fields;  // owning
};

struct _zndbVNode;

class znDatabaseIntern : public znDatabase {
public:
    explicit znDatabaseIntern(znBrowserIntern* browser);
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
    znBrowserIntern* getBrowser() override { return browser; }

    const char* LoadURL(std::vector<const char*>& urls) override;
    void cleanupDatabase() override;
    void DeleteDatabase() override;
    int ParseSystem(zn_URL* url) override;
    const std::vector<znProtoBodyEntry>* getProtoBody(const char* typeName) override;
    void createToplevelUSE(const char* name) override;

    int GetAllRoutes() override;
    _zndbRoute* getRouteHead() override { return routeHead; }
    void setRouteHead(_zndbRoute* head) override { routeHead = head; }
    int nextRouteID() override { return ++routeCounter; }
    // The type name of a node name, or null.
    const char* getProto(const char* instName);
    // Type IDs up to this number belong to the Node Support file.
    int getSystemTypeCount() const { return systemTypeCount; }
    znParser* getParser() { return parser; }

private:
    // Copies `text` into a name field; a text that does not fit is refused.
    static bool copyName(char (&field)[kDbNameLength], const char* text);
    void clearProtoFields();

    znBrowserIntern* browser;  // back pointer to the owning browser
    znParser* parser;          // owning
    _zndbProto proto;
    // A prototype whose name did not fit: its items and its end are dropped.
    int protoRefused = 0;

    std::map<std::string, int> protoIds;
    std::map<std::string, int> bodyProtos;
    std::map<std::string, int> nestedProtos;
    std::map<std::string, std::string> instanceTypes;
    std::map<std::string, int> instanceIds;
    std::map<std::string, int> vnodeOwners;
    std::map<int, std::vector<_zndbVNode*>> vnodes;
    std::map<int, std::vector<int>> expansions;

    int protoCounter = 0;
    int protoIdCounter = 0;
    int nodeIdCounter = 0;
    int instanceCounter = 0;
    int nameCounter = 0;
    int ownerCounter = 0;
    int routeCounter = 0;
    // The routes read so far; the browser takes the list over.
    _zndbRoute* routeHead = nullptr;  // owning until handed over
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
