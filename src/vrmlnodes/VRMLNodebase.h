// The graphics-neutral base of the built-in node classes: fields found once,
// events turned into stored values and dirty flags, and the `action`
// protocol through which the back-end builds and refreshes its objects.
#ifndef VRMLNODEBASE_H
#define VRMLNODEBASE_H

#include <cstring>
#include <list>

#include "fields/all.h"
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
    // A record below `parent` (none: the root) starts from its transforms.
    explicit ActionState(const ActionState* parent) {
        if (parent) transforms = parent->transforms;
    }

    csGroup* group = nullptr;              // borrowed: the making grouping node's group
    std::list<csTransform*> transforms;    // borrowed, outermost first
    csAppearance* appearance = nullptr;    // borrowed: set only in a shape's record
};

class VRMLNode : public Builtin {
public:
    VRMLNode();
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
    template <class T>
    T* eventOutField(const char* name) {
        return znValueAs<T>(Builtin::getEventOut(name, nullptr));
    }
    // Copies `value` into a field of this node; a missing field stays missing.
    template <class T>
    static void assign(T* field, T& value) {
        if (field) *field = value;
    }
    // The built-in behind a node-valued field, or null.
    static Builtin* childOf(SFNode* field) { return field ? Builtin::getBuiltin(*field) : nullptr; }

    unsigned char built = 0;
    gfx* graphics = nullptr;  // borrowed from the application interfaces
};

#endif
