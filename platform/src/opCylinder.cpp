#include "opCylinder.h"

CS_DEFINE_CLASS_TYPE(opCylinder, opRep)
