// The graphics-neutral base of the built-in node classes: fields found once,
// events turned into stored values and dirty flags, and the `action`
// protocol through which the back-end builds and refreshes its objects.
#ifndef VRMLNODEBASE_H
#define VRMLNODEBASE_H

#include <cstring>
#include <list>
#include <string>
#include <vector>

#include "fields/all.h"
#include "nodes/zn_node.h"
#include "nodes/zn_vrml.h"
#include "scripts/zn_event.h"

class gfx;
class csGroup;
class csTransform;
class csAppearance;

// Modes of `action`.
enum : int {
    kActionRefresh = 1,   // bring a built tree up to date
    kActionTopLevel = 2,  // the browser's pass over the top-level nodes
    kActionFetch = 4,     // answer the back-end object, building it first if needed
};

// What a parent hands down through `action`. The node that made a record
// owns it for as long as the node lives.
struct ActionState {
    ActionState() = default;
    // A record below `parent` (none: the root) starts from its transforms,
    // and is inlined when the parent's is.
    explicit ActionState(const ActionState* parent) {
        if (!parent) return;
        transforms = parent->transforms;
        inlined = parent->inlined;
    }

    csGroup* group = nullptr;              // borrowed: the making grouping node's group
    std::list<csTransform*> transforms;    // borrowed, outermost first
    csAppearance* appearance = nullptr;    // borrowed: set only in a shape's record
    // Whether the node was read through an Inline, from a file other than
    // the world's own: such nodes take no part in what the world binds at
    // its start.
    bool inlined = false;
};

// Whether a node handed `state` was read through an Inline.
inline bool isInlined(const void* state) { return state && static_cast<const ActionState*>(state)->inlined; }

// A field of a built-in node, found by name once and reached through its
// node at each use. Reading leaves a field that holds its type's default
// shared with the type; writing makes the field the node's own first. Most
// fields of most nodes keep their default for life, so a class holds these
// for the fields that files seldom set, where a held Field* would make every
// node pay for a copy of every default.
template <class T>
class NodeField {
public:
    NodeField() = default;
    // A value of the object's own, for an object that stands without a node.
    explicit NodeField(T* own) : target(own), index(own != nullptr ? kPlain : kNone) {}
    // Empty when the node's type lacks the field or it is of another class.
    NodeField(znNode* node, const char* name) {
        if (node == nullptr) return;
        const int found = node->getDataID(name);
        if (found < 0 || znValueAs<T>(node->peekData(found)) == nullptr) return;
        target = node;
        index = found;
    }

    explicit operator bool() const { return index != kNone; }
    // The value as it reads now: for reading only, and not to be kept.
    T* operator->() const { return get(); }
    T* get() const { return index >= 0 ? znValueAs<T>(owner()->peekData(index)) : plain(); }
    // The node's own field, for writing.
    T* own() const { return index >= 0 ? znValueAs<T>(owner()->getData(index, nullptr)) : plain(); }

private:
    // A built-in node holds several of these: one word for either kind of
    // target, told apart by the index, keeps each to two.
    static constexpr int kNone = -1;
    static constexpr int kPlain = -2;
    znNode* owner() const { return static_cast<znNode*>(target); }
    T* plain() const { return index == kPlain ? static_cast<T*>(target) : nullptr; }

    void* target = nullptr;  // borrowed: the node, whose fields die with it, or the plain value
    int index = kNone;       // of the field in the node; kNone or kPlain otherwise
};

class VRMLNode : public Builtin {
public:
    VRMLNode() = default;
    int action(SFTime& time, int mode, void* state) override = 0;
    ~VRMLNode() override = default;
    // Ends the object: nothing of a built-in outlives its node.
    void shutdown() override;
    void processEvent(Event&) override {}

    int isBuilt() const { return built; }
    // The name the file gave the node with DEF, or null for a node without
    // one: the part of the stored name after its kind and number.
    const char* getDefName();
    // The name of the node's back-end object: the DEF name of the node, or
    // `unnamed` for a node without one.
    const char* sceneName(const char* unnamed);
    gfx* getGraphics() { return graphics; }
    // The graphics interface, which the back-end finds and gives each node
    // it makes: the VRML level knows no graphics.
    void setGraphics(gfx* display) { graphics = display; }

    // Character `i` of an event name; '\0' at the end of the name and
    // kPastEnd beyond it, so short names never read out of bounds.
    static constexpr char kPastEnd = '\x7f';
    static char nameAt(const char* name, size_t i) {
        size_t length = std::strlen(name);
        return i <= length ? name[i] : kPastEnd;
    }

    // The event's value as `T`, or null when it carries something else.
    template <class T>
    static T* eventValue(Event& event) {
        return dynamic_cast<T*>(const_cast<ConstField*>(event.getValue()));
    }

    // Hands the event's value to a `set_*` method of `self`; a value of
    // another type is ignored, as an unknown event is.
    template <class C, class T>
    static void deliver(C* self, void (C::*method)(T&, double), Event& event) {
        if (T* value = eventValue<T>(event)) (self->*method)(*value, event.getTimeStamp());
    }

    // For an event named exactly `eventName`: stores its value in `field`
    // and raises `dirty`, and answers true (a value of another type changes
    // nothing). False for an event of any other name. For nodes whose
    // back-end takes all their values again after any change.
    template <class T>
    static bool storeEvent(Event& event, const char* eventName, T* field, unsigned char& dirty) {
        return storeEventWith<T>(event, eventName, dirty, [&](T& value) { assign(field, value); });
    }
    template <class T>
    static bool storeEvent(Event& event, const char* eventName, const NodeField<T>& field, unsigned char& dirty) {
        return storeEventWith<T>(event, eventName, dirty, [&](T& value) { assign(field, value); });
    }

    // The text of a string field up to its terminating null (stored strings
    // keep theirs); empty for a missing field.
    static std::string textOf(SFString* field);
    static std::vector<std::string> textsOf(MFString* field);

protected:
    // Each lookup answers null for a field that the node's type lacks.
    template <class T>
    T* exposedField(const char* name) {
        return znValueAs<T>(getExposedField(name, nullptr));
    }
    template <class T>
    T* plainField(const char* name) {
        return znValueAs<T>(Script::getField(name, nullptr));
    }
    // The same, for a field the class reads far more often than it writes.
    template <class T>
    NodeField<T> sharedField(const char* name) {
        return NodeField<T>(handleNode(), name);
    }
    template <class T>
    T* eventOutField(const char* name) {
        return znValueAs<T>(Builtin::getEventOut(name, nullptr));
    }
    template <class T, class Store>
    static bool storeEventWith(Event& event, const char* eventName, unsigned char& dirty, Store store) {
        const char* name = event.getName();
        if (!name || std::strcmp(name, eventName) != 0) return false;
        if (T* value = eventValue<T>(event)) {
            store(*value);
            dirty = 1;
        }
        return true;
    }
    // Copies `value` into a field of this node; a missing field stays missing.
    template <class T>
    static void assign(T* field, T& value) {
        if (field) *field = value;
    }
    template <class T>
    static void assign(const NodeField<T>& field, T& value) {
        assign(field.own(), value);
    }
    // The built-in behind a node-valued field, or null.
    static Builtin* childOf(SFNode* field) { return field ? Builtin::getBuiltin(*field) : nullptr; }
    static Builtin* childOf(const NodeField<SFNode>& field) { return childOf(field.get()); }

    unsigned char built = 0;
    gfx* graphics = nullptr;  // borrowed from the application interfaces
};

#endif
