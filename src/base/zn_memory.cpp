#include "base/zn_memory.h"

void znOutOfMemory() { throw std::bad_alloc(); }
