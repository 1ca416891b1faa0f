#include "csInline.h"

CS_DEFINE_CLASS_TYPE(csInline, csGroup)
