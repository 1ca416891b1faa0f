#include "vrmlnodes/Normal.h"

Normal::Normal(znInternal* pair)
    : BaseNode(pair),
      vector(exposedField<MFVec3f>("vector")) {}

void Normal::processEvent(Event& event) {
    const char* name = event.getName();
    if (!name) return;
    if (nameAt(name, 4) == 'v') deliver(this, &Normal::set_vector, event);
}

void Normal::set_vector(MFVec3f& value, double) {
    assign(vector, value);
    vectorDirty = 1;
}
