#include "csIndexedLineSet.h"

CS_DEFINE_CLASS_TYPE(csIndexedLineSet, csLineStripSet)
