#include "csObject.h"

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <unordered_map>

#include "csMessages.h"

namespace {
// Marks a live object; a stale pointer handed to ref/unref shows up as a
// message instead of silent corruption.
constexpr unsigned kAlivePattern = 0x0b1ec7u;
constexpr unsigned kDeadPattern = 0xdeadu;

// The objects that were asked for a handle, by handle. Entries leave with
// their objects, so a number outliving its object finds nothing.
std::unordered_map<int, csObject*>& handleTable() {
    static auto* table = new std::unordered_map<int, csObject*>();  // never freed: objects may die at exit
    return *table;
}
int lastHandle = 0;
// Objects of one scene may end on another thread than the one that made
// another scene's: the table is shared by all.
std::mutex& handleLock() {
    static auto* lock = new std::mutex();  // never freed, as the table
    return *lock;
}
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

csObject::csObject() : _refCount(0), _alive(kAlivePattern), _name(nullptr), _handle(0) {}

csObject::~csObject() {
    _alive = kDeadPattern;
    if (_handle != 0) {
        std::lock_guard<std::mutex> lock(handleLock());
        handleTable().erase(_handle);
    }
    std::free(_name);
}

void csObject::ref() {
    if (_alive != kAlivePattern) {
        std::fprintf(stderr, kCsRefDead, static_cast<void*>(this));
        return;
    }
    _refCount.fetch_add(1, std::memory_order_relaxed);
}

void csObject::unref() {
    if (_alive != kAlivePattern) {
        std::fprintf(stderr, kCsUnrefDead, static_cast<void*>(this));
        return;
    }
    if (_refCount.fetch_sub(1, std::memory_order_acq_rel) <= 1) delete this;
}

void csObject::unrefNoDelete() {
    int count = _refCount.load(std::memory_order_relaxed);
    while (count > 0 && !_refCount.compare_exchange_weak(count, count - 1, std::memory_order_acq_rel)) {
    }
}

bool csObject::isOfType(const csType* type) const {
    return type != nullptr && getType()->isDerivedFrom(type);
}

void csObject::setName(const char* name) {
    char* copy = name ? strdup(name) : nullptr;
    std::free(_name);
    _name = copy;
}

int csObject::getHandle() {
    std::lock_guard<std::mutex> lock(handleLock());
    if (_handle != 0) return _handle;
    auto& table = handleTable();
    // Numbers run up to the largest int and start again at 1, skipping the
    // ones still held by living objects.
    do {
        lastHandle = lastHandle == INT_MAX ? 1 : lastHandle + 1;
    } while (table.count(lastHandle) != 0);
    _handle = lastHandle;
    table.emplace(_handle, this);
    return _handle;
}

csObject* csObject::fromHandle(int handle) {
    if (handle == 0) return nullptr;
    std::lock_guard<std::mutex> lock(handleLock());
    auto& table = handleTable();
    auto found = table.find(handle);
    return found == table.end() ? nullptr : found->second;
}
