#include "opCone.h"

CS_DEFINE_CLASS_TYPE(opCone, opRep)
