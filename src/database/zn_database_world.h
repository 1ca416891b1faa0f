// The world that the database hands its finished declarations to: the few
// operations it calls, which the browser implements. The database knows
// nothing else of the browser.
#ifndef ZN_DATABASE_WORLD_H
#define ZN_DATABASE_WORLD_H

#include "database/zn_database_records.h"

class znDatabaseWorld {
public:
    virtual ~znDatabaseWorld() = default;
    // A finished type and its interface items; 1 when it entered the world.
    virtual int addType(_zndbProto* proto, _zndbData* fields) = 0;
    // A chain of finished nodes; 1 when every node and field entered.
    virtual int addNode(_zndbNode* first) = 0;
    // Whether the nodes of a type stand at the top of a scene, as grouping
    // nodes and shapes do; false for a type the world does not have.
    virtual bool typeStandsAtTop(int typeId) = 0;
    // A USE at the top of a file: the node joins the top-level list.
    virtual void addToToplevelList(const char* name) = 0;
    // The kind of browser, which decides where the Node Support file is
    // looked for and how built-in classes are found.
    virtual int ZNType() = 0;
};

#endif
