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

    // Enters `type` under `name`, hiding older entries of the name.
    void push(std::string_view name, VrmlNodeType* type, int scope) {
        int& newest = heads[name];
        entries.push_back(Entry{type, scope, newest});
        newest = static_cast<int>(entries.size());
    }

    // Removes the newest entry of all, which was entered under `name`: the
    // older entry of the name comes back into view.
    void pop(std::string_view name) {
        if (entries.empty()) return;
        if (int* newest = heads.find(name)) *newest = entries.back().previous;
        entries.pop_back();
        // The last scope of a file is closed: its names, which may be a
        // name for every node of a big world, go before the world is built.
        if (entries.empty()) {
            heads = znNameTable();
            std::vector<Entry>().swap(entries);
        }
    }

    // The newest entry of `name`, or null.
    const Entry* find(std::string_view name) const {
        const int* newest = heads.find(name);
        return newest != nullptr && *newest != 0 ? &entries[*newest - 1] : nullptr;
    }

    VrmlNodeType* findType(std::string_view name) const {
        const Entry* entry = find(name);
        return entry != nullptr ? entry->type : nullptr;
    }

private:
    // Names stay in the table once entered, with 0 when no entry has them,
    // until no entry is left.
    znNameTable heads;
    std::vector<Entry> entries;
};

#endif
