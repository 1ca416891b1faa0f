#include "vrmlnodes/Anchor.h"

Anchor::Anchor(znInternal* pair)
    : BaseNode(pair),
      url(exposedField<MFString>("url")),
      description(exposedField<SFString>("description")),
      parameter(exposedField<MFString>("parameter")) {}

void Anchor::processEvent(Event& event) {
    if (storeEvent(event, "set_url", url, valuesDirty) || storeEvent(event, "set_description", description, valuesDirty) ||
        storeEvent(event, "set_parameter", parameter, valuesDirty))
        return;
    dispatchChildren(event, 5, 'h');
}
