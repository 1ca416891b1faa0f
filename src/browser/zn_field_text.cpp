#include "browser/zn_browser_intern.h"

void znBrowserIntern::vrml2data(void*, FieldType, const char*) {}
void znBrowserIntern::data2vrml(void*, FieldType, char*) {}
