#include "scripts/zn_scriptinterfaces.h"

// The language table arrives with the script interfaces; until then a
// registration is accepted and has no effect.
znScriptInterfaces::znScriptInterfaces(ZN* sys) : system(sys) {}

int znScriptInterfaces::add(znInterfaceFn, const char*, const char*, znExecFn, znNodeConstFn, int) {
    return 1;
}

int znScriptInterfaces::isEnabled(int) { return -1; }
