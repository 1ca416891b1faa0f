// znNode: the runtime node behind every handle. Its behaviour comes from its
// own script object or from its node type's interface.
#ifndef ZN_NODE_H
#define ZN_NODE_H

#include <cstdint>
#include <iosfwd>
#include <vector>

#include "fields/zn_field.h"
#include "nodes/zn_vrml.h"

class znNodeType;
class znScriptInterfaces;

// Life-cycle calls of a node that a script object may take over.
class zn {
public:
    virtual void pause(int) {}
    virtual void resume(int) {}
    virtual void save(int) {}
    virtual void restore(int) {}
    virtual void requestInfo(std::vector<int>&) {}
    virtual void info(std::vector<const char*>&) {}
    virtual void processEvent(Event&) {}
    virtual ~zn() = default;
};

class znNode : public Builtin, public zn {
public:
    // Throws std::invalid_argument when name, type or browser is missing.
    znNode(int id, const char* name, znNodeType* type, Browser* browser);
    // A text that the world keeps for longer than the node lives: the node
    // borrows it rather than copying it. A world has a name and a parent for
    // each of millions of nodes, and its tables hold each text already.
    struct KeptText {
        const char* text;
    };
    znNode(int id, KeptText name, znNodeType* type, Browser* browser);
    // A world has millions of nodes, all of one size.
    static void* operator new(std::size_t size) { return znFieldPool::allocate(size); }
    static void operator delete(void* block, std::size_t size) { znFieldPool::release(block, size); }

    Field* getEventIn(const char* name) override;
    Field* getEventIn(const char* name, Field** out) override;
    Field* getEventOut(const char* name) override;
    Field* getEventOut(const char* name, Field** out) override;
    Field* getExposedField(const char* name) override;
    Field* getExposedField(const char* name, Field** out) override;
    Builtin* getCPPScript() override;
    int action(SFTime& time, int mode, void* data) override;
    const char* getName(znInternal* pair) override;
    ~znNode() override;
    void eventsProcessed() override;
    void shutdown() override;
    void pause(int n) override;
    void resume(int n) override;
    void save(int n) override;
    void restore(int n) override;
    void requestInfo(std::vector<int>& out) override;
    const char* getType() override;
    Browser* getBrowser() override { return browser; }
    Browser* getBrowser(Browser** out) override;
    const char* getUrlBase() override { return urlBase; }
    int isDirty() override { return dirty; }
    void makeClean() override { dirty = 0; }
    void makeDirty() override { dirty = 1; }
    Field* getField(const char* name) override;
    Field* getField(const char* name, Field** out) override;
    void processEvents(int count, Event** events) override;
    void processEvent(Event& event) override;

    // Fields, indexed as in the node type.
    int addData(const char* name, FieldType type, DataType kind, FieldFlags& flags, const char* value);
    // As with a text, with the value of `value`, a field of the same type:
    // a node takes its type's defaults this way without reading them again.
    int addData(const char* name, FieldType type, DataType kind, FieldFlags& flags, const znField& value);
    int addData(const char* name, FieldType type, DataType kind, FieldFlags& flags, int eventIndex);
    int addData(const char* name, FieldType type, DataType kind, FieldFlags& flags,
                std::vector<znField*>* remote, int eventIndex);
    int addData(const char* name, znField* field);
    // The same at the index the node type gives the field's name, for a
    // caller that knows it (-1: the type has no such field).
    int addDataAt(int index, FieldType type, DataType kind, FieldFlags& flags, const char* value);
    int addDataAt(int index, FieldType type, DataType kind, FieldFlags& flags, const znField& value);
    int addDataAt(int index, FieldType type, DataType kind, FieldFlags& flags, int eventIndex);
    int addDataAt(int index, FieldType type, DataType kind, FieldFlags& flags, std::vector<znField*>* remote,
                  int eventIndex);
    // The type's own default at `index` stands for the node's field until
    // somebody asks for the field: most fields of most nodes keep their
    // default for life, and most eventIns never receive an event, so a world
    // need not hold a copy of each. An eventIn gets its event number when it
    // is asked for. Answers -1 where the node must have a copy made now.
    int lendDefault(int index);
    // Only the last entry can go; the field is not destroyed.
    int removeData(int index);
    // Every way to a field that may write it makes a lent default the
    // node's own first.
    znField* getZnField(int index) { return own(index); }
    // The field at `index` as it reads now, which may be the type's default:
    // for readers only, who neither write it nor keep it past a write.
    // Null for a missing field.
    Field* peekData(int index) const;
    Field* getData(int index);
    Field* getData(int index, Field** out);
    Field* getData(const char* name);
    Field* getData(const char* name, Field** out);
    int getDataID(const char* name);
    int getFieldCount() const { return static_cast<int>(fields.size()); }

    int getID() { return id; }
    znNodeType* getNodeType() { return nodeType; }
    const char* getName() { return name; }
    int getDepth() { return depth; }
    int setDepth(int d);
    void setParent(const char* parentName);
    void setParent(KeptText parentName);
    const char* getParent() { return parent; }
    void setUrlBase(const char* base);
    int isSensor();
    int isToplevel() { return toplevel; }
    int setToplevel(int value);
    void setFirstNode(znNode* node) { firstNode = node; }
    znNode* getFirstNode() { return firstNode; }
    void setFirstNodeID(int nodeID) { firstNodeID = nodeID; }
    int getFirstNodeID() { return firstNodeID; }
    // Whether the node's script language was enabled when the node was
    // made: a node keeps that answer for its life.
    int isScriptEnabled() const { return scriptEnabled; }
    // The compiled script object that the type's script interface made for
    // this node, or null; the object ends through its own shutdown.
    Script* getCompiledScript() const { return compiledScript; }
    void setCompiledScript(Script* script) { compiledScript = script; }
    void reset() { restore(0); }

    int initialize();
    void print(std::ostream& os);
    // The value of an SFNode or MFNode field as VRML text, the nodes
    // indented by the depth of `indenting`.
    static bool isNodeValued(znField* f);
    static void printNodes(std::ostream& os, znField& f, znNodeType& indenting);

private:
    static void printNodes(std::ostream& os, znField& f, znNodeType& indenting, std::vector<znNode*>& printing);
    // `print` below the nodes being printed: a node that holds one of them,
    // as a Script that names itself does, is written as a USE of it.
    void print(std::ostream& os, std::vector<znNode*>& printing);
    static void printChild(std::ostream& os, znNode* child, std::vector<znNode*>& printing);
    // Enters `f` at `index`, or destroys it and reports `failure`.
    int enter(int index, znField* f, const char* failure);
    // Enters `f` at `index`; -1 when the index or the field is missing.
    int place(int index, znField* f);
    bool isLent(int index) const {
        return index >= 0 && index < kLendable && ((lent >> index) & 1u) != 0;
    }
    // The field at `index`, a copy of the type's default made for the node
    // if it was lent.
    znField* own(int index);

    // Only the first fields can be lent: a type with more than this is a
    // Script or PROTO with a long interface, which is rare.
    static constexpr int kLendable = 64;
    static constexpr std::uint8_t kKeptName = 1;
    static constexpr std::uint8_t kKeptParent = 2;

    Browser* browser;        // borrowed
    znNodeType* nodeType;    // borrowed
    int id;
    std::uint8_t kept = 0;  // kKeptName, kKeptParent: those texts are borrowed
    std::vector<znField*, znPoolAllocator<znField*>> fields;  // owning but where lent; a hole repeats a pointer until filled
    std::uint64_t lent = 0;        // bit i: fields[i] is the type's default, borrowed
    // Owning: a world has a name per node, most of them short.
    char* name;
    znNode* firstNode;       // borrowed: first node of a PROTO body
    char* parent;            // owning, strdup copy
    int firstNodeID;
    Builtin* cppScript;      // borrowed from the interface
    int depth;
    int toplevel;
    znScriptInterfaces* scriptInterfaces;  // borrowed from the system object
    char* urlBase;           // owning, strdup copy
    int dirty;
    int scriptEnabled;
    Script* compiledScript = nullptr;  // borrowed: see getCompiledScript
};

#endif
