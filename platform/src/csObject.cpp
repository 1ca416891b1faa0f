#include "csObject.h"

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <memory>
#include <vector>

#include "csMessages.h"

namespace {
// Marks a live object; a stale pointer handed to ref/unref shows up as a
// message instead of silent corruption.
constexpr unsigned kAlivePattern = 0x0b1ec7u;
constexpr unsigned kDeadPattern = 0xdeadu;

// The objects that were asked for a handle, by handle. Entries leave with
// their objects, so a number outliving its object finds nothing. Handles are
// given one after another, so they stand in pages of consecutive numbers: a
// look-up is two steps into memory, and a page whose objects have all gone
// goes with them, so a host that loads world after world keeps only the
// pages of what is alive.
class HandleTable {
public:
    csObject* find(int handle) const {
        const Page* page = pageOf(handle);
        return page != nullptr ? page->slots[slotOf(handle)] : nullptr;
    }
    bool taken(int handle) const { return find(handle) != nullptr; }
    void enter(int handle, csObject* object) {
        const std::size_t index = static_cast<std::size_t>(handle) >> kPageBits;
        if (index >= pages.size()) pages.resize(index + 1);
        std::unique_ptr<Page>& page = pages[index];
        if (!page) page = std::make_unique<Page>();
        csObject*& slot = page->slots[slotOf(handle)];
        if (slot == nullptr) ++page->used;
        slot = object;
    }
    void erase(int handle) {
        const std::size_t index = static_cast<std::size_t>(handle) >> kPageBits;
        if (index >= pages.size() || !pages[index]) return;
        Page& page = *pages[index];
        csObject*& slot = page.slots[slotOf(handle)];
        if (slot == nullptr) return;
        slot = nullptr;
        if (--page.used == 0) pages[index].reset();
    }

private:
    static constexpr int kPageBits = 12;
    static constexpr std::size_t kPageSize = std::size_t{1} << kPageBits;
    struct Page {
        csObject* slots[kPageSize] = {};
        std::size_t used = 0;
    };
    static std::size_t slotOf(int handle) { return static_cast<std::size_t>(handle) & (kPageSize - 1); }
    const Page* pageOf(int handle) const {
        if (handle <= 0) return nullptr;
        const std::size_t index = static_cast<std::size_t>(handle) >> kPageBits;
        return index < pages.size() ? pages[index].get() : nullptr;
    }

    std::vector<std::unique_ptr<Page>> pages;
};

HandleTable& handleTable() {
    static auto* table = new HandleTable();  // never freed: objects may die at exit
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

csObject::csObject() : _refCount(0), _alive(kAlivePattern), _name(nullptr), _handle(0), _nameStatic(false) {}

csObject::~csObject() {
    _alive = kDeadPattern;
    if (const int handle = _handle.load(std::memory_order_acquire); handle != 0) {
        std::lock_guard<std::mutex> lock(handleLock());
        handleTable().erase(handle);
    }
    if (!_nameStatic) std::free(_name);
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
    if (!_nameStatic) std::free(_name);
    _name = copy;
    _nameStatic = false;
}

void csObject::setStaticName(const char* name) {
    if (!_nameStatic) std::free(_name);
    _name = const_cast<char*>(name);
    _nameStatic = name != nullptr;
}

int csObject::getHandle() {
    // An object asked again, as the actions of a scene ask each of theirs
    // many times, answers without the lock.
    if (const int handle = _handle.load(std::memory_order_acquire); handle != 0) return handle;
    std::lock_guard<std::mutex> lock(handleLock());
    if (const int handle = _handle.load(std::memory_order_relaxed); handle != 0) return handle;
    auto& table = handleTable();
    // Numbers run up to the largest int and start again at 1, skipping the
    // ones still held by living objects.
    do {
        lastHandle = lastHandle == INT_MAX ? 1 : lastHandle + 1;
    } while (table.taken(lastHandle));
    table.enter(lastHandle, this);
    _handle.store(lastHandle, std::memory_order_release);
    return lastHandle;
}

csObject* csObject::fromHandle(int handle) {
    if (handle == 0) return nullptr;
    std::lock_guard<std::mutex> lock(handleLock());
    auto& table = handleTable();
    return table.find(handle);
}
