#include "vrmlnodes/Group.h"

Group::Group(znInternal* pair)
    : BaseNode(pair) {}

void Group::processEvent(Event& event) {
    const char* name = event.getName();
    if (!name) return;
    dispatchChildren(event, 0, 's');
}
