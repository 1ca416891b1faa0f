// Worlds loaded through wrlLoad whose face sets and attribute nodes the
// tests fetch and refresh themselves, as a shape would.
#ifndef WRL_FACE_SET_WORLD_H
#define WRL_FACE_SET_WORLD_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "browser/zn_browser_intern.h"
#include "csIndexedFaceSet.h"
#include "loader/wrl_loader.h"
#include "loader/zn.h"
#include "nodes/zn_node.h"
#include "test_support.h"
#include "vrmlnodes/VRMLNodebase.h"

namespace wrltest {

class FaceSetWorld {
public:
    // Loads `body` after the VRML 97 header. Standard error of the load is
    // kept in `messages`.
    explicit FaceSetWorld(const std::string& body)
        : load(loadWorld(dir.write("faces.wrl", "#VRML V2.0 utf8\n" + body))),
          scene(load.scene),
          browser(_ZNmain->browser),
          messages(load.err) {}

    // The node DEF'd as `name`.
    znNode* node(const char* name) {
        std::string stored = std::string("d00000+") + name;
        return browser->getNode(browser->getNodeID(stored.c_str()));
    }
    // The compiled object behind the node DEF'd as `name`.
    template <class T>
    T* object(const char* name) {
        return dynamic_cast<T*>(node(name)->getCPPScript());
    }

    // Calls `action` on the node DEF'd as `name` in `mode` with a shape's
    // state that carries `appearance`, and answers the object it returns.
    // Standard error of the call is kept in `messages`.
    template <class T>
    T* act(const char* name, int mode = kActionFetch, csAppearance* appearance = nullptr) {
        ActionState state;
        state.appearance = appearance;
        SFTime time(-1.0);
        testing::internal::CaptureStderr();
        int handle = node(name)->action(time, mode, &state);
        messages = testing::internal::GetCapturedStderr();
        return csObject::fromHandleAs<T>(handle);
    }
    csIndexedFaceSet* faces(const char* name = "F", csAppearance* appearance = nullptr) {
        return act<csIndexedFaceSet>(name, kActionFetch, appearance);
    }
    csIndexedFaceSet* refresh(const char* name = "F") { return act<csIndexedFaceSet>(name, kActionRefresh); }

    TempDir dir;
    WorldLoad load;  // holds the scene and the world
    csNode* scene = nullptr;
    znBrowserIntern* browser = nullptr;
    std::string messages;
};

template <class List>
std::vector<int> intsOf(const List& list) {
    std::vector<int> out;
    for (int i = 0; i < list.getCount(); ++i) out.push_back(list.get(i));
    return out;
}

inline std::vector<int> indexesOf(const csIndexSet* set) {
    return set ? intsOf(set->index()) : std::vector<int>{};
}

// Corner `c` of a face set (counted over all faces in order): its point,
// and its normal through the normal index set.
inline csVec3f cornerPoint(const csIndexedFaceSet* faces, int c) {
    return faces->getCoordSet()->point().get(faces->getCoordIndexSet()->index().get(c));
}
inline csVec3f cornerNormal(const csIndexedFaceSet* faces, int c) {
    return faces->getNormalSet()->vector().get(faces->getNormalIndexSet()->index().get(c));
}
// The first corner of each face.
inline std::vector<int> faceStarts(const csIndexedFaceSet* faces) {
    std::vector<int> starts;
    int corner = 0;
    for (int length : intsOf(faces->faceLength())) {
        starts.push_back(corner);
        corner += length;
    }
    return starts;
}

}  // namespace wrltest

#endif
