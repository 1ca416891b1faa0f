#include "opSphere.h"

CS_DEFINE_CLASS_TYPE(opSphere, opRep)
