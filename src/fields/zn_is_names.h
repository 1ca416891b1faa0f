// znISNames, the names of the interface fields with which a field of a
// PROTO body is connected by IS.
#ifndef ZN_IS_NAMES_H
#define ZN_IS_NAMES_H

#include <cstddef>
#include <cstdint>
#include <vector>

// One immutable list of names, shared by every field that holds the same
// names: each instance of a PROTO replays its body, so a world with
// thousands of instances would otherwise keep thousands of copies of each
// list. Lists are counted; the last reference frees the list, and the last
// list frees the table that finds them, so nothing stays behind once the
// fields are gone. One thread, like the rest of the system.
class znISNames {
public:
    // The list of the names of `before` (may be null) followed by `names`;
    // null names are skipped. Answers null for a list without names, and
    // otherwise a list that the caller holds one reference to.
    static const znISNames* intern(const znISNames* before, const std::vector<char*>& names);
    // Takes one more reference; null is ignored.
    static void ref(const znISNames* list);
    // Gives one reference back, freeing the list with the last; null is
    // ignored.
    static void unref(const znISNames* list);

    // Appends a strdup() copy of each name to `out`, in order.
    void copyOut(std::vector<char*>& out) const;

private:
    znISNames() = default;
    ~znISNames() = default;
    const char* text() const { return reinterpret_cast<const char*>(this + 1); }

    mutable std::uint32_t refs = 1;
    std::uint32_t length = 0;  // of text(): each name with its terminating NUL
};

#endif
