// Objects of a world by their number. A world holds millions of nodes, and a
// tree of them costs a trip through memory per level on every look-up; the
// numbers are hashed instead. What needs the order, the largest number and
// a walk from the smallest, pays for it where it is asked.
#ifndef ZN_ID_TABLE_H
#define ZN_ID_TABLE_H

#include <algorithm>
#include <unordered_map>
#include <utility>
#include <vector>

template <class T>
class znIdTable {
public:
    using Map = std::unordered_map<int, T*>;
    using iterator = typename Map::iterator;

    iterator find(int id) { return entries.find(id); }
    iterator end() { return entries.end(); }
    size_t count(int id) const { return entries.count(id); }
    bool empty() const { return entries.empty(); }

    std::pair<iterator, bool> emplace(int id, T* object) {
        auto result = entries.emplace(id, object);
        if (result.second) noteNumber(id);
        return result;
    }
    T*& operator[](int id) {
        T*& slot = entries[id];
        noteNumber(id);
        return slot;
    }
    void erase(int id) {
        if (entries.erase(id) == 0 || id != largestNumber) return;
        largestNumber = 0;
        for (const auto& entry : entries) noteNumber(entry.first);
    }
    void clear() {
        entries.clear();
        largestNumber = 0;
    }
    // Only meaningful when the table is not empty.
    int largest() const { return largestNumber; }
    // The entries from the smallest number up.
    std::vector<std::pair<int, T*>> inOrder() const {
        std::vector<std::pair<int, T*>> sorted(entries.begin(), entries.end());
        std::sort(sorted.begin(), sorted.end(),
                  [](const std::pair<int, T*>& a, const std::pair<int, T*>& b) { return a.first < b.first; });
        return sorted;
    }

private:
    void noteNumber(int id) {
        if (entries.size() == 1 || id > largestNumber) largestNumber = id;
    }

    Map entries;
    int largestNumber = 0;
};

#endif
