// An owning reference to a counted scene-graph object, for members that
// would otherwise repeat the ref-new-then-unref-old bookkeeping.
#ifndef CS_REF_PTR_H
#define CS_REF_PTR_H

template <class T>
class csRefPtr {
public:
    csRefPtr() = default;
    // Takes a reference on `object`: `csRefPtr<csNode> scene(wrlLoad(name));`
    explicit csRefPtr(T* object) { reset(object); }
    csRefPtr(const csRefPtr&) = delete;
    csRefPtr& operator=(const csRefPtr&) = delete;
    ~csRefPtr() { reset(nullptr); }

    // Refs the new object before it unrefs the old one: the old one may be
    // the only owner of the new.
    void reset(T* object) {
        if (object) object->ref();
        T* old = _object;
        _object = object;
        if (old) old->unref();
    }
    T* get() const { return _object; }
    T* operator->() const { return _object; }
    explicit operator bool() const { return _object != nullptr; }

private:
    T* _object = nullptr;  // owning one reference
};

#endif
