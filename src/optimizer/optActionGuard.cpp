#include "optimizer/optActionGuard.h"

#include <set>

namespace {
// The nodes acting right now; one thread only.
std::set<const void*>& acting() {
    static std::set<const void*> nodes;
    return nodes;
}
}  // namespace

optActionGuard::optActionGuard(const void* n) : node(n), first(acting().insert(n).second) {}

optActionGuard::~optActionGuard() {
    if (first) acting().erase(node);
}
