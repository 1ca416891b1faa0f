#include "optimizer/gfx_opt.h"

gfx_opt::gfx_opt(ZN* sys) : system(sys) {}
