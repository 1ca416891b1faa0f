#include "browser/zn_browser_intern.h"

// The world tables, the database and the frame arrive with the browser core;
// until then a load records nothing and a frame does nothing.
znBrowserIntern::znBrowserIntern(ZN* sys) : system(sys) {}

int znBrowserIntern::loadURL(std::vector<const char*>&, std::vector<const char*>&) { return 0; }

void znBrowserIntern::executeFrame(double) {}

int znBrowserIntern::init() { return 1; }
