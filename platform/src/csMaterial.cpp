#include "csMaterial.h"

CS_DEFINE_CLASS_TYPE(csMaterial, csContainer)
