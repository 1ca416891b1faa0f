#include "vrmlnodes/Billboard.h"

Billboard::Billboard(znInternal* pair)
    : BaseNode(pair), axisOfRotation(exposedField<SFVec3f>("axisOfRotation")) {}

void Billboard::processEvent(Event& event) {
    if (storeEvent(event, "set_axisOfRotation", axisOfRotation, valuesDirty)) return;
    // set_children is told from set_axisOfRotation by its sixth character.
    dispatchChildren(event, 5, 'h');
}
