// Worlds for the back-end tests: whole loads through wrlLoad under a Node
// Support file that adds test types, and the scene graph walked by name.
//
// The test types, bound to classes of this program:
//   TestGeometry      field `kind` picks what it answers (see GeometryKind);
//                     face and line sets span x and z over [-5, 5] and y
//                     over [bottom, top].
//   TestTexture       answers a csTexture with an image of one pixel of
//                     `components` components.
#ifndef WRL_SCENE_WORLD_H
#define WRL_SCENE_WORLD_H

#include <initializer_list>
#include <string>
#include <vector>

#include "csEnvironment.h"
#include "csGeometry.h"
#include "csGroup.h"
#include "csTransform.h"
#include "opRep.h"
#include "fields/zn_values.h"
#include "test_support.h"

class Builtin;
class csAppearance;

namespace wrltest {

enum GeometryKind {
    kNoGeometry = 0,
    kColouredFaces = 1,
    kPlainFaces = 2,
    kLines = 5,
    kNotGeometry = 6,  // a csMaterial
};

// The shipped Node Support file with the test types added.
std::string testNodeSupport();

class SceneLoad {
public:
    SceneLoad();
    // Loads the VRML text (header added) and answers the scene, or null.
    csEnvironment* load(const std::string& body);
    // Loads the world file at `path` as given, absolute or relative.
    csEnvironment* loadFile(std::string path);
    // Where load writes its world files.
    const std::string& directory() const { return dir.path(); }
    // The built-in class behind the node DEF'd as `name` in the last load.
    Builtin* builtinNamed(const char* name);
    // A list of the nodes DEF'd under `names` in the last load.
    MFNode nodesNamed(std::initializer_list<const char*> names);
    // What the last load wrote on the error stream.
    const std::string& lastErrors() const { return errors; }

private:
    TempDir dir;
    ScopedEnv builtins;
    int count = 0;
    std::string errors;
    // Every load's scene and world, until the fixture ends; the latest is
    // _ZNmain's.
    std::vector<WorldLoad> loads;
};

// What a TestGeometry node was handed as state by its last action.
struct SeenState {
    bool seen = false;
    csGroup* group = nullptr;
    std::vector<csTransform*> transforms;
    csAppearance* appearance = nullptr;
};
SeenState stateSeenBy(Builtin* testGeometry);

// Three components of a colour or vector, each as a float.
void expectVec3(const csVec3f& v, float x, float y, float z);

// Child `index` of `group` as a T, or null when it is none or of another
// class.
template <class T>
T* childAs(csNode* group, int index) {
    if (!group || !group->isOfType(csGroup::getClassType())) return nullptr;
    csNode* child = static_cast<csGroup*>(group)->getChild(index);
    return child && child->isOfType(T::getClassType()) ? static_cast<T*>(child) : nullptr;
}

// The axis transform of the top-level shape `index`, under its top group,
// the shape it holds, and that shape's only geometry as a T (or null).
inline csTransform* axisAt(csEnvironment* scene, int index = 0) {
    return childAs<csTransform>(childAs<csGroup>(scene, index), 0);
}
inline opRep* shapeAt(csEnvironment* scene, int index = 0) { return childAs<opRep>(axisAt(scene, index), 0); }
template <class T>
T* geometryAt(csEnvironment* scene, int index = 0) {
    opRep* rep = shapeAt(scene, index);
    if (!rep || rep->getGeometryCount() != 1) return nullptr;
    csGeometry* g = rep->getGeometry(0);
    return g->isOfType(T::getClassType()) ? static_cast<T*>(g) : nullptr;
}

}  // namespace wrltest

#endif
