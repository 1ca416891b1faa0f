// A group whose children the viewer may not walk through.
#ifndef CS_COLLISION_H
#define CS_COLLISION_H

#include <cstdint>

#include "csGroup.h"

class csCollision : public csGroup {
    CS_DECLARE_CLASS_TYPE;

    csCollision() = default;

    void setCollide(std::uint8_t collide) { _collide = collide != 0; }
    bool getCollide() const { return _collide; }

protected:
    ~csCollision() override = default;

private:
    bool _collide = true;
};

#endif
