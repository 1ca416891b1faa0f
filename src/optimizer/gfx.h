// The application interface to the display side, looked up by class "gfx".
#ifndef GFX_H
#define GFX_H

#include "loader/zn_interfaces.h"

class gfx : public znAppInterface {
public:
    const char* getClass() override { return "gfx"; }
};

#endif
