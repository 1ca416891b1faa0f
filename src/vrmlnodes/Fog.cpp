#include "vrmlnodes/Fog.h"

Fog::Fog(znInternal* pair)
    : BaseNode(pair),
      color(exposedField<SFColor>("color")),
      fogType(exposedField<SFString>("fogType")),
      visibilityRange(exposedField<SFFloat>("visibilityRange")) {}

void Fog::processEvent(Event& event) {
    storeEvent(event, "set_color", color, valuesDirty) || storeEvent(event, "set_fogType", fogType, valuesDirty) ||
        storeEvent(event, "set_visibilityRange", visibilityRange, valuesDirty);
}
