// The abstract scene database: what the parser hands finished declarations
// to, and what the browser asks to read worlds and PROTO bodies.
#ifndef ZN_DATABASE_H
#define ZN_DATABASE_H

#include <string>
#include <vector>

#include "fields/zn_field.h"

class zn_URL;
struct _zndbRoute;

// The kind letter of the stored name of a node without DEF: the parser
// writes it, the database and the browser read it.
constexpr char kAnonymousNodeKind = 'x';

// One entry of a stored PROTO body, in order: a piece of text with a number
// (kind 0), or the stored name of a body node (kind 1).
struct znProtoBodyEntry {
    int kind;
    std::string text;
    int number;
};

class znDatabase {
public:
    virtual ~znDatabase() = default;

    // --- receivers of the parser, in this order ---

    // Opens the record of one type; `parents` is a null-terminated list of
    // the enclosing PROTO names (empty at the top of a file).
    virtual int CreatePrototype(char* name, char** parents, char* url, int flagA, int sensor, char* text,
                                char* init) = 0;
    // One interface item of the open type; `dataType` 0 field, 1 eventOut,
    // 2 eventIn.
    virtual int SetPrototypeData(char* ignored, char* name, char* value, int fieldType, int dataType,
                                 FieldFlags flags) = 0;
    virtual int EndPrototype() = 0;
    virtual int CreateNode(char* type, char* instName, char** parents, int grouping, int nesting, int sensor) = 0;
    virtual int SetNodeData(char* ignored, char* name, char* value, int fieldType, int dataType, FieldFlags flags,
                            std::vector<char*>* isFields) = 0;
    virtual void EndNode() = 0;
    virtual int InsertRouteByName(char* fromType, char* fromNode, char* fromField, char* toType, char* toNode,
                                  char* toField, char** parents) = 0;

    // --- operations of the browser ---

    // Reads a world; answers the URL that was read, or null on failure.
    virtual const char* LoadURL(std::vector<const char*>& urls) = 0;
    virtual void cleanupDatabase() = 0;
    virtual void DeleteDatabase() = 0;
    // Reads the Node Support file; 1 on success.
    virtual int ParseSystem(zn_URL* url) = 0;
    // The body of the PROTO `typeName`, or null when it has none.
    virtual const std::vector<znProtoBodyEntry>* getProtoBody(const char* typeName) = 0;
    // A USE at the top of a file puts the named node in the top-level list.
    virtual void createToplevelUSE(const char* name) = 0;

    // Routes: the reader takes the list over from its head, frees each
    // record with free, and clears the head; GetAllRoutes restarts the
    // counter so that the next route begins a new list.
    virtual int GetAllRoutes() = 0;
    virtual _zndbRoute* getRouteHead() = 0;
    virtual void setRouteHead(_zndbRoute* head) = 0;
    // Adds 1 to the route counter and answers the new value.
    virtual int nextRouteID() = 0;
    // Answers a type ID never handed out before. The parser's types and
    // the types a host makes at run time draw on this one count, so that
    // neither takes the other's ID.
    virtual int nextTypeID() = 0;
};

// Holds nothing and reads nothing: for a browser that must run without
// a database.
class znDatabaseStandIn : public znDatabase {
public:
    int CreatePrototype(char*, char**, char*, int, int, char*, char*) override { return 1; }
    int SetPrototypeData(char*, char*, char*, int, int, FieldFlags) override { return 1; }
    int EndPrototype() override { return 1; }
    int CreateNode(char*, char*, char**, int, int, int) override { return 1; }
    int SetNodeData(char*, char*, char*, int, int, FieldFlags, std::vector<char*>*) override { return 1; }
    void EndNode() override {}
    int InsertRouteByName(char*, char*, char*, char*, char*, char*, char**) override { return 0; }
    const char* LoadURL(std::vector<const char*>&) override { return nullptr; }
    void cleanupDatabase() override {}
    void DeleteDatabase() override {}
    int ParseSystem(zn_URL*) override { return 1; }
    const std::vector<znProtoBodyEntry>* getProtoBody(const char*) override { return nullptr; }
    void createToplevelUSE(const char*) override {}
    int GetAllRoutes() override { return 1; }
    _zndbRoute* getRouteHead() override { return nullptr; }
    void setRouteHead(_zndbRoute*) override {}
    int nextRouteID() override { return ++routeCounter; }
    int nextTypeID() override { return ++typeCounter; }

private:
    int routeCounter = 0;
    int typeCounter = 0;
};

#endif
