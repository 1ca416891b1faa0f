#include "csBillboard.h"

CS_DEFINE_CLASS_TYPE(csBillboard, csGroup)
