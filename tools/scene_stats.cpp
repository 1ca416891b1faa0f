#include "scene_stats.h"

#include <cstdio>
#include <set>

#include "csGeoSet.h"
#include "csGroup.h"
#include "csIndexedFaceSet.h"
#include "csMatrix4f.h"
#include "csShape.h"
#include "json_text.h"
#include "shown_scene.h"

namespace {

void countObjects(csNode* node, std::set<const csContainer*>& seen, SceneStats& stats) {
    if (node == nullptr || !seen.insert(node).second) return;
    ++stats.objects[node->getType()->getName()];
    if (node->isOfType(csShape::getClassType())) {
        auto* shape = static_cast<csShape*>(node);
        shape->validateField(csShape::GEOMETRY);
        for (int i = 0; i < shape->getGeometryCount(); ++i) {
            csGeometry* geometry = shape->getGeometry(i);
            if (geometry != nullptr && seen.insert(geometry).second) ++stats.objects[geometry->getType()->getName()];
        }
    }
    if (!node->isOfType(csGroup::getClassType())) return;
    auto* group = static_cast<csGroup*>(node);
    group->validateField(csGroup::CHILDREN);
    for (int i = 0; i < group->getChildCount(); ++i) countObjects(group->getChild(i), seen, stats);
}

void measureGeometry(const csGeometry* geometry, const csMatrix4f& toRoot, SceneStats& stats) {
    if (geometry == nullptr || !geometry->isOfType(csGeoSet::getClassType())) return;
    const auto* set = static_cast<const csGeoSet*>(geometry);
    if (geometry->isOfType(csIndexedFaceSet::getClassType())) {
        const csMFInt& lengths = static_cast<const csIndexedFaceSet*>(geometry)->faceLength();
        for (int f = 0; f < lengths.getCount(); ++f)
            if (lengths.get(f) >= 3) stats.triangles += lengths.get(f) - 2;
    }
    const csCoordSet3f* coords = set->getCoordSet();
    if (coords == nullptr) return;
    const csMFVec3f& points = coords->point();
    stats.vertices += points.getCount();
    for (int i = 0; i < points.getCount(); ++i) stats.bound.extendBy(toRoot.xformPt(points.get(i)));
}

void boundLines(std::ostream& out, const csBoxBound& bound) {
    if (bound.isEmpty()) return;
    char line[160];
    std::snprintf(line, sizeof line, "boundMin: %g %g %g\nboundMax: %g %g %g\n", bound.min[0], bound.min[1],
                  bound.min[2], bound.max[0], bound.max[1], bound.max[2]);
    out << line;
}

void jsonVector(std::ostream& out, const csVec3f& v) {
    out << '[';
    for (int i = 0; i < 3; ++i) {
        if (i) out << ", ";
        jsonNumber(out, v[i]);
    }
    out << ']';
}

}  // namespace

SceneStats measureScene(csNode* root) {
    SceneStats stats;
    std::set<const csContainer*> seen;
    countObjects(root, seen, stats);
    forEachShownShape(root, [&stats](csShape* shape, const csMatrix4f& toRoot) {
        ++stats.shapes;
        shape->validateField(csShape::GEOMETRY);
        for (int i = 0; i < shape->getGeometryCount(); ++i) measureGeometry(shape->getGeometry(i), toRoot, stats);
    });
    return stats;
}

void printStatsText(std::ostream& out, const SceneStats& stats) {
    out << "nodes:\n";
    for (const auto& [name, count] : stats.objects) out << "  " << name << ": " << count << '\n';
    out << "shapes: " << stats.shapes << '\n';
    out << "triangles: " << stats.triangles << '\n';
    out << "vertices: " << stats.vertices << '\n';
    boundLines(out, stats.bound);
    char line[64];
    std::snprintf(line, sizeof line, "loadTime: %.3f ms\n", stats.loadMilliseconds);
    out << line;
}

void printStatsJson(std::ostream& out, const SceneStats& stats) {
    out << "{\"formatVersion\": " << kWrlloadJsonFormatVersion << ", \"stats\": {\"nodes\": {";
    bool first = true;
    for (const auto& [name, count] : stats.objects) {
        if (!first) out << ", ";
        first = false;
        jsonString(out, name);
        out << ": " << count;
    }
    out << "}, \"shapes\": " << stats.shapes << ", \"triangles\": " << stats.triangles
        << ", \"vertices\": " << stats.vertices << ", \"boundMin\": ";
    if (stats.bound.isEmpty())
        out << "null";
    else
        jsonVector(out, stats.bound.min);
    out << ", \"boundMax\": ";
    if (stats.bound.isEmpty())
        out << "null";
    else
        jsonVector(out, stats.bound.max);
    out << ", \"loadTimeMs\": ";
    jsonNumber(out, stats.loadMilliseconds);
    out << "}}\n";
}
