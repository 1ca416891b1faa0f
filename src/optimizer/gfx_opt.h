// The graphics interface of the loader: no display and no camera, so that
// nearly every operation does nothing. Its duties are to hang each
// finished top-level subgraph under the root that the loader gives it, and
// to note there what the world's viewpoints, navigation information,
// background, fog and world information nodes announce.
#ifndef GFX_OPT_H
#define GFX_OPT_H

#include <cstdint>
#include <vector>

#include "csDataSets.h"
#include "csRefPtr.h"
#include "csSphereBound.h"
#include "optimizer/gfx.h"

class ZN;
class csEnvironment;
class csNode;
class opViewer;
class opDrawImpl;

class gfx_opt : public gfx {
public:
    explicit gfx_opt(ZN* system);
    // Gives back the references that set_top_Node took.
    ~gfx_opt() override;

    // The environment that the world's top-level subgraphs go under
    // (borrowed: the loader's).
    void setRoot(csEnvironment* environment) { root = environment; }

    const char* getClass() override { return "gfx"; }
    const char* getType() override { return "gfx_opt"; }
    void preProcess() override {}
    void process() override {}
    void postProcess() override {}

    void clearScene() override {}
    void setViewpointMatrix(float[4][4]) override {}
    void getViewpointMatrix(float[4][4]) override {}
    void setMouseMatrix(float[4][4]) override {}
    void getMouseMatrix(float[4][4]) override {}
    void setFOV(float) override {}
    float getFOV() override { return 0.0f; }
    // The loader runs no events, so nothing is bound but at the start: the
    // first node of each kind to ask stays bound, and later asks change
    // nothing. The argument is the asking node's object of the toolkit, as
    // a csNode (a csViewpoint, csNavigationInfo, csBackground, csFog or
    // csWorldInfo); an object of another class is ignored.
    void addViewpoint(void* viewpoint) override;
    void bindViewpoint(void* viewpoint) override;
    void addBackground(void*) override {}
    void bindBackground(void* background) override;
    void bindFog(void* fog) override;
    void bindNavigationInfo(void* info) override;
    void addWorldInfo(void* info) override;
    const char* getWorldInfoTitle() override;
    std::vector<std::string> getWorldInfoInfo() override;
    int setNavigationType(const char*) override { return 0; }
    void setNavigationSpeed(float) override {}
    float getNavigationSpeed() override { return 0.0f; }
    void setCollisionDistance(float) override {}
    void setHeadlight(int) override {}
    int getHeadlight() override { return 0; }

    // Adds `node` (a group, or a light or other leaf that stands at the top
    // of the world) as a child of the root and gives it one reference more,
    // which this object holds; nothing when either is null. The same node
    // given twice is added twice.
    void set_top_Node(csNode* node);
    csEnvironment* getRoot();

    // The parts that every Box of the world has alike, whatever its size:
    // the face normals, the image corners and the three index lists. The
    // boxes of a world share them, as a world of many small boxes would
    // otherwise hold thousands of copies; the corners, which depend on the
    // size, stay each box's own. Empty until the first box fills them.
    struct BoxParts {
        csRefPtr<csNormalSet3f> normals;
        csRefPtr<csTexCoordSet2f> image;
        csRefPtr<csIndexSet> cornerIndex;
        csRefPtr<csIndexSet> normalIndex;
        csRefPtr<csIndexSet> imageIndex;
    };
    BoxParts& getBoxParts() { return boxParts; }
    void* getCamera() { return nullptr; }
    void* getPose() { return nullptr; }
    void registerViewer(opViewer*) {}
    void ZNcallback(char) {}
    void guiHandler(char) {}
    int keyHandler(opDrawImpl*, int) { return 1; }

private:
    std::uint32_t word = 0;  // kept for a display's own use; always 0 here
    csSphereBound bound;
    csEnvironment* root = nullptr;
    std::vector<csNode*> topNodes;  // one reference each
    BoxParts boxParts;
};

#endif
