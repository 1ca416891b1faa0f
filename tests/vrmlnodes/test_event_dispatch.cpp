// Events reach the set_* method that single characters of their names
// select, and the grouping rules keep children as the design of the events
// says, including removal from the front. Nodes whose back-end takes all
// their values again after a change pass an event's value on at the next
// action.
#include <gtest/gtest.h>

#include "csImage.h"
#include "csIndexedFaceSet.h"
#include "csLOD.h"
#include "csPointLight.h"
#include "csTexture.h"
#include "optimizer/optExtrusion.h"
#include "optimizer/optLOD.h"
#include "optimizer/optPixelTexture.h"
#include "optimizer/optPointLight.h"
#include "support_types.h"
#include "vrmlnodes/Appearance.h"
#include "vrmlnodes/GroupingNode.h"
#include "vrmlnodes/IndexedFaceSet.h"
#include "vrmlnodes/Material.h"
#include "vrmlnodes/Transform.h"

using wrltest::BehaviourWorld;
using wrltest::SupportType;
using wrltest::TestEvent;

namespace {

// Nodes of the Node Support file's types, bound to their built-in classes.
class SupportWorld : public ::testing::Test {
protected:
    void SetUp() override {
        for (SupportType& t : wrltest::readSupportTypes())
            if (t.url == "STATIC_BUILTIN.so") declared.push_back(t);
    }
    znNode* make(const char* typeName) {
        for (SupportType& t : declared)
            if (t.name == typeName) {
                znNodeType& type = world.makeType(t.name.c_str(), {t.url.c_str()}, t.fields);
                znNode* node = world.makeNode(type);
                node->initialize();
                return node;
            }
        return nullptr;
    }
    template <class T>
    T* object(znNode* node) {
        return dynamic_cast<T*>(node->getCPPScript());
    }
    // A list of handles to `count` fresh groups, the last one also in `last`.
    MFNode groups(int count, znNode** last = nullptr) {
        MFNode list;
        for (int i = 0; i < count; ++i) {
            znNode* child = make("Group");
            BaseNode handle(*child);
            list.addValue(handle);
            if (last) *last = child;
        }
        return list;
    }
    MFNode* children(znNode* group) { return dynamic_cast<MFNode*>(group->getExposedField("children")); }

    BehaviourWorld world;
    std::vector<SupportType> declared;
};

}  // namespace

TEST_F(SupportWorld, ChildrenEventsReachTheGroupAndAValueOfTheWrongTypeIsIgnored) {
    znNode* group = make("Group");
    SFFloat number;
    TestEvent wrong("set_children", number);
    group->processEvent(wrong);
    EXPECT_EQ(children(group)->getSize(), 0);
    // Any name beginning with 's' reaches set_children.
    znNode* last = nullptr;
    MFNode two = groups(2), more = groups(2, &last);
    TestEvent set("sXYZ", two), add("addChildren", more);
    group->processEvent(set);
    EXPECT_EQ(object<GroupingNode>(group)->getChildObjects().size(), 2u);
    group->processEvent(add);  // appends in order
    ASSERT_EQ(children(group)->getSize(), 4);
    EXPECT_EQ(children(group)->get1Value(3).getID(), last->getID());
    EXPECT_EQ(object<GroupingNode>(group)->getChildObjects().back(), static_cast<Builtin*>(last));

    // removeChildren counts and takes from the front.
    znNode* second = nullptr;
    MFNode pair = groups(2, &second);
    TestEvent reset("set_children", pair);
    group->processEvent(reset);
    // Naming the last child removes the first.
    MFNode namingLast;
    BaseNode handle(*second);
    namingLast.addValue(handle);
    TestEvent removeOne("removeChildren", namingLast);
    group->processEvent(removeOne);
    ASSERT_EQ(children(group)->getSize(), 1);
    EXPECT_EQ(children(group)->get1Value(0).getID(), second->getID());

    // More entries than children empty the group and no more.
    MFNode three = groups(3);
    TestEvent removeMany("removeChildren", three);
    group->processEvent(removeMany);
    EXPECT_EQ(children(group)->getSize(), 0);
    EXPECT_TRUE(object<GroupingNode>(group)->getChildObjects().empty());
}

TEST_F(SupportWorld, NamesThatShareAPrefixReachTheirOwnFields) {
    znNode* transform = make("Transform");
    SFVec3f scale(2, 3, 4), center(7, 8, 9);
    SFRotation turn(0, 1, 0, 1.5f);
    TestEvent setScale("set_scale", scale), setTurn("set_scaleOrientation", turn), setCenter("set_center", center);
    transform->processEvent(setScale);
    transform->processEvent(setTurn);
    transform->processEvent(setCenter);
    float v[4] = {};
    dynamic_cast<SFVec3f*>(transform->getExposedField("scale"))->getValue(v);
    EXPECT_FLOAT_EQ(v[1], 3);
    dynamic_cast<SFRotation*>(transform->getExposedField("scaleOrientation"))->getValue(v);
    EXPECT_FLOAT_EQ(v[3], 1.5f);
    dynamic_cast<SFVec3f*>(transform->getExposedField("center"))->getValue(v);
    EXPECT_FLOAT_EQ(v[0], 7);

    znNode* material = make("Material");
    SFColor specular(0.5f, 0.25f, 0.125f);
    SFFloat shiny;
    shiny.setValue(0.75f);
    TestEvent a("set_specularColor", specular), b("set_shininess", shiny);
    material->processEvent(a);
    material->processEvent(b);
    dynamic_cast<SFColor*>(material->getExposedField("specularColor"))->getValue(v);
    EXPECT_FLOAT_EQ(v[2], 0.125f);
    EXPECT_FLOAT_EQ(dynamic_cast<SFFloat*>(material->getExposedField("shininess"))->getValue(), 0.75f);

    znNode* appearance = make("Appearance");
    znNode* child = make("TextureTransform");
    SFNode value;
    BaseNode handle(*child);
    value.setValue(handle);
    TestEvent textureTransform("set_textureTransform", value);
    appearance->processEvent(textureTransform);
    EXPECT_EQ(dynamic_cast<SFNode*>(appearance->getExposedField("textureTransform"))->getValue().getID(),
              child->getID());
    EXPECT_EQ(dynamic_cast<SFNode*>(appearance->getExposedField("texture"))->getValue().getID(), 0);

    // Index names are compared by their prefixes.
    znNode* faces = make("IndexedFaceSet");
    MFInt32 indexes;
    indexes.addValue(3);
    indexes.addValue(-1);
    TestEvent coords("set_coordIndex", indexes), normals("set_normalIndexes", indexes);
    faces->processEvent(coords);
    faces->processEvent(normals);
    EXPECT_EQ(dynamic_cast<MFInt32*>(faces->getField("coordIndex"))->getSize(), 2);
    EXPECT_EQ(dynamic_cast<MFInt32*>(faces->getField("normalIndex"))->getSize(), 2);
    EXPECT_EQ(dynamic_cast<MFInt32*>(faces->getField("colorIndex"))->getSize(), 0);
}

// A loaded node borrows the fields that keep their type's default; an
// event to one of them changes that node alone.
TEST_F(SupportWorld, AnEventToABorrowedDefaultChangesThatNodeAlone) {
    znNodeType* type = nullptr;
    for (SupportType& t : declared)
        if (t.name == "Transform") type = &world.makeType(t.name.c_str(), {t.url.c_str()}, t.fields);
    ASSERT_NE(type, nullptr);
    znNode* nodes[2] = {};
    for (znNode*& node : nodes) {
        node = world.nodes.emplace_back(std::make_unique<znNode>(++world.lastNodeID, "d00001+T", type,
                                                                 world.system.browser)).get();
        for (int i = 0; i < type->getFieldCount(); ++i) ASSERT_EQ(node->lendDefault(i), i);
        node->initialize();
    }
    const int rotation = type->getDataID("rotation");
    SFRotation turn(0, 1, 0, 1.5f);
    TestEvent setTurn("set_rotation", turn);
    nodes[0]->processEvent(setTurn);

    float v[4] = {};
    dynamic_cast<SFRotation*>(nodes[0]->peekData(rotation))->getValue(v);
    EXPECT_FLOAT_EQ(v[3], 1.5f);
    for (Field* untouched : {nodes[1]->peekData(rotation), type->getZnField(rotation)->toField()}) {
        dynamic_cast<SFRotation*>(untouched)->getValue(v);
        EXPECT_FLOAT_EQ(v[3], 0.0f);
    }
    Transform* turned = object<Transform>(nodes[0]);
    Transform* still = object<Transform>(nodes[1]);
    // Until it is first worked out, the matrix reads as the identity.
    EXPECT_EQ(turned->getMatrix()[0][0], 1.0f);
    EXPECT_EQ(turned->getMatrix()[3][0], 0.0f);
    turned->recalc_Matrix();
    still->recalc_Matrix();
    EXPECT_NE(turned->getMatrix()[0][0], still->getMatrix()[0][0]);
}

TEST_F(SupportWorld, ValueNodesTakeAChangeAtTheirNextAction) {
    SFTime time(-1.0);
    znNode* light = make("PointLight");
    SFVec3f where(1, 2, 3);
    TestEvent move("set_location", where);
    light->processEvent(move);
    light->action(time, kActionFetch, nullptr);
    auto* bulb = dynamic_cast<csPointLight*>(object<optPointLight>(light)->getLight());
    ASSERT_NE(bulb, nullptr);
    EXPECT_EQ(bulb->getLocation(), csVec3f(1, 2, 3));

    znNode* sweep = make("Extrusion");
    sweep->action(time, kActionFetch, nullptr);
    MFVec3f spine;
    float taller[] = {0, 0, 0, 0, 3, 0};
    spine.setValue(6, taller);
    MFVec2f section;
    float triangle[] = {0, 0, 1, 0, 0, 1};
    section.setValue(6, triangle);
    TestEvent respine("set_spine", spine), reshape("set_crossSection", section);
    sweep->processEvent(respine);
    sweep->processEvent(reshape);
    sweep->action(time, kActionRefresh, nullptr);
    csBoxBound bound;
    object<optExtrusion>(sweep)->getGeometry()->getBoxBound(&bound);
    EXPECT_FLOAT_EQ(bound.max[1], 3);

    // An image that events bring can lack pixels, which no file can.
    znNode* pixels = make("PixelTexture");
    std::vector<int> one{0xff0000};
    SFImage shortImage(2, 2, 3, one);
    TestEvent repaint("set_image", shortImage);
    pixels->processEvent(repaint);
    std::string said = wrltest::stderrOf([&] { pixels->action(time, kActionFetch, nullptr); });
    EXPECT_NE(said.find("(2 x 2, 3 components, 1 pixels) cannot be shown"), std::string::npos) << said;
    EXPECT_EQ(object<optPixelTexture>(pixels)->getTexture()->getImage(), nullptr);
}

TEST_F(SupportWorld, LevelsAndChildrenOfTheNewGroupsFollowTheirEvents) {
    SFTime time(-1.0);
    znNode* lod = make("LOD");
    MFNode three = groups(3);
    TestEvent setLevel("set_level", three);
    lod->processEvent(setLevel);
    EXPECT_EQ(object<GroupingNode>(lod)->getChildObjects().size(), 3u);
    lod->action(time, kActionFetch, nullptr);
    EXPECT_EQ(object<optLOD>(lod)->getGroup()->getChildCount(), 3);

    // set_axisOfRotation and set_children share their first five
    // characters.
    znNode* board = make("Billboard");
    SFVec3f axis(1, 0, 0);
    MFNode two = groups(2);
    TestEvent turn("set_axisOfRotation", axis), fill("set_children", two);
    board->processEvent(turn);
    board->processEvent(fill);
    EXPECT_EQ(object<GroupingNode>(board)->getChildObjects().size(), 2u);
    float v[3] = {};
    dynamic_cast<SFVec3f*>(board->getExposedField("axisOfRotation"))->getValue(v);
    EXPECT_FLOAT_EQ(v[0], 1);
}

TEST_F(SupportWorld, ShortNamesNeverReadPastTheirEnd) {
    SFVec3f value(1, 1, 1);
    for (const char* name : {"", "s", "set_", "set_sc", "set_texture"}) {
        for (const char* type : {"Transform", "Material", "IndexedFaceSet", "PointSet", "Appearance", "Text", "Billboard",
                                 "Anchor", "SpotLight", "Inline", "ElevationGrid", "Viewpoint"}) {
            znNode* node = make(type);
            TestEvent event(name, value);
            node->processEvent(event);
        }
    }
}

