// Events reach the set_* method that single characters of their names
// select, and the grouping rules keep children as the design of the events
// says, including removal from the front.
#include <gtest/gtest.h>

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

TEST_F(SupportWorld, SetAndAddChildrenReachTheGroupAndAValueOfTheWrongTypeIsIgnored) {
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
}

TEST_F(SupportWorld, RemoveChildrenCountsAndTakesFromTheFront) {
    znNode* group = make("Group");
    znNode* second = nullptr;
    MFNode two = groups(2, &second);
    TestEvent set("set_children", two);
    group->processEvent(set);

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

TEST_F(SupportWorld, ShortNamesNeverReadPastTheirEnd) {
    SFVec3f value(1, 1, 1);
    for (const char* name : {"", "s", "set_", "set_sc", "set_texture"}) {
        for (const char* type : {"Transform", "Material", "IndexedFaceSet", "PointSet", "Appearance", "Text"}) {
            znNode* node = make(type);
            TestEvent event(name, value);
            node->processEvent(event);
        }
    }
}

