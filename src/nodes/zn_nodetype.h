// znNodeType: the runtime description of one kind of node, with a default
// value for every field and the script interface that gives it behaviour.
#ifndef ZN_NODETYPE_H
#define ZN_NODETYPE_H

#include <iosfwd>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "fields/zn_field.h"

class znScriptInterface;
class znNode;
class Event;
class SFTime;
class Builtin;

class znNodeType {
public:
    // Throws std::invalid_argument when `name` is null. `urls` is the list of
    // implementations tried in order; `initFn` is borrowed.
    znNodeType(int id, const char* name, std::vector<const char*>& urls, Browser* browser,
               int sensor, int toplevel, char* initFn);
    ~znNodeType();
    znNodeType(const znNodeType&) = delete;
    znNodeType& operator=(const znNodeType&) = delete;

    int addData(const char* name, FieldType type, DataType kind, FieldFlags& flags, const char* value);
    // `x_changed` finds `x`; -1 for an unknown name.
    int getDataID(const char* name);
    // The same, looking first at the fields from `from` on: a node's
    // records come in the type's order, with the defaults left out, so the
    // name is nearly always a few places on and need not be hashed.
    int getDataIDFrom(const char* name, int from);
    const char* getDataName(int index);
    // The name found at `index`; null where the name is repeated and finds
    // an earlier index.
    const char* getNameAt(int index) const { return firstNames[index]; }
    // Whether the type has a field "url": its nodes name files, and each
    // node made keeps the directory they are read from.
    bool namesFiles();
    znField* getZnField(int index) { return fields[index]; }
    int getFieldCount() const { return static_cast<int>(fields.size()); }
    Field* getData(int index);
    Field* getData(int index, Field*);
    Field* getData(const char* name);
    Field* getData(const char* name, Field*);
    Field* getEventIn(const char* name);
    Field* getEventIn(const char* name, Field*);
    Field* getEventOut(const char* name);
    Field* getEventOut(const char* name, Field*);
    Field* getField(const char* name);
    Field* getField(const char* name, Field*);

    int getID() { return id; }
    const char* getType() { return name.c_str(); }
    Browser* getBrowser() { return browser; }
    znScriptInterface* getInterface() { return interface; }
    int isSensor() { return sensor; }
    int isToplevel() { return toplevel; }
    int getScriptID() { return scriptID; }
    void setScriptID(int value) { scriptID = value; }
    int getSystemProto() { return systemProto; }
    void setSystemProto(int value) { systemProto = value; }
    int isPaused() { return paused; }
    void setPaused(int value) { paused = value; }
    const char* getInitFn() { return initFn; }

    // Output: a PROTO declaration, indented by this type's own depth.
    void print(std::ostream& os);
    const char* indent();
    void raiseDepth() { ++depth; }
    void lowerDepth() { --depth; }
    // Tells the user once that nodes of this type do nothing here.
    void printSupportMsg();

    // Passed on to the interface; without one they do nothing.
    int initialize(znNode& node);
    void shutdown(znNode& node);
    void eventsProcessed(znNode& node);
    void processEvents(znNode& node, int count, Event** events);
    void processEvent(znNode& node, Event& event);
    int action(znNode& node, SFTime& time, int mode, void* data);
    Builtin* getCPPScript(znNode& node);
    void pause(znNode& node, int n);
    void resume(znNode& node, int n);
    void save(znNode& node, int n);
    void restore(znNode& node, int n);
    void requestInfo(znNode& node, std::vector<int>& out);

    // Levels of indentation that `indent` provides.
    static constexpr int kIndentLevels = 20;

private:
    std::map<std::string, int, std::less<>> dataIDs;
    // The same entries hashed, over the map's own keys: every field of every
    // node of a world is found by name, often more than once.
    std::unordered_map<std::string_view, int> dataIndex;
    // By index, the map's key of the name whose first entry it is; null for
    // a repeated name, which keeps its first index.
    std::vector<const char*> firstNames;
    int urlKnown = -1;  // namesFiles as last found, -1 until asked after a change
    std::vector<znField*> fields;  // owning, in declaration order
    int id;
    int systemProto;
    int sensor;
    int toplevel;
    int supportMsgShown;
    znScriptInterface* interface;  // owning
    Browser* browser;              // borrowed
    std::string name;
    int scriptID;
    int depth;
    int paused;
    char indentBuffer[140];
    char* initFn;  // borrowed
};

#endif
