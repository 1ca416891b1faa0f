// The numbers that `wrlload --stats` prints about a loaded scene.
#ifndef WRL_SCENE_STATS_H
#define WRL_SCENE_STATS_H

#include <map>
#include <ostream>
#include <string>

#include "csBoxBound.h"

class csNode;

struct SceneStats {
    // Every node and geometry object of the graph, each counted once
    // however often it is used, by class.
    std::map<std::string, int> objects;
    // What shows (see shown_scene.h), counted for each way down to it:
    // shapes, the triangles of their faces (a face of n corners makes
    // n - 2), the points of their geometry, and the bound of those points
    // in the root's space.
    long long shapes = 0;
    long long triangles = 0;
    long long vertices = 0;
    csBoxBound bound;
    double loadMilliseconds = 0.0;
};

SceneStats measureScene(csNode* root);

// As text, one "key: value" line each, the objects indented under
// "nodes:"; and as one JSON document {"formatVersion": N, "stats": {...}}.
void printStatsText(std::ostream& out, const SceneStats& stats);
void printStatsJson(std::ostream& out, const SceneStats& stats);

#endif
