// Nodes from the database's records: names, forward references, fields
// with event indexes and IS bindings, prototype instances and their bodies.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "test_support.h"
#include "browser_fixture.h"

using wrltest::BrowserFixture;
using wrltest::NodeChain;

namespace {

class NodeCreation : public BrowserFixture {
protected:
    // A prototype type with no behaviour of its own.
    znNodeType* protoType(int id, const char* name) {
        std::vector<const char*> urls;
        auto* t = new znNodeType(id, name, urls, &browser, 0, 0, nullptr);
        browser.enterType(t);
        return t;
    }
};

}  // namespace

// --- Names ------------------------------------------------------------------------

TEST_F(NodeCreation, LaterNodeOfANameWinsTheName) {
    NodeChain chain;
    thing(chain, 1, "d00000+a");
    thing(chain, 2, "d00000+a");
    EXPECT_EQ(browser.addNode(chain.head), 1);
    EXPECT_EQ(browser.getNodeID("u00000+a"), 2);
    EXPECT_EQ(browser.getNode(1)->getID(), 1);
    EXPECT_EQ(browser.getNode(2)->getID(), 2);
}

TEST_F(NodeCreation, TakenNodeIDStopsThePassAndReports) {
    NodeChain first;
    thing(first, 1, "d00000+a");
    ASSERT_EQ(browser.addNode(first.head), 1);
    NodeChain second;
    thing(second, 1, "d00000+b");
    thing(second, 2, "d00000+c");
    EXPECT_EQ(wrltest::stderrOf([&] { EXPECT_EQ(browser.addNode(second.head), 0); }),
              "\nMessage:  failed inserting node: b\n");
    EXPECT_EQ(browser.getNodeID("u00000+a"), 1);
    EXPECT_THROW(browser.getNode(2), znInvalidNodeIDException);
    EXPECT_EQ(browser.addNode(nullptr), 0);
}

TEST_F(NodeCreation, UnknownTypeSkipsTheNodeAndGoesOn) {
    NodeChain chain;
    chain.node(99, 1, "d00000+z");
    thing(chain, 2, "d00000+y");
    std::string err = wrltest::stderrOf([&] { EXPECT_EQ(browser.addNode(chain.head), 1); });
    EXPECT_NE(err.find("\nAlert:  Skipping node d00000+z due to invalid NodeType ID.\n\n"), std::string::npos);
    EXPECT_EQ(browser.getNode(2)->getID(), 2);
}

// --- Fields -------------------------------------------------------------------------

TEST_F(NodeCreation, UndeclaredFieldFailsButTheNodeStays) {
    NodeChain chain;
    chain.node(1, 1, "d00000+a");
    chain.field("nope", SFFloatType, field, "2");
    std::string err = wrltest::stderrOf([&] { EXPECT_EQ(browser.addNode(chain.head), 0); });
    EXPECT_NE(err.find("\nMessage:  error adding field: nope\n"), std::string::npos);
    EXPECT_EQ(browser.getNode(1)->getID(), 1);
}

TEST_F(NodeCreation, EventInsTakeIndexesFromTheManagerInOrder) {
    NodeChain chain;
    thing(chain, 1, "d00000+a");
    thing(chain, 2, "d00000+b");
    ASSERT_EQ(browser.addNode(chain.head), 1);
    znNode* a = browser.getNode(1);
    znNode* b = browser.getNode(2);
    EXPECT_EQ(a->getZnField(a->getDataID("set_value"))->getEventIndex(), 0);
    EXPECT_EQ(b->getZnField(b->getDataID("set_value"))->getEventIndex(), 1);
    EXPECT_EQ(a->getZnField(a->getDataID("value"))->getEventIndex(), -1);
}

// The records name only what the file set: every other field holds the
// type's default, and the eventIns among them take their indexes in the
// type's order, between those of the fields the records name.
TEST_F(NodeCreation, FieldsNoRecordNamesHoldTheTypesDefaults) {
    NodeChain chain;
    chain.node(1, 1, "d00000+bare");
    chain.node(1, 2, "d00000+late");
    chain.field("kids", MFNodeType, field, "[ u00000+bare ]");
    chain.node(1, 3, "d00000+early");
    chain.field("value", SFFloatType, field, "2.5")->flags.bits |= FieldFlags::kValueSet;
    chain.field("set_value", SFFloatType, eventIn, "");
    ASSERT_EQ(browser.addNode(chain.head), 1);
    const int value = type->getDataID("value");
    const int setValue = type->getDataID("set_value");
    int eventIndex = 0;
    for (int id : {1, 2, 3}) {
        znNode* node = browser.getNode(id);
        ASSERT_EQ(node->getFieldCount(), type->getFieldCount()) << id;
        EXPECT_EQ(node->getZnField(setValue)->getEventIndex(), eventIndex++) << id;
        EXPECT_EQ(node->getZnField(type->getDataID("value_out"))->getDataType(), eventOut) << id;
        EXPECT_EQ(dynamic_cast<SFNode*>(node->peekData(type->getDataID("child")))->getValue().getID(), 0) << id;
    }
    EXPECT_EQ(browser.getNode(1)->peekData(value), type->getZnField(value)->toField());
    EXPECT_EQ(dynamic_cast<SFFloat*>(browser.getNode(2)->peekData(value))->getValue(), 0.0f);
    EXPECT_EQ(dynamic_cast<SFFloat*>(browser.getNode(3)->peekData(value))->getValue(), 2.5f);
    EXPECT_EQ(dynamic_cast<MFNode*>(browser.getNode(2)->peekData(type->getDataID("kids")))->getSize(), 1);
}

TEST_F(NodeCreation, NodeValuedFieldsThatHoldNothingBorrowTheTypesAndOthersAreRead) {
    NodeChain chain;
    thing(chain, 1, "d00000+empty");
    chain.field("child", SFNodeType, field, " NULL ");
    chain.field("kids", MFNodeType, field, "[ , ]");
    thing(chain, 2, "d00000+full");
    chain.field("child", SFNodeType, field, "u00000+empty");
    chain.field("kids", MFNodeType, field, "[ u00000+empty ]");
    ASSERT_EQ(browser.addNode(chain.head), 1);
    znNode* empty = browser.getNode(1);
    znNode* full = browser.getNode(2);
    const int child = type->getDataID("child");
    const int kids = type->getDataID("kids");
    EXPECT_EQ(empty->peekData(child), type->getZnField(child)->toField());
    EXPECT_EQ(empty->peekData(kids), type->getZnField(kids)->toField());
    EXPECT_EQ(dynamic_cast<SFNode*>(full->peekData(child))->getValue().getID(), 1);
    EXPECT_EQ(dynamic_cast<MFNode*>(full->peekData(kids))->getSize(), 1);
    // Asked for, the borrowed field is the node's own, and as empty.
    auto* own = dynamic_cast<SFNode*>(empty->getData(child));
    ASSERT_NE(own, nullptr);
    EXPECT_NE(own, type->getZnField(child)->toField());
    EXPECT_EQ(own->getValue().getID(), 0);
}

TEST_F(NodeCreation, EachNodeFieldNamingALaterNodeIsFilledAfterTheLoad) {
    NodeChain chain;
    chain.node(1, 1, "d00000+parent");
    chain.field("child", SFNodeType, field, "u00000+kid");
    chain.field("kids", MFNodeType, field, "[ u00000+kid ]");
    chain.node(1, 2, "d00000+kid");
    wrltest::stderrOf([&] { ASSERT_EQ(browser.addNode(chain.head), 1); });
    znNode* parent = browser.getNode(1);
    auto* child = dynamic_cast<znSFNode*>(parent->getZnField(parent->getDataID("child")));
    auto* kids = dynamic_cast<znMFNode*>(parent->getZnField(parent->getDataID("kids")));
    ASSERT_NE(child, nullptr);
    ASSERT_NE(kids, nullptr);
    EXPECT_EQ(child->getValue().getID(), 0);  // filled after the load
    browser.initializeNewNodes();
    EXPECT_EQ(child->getValue().getID(), 2);
    ASSERT_EQ(kids->getSize(), 1);
    EXPECT_EQ(kids->get1Value(0).getID(), 2);
}

TEST_F(NodeCreation, ISFieldStandsForTheTargetsFieldAndAMissingTargetFails) {
    NodeChain chain;
    thing(chain, 1, "d00000+target");
    chain.node(1, 2, "d00000+inner");
    chain.field("value", SFFloatType, field, "", 1, {"value"});
    ASSERT_EQ(browser.addNode(chain.head), 1);
    znNode* inner = browser.getNode(2);
    znField* bound = inner->getZnField(inner->getDataID("value"));
    EXPECT_TRUE(bound->isVirtual());
    std::vector<char*> names;
    bound->getISNames(&names);
    ASSERT_EQ(names.size(), 1u);
    EXPECT_STREQ(names[0], "value");
    for (char* n : names) std::free(n);

    NodeChain missing;
    missing.node(1, 3, "d00000+lost");
    missing.field("value", SFFloatType, field, "", 77, {"value"});
    const std::string err = wrltest::stderrOf([&] { EXPECT_EQ(browser.addNode(missing.head), 0); });
    EXPECT_NE(err.find("\nMessage:  error adding field: value\n"), std::string::npos);
}

// --- Prototype instances --------------------------------------------------------------

TEST_F(NodeCreation, InstancesPairWithTheirBodiesInFileOrderOrHaveNone) {
    protoType(2, "P");
    NodeChain chain;
    chain.node(2, 10, "d00000+one");
    chain.node(1, 11, "d00000+one_body", "P", 0);
    chain.node(2, 12, "d00000+two");
    chain.node(1, 13, "d00000+two_body", "P", 0);
    ASSERT_EQ(browser.addNode(chain.head), 1);
    EXPECT_EQ(browser.getNode(10)->getFirstNode(), browser.getNode(11));
    EXPECT_EQ(browser.getNode(12)->getFirstNode(), browser.getNode(13));
    NodeChain lonely;
    lonely.node(2, 20, "d00000+lonely");
    ASSERT_EQ(browser.addNode(lonely.head), 1);
    EXPECT_EQ(browser.getNode(20)->getFirstNode(), nullptr);
}

TEST_F(NodeCreation, TopLevelRecordsJoinTheTopLevelListAndAreCleanUntilInitialised) {
    NodeChain chain;
    thing(chain, 1, "d00000+a", 1);
    thing(chain, 2, "d00000+b", 0);
    ASSERT_EQ(browser.addNode(chain.head), 1);
    EXPECT_EQ(browser.getTopLevel(), (std::list<int>{1}));
    EXPECT_EQ(browser.getNode(1)->isDirty(), 0);
    EXPECT_EQ(browser.getNewNodes().size(), 2u);
}

// --- Run-time nodes --------------------------------------------------------------------

TEST_F(NodeCreation, NewNodeTakesTheLargestIDPlusOneAndRefusesATakenNameAndAnUnknownType) {
    NodeChain chain;
    thing(chain, 7, "d00000+a");
    ASSERT_EQ(browser.addNode(chain.head), 1);
    znNode* made = browser.newNode("d00000+made", type);
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->getID(), 8);
    EXPECT_EQ(browser.getNodeID("u00000+made"), 8);
    EXPECT_EQ(browser.newNode("d00000+first", 1)->getID(), 9);

    EXPECT_EQ(browser.newNode("d00000+made", type), nullptr);
    EXPECT_THROW(browser.getNode(10), znInvalidNodeIDException);
    const std::string err = wrltest::stderrOf([&] { EXPECT_EQ(browser.newNode("d00000+y", 42), nullptr); });
    EXPECT_NE(err.find("Invalid Node Type ID:  ID=42"), std::string::npos);
}
