#include "optimizer/optHandleTable.h"

#include <climits>
#include <map>
#include <utility>
#include <vector>

#include "csMatrix4f.h"

namespace {

enum class Kind { Object, Matrix };

struct Entry {
    void* address;  // borrowed: the table never owns what it names
    Kind kind;
};

// Process-wide, as the objects it names are; one thread only.
struct Table {
    std::vector<Entry> entries;                  // handle n is entries[n - 1]
    std::map<std::pair<void*, Kind>, int> numbers;

    int handleOf(void* address, Kind kind) {
        if (address == nullptr) return 0;
        auto found = numbers.find({address, kind});
        if (found != numbers.end()) return found->second;
        // Handles are positive ints; a table that has used them all answers
        // null rather than wrap round onto a live number.
        if (entries.size() >= static_cast<size_t>(INT_MAX)) return 0;
        entries.push_back({address, kind});
        int number = static_cast<int>(entries.size());
        numbers.emplace(std::make_pair(address, kind), number);
        return number;
    }

    void* addressOf(int handle, Kind kind) const {
        if (handle <= 0 || static_cast<size_t>(handle) > entries.size()) return nullptr;
        const Entry& entry = entries[static_cast<size_t>(handle) - 1];
        return entry.kind == kind ? entry.address : nullptr;
    }
};

Table& table() {
    static Table instance;
    return instance;
}

}  // namespace

int optHandleTable::handleOf(csObject* object) { return table().handleOf(object, Kind::Object); }

int optHandleTable::handleOf(csMatrix4f* matrix) { return table().handleOf(matrix, Kind::Matrix); }

csObject* optHandleTable::objectOf(int handle) {
    return static_cast<csObject*>(table().addressOf(handle, Kind::Object));
}

csMatrix4f* optHandleTable::matrixOf(int handle) {
    return static_cast<csMatrix4f*>(table().addressOf(handle, Kind::Matrix));
}
