#include "csAnchor.h"

CS_DEFINE_CLASS_TYPE(csAnchor, csGroup)
