#include "optimizer/gfx.h"

gfx::gfx(ZN* sys) : system(sys) {}

gfx::~gfx() = default;
