// What compiled code holds of a node: handles that forward every call through
// a znInternal pair to the runtime node.
#ifndef ZN_VRML_H
#define ZN_VRML_H

#include <iosfwd>
#include <vector>

#include "browser/zn_browser.h"
#include "fields/zn_field_pool.h"

class znNode;
class Field;
class Event;
class SFTime;
class SFNode;
class MFNode;

// The pair behind a handle. It owns neither of the two.
class znInternal {
public:
    explicit znInternal(Browser* b = nullptr, znNode* n = nullptr) : browser(b), node(n) {}
    // Every node has one, and so has every handle: they come and go with the
    // fields, from the same pool.
    static void* operator new(std::size_t size) { return znFieldPool::allocate(size); }
    static void operator delete(void* block, std::size_t size) { znFieldPool::release(block, size); }
    Browser* browser;  // borrowed
    znNode* node;      // borrowed; the node's life is not tied to any handle
};

class BaseNode {
public:
    BaseNode() : internal(nullptr) {}
    // Takes ownership of `pair`.
    explicit BaseNode(znInternal* pair) : internal(pair) {}
    // Each handle owns a pair of its own that names the same two objects.
    BaseNode(const BaseNode& other);
    BaseNode& operator=(const BaseNode& other);

    virtual const char* getType();
    virtual Browser* getBrowser();
    virtual Browser* getBrowser(Browser** out);
    virtual int isDirty();
    virtual void makeDirty();
    virtual void makeClean();
    virtual const char* getUrlBase();
    virtual ~BaseNode();

    int getID();
    // The node behind the handle, or null.
    znNode* handleNode() const { return internal ? internal->node : nullptr; }

    znInternal* internal;  // owning
};

class Node : public virtual BaseNode {
public:
    Node() = default;
    // Without a node the name operations answer null; with one they throw as
    // the node does.
    virtual Field* getEventIn(const char* name);
    virtual Field* getEventIn(const char* name, Field** out);
    virtual Field* getEventOut(const char* name);
    virtual Field* getEventOut(const char* name, Field** out);
    virtual Field* getExposedField(const char* name);
    virtual Field* getExposedField(const char* name, Field** out);

    Node& operator=(BaseNode& other);
};

class Builtin;

class Script : public virtual BaseNode {
public:
    Script() = default;
    virtual Field* getField(const char* name);
    virtual Field* getField(const char* name, Field** out);
    virtual Field* getEventOut(const char* name);
    virtual Field* getEventOut(const char* name, Field** out);
    virtual void processEvents(int count, Event** events);
    virtual void processEvent(Event& event);
    virtual void eventsProcessed();
    // Forgets browser and node: the handle then answers as a null one.
    virtual void shutdown();
    // The compiled node class behind this script, or null. Every node of a
    // world asks once, and a cast across the virtual base would cost more
    // than the rest of the question.
    virtual Builtin* asBuiltin() { return nullptr; }
    ~Script() override = default;

    Script& operator=(BaseNode& other);
};

// The base of every compiled node class. A class derived from it initialises
// the virtual BaseNode with the znInternal it was made with.
class Builtin : public Node, public Script {
public:
    Builtin() = default;
    Field* getEventIn(const char* name) override;
    Field* getEventIn(const char* name, Field** out) override;
    Field* getEventOut(const char* name) override;
    Field* getEventOut(const char* name, Field** out) override;
    Field* getExposedField(const char* name) override;
    Field* getExposedField(const char* name, Field** out) override;
    virtual void setInternal(znNode* node);
    virtual Builtin* getCPPScript();
    virtual int action(SFTime& time, int mode, void* data) = 0;
    virtual const char* getName(znInternal* pair);
    Builtin* asBuiltin() override { return this; }
    ~Builtin() override = default;

    // From a node-valued field to the code behind it; null handles give null
    // or are skipped.
    static Builtin* getBuiltin(SFNode& value);
    static void getBuiltin(MFNode& value, std::vector<Builtin*>& out);
    static void getBuiltin(MFNode& value, Builtin** out);
    static int callAction(SFNode& node, SFTime& time, int mode, void* data);
    static void callAction(MFNode& nodes, SFTime& time, void** data);
};

class EAI_Node : public BaseNode {
public:
    EAI_Node() = default;
};

// A node prints as its ID.
std::ostream& operator<<(std::ostream& os, Node& node);

#endif
