// The terrain-following stage of optShape, which gfx_opt never reaches:
// a display of its own navigates, and the shape is built by hand.
#include <gtest/gtest.h>

#include <vector>

#include "behaviour_world.h"
#include "csTransform.h"
#include "fields/all.h"
#include "optimizer/gfx_opt.h"
#include "optimizer/optShape.h"
#include "scene_world.h"
#include "vrmlnodes/VRMLNodebase.h"

using wrltest::BehaviourWorld;
using wrltest::FieldDecl;

namespace {

// A display with a camera at `eye` in world coordinates that records how
// the navigator is asked to move.
class NavigatingDisplay : public gfx_opt {
public:
    explicit NavigatingDisplay(ZN* system) : gfx_opt(system) {}
    const char* getType() override { return "navigating"; }
    int getNavigationType() override { return navigation; }
    int isViewpointInterpolating() override { return interpolating; }
    // The view matrix: world to eye, for row vectors.
    void getCameraMatrix(float m[4][4]) override {
        csMatrix4f view;
        view.makeTrans(-eye[0], -eye[1], -eye[2]);
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j) m[i][j] = view[i][j];
    }
    void followTerrain(float height) override { moves.push_back(height); }

    int navigation = 4;
    int interpolating = 0;
    float eye[3] = {0, 0, 0};
    std::vector<float> moves;
};

class Terrain : public testing::Test {
protected:
    Terrain() : display(&world.system) {
        world.system.appInterfaces->add(&display);
        FieldDecl geometryFields[] = {{"kind", SFInt32Type, field, true},
                                      {"bottom", SFFloatType, field, true},
                                      {"top", SFFloatType, field, true}};
        geometryType = &world.makeType("TestGeometry", {"STATIC_BUILTIN.so"},
                                       {geometryFields[0], geometryFields[1], geometryFields[2]});
        shapeType = &world.makeType("Shape", {"STATIC_BUILTIN.so"},
                                    {{"appearance", SFNodeType, field, true}, {"geometry", SFNodeType, field, true}});
    }

    // A Shape over a TestGeometry of `kind` spanning y over [bottom, top].
    optShape* makeShape(int kind, float bottom, float top) {
        znNode* geometry = world.makeNode(*geometryType, "x00000+TestGeometry_1");
        setField(geometry, "kind", std::to_string(kind));
        setField(geometry, "bottom", std::to_string(bottom));
        setField(geometry, "top", std::to_string(top));
        EXPECT_EQ(geometry->initialize(), 1);
        znNode* shape = world.makeNode(*shapeType, "x00000+Shape_1");
        BaseNode handle(new znInternal(shape->getBrowser(), geometry));
        dynamic_cast<SFNode*>(shape->getField("geometry"))->setValue(handle);
        EXPECT_EQ(shape->initialize(), 1);
        return dynamic_cast<optShape*>(shape->getCPPScript());
    }

    static void setField(znNode* node, const char* name, const std::string& text) {
        dynamic_cast<znField*>(node->getField(name))->setData(text.c_str());
    }

    // Builds the shape under `state`, then runs one refresh pass.
    void buildAndRefresh(optShape* shape, ActionState* state = nullptr) {
        SFTime time(0.0);
        size_t before = display.moves.size();
        shape->action(time, kActionFetch, state);
        EXPECT_EQ(display.moves.size(), before) << "the first build only builds";
        shape->action(time, kActionRefresh, state);
    }

    BehaviourWorld world;
    NavigatingDisplay display;
    znNodeType* geometryType;
    znNodeType* shapeType;
};

}  // namespace

TEST_F(Terrain, AFloatingEyeSinksByAtMostTwoTenths) {
    optShape* shape = makeShape(wrltest::kPlainFaces, -1.0f, 0.0f);
    ASSERT_NE(shape, nullptr);
    display.eye[1] = 1.6f + 0.5f;
    buildAndRefresh(shape);
    ASSERT_EQ(display.moves.size(), 1u);
    EXPECT_FLOAT_EQ(display.moves[0], -0.2f);

    display.eye[1] = 1.6f + 0.1f;
    SFTime time(0.0);
    shape->action(time, kActionRefresh, nullptr);
    ASSERT_EQ(display.moves.size(), 2u);
    EXPECT_NEAR(display.moves[1], -0.1f, 0.001f);
}

TEST_F(Terrain, AStepLowerThanTheStepHeightIsClimbedAndLinesAreNoTerrain) {
    optShape* low = makeShape(wrltest::kPlainFaces, -1.0f, 0.5f);
    optShape* high = makeShape(wrltest::kPlainFaces, -1.0f, 1.0f);
    display.eye[1] = 1.6f;  // the feet at 0
    buildAndRefresh(low);
    buildAndRefresh(high);
    ASSERT_EQ(display.moves.size(), 2u);
    EXPECT_NEAR(display.moves[0], 0.5f, 0.001f);
    EXPECT_FLOAT_EQ(display.moves[1], 0.0f);
    // Line sets are no terrain.
    optShape* lines = makeShape(wrltest::kLines, -1.0f, 0.0f);
    display.eye[1] = 2.1f;
    buildAndRefresh(lines);
    EXPECT_EQ(display.moves.size(), 2u);
}

TEST_F(Terrain, TheEyeIsTakenIntoTheShapesCoordinates) {
    optShape* shape = makeShape(wrltest::kPlainFaces, -1.0f, 0.0f);
    csTransform* lift = new csTransform();
    lift->ref();
    lift->setTranslation(0.0f, 1.0f, 0.0f);
    ActionState above;
    above.transforms.push_back(lift);
    // Seen from the world the gap is 1.1; from the shape it is 0.1.
    display.eye[1] = 1.0f + 1.6f + 0.1f;
    buildAndRefresh(shape, &above);
    ASSERT_EQ(display.moves.size(), 1u);
    EXPECT_NEAR(display.moves[0], -0.1f, 0.001f);
    lift->unref();
}

TEST_F(Terrain, NothingMovesOffTheShapeOrWithoutTerrainFollowing) {
    optShape* shape = makeShape(wrltest::kPlainFaces, -1.0f, 0.0f);
    display.eye[0] = 20.0f;  // beside the shape
    display.eye[1] = 2.1f;
    buildAndRefresh(shape);
    EXPECT_TRUE(display.moves.empty());

    display.eye[0] = 0.0f;
    SFTime time(0.0);
    for (int navigation : {1, 3}) {
        display.navigation = navigation;
        shape->action(time, kActionRefresh, nullptr);
    }
    display.navigation = 4;
    display.interpolating = 1;
    shape->action(time, kActionRefresh, nullptr);
    EXPECT_TRUE(display.moves.empty());
    display.interpolating = 0;
    shape->action(time, kActionRefresh, nullptr);
    EXPECT_EQ(display.moves.size(), 1u);
}
