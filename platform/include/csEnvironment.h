// A group whose light list scopes lights to its children. The loader's root,
// which also holds what the world says about viewing it: every viewpoint in
// the order the world gives them, and the viewpoint, navigation
// information, background and fog that are bound at the start, with the
// world's information.
#ifndef CS_ENVIRONMENT_H
#define CS_ENVIRONMENT_H

#include <memory>

#include "csGroup.h"
#include "csRefPtr.h"

class csBackground;
class csFog;
class csNavigationInfo;
class csViewpoint;
class csWorldInfo;

class csEnvironment : public csGroup {
    CS_DECLARE_CLASS_TYPE;

    enum { LIGHTS = 3, VIEWPOINTS = 4 };

    csEnvironment();

    csMFRef& lights() { return _lights; }
    const csMFRef& lights() const { return _lights; }
    csMFRef& viewpoints() { return _viewpoints; }
    const csMFRef& viewpoints() const { return _viewpoints; }

    // Each setter holds a reference on the new object and lets go of the
    // old one; null: none.
    void setViewpoint(csViewpoint* viewpoint);
    csViewpoint* getViewpoint() const { return _viewpoint.get(); }
    void setNavigationInfo(csNavigationInfo* info);
    csNavigationInfo* getNavigationInfo() const { return _navigationInfo.get(); }
    void setBackground(csBackground* background);
    csBackground* getBackground() const { return _background.get(); }
    void setFog(csFog* fog);
    csFog* getFog() const { return _fog.get(); }
    void setWorldInfo(csWorldInfo* info);
    csWorldInfo* getWorldInfo() const { return _worldInfo.get(); }

    csField* getField(short number) override;

    // Something that lives as long as the environment, such as the world
    // that built it. It ends first when the environment ends, while the
    // scene below is still whole.
    void setKeeper(std::shared_ptr<void> keeper) { _keeper = std::move(keeper); }

protected:
    ~csEnvironment() override;

private:
    csMFRef _lights;
    csMFRef _viewpoints;
    csRefPtr<csViewpoint> _viewpoint;
    csRefPtr<csNavigationInfo> _navigationInfo;
    csRefPtr<csBackground> _background;
    csRefPtr<csFog> _fog;
    csRefPtr<csWorldInfo> _worldInfo;
    std::shared_ptr<void> _keeper;
};

#endif
