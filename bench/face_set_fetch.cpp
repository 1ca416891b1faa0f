#include "face_set_fetch.h"

#include <chrono>

#include "browser/zn_browser_intern.h"
#include "child_process.h"
#include "csIndexedFaceSet.h"
#include "loader/wrl_loader.h"
#include "loader/zn.h"
#include "nodes/zn_node.h"
#include "vrmlnodes/VRMLNodebase.h"
#include "wrlLoader.h"

namespace wrlbench {

namespace {
double secondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}
}  // namespace

FaceSetFetch loadAndFetchFaceSet(std::string path) {
    FaceSetFetch fetch;
    auto start = std::chrono::steady_clock::now();
    if (wrlLoad(&path[0]) == nullptr) return fetch;
    fetch.loadSeconds = secondsSince(start);
    znBrowserIntern* browser = _ZNmain->browser;
    znNode* node = browser->getNode(browser->getNodeID("d00000+F"));
    ActionState shape;
    SFTime time(-1.0);
    start = std::chrono::steady_clock::now();
    fetch.faces = csObject::fromHandleAs<csIndexedFaceSet>(node->action(time, kActionFetch, &shape));
    fetch.buildSeconds = secondsSince(start);
    fetch.peakBytes = peakResidentBytes();
    return fetch;
}

}  // namespace wrlbench
