// Appearance, Material and TextureTransform: colours, transparency modes,
// texture formats, texture matrices and refreshes after a change.
#include <gtest/gtest.h>

#include <cmath>
#include <iterator>
#include <string>

#include "csAppearance.h"
#include "csIndexedFaceSet.h"
#include "csMaterial.h"
#include "csTexture.h"
#include "csTransform.h"
#include "fields/zn_values.h"
#include "opRep.h"
#include "optimizer/optAppearance.h"
#include "optimizer/optMaterial.h"
#include "optimizer/optShape.h"
#include "optimizer/optTextureTransform.h"
#include "scene_world.h"
#include "url_test_server.h"

using wrltest::childAs;
using wrltest::expectVec3;
using wrltest::SceneLoad;

namespace {

// The appearance of the top-level shape `index`.
csAppearance* appearanceOf(csEnvironment* scene, int index) {
    opRep* rep = wrltest::shapeAt(scene, index);
    return rep ? rep->getAppearance() : nullptr;
}

std::string shapeWith(const std::string& appearance) { return "Shape { appearance " + appearance + " }\n"; }

}  // namespace

TEST(optMaterial, AmbientColourIsIntensityTimesDiffuse) {
    SceneLoad world;
    csEnvironment* scene = world.load(shapeWith(
        "Appearance { material Material { ambientIntensity 0.2 diffuseColor 1 0.5 0 specularColor 0 1 0 "
        "emissiveColor 0 0 1 shininess 0.5 transparency 0 } }"));
    csAppearance* look = appearanceOf(scene, 0);
    ASSERT_NE(look, nullptr);
    csMaterial* material = look->getMaterial();
    ASSERT_NE(material, nullptr);
    expectVec3(material->getAmbientColor(), 0.2f, 0.1f, 0.0f);
    expectVec3(material->getDiffuseColor(), 1.0f, 0.5f, 0.0f);
    expectVec3(material->getSpecularColor(), 0, 1, 0);
    expectVec3(material->getEmissiveColor(), 0, 0, 1);
    EXPECT_FLOAT_EQ(material->getShininess(), 0.5f) << "no scale is applied";
    EXPECT_TRUE(look->getLightEnable());
    EXPECT_FALSE(look->getTranspEnable()) << "no transparency leaves the enable alone";
}

TEST(optMaterial, ChangesReachTheSceneThroughTheRefreshPass) {
    SceneLoad world;
    csEnvironment* scene = world.load(
        "DEF S Shape { appearance Appearance { material DEF M Material { ambientIntensity 0.5 } } }\n"
        "DEF ROOT Group { children USE S }\n");
    csMaterial* material = appearanceOf(scene, 0)->getMaterial();
    auto* node = dynamic_cast<optMaterial*>(world.builtinNamed("M"));
    auto* shape = dynamic_cast<optShape*>(world.builtinNamed("S"));
    ASSERT_NE(node, nullptr);
    ASSERT_NE(shape, nullptr);
    EXPECT_EQ(node->getMaterial(), material);
    SFTime time(1.0);

    SFColor red(1, 0, 0);
    node->set_diffuseColor(red, 1.0);
    expectVec3(material->getDiffuseColor(), 0.8f, 0.8f, 0.8f);  // not before the pass
    shape->action(time, kActionRefresh, nullptr);
    expectVec3(material->getDiffuseColor(), 1, 0, 0);
    // A new diffuse colour renews the ambient one.
    expectVec3(material->getAmbientColor(), 0.5f, 0, 0);

    // The top-level pass of a frame reaches the material through the group.
    material->setDiffuseColor(0, 1, 0);  // a mark that only a diffuse refresh would wipe out
    SFFloat full(1.0f);
    node->set_ambientIntensity(full, 1.0);
    world.builtinNamed("ROOT")->action(time, kActionTopLevel, nullptr);
    expectVec3(material->getAmbientColor(), 1, 0, 0);
    // A new intensity leaves the diffuse colour alone.
    expectVec3(material->getDiffuseColor(), 0, 1, 0);
}

TEST(optAppearance, TransparencyModeFollowsTheEnvironment) {
    EXPECT_EQ(optAppearance::transpModeFor(nullptr), csContext::FAST_TRANSP);
    EXPECT_EQ(optAppearance::transpModeFor("0"), csContext::BLEND_TRANSP);
    EXPECT_EQ(optAppearance::transpModeFor("1"), csContext::NICE_TRANSP);
    EXPECT_EQ(optAppearance::transpModeFor("2"), csContext::FAST_TRANSP);
    EXPECT_EQ(optAppearance::transpModeFor("7"), csContext::SCREEN_DOOR_TRANSP);
    EXPECT_EQ(optAppearance::transpModeFor("-1"), csContext::SCREEN_DOOR_TRANSP);
    EXPECT_EQ(optAppearance::transpModeFor("abc"), csContext::BLEND_TRANSP) << "text reads as 0";

    SceneLoad world;
    const std::string glass = shapeWith("Appearance { material Material { transparency 0.5 } }");
    csAppearance* standard = appearanceOf(world.load(glass), 0);
    ASSERT_NE(standard, nullptr);
    EXPECT_TRUE(standard->getTranspEnable());
    EXPECT_EQ(standard->getTranspMode(), csContext::FAST_TRANSP);
    EXPECT_FLOAT_EQ(standard->getMaterial()->getTransparency(), 0.5f);

    wrltest::ScopedEnv blend("ZN_TRANSP_MODE", "0");
    csAppearance* blended = appearanceOf(world.load(glass), 0);
    EXPECT_EQ(blended->getTranspMode(), csContext::BLEND_TRANSP);
}

TEST(optAppearance, TextureFormatsChooseTheCombination) {
    SceneLoad world;
    csEnvironment* scene = world.load(
        shapeWith("Appearance { material Material { diffuseColor 1 0 0 } texture TestTexture { components 3 } }") +
        shapeWith("Appearance { material Material { diffuseColor 1 0 0 } texture TestTexture { components 4 } }"));
    csAppearance* rgb = appearanceOf(scene, 0);
    ASSERT_NE(rgb, nullptr);
    ASSERT_NE(rgb->getTexture(), nullptr);
    EXPECT_TRUE(rgb->getTexEnable());
    EXPECT_EQ(rgb->getTexEnv(), csContext::MODULATE_TENV);
    EXPECT_EQ(rgb->getTexMode(), csContext::NICE_TEX);
    expectVec3(rgb->getMaterial()->getDiffuseColor(), 0.8f, 0.8f, 0.8f);

    csAppearance* rgba = appearanceOf(scene, 1);
    ASSERT_NE(rgba, nullptr);
    EXPECT_EQ(rgba->getTexEnv(), csContext::DECAL_TENV);
    expectVec3(rgba->getMaterial()->getDiffuseColor(), 1, 0, 0);
}

// The grey under an RGB texture stays in that appearance: another shape of
// the same Material shows the Material's own colour, before and after the
// Material changes.
TEST(optAppearance, GreyUnderATextureLeavesOtherUsersOfTheMaterialAlone) {
    SceneLoad world;
    csEnvironment* scene = world.load(
        "DEF A Shape { appearance Appearance { material DEF M Material { diffuseColor 1 0 0 ambientIntensity 0.5 }\n"
        "                                      texture TestTexture { components 3 } } }\n"
        "DEF B Shape { appearance Appearance { material USE M } }\n"
        "Shape { appearance Appearance { material USE M texture ImageTexture { url \"absent.png\" } } }\n");
    csAppearance* textured = appearanceOf(scene, 0);
    csAppearance* plain = appearanceOf(scene, 1);
    csAppearance* missing = appearanceOf(scene, 2);
    ASSERT_NE(textured, nullptr);
    ASSERT_NE(plain, nullptr);
    ASSERT_NE(missing, nullptr);
    expectVec3(textured->getMaterial()->getDiffuseColor(), 0.8f, 0.8f, 0.8f);
    expectVec3(textured->getMaterial()->getAmbientColor(), 0.5f, 0, 0);
    EXPECT_STREQ(textured->getMaterial()->getName(), "M");
    expectVec3(plain->getMaterial()->getDiffuseColor(), 1, 0, 0);
    expectVec3(missing->getMaterial()->getDiffuseColor(), 1, 0, 0);

    auto* node = dynamic_cast<optMaterial*>(world.builtinNamed("M"));
    ASSERT_NE(node, nullptr);
    SFColor blue(0, 0, 1), green(0, 1, 0);
    node->set_diffuseColor(blue, 1.0);
    node->set_emissiveColor(green, 1.0);
    SFTime time(1.0);
    for (const char* shape : {"A", "B"}) world.builtinNamed(shape)->action(time, kActionRefresh, nullptr);
    expectVec3(plain->getMaterial()->getDiffuseColor(), 0, 0, 1);
    expectVec3(textured->getMaterial()->getDiffuseColor(), 0.8f, 0.8f, 0.8f);
    expectVec3(textured->getMaterial()->getEmissiveColor(), 0, 1, 0);
    expectVec3(textured->getMaterial()->getAmbientColor(), 0, 0, 0.5f);
}

// Whatever the texture node, a texture with no picture leaves the shape as
// its material says, untextured, and a face set keeps its own colours.
TEST(optAppearance, TextureWithNothingToShowLeavesTheMaterialAndTheColours) {
    SceneLoad world;
    const char* const textures[] = {
        "ImageTexture { url \"absent.png\" }",
        "ImageTexture { url \"support.wrl\" }",  // there, but no picture
        "PixelTexture { }",
        "DEF WIDE PixelTexture { image 1 1 5 7 }",
        "MovieTexture { url \"clip.mpg\" }",
    };
    std::string text;
    for (const char* texture : textures)
        text += "Shape { appearance Appearance { material Material { diffuseColor 1 0 0 } texture " +
                std::string(texture) +
                " } geometry IndexedFaceSet { coord Coordinate { point [ 0 0 0, 1 0 0, 1 1 0 ] }"
                " coordIndex [ 0 1 2 ] color Color { color [ 0 0 1, 0 1 0, 0 1 1 ] } } }\n";
    csEnvironment* scene = world.load(text);
    for (int i = 0; i < static_cast<int>(std::size(textures)); ++i) {
        SCOPED_TRACE(textures[i]);
        csAppearance* look = appearanceOf(scene, i);
        ASSERT_NE(look, nullptr);
        ASSERT_NE(look->getTexture(), nullptr) << "a texture without an image is attached all the same";
        EXPECT_EQ(look->getTexture()->getImage(), nullptr);
        EXPECT_FALSE(look->getTexEnable());
        expectVec3(look->getMaterial()->getDiffuseColor(), 1, 0, 0);
        auto* faces = wrltest::geometryAt<csIndexedFaceSet>(scene, i);
        ASSERT_NE(faces, nullptr);
        ASSERT_NE(faces->getColorSet(), nullptr);
        EXPECT_EQ(faces->getColorSet()->getCount(), 3) << "no grey in place of the colours";
    }
    // Too many components are said; the default image without pixels is not.
    EXPECT_NE(world.lastErrors().find(wrltest::messageLine("optPixelTexture:  The image of WIDE (1 x 1, 5 components, "
                                                           "1 pixels) cannot be shown; it is left out.")),
              std::string::npos);
    EXPECT_EQ(world.lastErrors().find("Unnamed PixelTexture"), std::string::npos);
}

TEST(optTextureTransform, MatrixTranslatesThenTurnsAndScalesAboutTheCentre) {
    SceneLoad world;
    csEnvironment* scene = world.load(
        "DEF S Shape { appearance Appearance { textureTransform DEF TT TextureTransform {\n"
        "  translation 0.5 0  rotation 1.5707964  scale 2 2  center 1 0 } } }\n");
    csAppearance* look = appearanceOf(scene, 0);
    ASSERT_NE(look, nullptr);
    // (0, 0) moves by the translation, by minus the centre, turns a
    // quarter, is scaled twice and moved back by the centre.
    csVec3f p = look->getTexTransform().xformPt(csVec3f(0, 0, 0));
    EXPECT_NEAR(p[0], 1.0f, 1e-5f);
    EXPECT_NEAR(p[1], -1.0f, 1e-5f);

    auto* node = dynamic_cast<optTextureTransform*>(world.builtinNamed("TT"));
    auto* shape = dynamic_cast<optShape*>(world.builtinNamed("S"));
    ASSERT_NE(node, nullptr);
    ASSERT_NE(shape, nullptr);
    SFVec2f none(0, 0);
    SFFloat still(0);
    SFVec2f unit(1, 1);
    node->set_translation(none, 1.0);
    node->set_rotation(still, 1.0);
    node->set_scale(unit, 1.0);
    SFTime time(1.0);
    shape->action(time, kActionRefresh, nullptr);
    EXPECT_TRUE(look->getTexTransform().almostEqual(csMatrix4f(), 1e-6f)) << "the refresh hands the new matrix on";
}
