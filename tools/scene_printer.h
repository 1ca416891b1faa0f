// Prints a loaded scene graph for people and tests.
#ifndef WRL_SCENE_PRINTER_H
#define WRL_SCENE_PRINTER_H

#include <ostream>

class csNode;

// One line per object, two spaces of indent per level: the class name, then
// the object's name in quotes when it has one. A csEnvironment root is
// followed by its light list.
void printSceneTree(std::ostream& out, csNode* root);

#endif
