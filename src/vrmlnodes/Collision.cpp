#include "vrmlnodes/Collision.h"

Collision::Collision(znInternal* pair)
    : BaseNode(pair),
      collide(exposedField<SFBool>("collide")),
      proxy(plainField<SFNode>("proxy")),
      collideTime(eventOutField<SFTime>("collideTime")),
      proxyObject(childOf(proxy)) {}

void Collision::processEvent(Event& event) {
    const char* name = event.getName();
    if (!name) return;
    if (dispatchChildren(event, 5, 'h')) return;
    if (nameAt(name, 5) == 'o') deliver(this, &Collision::set_collide, event);
}

void Collision::set_collide(SFBool& value, double) {
    assign(collide, value);
    collideDirty = 1;
}
