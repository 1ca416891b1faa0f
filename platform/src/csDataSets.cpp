#include "csDataSets.h"

CS_DEFINE_CLASS_TYPE(csCoordSet3f, csContainer)
CS_DEFINE_CLASS_TYPE(csNormalSet3f, csContainer)
CS_DEFINE_CLASS_TYPE(csColorSet4f, csContainer)
CS_DEFINE_CLASS_TYPE(csTexCoordSet2f, csContainer)
CS_DEFINE_CLASS_TYPE(csIndexSet, csContainer)
