// Objects of a world by their number. A world holds millions of nodes, and
// its numbers are given one after another from 1, so the objects stand in
// an array indexed by number: a look-up is one step into memory. A number
// far beyond those given so far (a table must take any int) goes to a hash
// map instead of stretching the array. What needs the order, the largest
// number and a walk from the smallest, pays for it where it is asked.
#ifndef ZN_ID_TABLE_H
#define ZN_ID_TABLE_H

#include <algorithm>
#include <cstddef>
#include <unordered_map>
#include <utility>
#include <vector>

// A number with a null object is not in the table.
template <class T>
class znIdTable {
public:
    using Entry = std::pair<int, T*>;

    // The object of `id`, or null.
    T* find(int id) const {
        T* const* at = const_cast<znIdTable*>(this)->slot(id);
        return at != nullptr ? *at : nullptr;
    }
    std::size_t count(int id) const { return find(id) != nullptr ? 1 : 0; }
    bool empty() const { return present == 0; }
    std::size_t size() const { return present; }

    // Enters `object` unless the number is taken; answers whether it did.
    bool emplace(int id, T* object) {
        if (object == nullptr || find(id) != nullptr) return false;
        place(id, object);
        return true;
    }
    // Enters `object` under `id`, replacing what was there; null removes.
    void set(int id, T* object) {
        if (object == nullptr) {
            erase(id);
            return;
        }
        if (T** at = slot(id)) {
            *at = object;
            return;
        }
        place(id, object);
    }
    void erase(int id) {
        T** at = slot(id);
        if (at == nullptr) return;
        *at = nullptr;
        if (!sparse.empty()) sparse.erase(id);
        --present;
        if (id == largestNumber) findLargest();
    }
    void clear() {
        dense.clear();
        sparse.clear();
        present = 0;
        largestNumber = 0;
    }
    // Only meaningful when the table is not empty.
    int largest() const { return largestNumber; }
    // The entries from the smallest number up.
    std::vector<Entry> inOrder() const {
        std::vector<Entry> sorted;
        sorted.reserve(present);
        for (std::size_t i = 0; i < dense.size(); ++i)
            if (dense[i]) sorted.emplace_back(static_cast<int>(i), dense[i]);
        for (const auto& e : sparse)
            if (e.second) sorted.emplace_back(e.first, e.second);
        std::sort(sorted.begin(), sorted.end(), [](const Entry& a, const Entry& b) { return a.first < b.first; });
        return sorted;
    }

private:
    // The array reaches this far past the numbers it holds before a number
    // goes to the hash map instead.
    static constexpr std::size_t kSlack = 4096;

    // Where the object of `id` is held, or null when it is not in the table.
    T** slot(int id) {
        if (id >= 0 && static_cast<std::size_t>(id) < dense.size() && dense[static_cast<std::size_t>(id)])
            return &dense[static_cast<std::size_t>(id)];
        if (sparse.empty()) return nullptr;
        auto found = sparse.find(id);
        return found != sparse.end() && found->second ? &found->second : nullptr;
    }
    void place(int id, T* object) {
        const std::size_t index = static_cast<std::size_t>(id);
        if (id >= 0 && index < std::max(dense.size(), 2 * present + kSlack)) {
            if (index >= dense.size()) dense.resize(std::max(index + 1, dense.size() * 2), nullptr);
            dense[index] = object;
        } else {
            sparse[id] = object;
        }
        if (present++ == 0 || id > largestNumber) largestNumber = id;
    }
    void findLargest() {
        largestNumber = 0;
        bool any = false;
        for (std::size_t i = dense.size(); i-- > 0;)
            if (dense[i]) {
                largestNumber = static_cast<int>(i);
                any = true;
                break;
            }
        for (const auto& e : sparse)
            if (e.second && (!any || e.first > largestNumber)) {
                largestNumber = e.first;
                any = true;
            }
    }

    // By number, only the objects: the number is the index. A null object
    // is a gap.
    std::vector<T*> dense;
    std::unordered_map<int, T*> sparse;  // numbers the array does not reach
    std::size_t present = 0;
    int largestNumber = 0;
};

#endif
