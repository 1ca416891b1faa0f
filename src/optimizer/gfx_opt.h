// The graphics interface that builds a cs scene graph.
#ifndef GFX_OPT_H
#define GFX_OPT_H

#include "optimizer/gfx.h"

class ZN;

class gfx_opt : public gfx {
public:
    explicit gfx_opt(ZN* system);
    const char* getType() override { return "gfx_opt"; }

private:
    ZN* system;  // back pointer
};

#endif
