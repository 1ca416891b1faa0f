#include "csFields.h"

#include "csContainer.h"

csMFRef::~csMFRef() { clear(); }

csContainer* csMFRef::get(int index) const {
    if (index < 0 || index >= getCount()) return nullptr;
    return _refs[static_cast<std::size_t>(index)];
}

void csMFRef::set(int index, csContainer* value) {
    if (index < 0) return;
    if (index >= getCount()) _refs.resize(static_cast<std::size_t>(index) + 1, nullptr);
    if (value) value->ref();
    csContainer* old = _refs[static_cast<std::size_t>(index)];
    _refs[static_cast<std::size_t>(index)] = value;
    if (old) old->unref();
}

void csMFRef::append(csContainer* value) { insert(getCount(), value); }

void csMFRef::insert(int index, csContainer* value) {
    if (index < 0) index = 0;
    if (index > getCount()) index = getCount();
    if (value) value->ref();
    _refs.insert(_refs.begin() + index, value);
}

bool csMFRef::removeIndex(int index) {
    if (index < 0 || index >= getCount()) return false;
    csContainer* old = _refs[static_cast<std::size_t>(index)];
    _refs.erase(_refs.begin() + index);
    if (old) old->unref();
    return true;
}

int csMFRef::find(const csContainer* value) const {
    for (std::size_t i = 0; i < _refs.size(); ++i)
        if (_refs[i] == value) return static_cast<int>(i);
    return -1;
}

void csMFRef::clear() {
    // Detach first: unref may destroy an object whose destructor looks back
    // at this list.
    std::vector<csContainer*> old;
    old.swap(_refs);
    for (csContainer* c : old)
        if (c) c->unref();
}
