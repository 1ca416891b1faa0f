#include "optimizer/optHandleTable.h"

#include <climits>
#include <map>
#include <vector>

#include "csMatrix4f.h"

// Scene-graph objects carry handles of their own, positive numbers that the
// toolkit forgets when the object dies. Matrices are no objects of the
// toolkit: they get negative numbers here, so that neither kind is ever
// taken for the other.
namespace {

// Process-wide, as the matrices it names are; one thread only.
struct MatrixTable {
    std::vector<csMatrix4f*> entries;  // borrowed: handle -n is entries[n - 1]
    std::map<csMatrix4f*, int> numbers;

    int handleOf(csMatrix4f* matrix) {
        if (matrix == nullptr) return 0;
        auto found = numbers.find(matrix);
        if (found != numbers.end()) return found->second;
        // A table that has used every number answers null rather than wrap
        // round onto a live one.
        if (entries.size() >= static_cast<size_t>(INT_MAX)) return 0;
        entries.push_back(matrix);
        const int number = -static_cast<int>(entries.size());
        numbers.emplace(matrix, number);
        return number;
    }

    csMatrix4f* matrixOf(int handle) const {
        if (handle >= 0 || handle == INT_MIN) return nullptr;
        const size_t index = static_cast<size_t>(-handle) - 1;
        return index < entries.size() ? entries[index] : nullptr;
    }
};

MatrixTable& matrices() {
    static MatrixTable instance;
    return instance;
}

}  // namespace

int optHandleTable::handleOf(csObject* object) { return object != nullptr ? object->getHandle() : 0; }

int optHandleTable::handleOf(csMatrix4f* matrix) { return matrices().handleOf(matrix); }

csObject* optHandleTable::objectOf(int handle) { return handle > 0 ? csObject::fromHandle(handle) : nullptr; }

csMatrix4f* optHandleTable::matrixOf(int handle) { return matrices().matrixOf(handle); }
