// The back-end of Appearance: a csAppearance that takes the material, the
// texture and the texture transform of its child nodes.
#ifndef OPT_APPEARANCE_H
#define OPT_APPEARANCE_H

#include "csContext.h"
#include "csRefPtr.h"
#include "vrmlnodes/Appearance.h"

class csAppearance;
class csMaterial;
class csMatrix4f;
class csTexture;

class optAppearance : public Appearance {
public:
    explicit optAppearance(znInternal* pair);
    ~optAppearance() override;
    // Rebuilds the parts whose nodes changed; a refresh (mode 1) also
    // follows what the texture and the Material node now hold. Answers the
    // csAppearance.
    int action(SFTime& time, int mode, void* state) override;

    csAppearance* getAppearance() const { return appearance.get(); }

    // How transparent materials are drawn, by the ZN_TRANSP_MODE text (null
    // when unset): 0 blends, 1 is the nicer mode, 2 (the default) the fast
    // one, any other number screen door.
    static csContext::TranspModeEnum transpModeFor(const char* setting);

private:
    void buildMaterial(SFTime& time, void* state);
    void buildTexture(SFTime& time, void* state);
    void buildTextureTransform(SFTime& time, void* state);
    // Enables the texture when it has a picture, with the combination that
    // its format asks for.
    void showTexture();
    // Gives the appearance the material it shows: the built one, or under
    // a three-component texture one with a grey diffuse colour.
    void showMaterial();

    // Each member holds one reference of its own.
    csRefPtr<csMaterial> material;      // the Material node's, or a default one
    bool materialOfNode = false;        // whether `material` is the Material node's
    csRefPtr<csMaterial> underTexture;  // the copy shown under an RGB texture
    csRefPtr<csTexture> texture;
    csMatrix4f* texTransform = nullptr;  // borrowed from the TextureTransform node
    csRefPtr<csAppearance> appearance;
};

#endif
