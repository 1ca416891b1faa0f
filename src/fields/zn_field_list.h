// znFieldList, the list of fields for which an IS field stands.
#ifndef ZN_FIELD_LIST_H
#define ZN_FIELD_LIST_H

#include <cstddef>
#include <cstdint>

class znField;

// The count and the pointers in one block of the field pool: a PROTO
// instance makes one such list for every IS in its body, nearly always of one
// field, and a heap vector would cost two allocations for the eight bytes.
// The list owns its block, not the fields it names.
class alignas(znField*) znFieldList {
public:
    // Appends the `n` fields at `first` to `list`, which may be null and may
    // move; answers the list.
    static znFieldList* append(znFieldList* list, znField* const* first, std::size_t n);
    // `list` with the contents of `source`, reusing its block where it fits.
    static znFieldList* assign(znFieldList* list, const znFieldList& source);
    static void release(znFieldList* list);

    std::size_t size() const { return count; }
    bool empty() const { return count == 0; }
    znField* operator[](std::size_t i) const { return begin()[i]; }
    znField* const* begin() const { return reinterpret_cast<znField* const*>(this + 1); }
    znField* const* end() const { return begin() + count; }

private:
    znFieldList() = default;
    znField** slots() { return reinterpret_cast<znField**>(this + 1); }
    static znFieldList* allocate(std::size_t capacity);
    static std::size_t bytes(std::size_t capacity);

    std::uint32_t count = 0;
    std::uint32_t capacity = 0;
};

#endif
