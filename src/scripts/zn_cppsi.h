// Compiled scripts: node behaviour from shared objects.
#ifndef ZN_CPPSI_H
#define ZN_CPPSI_H

#include "scripts/zn_scriptinterfaces.h"

znScriptInterface* newZnCPPSI(const char* file, znNodeType& type, znNodeConstFn lookup);

#endif
