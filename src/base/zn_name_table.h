// Numbers by name for the tables that hold one entry per node of a world.
// Such a table reaches millions of names. A node-based hash map pays two
// allocations per name (its node and, past the short-string room, the
// string) and a trip through memory per step of a look-up; here the names
// lie one after another in one block and the slots in one array, probed in
// line, so a look-up touches one slot and the one name it compares.
#ifndef ZN_NAME_TABLE_H
#define ZN_NAME_TABLE_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

class znNameTable {
public:
    // The number of `name`, or null. The pointer holds until the next
    // insertion.
    int* find(std::string_view name) {
        if (slots.empty()) return nullptr;
        const Slot& s = slotFor(name, hashOf(name));
        return s.entry != 0 ? &entries[s.entry - 1].value : nullptr;
    }
    const int* find(std::string_view name) const { return const_cast<znNameTable*>(this)->find(name); }
    bool contains(std::string_view name) const { return find(name) != nullptr; }

    // Asks the processor to bring in the slot where `name` starts its probe,
    // for a caller that knows which name comes next: a table of millions of
    // names misses the cache on nearly every look-up, and the work on the
    // name before this one hides the wait.
    void prefetch(std::string_view name) const {
        if (!slots.empty()) __builtin_prefetch(&slots[hashOf(name) & mask()]);
    }

    // The number of `name`, entered as 0 when the name is new.
    int& operator[](std::string_view name) { return *insert(name, 0).first; }

    // Enters `name` with `value` unless it is there; answers whether it was
    // entered. Either way the pointer is to the stored number.
    std::pair<int*, bool> insert(std::string_view name, int value) {
        if ((entries.size() + 1) * 2 > slots.size()) grow();
        const std::uint32_t h = hashOf(name);
        Slot& s = slotFor(name, h);
        if (s.entry != 0) return {&entries[s.entry - 1].value, false};
        entries.push_back(Entry{store(name), static_cast<std::uint32_t>(name.size()) & kLengthMask, value});
        s.hash = h;
        s.entry = static_cast<std::uint32_t>(entries.size());
        return {&entries.back().value, true};
    }

    // For a table whose names are texts less their first character, such as
    // node names less their kind: sets the number of the name, as operator[]
    // does, and keeps the whole text with a closing NUL, so that the text's
    // owner can borrow the one copy rather than make its own. Answers the
    // kept text, or null where the name came before with another first
    // character or by another insertion: that owner keeps a copy of its own.
    const char* assignKept(std::string_view text, int value) {
        if (text.empty() || text.size() > kLengthMask) return nullptr;
        const std::string_view name = text.substr(1);
        if ((entries.size() + 1) * 2 > slots.size()) grow();
        const std::uint32_t h = hashOf(name);
        Slot& s = slotFor(name, h);
        if (s.entry != 0) {
            Entry& e = entries[s.entry - 1];
            e.value = value;
            if ((e.length & kKeptBit) == 0 || e.name[-1] != text[0]) return nullptr;
            return e.name - 1;
        }
        const char* kept = store(text, true);
        entries.push_back(Entry{kept + 1, static_cast<std::uint32_t>(name.size()) | kKeptBit, value});
        s.hash = h;
        s.entry = static_cast<std::uint32_t>(entries.size());
        return kept;
    }

    // Calls `visit(name, number)` for every name, in the order they came.
    template <class Visit>
    void forEach(Visit visit) const {
        for (const Entry& e : entries) visit(std::string_view(e.name, e.length & kLengthMask), e.value);
    }

    void clear() {
        slots.clear();
        entries.clear();
        blocks.clear();
        blockLeft = 0;
    }
    std::size_t size() const { return entries.size(); }
    bool empty() const { return entries.empty(); }

private:
    // The slots are small, so that the part of the table that a look-up
    // lands in at random stays in the cache as long as can be; the names
    // and numbers stand in `entries` in the order they came, where the
    // newest, which a world asks for most, lie together.
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t entry = 0;  // 1 + index into entries; 0 when free
    };
    struct Entry {
        const char* name;  // in `blocks`
        std::uint32_t length;  // and kKeptBit where a kept text holds the name
        int value;
    };
    static constexpr std::uint32_t kKeptBit = 1u << 31;
    static constexpr std::uint32_t kLengthMask = kKeptBit - 1;

    static std::uint32_t hashOf(std::string_view name) {
        const std::size_t h = std::hash<std::string_view>{}(name);
        return static_cast<std::uint32_t>(h ^ (h >> 32));
    }
    std::size_t mask() const { return slots.size() - 1; }
    // The slot holding `name`, or the free slot where it belongs. At most
    // half the slots are used, so the probe ends.
    Slot& slotFor(std::string_view name, std::uint32_t h) {
        for (std::size_t i = h & mask();; i = (i + 1) & mask()) {
            Slot& s = slots[i];
            if (s.entry == 0) return s;
            if (s.hash != h) continue;
            const Entry& e = entries[s.entry - 1];
            if ((e.length & kLengthMask) == name.size() &&
                (name.empty() || std::memcmp(e.name, name.data(), name.size()) == 0))
                return s;
        }
    }
    static constexpr std::size_t kBlockSize = 64 * 1024;
    // `name`, and a NUL after it when `closed`.
    const char* store(std::string_view name, bool closed = false) {
        const std::size_t need = name.size() + (closed ? 1 : 0);
        if (need > blockLeft) {
            const std::size_t size = need > kBlockSize ? need : kBlockSize;
            blocks.emplace_back(new char[size]);
            blockNext = blocks.back().get();
            blockLeft = size;
        }
        char* at = blockNext;
        if (!name.empty()) std::memcpy(at, name.data(), name.size());
        if (closed) at[name.size()] = '\0';
        blockNext += need;
        blockLeft -= need;
        return at;
    }
    // Doubles the slots, or starts them.
    void grow() {
        std::vector<Slot> old;
        old.swap(slots);
        std::size_t size = 16;
        while (size < (entries.size() + 1) * 2) size *= 2;
        slots.assign(size, Slot{});
        for (const Slot& s : old) {
            if (s.entry == 0) continue;
            std::size_t i = s.hash & mask();
            while (slots[i].entry != 0) i = (i + 1) & mask();
            slots[i] = s;
        }
    }

    std::vector<Slot> slots;     // a power of two of them, at most half in use
    std::vector<Entry> entries;  // in the order they were entered
    // Every name entered, back to back in blocks that never move; a name
    // longer than a block gets one of its own.
    std::vector<std::unique_ptr<char[]>> blocks;
    char* blockNext = nullptr;
    std::size_t blockLeft = 0;
};

#endif
