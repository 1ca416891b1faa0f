// Reference-counted base of every scene-graph object, and the run-time class
// words that isOfType compares.
#ifndef CS_OBJECT_H
#define CS_OBJECT_H

#include <atomic>

// A class word: one per scene-graph class, made on first use by the class's
// initClass(). Words form a chain to the base class, so a test against a
// base answers yes for every subclass.
class csType {
public:
    csType(const char* name, csType* parent) : _name(name), _parent(parent) {}
    const char* getName() const { return _name; }
    csType* getParent() const { return _parent; }
    bool isDerivedFrom(const csType* other) const;

private:
    const char* _name;  // borrowed: a string literal of the class
    csType* _parent;    // borrowed: class words live for the whole process
};

// Declares the class word of a scene-graph class. Every subclass repeats it so
// that getType() names the most derived class.
#define CS_DECLARE_CLASS_TYPE                      \
public:                                            \
    static csType* _ClassType;                     \
    static void initClass();                       \
    static csType* getClassType();                 \
    csType* getType() const override

class csObject {
public:
    static csType* _ClassType;
    static void initClass();
    static csType* getClassType();
    virtual csType* getType() const;

    // Adds one reference.
    void ref();
    // Drops one reference; at zero the object destroys itself. Unref of an
    // object nobody has referenced yet destroys it too, so that a freshly
    // made object handed straight to unref does not leak. Both may be
    // called from any thread.
    void unref();
    // Drops one reference without destroying the object at zero: for a
    // function that returns a fresh object whose count it had raised.
    void unrefNoDelete();
    int getRefCount() const { return _refCount.load(std::memory_order_relaxed); }

    bool isOfType(const csType* type) const;

    // A nonzero 32-bit number that stands for this object while it lives,
    // for interfaces that pass objects as int. Made on the first request
    // and the same on every later one; never handed to another object while
    // this one lives.
    int getHandle();
    // The live object behind `handle`; null for 0, for a number never
    // handed out and for one whose object has died.
    static csObject* fromHandle(int handle);
    // As fromHandle, and null too when the object is no T.
    template <class T>
    static T* fromHandleAs(int handle) {
        csObject* object = fromHandle(handle);
        return object != nullptr && object->isOfType(T::getClassType()) ? static_cast<T*>(object) : nullptr;
    }

    void setName(const char* name);
    // Names the object by a text that outlives it, such as a literal,
    // without a copy: a big scene gives thousands of objects one of a few
    // fixed names.
    void setStaticName(const char* name);
    const char* getName() const { return _name; }

protected:
    csObject();
    // Only unref may end a counted object.
    virtual ~csObject();

private:
    csObject(const csObject&) = delete;
    csObject& operator=(const csObject&) = delete;

    // Scenes are handed to hosts that may let go of them on any thread.
    std::atomic<int> _refCount;
    unsigned _alive;  // pattern set while the object lives, checked by ref/unref
    char* _name;      // owning: strdup copy, or null; borrowed when _nameStatic
    std::atomic<int> _handle;  // 0 until getHandle is first asked
    bool _nameStatic;
};

#endif

// Defines what CS_DECLARE_CLASS_TYPE declares. `parent` is the base class.
#define CS_DEFINE_CLASS_TYPE(cls, parent)                                     \
    csType* cls::_ClassType = nullptr;                                        \
    void cls::initClass() {                                                   \
        if (_ClassType == nullptr) _ClassType = new csType(#cls, parent::getClassType()); \
    }                                                                         \
    csType* cls::getClassType() {                                             \
        initClass();                                                          \
        return _ClassType;                                                    \
    }                                                                         \
    csType* cls::getType() const { return getClassType(); }
