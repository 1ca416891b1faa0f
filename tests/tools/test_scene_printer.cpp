#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "csAnchor.h"
#include "csAppearance.h"
#include "csDirectionalLight.h"
#include "csEnvironment.h"
#include "csFog.h"
#include "csMaterial.h"
#include "csSwitch.h"
#include "csTransform.h"
#include "csViewpoint.h"
#include "opSphere.h"
#include "opTessParaSurfaceAction.h"
#include "scene_printer.h"

namespace {

// A transform with a red, half clear sphere under it, and a top-level
// light that is also in the light list.
csEnvironment* makeScene() {
    auto* root = new csEnvironment();
    auto* t = new csTransform();
    t->setName("Mover");
    t->setTranslation(0, 1, 0);
    root->addChild(t);
    auto* sphere = new opSphere();
    sphere->setName("Ball");
    auto* appearance = new csAppearance();
    auto* material = new csMaterial();
    material->setDiffuseColor(1, 0, 0);
    material->setTransparency(0.5f);
    appearance->setMaterial(material);
    appearance->setLightEnable(1);
    sphere->setAppearance(appearance);
    auto* tess = new opTessParaSurfaceAction();
    tess->ref();
    tess->setSampling(4);
    tess->apply(sphere);
    tess->unref();
    t->addChild(sphere);
    auto* light = new csDirectionalLight();
    root->addChild(light);
    root->lights().append(light);
    root->ref();
    return root;
}

const char* kTree =
    "csEnvironment\n"
    "  csTransform \"Mover\"\n"
    "    translation: 0 1 0\n"
    "    rotation: 0 0 1 0\n"
    "    scale: 1 1 1\n"
    "    scaleOrientation: 0 0 1 0\n"
    "    center: 0 0 0\n"
    "    opSphere \"Ball\"\n"
    "      radius: 1\n"
    "      csAppearance\n"
    "        lightEnable: 1\n"
    "        materialModeEnable: 0\n"
    "        transpEnable: 0\n"
    "        transpMode: 0\n"
    "        texEnable: 0\n"
    "        texEnv: 0\n"
    "        texMode: 0\n"
    "        csMaterial\n"
    "          ambientColor: 0.2 0.2 0.2\n"
    "          diffuseColor: 1 0 0\n"
    "          specularColor: 0 0 0\n"
    "          emissiveColor: 0 0 0\n"
    "          shininess: 0.2\n"
    "          transparency: 0.5\n"
    "      csIndexedFaceSet\n"
    "        primitives: 24\n"
    "        vertices: 25\n"
    "        indices: 72\n"
    "        normals: 25\n"
    "        colors: 0\n"
    "        texCoords: 25\n"
    "        normalBind: 3\n"
    "        colorBind: 0\n"
    "        texCoordBind: 1\n"
    "        solid: 1\n"
    "        convex: 1\n"
    "        boundMin: -1 -1 -1\n"
    "        boundMax: 1 1 1\n"
    "  csDirectionalLight\n"
    "    on: 1\n"
    "    intensity: 1\n"
    "    ambientIntensity: 0\n"
    "    color: 1 1 1\n"
    "    direction: 0 0 -1\n"
    "lights 1\n"
    "  csDirectionalLight\n";

}  // namespace

TEST(printSceneTree, ShowsValuesUnderEachObject) {
    csEnvironment* root = makeScene();
    std::ostringstream out;
    printSceneTree(out, root);
    EXPECT_EQ(out.str(), kTree);
    root->unref();
}

TEST(printSceneTree, EmptyEnvironmentAndNullRoot) {
    auto* root = new csEnvironment();
    root->ref();
    std::ostringstream out;
    printSceneTree(out, root);
    EXPECT_EQ(out.str(), "csEnvironment\nlights 0\n");
    root->unref();
    std::ostringstream none;
    printSceneTree(none, nullptr);
    EXPECT_EQ(none.str(), "NULL\n");
}

TEST(printSceneJson, NamesAreEscaped) {
    auto* root = new csEnvironment();
    root->ref();
    auto* g = new csGroup();
    g->setName("a\"b\\c\nd");
    root->addChild(g);
    std::ostringstream out;
    printSceneJson(out, root);
    EXPECT_EQ(out.str(),
              "{\"formatVersion\": 1, \"scene\": "
              "{\"class\": \"csEnvironment\", \"name\": null, \"children\": [{\"class\": \"csGroup\", \"name\": "
              "\"a\\\"b\\\\c\\u000ad\", \"children\": []}], \"lights\": [], \"viewpoints\": [], \"viewpoint\": null, "
              "\"navigationInfo\": null, \"background\": null, \"fog\": null, \"worldInfo\": null}}\n");
    root->unref();
    std::ostringstream none;
    printSceneJson(none, nullptr);
    EXPECT_EQ(none.str(), "{\"formatVersion\": 1, \"scene\": null}\n");
}

// Floats print in the shortest text that reads back to the same float,
// and counts as integers: %g's six digits would lose 0.123456791f.
TEST(printSceneJson, NumbersReadBackToTheirValues) {
    auto* root = new csEnvironment();
    root->ref();
    auto* t = new csTransform();
    t->setTranslation(0.1f, 0.123456791f, 16777216.0f);
    t->setScale(1e-7f, 3.4028235e38f, -2.5f);
    root->addChild(t);
    auto* s = new csSwitch();
    s->setWhichChild(2);
    root->addChild(s);
    std::ostringstream out;
    printSceneJson(out, root);
    const std::string json = out.str();
    EXPECT_NE(json.find("\"translation\": [0.1, 0.12345679, 16777216]"), std::string::npos) << json;
    EXPECT_NE(json.find("\"scale\": [1e-07, 3.4028235e+38, -2.5]"), std::string::npos) << json;
    EXPECT_NE(json.find("\"whichChild\": 2,"), std::string::npos) << json;
    root->unref();
}

TEST(printSceneTree, ListsTextsViewpointsAndWhatTheRootBinds) {
    auto* root = new csEnvironment();
    root->ref();
    auto* front = new csViewpoint();
    front->setName("A");
    front->setDescription("front");
    root->addChild(front);
    root->viewpoints().append(front);
    root->viewpoints().append(new csViewpoint());
    root->setViewpoint(front);
    auto* link = new csAnchor();
    link->setUrl({"x.wrl", "y.wrl"});
    root->addChild(link);
    root->setFog(new csFog());

    std::ostringstream tree;
    printSceneTree(tree, root);
    EXPECT_EQ(tree.str(),
              "csEnvironment\n"
              "  csViewpoint \"A\"\n"
              "    position: 0 0 10\n"
              "    orientation: 0 0 1 0\n"
              "    fieldOfView: 0.785398\n"
              "    jump: 1\n"
              "    description: \"front\"\n"
              "  csAnchor\n"
              "    url: \"x.wrl\" \"y.wrl\"\n"
              "    description: \"\"\n"
              "    parameter:\n"
              "lights 0\n"
              "viewpoints 2\n"
              "  csViewpoint \"A\"\n"
              "  csViewpoint\n"
              "viewpoint csViewpoint \"A\"\n"
              "fog csFog\n");

    std::ostringstream json;
    printSceneJson(json, root);
    EXPECT_NE(json.str().find("\"url\": [\"x.wrl\", \"y.wrl\"], \"description\": \"\", \"parameter\": []"),
              std::string::npos);
    EXPECT_NE(json.str().find("\"viewpoints\": [{\"class\": \"csViewpoint\", \"name\": \"A\"}, {\"class\": "
                              "\"csViewpoint\", \"name\": null}], \"viewpoint\": {\"class\": \"csViewpoint\", \"name\": "
                              "\"A\"}, \"navigationInfo\": null, \"background\": null, \"fog\": {\"class\": \"csFog\", "
                              "\"name\": null}, \"worldInfo\": null}}\n"),
              std::string::npos)
        << json.str();
    root->unref();
}
