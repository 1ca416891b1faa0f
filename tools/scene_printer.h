// Prints a loaded scene graph for people and tests.
#ifndef WRL_SCENE_PRINTER_H
#define WRL_SCENE_PRINTER_H

#include <ostream>

class csNode;

// One line per object, two spaces of indent per level: the class name, then
// the object's name in quotes when it has one. Under an object, one level
// deeper, come first its values as "key: value" lines, then what it holds
// (a shape's appearance and geometry, an appearance's material and texture,
// a texture's image), then its children. A csEnvironment root is followed
// by "lights N" and one indented line per light of its light list; then,
// when it has any, "viewpoints N" and one indented line per viewpoint; then
// a line for each of the viewpoint, navigation information, background,
// fog and world information that it binds: the key and the object.
void printSceneTree(std::ostream& out, csNode* root);

// The same scene as one JSON document, {"formatVersion": N, "scene": root}
// (root null for no scene): every object is
// {"class": ..., "name": ... or null, <values>, <held objects>,
//  "children": [...]}, and the root also has "lights" and "viewpoints"
// (lists of {"class", "name"}) and "viewpoint", "navigationInfo",
// "background", "fog" and "worldInfo" (each {"class", "name"} or null).
// Counts print as integers, every other number in the shortest form that
// reads back to the same float.
void printSceneJson(std::ostream& out, csNode* root);

#endif
