// The graphics interface of the loader: no display and no camera, so that
// nearly every operation does nothing. Its one duty is to hang each
// finished top-level subgraph under topSceneNode.
#ifndef GFX_OPT_H
#define GFX_OPT_H

#include <cstdint>

#include "csSphereBound.h"
#include "optimizer/gfx.h"

class ZN;
class csEnvironment;
class csGroup;
class opViewer;
class opDrawImpl;

class gfx_opt : public gfx {
public:
    explicit gfx_opt(ZN* system);

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
    void addBackground(void*) override {}
    int setNavigationType(const char*) override { return 0; }
    void setNavigationSpeed(float) override {}
    float getNavigationSpeed() override { return 0.0f; }
    void setCollisionDistance(float) override {}
    void setHeadlight(int) override {}
    int getHeadlight() override { return 0; }

    // Adds `group` as a child of topSceneNode and gives it one reference
    // more; nothing when either is null. The same group given twice is
    // added twice.
    void set_top_Node(csGroup* group);
    csEnvironment* getRoot();
    void* getCamera() { return nullptr; }
    void* getPose() { return nullptr; }
    void registerViewer(opViewer*) {}
    void ZNcallback(char) {}
    void guiHandler(char) {}
    int keyHandler(opDrawImpl*, int) { return 1; }

private:
    std::uint32_t word = 0;  // kept for a display's own use; always 0 here
    csSphereBound bound;
};

#endif
