// The world's tables: names with their numbered fallbacks, ID lookups that
// throw, clearing that keeps the Node Support types, and the resolve stack.
#include <gtest/gtest.h>

#include <functional>
#include <typeinfo>
#include <string>

#include "test_support.h"
#include "browser/zn_browser_intern.h"
#include "fields/all.h"
#include "nodes/zn_node.h"
#include "nodes/zn_nodetype.h"

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

namespace {

class WorldTables : public testing::Test {
protected:
    WorldTables() : browser(nullptr) {
        std::vector<const char*> urls;
        type = new znNodeType(1, "Thing", urls, &browser, 0, 0, nullptr);
        browser.enterType(type);
    }
    znNode* addNode(int id, const char* name) {
        auto* node = new znNode(id, name, type, &browser);
        browser.enterNode(node);
        return node;
    }

    znBrowserIntern browser;
    znNodeType* type;
};

}  // namespace

TEST_F(WorldTables, NumberedNamesFallBackToTheNearestDefinition) {
    addNode(4, "d00000+x");
    EXPECT_EQ(browser.getNodeID("u00000+x_2"), 4);
    EXPECT_EQ(browser.getNodeID("u00000+x_1"), 4);
    addNode(5, "d00000+x_1");
    EXPECT_EQ(browser.getNodeID("u00000+x_3"), 5);
    EXPECT_EQ(browser.getNode("x_2"), static_cast<Node*>(browser.getNode(5)));

    EXPECT_EQ(wrltest::stderrOf([&] { EXPECT_EQ(browser.getNodeID("u00000+a_b"), 0); }),
              "\nMessage:  Possible error in getNodeID, will try to resolve later!\n"
              "getNodeID : can't find ID for a_b\n\n");
    browser.setAddingType(1);  // silent while a type is added
    EXPECT_EQ(wrltest::stderrOf([&] { EXPECT_EQ(browser.getNodeID("u00000+gone"), 0); }), "");
}

// A name may carry a number of a billion: the fallback goes to the nearest
// definition below it at once, where counting down overflowed the stack.
TEST_F(WorldTables, AFarNumberFallsBackInOneStep) {
    addNode(4, "d00000+x");
    addNode(5, "d00000+x_7");
    EXPECT_EQ(browser.getNodeID("u00000+x_1000000000"), 5);
    EXPECT_EQ(browser.getNodeID("u00000+x_6"), 4);
    addNode(6, "d00000+x_900000000");  // after the fallback first looked
    EXPECT_EQ(browser.getNodeID("u00000+x_1000000000"), 6);
    EXPECT_EQ(browser.getNodeID("u00000+x_8_1000000000"), 5);  // the stem x_8 falls back in its turn
    EXPECT_EQ(browser.getNode("x_999999999"), static_cast<Node*>(browser.getNode(6)));
    EXPECT_EQ(wrltest::stderrOf([&] { EXPECT_EQ(browser.getNodeID("u00000+y_1000000000"), 0); }),
              "\nMessage:  Possible error in getNodeID, will try to resolve later!\n"
              "getNodeID : can't find ID for y\n\n");
}

// Each bad look-up throws its own class, says so, and carries its text.
TEST_F(WorldTables, BadLookupsThrowTheirMessages) {
    const struct {
        std::function<void()> lookup;
        const std::type_info& thrown;
        const char* text;
    } cases[] = {
        {[&] { browser.getNode("y_2"); }, typeid(znInvalidNodeNameException), "Invalid Node name:  nodeName=y"},
        {[&] { browser.getNode("x"); }, typeid(znInvalidNodeNameException), "Invalid Node name:  nodeName=x"},
        {[&] { browser.getType(0); }, typeid(znInvalidNodeTypeIDException), "Invalid Node Type ID:  ID=0"},
        {[&] { browser.getNode(9); }, typeid(znInvalidNodeIDException), "Invalid Node ID:  ID=9"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        const std::string said = wrltest::stderrOf([&] {
            try {
                c.lookup();
                ADD_FAILURE() << "no exception";
            } catch (Exception& e) {
                EXPECT_EQ(typeid(e), c.thrown);
                EXPECT_STREQ(e.text, c.text);
            }
        });
        EXPECT_EQ(said, std::string("\nThrowing Exception: ") + c.text + "\n");
    }
    EXPECT_EQ(browser.getType(1), type);
    EXPECT_EQ(browser.getTypeID("Thing"), 1);
    EXPECT_EQ(browser.getTypeID("Other"), 0);
}

TEST_F(WorldTables, RunTimeTypePassesByAnIDThatATypeEnteredOtherwiseHolds) {
    // "Thing" came in with ID 1 without the database's count knowing.
    const int id = browser.newType("Gadget", "gadget.so", 0);
    EXPECT_GT(id, 1);
    EXPECT_EQ(browser.getType(1), type);
    EXPECT_STREQ(browser.getType(id)->getType(), "Gadget");
}

TEST_F(WorldTables, ClearAllKeepsNodeSupportTypes) {
    std::vector<const char*> urls;
    auto* builtin = new znNodeType(2, "Group", urls, &browser, 0, 1, nullptr);
    builtin->setSystemProto(1);
    browser.enterType(builtin);
    addNode(3, "d00000+n");
    browser.clearAll();
    EXPECT_EQ(browser.getType(2), builtin);
    EXPECT_EQ(browser.getTypeID("Thing"), 0);
    CaptureStderr();
    EXPECT_THROW(browser.getType(1), znInvalidNodeTypeIDException);
    EXPECT_THROW(browser.getNode(3), znInvalidNodeIDException);
    GetCapturedStderr();
}

TEST_F(WorldTables, InitializeSkipsDirtyNodesAndFillsForwardReferences) {
    FieldFlags flags;
    type->addData("child", SFNodeType, field, flags, nullptr);
    znNode* parent = addNode(1, "d00000+P");
    wrltest::stderrOf([&] { parent->addData("child", SFNodeType, field, flags, "d00000+C"); });
    ASSERT_EQ(browser.isUnresolvedReference(), 1);
    browser.pushUnresolved(parent->getZnField(0), "d00000+C");
    znNode* child = addNode(2, "d00000+C");
    parent->makeDirty();
    child->makeClean();
    browser.initializeNewNodes();
    auto* value = dynamic_cast<znSFNode*>(parent->getZnField(0));
    EXPECT_EQ(value->getValue().handleNode(), child);
    EXPECT_EQ(child->isDirty(), 1);
    EXPECT_TRUE(browser.getNewNodes().empty());
}

TEST_F(WorldTables, LongForwardReferenceResolvesWhole) {
    FieldFlags flags;
    type->addData("child", SFNodeType, field, flags, nullptr);
    const std::string name = "d00000+" + std::string(300, 'n');
    znNode* parent = addNode(1, "d00000+P");
    wrltest::stderrOf([&] { parent->addData("child", SFNodeType, field, flags, name.c_str()); });
    EXPECT_TRUE(wrltest::stderrOf([&] { browser.pushUnresolved(parent->getZnField(0), name.c_str()); }).empty());
    znNode* child = addNode(2, name.c_str());
    browser.initializeNewNodes();
    EXPECT_EQ(dynamic_cast<znSFNode*>(parent->getZnField(0))->getValue().handleNode(), child);
}

TEST_F(WorldTables, FailedLoadsThrowTheirMessages) {
    std::vector<const char*> urls{"missing.wrl"};
    CaptureStderr();
    try {
        browser.readURL(urls, 0);
        FAIL();
    } catch (InvalidVRMLSyntaxException& e) {
        EXPECT_STREQ(e.text, "Couldn't load URL");
    }
    try {
        browser.readURL(urls, 2);
        FAIL();
    } catch (InvalidVRMLSyntaxException& e) {
        EXPECT_STREQ(e.text, "Can't add to current world");
    }
    GetCapturedStderr();
}
