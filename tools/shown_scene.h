// What a viewer sees of a scene graph, for the tools that measure a scene
// or export it: a csSwitch shows its chosen child only, a csLOD its finest
// level (its first child), every other group all of its children.
#ifndef WRL_SHOWN_SCENE_H
#define WRL_SHOWN_SCENE_H

#include <functional>
#include <vector>

class csGroup;
class csMatrix4f;
class csNode;
class csShape;

std::vector<csNode*> shownChildren(csGroup* group);

// Calls `visit` for every shape that shows, once for each way down to it,
// with the matrix (for row vectors, as csMatrix4f) that takes its points
// into the root's space. A group that holds itself is not entered again.
void forEachShownShape(csNode* root, const std::function<void(csShape*, const csMatrix4f&)>& visit);

#endif
