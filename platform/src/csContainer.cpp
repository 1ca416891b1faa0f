#include "csContainer.h"

CS_DEFINE_CLASS_TYPE(csContainer, csObject)

csField* csContainer::getField(short) { return nullptr; }

void csContainer::validateField(short) {}
