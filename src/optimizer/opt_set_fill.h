// The one copy from a multiple-value field of colours or vectors into the
// value list of a scene-graph set, shared by the four attribute nodes.
#ifndef OPT_SET_FILL_H
#define OPT_SET_FILL_H

#include <vector>

#include "csFields.h"
#include "fields/zn_values.h"

// Component `k` of a field element; an element shorter than that reads 0,
// as the field's own flat reading does.
inline float optComponent(const _znArray<float>& element, int k) {
    return k < element.count ? element.data[k] : 0.0f;
}

// Writes element i of `values` through `convert` to entry i of `list`, for
// every i below the field's count. The list grows to that count when it is
// shorter and is never cut: entries beyond the count keep their values.
template <class Values, class List, class Convert>
void optFillSet(Values& values, List& list, Convert convert) {
    std::vector<_znArray<float>>* elements = nullptr;
    values.getValue(&elements);
    if (elements == nullptr) return;
    int count = values.getSize();
    if (count > static_cast<int>(elements->size())) count = static_cast<int>(elements->size());
    if (list.getCount() < count) list.setCount(count);
    for (int i = 0; i < count; ++i) list.set(i, convert((*elements)[static_cast<size_t>(i)]));
}

#endif
