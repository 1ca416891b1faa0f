#include "scripts/zn_scriptinterface.h"

// No language is bound before the script interface table exists: every type
// is without behaviour until then.
znScriptInterface* znScriptInterface::newInterface(std::vector<const char*>&, znNodeType&) {
    return nullptr;
}
