#include "optimizer/optAppearance.h"

#include <cstdlib>

#include "csAppearance.h"
#include "csMaterial.h"
#include "csTexture.h"
#include "optimizer/optActionGuard.h"
#include "optimizer/optHandleTable.h"
#include "optimizer/optSceneName.h"

namespace {

constexpr const char* kTranspModeVariable = "ZN_TRANSP_MODE";
constexpr int kDefaultTranspSetting = 2;

// A three-component texture shows over a light grey rather than over
// whatever the material said.
constexpr float kUnderTextureGrey = 0.8f;

}  // namespace

optAppearance::optAppearance(znInternal* pair) : BaseNode(pair), Appearance(pair) {
    appearance.reset(new csAppearance());
    nameInScene(appearance.get(), *this, "Unnamed Appearance Node");
    built = 1;
}

optAppearance::~optAppearance() = default;

csContext::TranspModeEnum optAppearance::transpModeFor(const char* setting) {
    switch (setting ? std::atoi(setting) : kDefaultTranspSetting) {
        case 0: return csContext::BLEND_TRANSP;
        case 1: return csContext::NICE_TRANSP;
        case 2: return csContext::FAST_TRANSP;
        default: return csContext::SCREEN_DOOR_TRANSP;
    }
}

int optAppearance::action(SFTime& time, int mode, void* state) {
    optActionGuard guard(this);
    if (!guard.entered()) return 0;
    const bool rebuilt = materialDirty || textureDirty;
    if (materialDirty) buildMaterial(time, state);
    if (textureDirty) buildTexture(time, state);
    if (textureTransformDirty) buildTextureTransform(time, state);
    if (mode == kActionRefresh) Appearance::action(time, kActionRefresh, state);
    // The refresh may have brought the texture a picture or taken its
    // picture away, or changed the Material node's values.
    if (rebuilt || mode == kActionRefresh) {
        showTexture();
        showMaterial();
    }
    return optHandleTable::handleOf(appearance.get());
}

void optAppearance::buildMaterial(SFTime& time, void* state) {
    material.reset(nullptr);
    csMaterial* fetched = nullptr;
    if (materialObject)
        fetched = optHandleTable::objectOf<csMaterial>(materialObject->action(time, kActionFetch, state));
    materialOfNode = fetched != nullptr;
    underTexture.reset(nullptr);
    if (!fetched) {
        // Without a Material the shape glows white, as VRML asks.
        fetched = new csMaterial();
        fetched->setDiffuseColor(0.0f, 0.0f, 0.0f);
        fetched->setEmissiveColor(1.0f, 1.0f, 1.0f);
    } else if (fetched->getTransparency() != 0.0f) {
        appearance->setTranspEnable(1);
        appearance->setTranspMode(transpModeFor(std::getenv(kTranspModeVariable)));
    }
    appearance->setLightEnable(1);
    material.reset(fetched);
    materialDirty = 0;
}

void optAppearance::buildTexture(SFTime& time, void* state) {
    texture.reset(nullptr);
    csTexture* fetched = nullptr;
    if (textureObject)
        fetched = optHandleTable::objectOf<csTexture>(textureObject->action(time, kActionFetch, state));
    texture.reset(fetched);
    appearance->setTexture(fetched);
    textureDirty = 0;
}

// A texture with no picture (its file could not be read, a movie) stays in
// the scene for what it names, but the surface looks as if it had none:
// the material as the world wrote it, untextured.
void optAppearance::showTexture() {
    const bool shows = texture && texture->hasImage();
    appearance->setTexEnable(shows ? 1 : 0);
    if (!shows) return;
    appearance->setTexEnv(texture->getFormat() == csTexture::RGBA ? csContext::DECAL_TENV : csContext::MODULATE_TENV);
    appearance->setTexMode(csContext::NICE_TEX);
}

// A three-component texture that shows puts a light grey in place of the
// diffuse colour. The csMaterial of a Material node is shared by every
// appearance that uses the node, textured or not, so the grey goes on a
// copy of it, renewed at each pass; a default material is this
// appearance's own and takes the grey itself.
void optAppearance::showMaterial() {
    const bool underRGB = material && texture && appearance->getTexEnable() && texture->getFormat() == csTexture::RGB;
    if (!underRGB || !materialOfNode) {
        if (underRGB) material->setDiffuseColor(kUnderTextureGrey, kUnderTextureGrey, kUnderTextureGrey);
        underTexture.reset(nullptr);
        appearance->setMaterial(material.get());
        return;
    }
    if (!underTexture) {
        underTexture.reset(new csMaterial());
        underTexture->setName(material->getName());
    }
    const csVec3f& ambient = material->getAmbientColor();
    const csVec3f& specular = material->getSpecularColor();
    const csVec3f& emissive = material->getEmissiveColor();
    underTexture->setAmbientColor(ambient[0], ambient[1], ambient[2]);
    underTexture->setDiffuseColor(kUnderTextureGrey, kUnderTextureGrey, kUnderTextureGrey);
    underTexture->setSpecularColor(specular[0], specular[1], specular[2]);
    underTexture->setEmissiveColor(emissive[0], emissive[1], emissive[2]);
    underTexture->setShininess(material->getShininess());
    underTexture->setTransparency(material->getTransparency());
    appearance->setMaterial(underTexture.get());
}

void optAppearance::buildTextureTransform(SFTime& time, void* state) {
    texTransform = textureTransformObject
                       ? optHandleTable::matrixOf(textureTransformObject->action(time, kActionFetch, state))
                       : nullptr;
    if (texTransform) appearance->setTexTransform(*texTransform);
    textureTransformDirty = 0;
}
