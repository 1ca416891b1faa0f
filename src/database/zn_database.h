// The abstract scene database as the browser core sees it: the receiver of
// parsed declarations and the keeper of PROTO bodies.
#ifndef ZN_DATABASE_H
#define ZN_DATABASE_H

#include <string>
#include <vector>

class zn_URL;
struct _zndbRoute;

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
    // Reads a world; answers the URL that was read, or null on failure.
    virtual const char* LoadURL(std::vector<const char*>& urls) = 0;
    virtual void cleanupDatabase() = 0;
    virtual void DeleteDatabase() = 0;
    // Reads the Node Support file; 1 on success.
    virtual int ParseSystem(zn_URL* url) = 0;
    // The body of the PROTO `typeName`, or null when it has none.
    virtual const std::vector<znProtoBodyEntry>* getProtoBody(const char* typeName) = 0;

    // Routes: the reader takes the list over from its head, frees each
    // record with free, and clears the head; GetAllRoutes restarts the
    // counter so that the next route begins a new list.
    virtual int GetAllRoutes() = 0;
    virtual _zndbRoute* getRouteHead() = 0;
    virtual void setRouteHead(_zndbRoute* head) = 0;
    // Adds 1 to the route counter and answers the new value.
    virtual int nextRouteID() = 0;
};

// Stands in until the database exists: holds nothing and reads nothing.
class znDatabaseStandIn : public znDatabase {
public:
    const char* LoadURL(std::vector<const char*>&) override { return nullptr; }
    void cleanupDatabase() override {}
    void DeleteDatabase() override {}
    int ParseSystem(zn_URL*) override { return 1; }
    const std::vector<znProtoBodyEntry>* getProtoBody(const char*) override { return nullptr; }
    int GetAllRoutes() override { return 1; }
    _zndbRoute* getRouteHead() override { return nullptr; }
    void setRouteHead(_zndbRoute*) override {}
    int nextRouteID() override { return ++routeCounter; }

private:
    int routeCounter = 0;
};

#endif
