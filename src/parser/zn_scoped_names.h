// One index of the parser's name spaces: for each name, its newest entry
// and the scope that entry was made in. The name spaces grow and shrink
// last in, first out, as scopes open and close, and so does this index; a
// look-up is one hash step, however many nodes and PROTOs a world names.
#ifndef ZN_SCOPED_NAMES_H
#define ZN_SCOPED_NAMES_H

#include <string_view>
#include <vector>

#include "base/zn_name_table.h"

class VrmlNodeType;

class znScopedNames {
public:
    struct Entry {
        VrmlNodeType* type;
        int scope;     // the number of scopes open when it was entered
        int previous;  // 1 + index of the older entry of the name; 0 for none
    };

    // The name under which an entry stands, read from its type.
    using KeyOf = std::string_view (*)(const VrmlNodeType*);

    // An index that enters each name as it is pushed.
    znScopedNames() = default;
    // An index that enters names only when a look-up needs them, reading
    // them with `keyOf`: a world names every node, and may look none of
    // them up. The text that `keyOf` reads must stay as it is while the
    // entry stands.
    explicit znScopedNames(KeyOf keyOf) : keyOf(keyOf) {}

    // Enters `type` under `name`, hiding older entries of the name.
    void push(std::string_view name, VrmlNodeType* type, int scope) {
        entries.push_back(Entry{type, scope, 0});
        if (keyOf == nullptr) link(name);
    }

    // Removes the newest entry of all, which was entered under `name`: the
    // older entry of the name comes back into view.
    void pop(std::string_view name) {
        if (entries.empty()) return;
        if (linked == entries.size()) {
            if (int* newest = heads.find(name)) *newest = entries.back().previous;
            --linked;
        }
        entries.pop_back();
        // The last scope of a file is closed: its names, which may be a
        // name for every node of a big world, go before the world is built.
        if (entries.empty()) {
            heads = znNameTable();
            std::vector<Entry>().swap(entries);
        }
    }

    // The newest entry of `name`, or null.
    const Entry* find(std::string_view name) {
        while (linked < entries.size()) link(keyOf(entries[linked].type));
        const int* newest = heads.find(name);
        return newest != nullptr && *newest != 0 ? &entries[*newest - 1] : nullptr;
    }

    VrmlNodeType* findType(std::string_view name) {
        const Entry* entry = find(name);
        return entry != nullptr ? entry->type : nullptr;
    }

private:
    // Enters the oldest entry not yet entered under `name`.
    void link(std::string_view name) {
        int& newest = heads[name];
        entries[linked].previous = newest;
        newest = static_cast<int>(++linked);
    }

    KeyOf keyOf = nullptr;
    // Names stay in the table once entered, with 0 when no entry has them,
    // until no entry is left.
    znNameTable heads;
    std::vector<Entry> entries;
    std::size_t linked = 0;  // entries at the front that are in `heads`
};

#endif
