// The back-end half of every light: a light object of the toolkit that
// takes the node's values after any change. A group scopes the first
// DirectionalLight among its children; a light at the top of the world
// joins the root, and so the environment's light list.
#ifndef OPT_LIGHT_NODE_H
#define OPT_LIGHT_NODE_H

#include "csRefPtr.h"
#include "optimizer/optLeafNode.h"
#include "vrmlnodes/LightNode.h"

class csLight;

class optLightNode : public virtual LightNode, public optLeafNode {
public:
    ~optLightNode() override;
    // Answers the light, whatever the mode.
    int action(SFTime& time, int mode, void* state) override;

    csLight* getLight() const { return light.get(); }

protected:
    // `made` is the concrete class's new light.
    explicit optLightNode(csLight* made, const char* unnamed);
    // Copies the values of the kind of light beyond the shared ones.
    virtual void copyOwnValues() = 0;

    csRefPtr<csLight> light;  // holds one reference
};

#endif
