// Base of the light sources.
#ifndef CS_LIGHT_H
#define CS_LIGHT_H

#include "csNode.h"

class csLight : public csNode {
    CS_DECLARE_CLASS_TYPE;

    csLight() = default;

protected:
    ~csLight() override = default;
};

#endif
