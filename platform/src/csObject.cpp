#include "csObject.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "csMessages.h"

namespace {
// Marks a live object; a stale pointer handed to ref/unref shows up as a
// message instead of silent corruption.
constexpr unsigned kAlivePattern = 0x0b1ec7u;
constexpr unsigned kDeadPattern = 0xdeadu;
}  // namespace

bool csType::isDerivedFrom(const csType* other) const {
    for (const csType* t = this; t != nullptr; t = t->_parent)
        if (t == other) return true;
    return false;
}

csType* csObject::_ClassType = nullptr;

void csObject::initClass() {
    if (_ClassType == nullptr) _ClassType = new csType("csObject", nullptr);
}

csType* csObject::getClassType() {
    initClass();
    return _ClassType;
}

csType* csObject::getType() const { return getClassType(); }

csObject::csObject() : _refCount(0), _alive(kAlivePattern), _name(nullptr) {}

csObject::~csObject() {
    _alive = kDeadPattern;
    std::free(_name);
}

void csObject::ref() {
    if (_alive != kAlivePattern) {
        std::fprintf(stderr, kCsRefDead, static_cast<void*>(this));
        return;
    }
    ++_refCount;
}

void csObject::unref() {
    if (_alive != kAlivePattern) {
        std::fprintf(stderr, kCsUnrefDead, static_cast<void*>(this));
        return;
    }
    if (--_refCount <= 0) delete this;
}

void csObject::unrefNoDelete() {
    if (_refCount > 0) --_refCount;
}

bool csObject::isOfType(const csType* type) const {
    return type != nullptr && getType()->isDerivedFrom(type);
}

void csObject::setName(const char* name) {
    char* copy = name ? strdup(name) : nullptr;
    std::free(_name);
    _name = copy;
}
