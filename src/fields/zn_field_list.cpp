#include "fields/zn_field_list.h"

#include <algorithm>
#include <new>

#include "fields/zn_field_pool.h"

std::size_t znFieldList::bytes(std::size_t capacity) { return sizeof(znFieldList) + capacity * sizeof(znField*); }

znFieldList* znFieldList::allocate(std::size_t capacity) {
    auto* list = new (znFieldPool::allocate(bytes(capacity))) znFieldList;
    list->capacity = static_cast<std::uint32_t>(capacity);
    return list;
}

void znFieldList::release(znFieldList* list) {
    if (list) znFieldPool::release(list, bytes(list->capacity));
}

znFieldList* znFieldList::append(znFieldList* list, znField* const* first, std::size_t n) {
    const std::size_t had = list ? list->count : 0;
    if (!list || had + n > list->capacity) {
        // A list made whole stays exact; one that grows field by field (an
        // eventIn that many body nodes name) doubles, so appending stays
        // linear.
        const std::size_t capacity = list ? std::max(had + n, 2 * had) : n;
        znFieldList* grown = allocate(capacity);
        if (list) std::copy(list->begin(), list->end(), grown->slots());
        grown->count = static_cast<std::uint32_t>(had);
        release(list);
        list = grown;
    }
    std::copy(first, first + n, list->slots() + had);
    list->count = static_cast<std::uint32_t>(had + n);
    return list;
}

znFieldList* znFieldList::assign(znFieldList* list, const znFieldList& source) {
    if (list == &source) return list;
    if (list) list->count = 0;
    return append(list, source.begin(), source.size());
}
