#include "loader/zn.h"

#include <cstdlib>
#include <exception>
#include <new>

#include "browser/zn_browser_intern.h"
#include "loader/loader_messages.h"
#include "loader/zn_interfaces.h"
#include "scripts/zn_scriptinterfaces.h"

ZN::ZN(int m) {
    // The host's terminate handler stays its own: the loader ends a load
    // that throws, not the process.
    mode = m;
    // Each member is made before the next, because the browser's parts may
    // already look at the system object. A failed allocation leaves a null.
    browser = new (std::nothrow) znBrowserIntern(this);
    appInterfaces = new (std::nothrow) znAppInterfaces();
    scriptInterfaces = new (std::nothrow) znScriptInterfaces(this);
    if (browser) browser->attachSystem(appInterfaces, scriptInterfaces);
}


void znReleaseParts(ZN& system) {
    // The nodes go first: their script objects know the interface tables.
    delete system.browser;
    system.browser = nullptr;
    delete system.appInterfaces;
    system.appInterfaces = nullptr;
    delete system.scriptInterfaces;
    system.scriptInterfaces = nullptr;
}
