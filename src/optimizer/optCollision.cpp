#include "optimizer/optCollision.h"

#include "csCollision.h"
#include "optimizer/optSceneName.h"

optCollision::optCollision(znInternal* pair) : BaseNode(pair), Collision(pair) {
    group = new csCollision();
    group->ref();
    nameInScene(group, *this, "Unnamed Collision Node");
    // The parsed value reaches the field without passing set_collide.
    copyCollide();
}

void optCollision::set_collide(SFBool& value, double time) {
    Collision::set_collide(value, time);
    copyCollide();
}

void optCollision::copyCollide() {
    if (collide) static_cast<csCollision*>(group)->setCollide(collide->getValue() ? 1 : 0);
}
