#include "opCuboid.h"

CS_DEFINE_CLASS_TYPE(opCuboid, opRep)
