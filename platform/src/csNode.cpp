#include "csNode.h"

CS_DEFINE_CLASS_TYPE(csNode, csContainer)
