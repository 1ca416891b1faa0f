#include "optimizer/optActionGuard.h"

#include <algorithm>
#include <vector>

namespace {
// The nodes acting right now, innermost last: as deep as the scene, so a
// walk over it is cheaper than any lookup structure. One thread only.
std::vector<const void*>& acting() {
    static std::vector<const void*> nodes;
    return nodes;
}
}  // namespace

optActionGuard::optActionGuard(const void* n) : node(n), first(false) {
    std::vector<const void*>& nodes = acting();
    first = std::find(nodes.begin(), nodes.end(), n) == nodes.end();
    if (first) nodes.push_back(n);
}

optActionGuard::~optActionGuard() {
    if (!first) return;
    // Guards end in the reverse order of their making.
    std::vector<const void*>& nodes = acting();
    auto at = std::find(nodes.rbegin(), nodes.rend(), node);
    if (at != nodes.rend()) nodes.erase(std::next(at).base());
}
