// The application interface to the display side: viewpoints, backgrounds,
// fog, navigation, the camera, world information and anchors. Node classes
// look it up by the class word "gfx". The defaults here do nothing and
// answer neutral values; a display fills in what it supports.
#ifndef GFX_H
#define GFX_H

#include <cstdint>
#include <string>
#include <vector>

#include "base/zn_app_interfaces.h"

class ZN;

class gfx : public znAppInterface {
public:
    explicit gfx(ZN* system);

    const char* getClass() override { return "gfx"; }
    const char* getType() override { return "gfx"; }
    void preProcess() override {}
    void process() override = 0;
    void postProcess() override = 0;
    ~gfx() override;

    virtual void clearScene() {}

    // Viewpoints; `void*` arguments are opaque node handles.
    virtual void addViewpoint(void*) {}
    virtual void getViewpointNames(std::vector<std::string>&) {}
    virtual void bindViewpoint(void*) {}
    virtual void unbindViewpoint(void*) {}
    virtual void nextViewpoint() {}
    virtual void previousViewpoint() {}
    virtual void goToViewpointName(const char*) {}
    virtual void goToViewpointDescription(const char*) {}
    virtual void setViewpointMatrix(float matrix[4][4]) = 0;
    virtual void getViewpointMatrix(float matrix[4][4]) = 0;
    virtual void setMouseMatrix(float matrix[4][4]) = 0;
    virtual void getMouseMatrix(float matrix[4][4]) = 0;
    virtual void setCameraMatrix(float[4][4]) {}
    // Leaves the argument as it found it.
    virtual void getCameraMatrix(float[4][4]) {}
    virtual void setCenterOfRotation(float, float, float) {}
    virtual void getCenterOfRotation(float&, float&, float&) {}
    virtual void setFOV(float fov) = 0;
    virtual float getFOV() = 0;
    virtual void interpolateCamera(float) {}
    virtual int isViewpointInterpolating() { return 0; }

    virtual void addBackground(void*) {}
    virtual void bindBackground(void*) {}
    virtual void unbindBackground(void*) {}
    virtual void addFog(void*) {}
    virtual void bindFog(void*) {}
    virtual void unbindFog(void*) {}
    virtual void addNavigationInfo(void*) {}
    virtual void bindNavigationInfo(void*) {}
    virtual void unbindNavigationInfo(void*) {}

    virtual int setNavigationType(const char* type) = 0;
    virtual int getNavigationType() { return 1; }
    virtual void setNavigationSpeed(float speed) = 0;
    virtual float getNavigationSpeed() = 0;
    virtual void setCollisionDistance(float) {}
    virtual float getCollisionDistance() { return 0.25f; }
    virtual void setEyeHeight(float) {}
    virtual float getEyeHeight() { return 1.6f; }
    virtual void setStepHeight(float) {}
    virtual float getStepHeight() { return 0.75f; }
    // Moves the viewer up by `height` (down when negative).
    virtual void followTerrain(float) {}
    virtual void setHeadlight(int on) = 0;
    virtual int getHeadlight() = 0;

    virtual void addWorldInfo(void*) {}
    // Null: no title.
    virtual const char* getWorldInfoTitle() { return nullptr; }
    virtual std::vector<std::string> getWorldInfoInfo() { return {}; }

    virtual int handleAnchor(std::vector<const char*>, std::vector<const char*>) { return 0; }
    virtual int loadNewWorld(std::vector<const char*>&, std::vector<const char*>&) { return 0; }

protected:
    ZN* system;  // back pointer to the owning system object

    // What a richer display binds; the defaults never touch them. Elements
    // are borrowed node handles.
    std::vector<void*> viewpoints;
    std::vector<void*> viewpointStack;
    std::vector<void*> backgrounds;
    std::vector<void*> backgroundStack;
    std::vector<void*> fogs;
    std::vector<void*> fogStack;
    std::vector<void*> navigationInfos;
    std::vector<void*> navigationInfoStack;
    std::vector<std::string> viewpointNames;
    std::vector<std::string> viewpointDescriptions;
    std::vector<std::uint8_t> viewpointJumps;
    std::vector<std::string> worldInfo;
};

#endif
