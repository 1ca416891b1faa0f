#include "scripts/zn_cppsi.h"

// No compiled script can be bound before the script interfaces exist.
znScriptInterface* newZnCPPSI(const char*, znNodeType&, znNodeConstFn) { return nullptr; }
