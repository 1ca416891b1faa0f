// Runtime nodes: fields placed by the type's numbering, IS fields, lookups
// that throw twice, and the VRML print.
#include <gtest/gtest.h>

#include <stdexcept>

#include <sstream>
#include <string>

#include "test_support.h"
#include "fields/all.h"
#include "nodes/zn_node.h"
#include "nodes/zn_nodetype.h"
#include "recording_browser.h"

using wrltest::RecordingBrowser;

namespace {

class RuntimeNode : public testing::Test {
protected:
    RuntimeNode() : type(1, "Thing", urls, &browser, 0, 0, nullptr) {
        FieldFlags plain;
        type.addData("size", SFFloatType, field, plain, "1");
        type.addData("count", SFInt32Type, field, plain, "0");
        type.addData("child", SFNodeType, field, plain, "NULL");
    }
    // Nodes entered in the world go before their type does.
    ~RuntimeNode() override { browser.clearAll(); }

    std::vector<const char*> urls;
    RecordingBrowser browser;
    znNodeType type;
};

FieldFlags valueSet() {
    FieldFlags f;
    f.bits = FieldFlags::kValueSet;
    return f;
}

}  // namespace

TEST_F(RuntimeNode, FieldsArePlacedByTheTypesNumberingAndOnlyTheLastComesOff) {
    znNode node(1, "d00000+N", &type, &browser);
    FieldFlags flags;
    EXPECT_EQ(node.addData("count", SFInt32Type, field, flags, "4"), 1);
    EXPECT_EQ(node.getFieldCount(), 2);
    EXPECT_EQ(node.getZnField(0), node.getZnField(1));
    EXPECT_EQ(node.addData("size", SFFloatType, field, flags, "2"), 0);
    EXPECT_NE(node.getZnField(0), node.getZnField(1));
    EXPECT_EQ(wrltest::stderrOf([&] { EXPECT_EQ(node.addData("nothing", SFFloatType, field, flags, "2"), -1); }),
              "\nMessage:  Couldn't add node data with value 2\n");
    znField* last = node.getZnField(1);
    EXPECT_EQ(node.removeData(0), -1);
    EXPECT_EQ(node.removeData(1), 1);
    EXPECT_EQ(node.getFieldCount(), 1);
    delete last;
}

TEST_F(RuntimeNode, UnknownEventInWritesTwoLinesAndThrowsButTheOutArgumentFormIsSilent) {
    znNode node(1, "d00000+N", &type, &browser);
    EXPECT_EQ(wrltest::stderrOf([&] { EXPECT_THROW(node.getEventIn("zz"), InvalidEventInException); }),
              "\nThrowing Exception: Invalid field ID = -1\n"
              "\nThrowing Exception: Invalid eventIn name = zz\n");
    Field* out = reinterpret_cast<Field*>(&node);
    EXPECT_EQ(wrltest::stderrOf([&] { EXPECT_EQ(node.getField("zz", &out), nullptr); }), "");
    EXPECT_EQ(out, nullptr);
}

TEST_F(RuntimeNode, LookupAnswersTheValueSide) {
    znNode node(1, "d00000+N", &type, &browser);
    FieldFlags flags;
    node.addData("size", SFFloatType, field, flags, "3.5");
    auto* size = dynamic_cast<SFFloat*>(node.getExposedField("size_changed"));
    ASSERT_NE(size, nullptr);
    EXPECT_EQ(size->getValue(), 3.5f);
}

TEST_F(RuntimeNode, LentDefaultsReadAsTheTypesAndAreCopiedForTheNodeThatAsks) {
    znNode first(1, "d00000+A", &type, &browser);
    znNode second(2, "d00000+B", &type, &browser);
    for (znNode* node : {&first, &second}) {
        EXPECT_EQ(node->lendDefault(0), 0);
        EXPECT_EQ(node->lendDefault(2), -1) << "a lent field would leave a hole";
        EXPECT_EQ(node->lendDefault(1), 1);
    }
    EXPECT_EQ(first.peekData(0), type.getZnField(0)->toField());

    // Asking for the field is no change to the node; the write then goes to
    // the node's copy alone.
    first.makeClean();
    auto* size = dynamic_cast<SFFloat*>(first.getData(0));
    ASSERT_NE(size, nullptr);
    EXPECT_NE(size, type.getZnField(0)->toField());
    EXPECT_EQ(first.isDirty(), 0);
    EXPECT_EQ(size->getValue(), 1.0f);
    size->setValue(5.0f);
    EXPECT_EQ(first.peekData(0), size);
    EXPECT_EQ(dynamic_cast<SFFloat*>(second.peekData(0))->getValue(), 1.0f);
    EXPECT_EQ(dynamic_cast<SFFloat*>(type.getZnField(0)->toField())->getValue(), 1.0f);

    // A field entered over a lent one is the node's, and ends with it.
    FieldFlags flags;
    EXPECT_EQ(second.addData("count", SFInt32Type, field, flags, "3"), 1);
    EXPECT_EQ(dynamic_cast<SFInt32*>(second.peekData(1))->getValue(), 3);
    EXPECT_EQ(dynamic_cast<SFInt32*>(type.getZnField(1)->toField())->getValue(), 0);
}

TEST_F(RuntimeNode, LentEventInsTakeTheirNumbersWhenAskedFor) {
    FieldFlags plain;
    ASSERT_EQ(type.addData("set_size", SFFloatType, eventIn, plain, nullptr), 3);
    znNode first(1, "d00000+A", &type, &browser);
    znNode second(2, "d00000+B", &type, &browser);
    for (znNode* node : {&second, &first})
        for (int i = 0; i <= 3; ++i) EXPECT_EQ(node->lendDefault(i), i);
    EXPECT_EQ(type.getZnField(3)->getEventIndex(), -1);
    EXPECT_EQ(first.getZnField(3)->getEventIndex(), 100);
    EXPECT_EQ(second.getZnField(3)->getEventIndex(), 101);
    EXPECT_EQ(first.getZnField(3)->getDataType(), eventIn);
    EXPECT_EQ(type.getZnField(3)->getEventIndex(), -1);
}

TEST_F(RuntimeNode, ISFieldsPassEventsToTheirRealFields) {
    znNode inner(2, "d00000+I", &type, &browser);
    znNode outer(3, "d00000+O", &type, &browser);
    FieldFlags flags;
    inner.addData("size", SFFloatType, field, flags, "1");
    std::vector<znField*> remote{inner.getZnField(0)};
    EXPECT_EQ(outer.addData("size", SFFloatType, eventIn, flags, &remote, 12), 0);
    EXPECT_EQ(outer.getZnField(0)->getEventIndex(), 12);
    EXPECT_EQ(inner.getZnField(0)->isVirtual(), 1);

    // A field IS field posts under the first real field's index.
    znNode real(4, "d00000+R", &type, &browser);
    znNode bound(5, "d00000+B", &type, &browser);
    real.addData("size", SFFloatType, field, flags, 7);
    std::vector<znField*> reals{real.getZnField(0)};
    bound.addData("size", SFFloatType, field, flags, &reals, -1);
    EXPECT_EQ(bound.getZnField(0)->getEventIndex(), 7);
    dynamic_cast<SFFloat*>(bound.getZnField(0))->setValue(2.0f);
    EXPECT_EQ(dynamic_cast<SFFloat*>(real.getZnField(0))->getValue(), 2.0f);
}

TEST_F(RuntimeNode, PrintsDefFieldsWithValueAndChildNodes) {
    auto* child = new znNode(2, "d00000+Kid", &type, &browser);
    browser.enterNode(child);
    auto* node = new znNode(1, "d00000+Foo", &type, &browser);
    browser.enterNode(node);
    FieldFlags set = valueSet(), plain;
    node->addData("size", SFFloatType, field, set, "1.5");
    node->addData("count", SFInt32Type, field, plain, "3");
    wrltest::stderrOf([&] { node->addData("child", SFNodeType, field, set, "d00000+Kid"); });
    std::ostringstream os;
    node->print(os);
    EXPECT_EQ(os.str(),
              "\nDEF Foo  Thing {\n"
              "  size\t1.500000\n"
              "  child\t\n"
              "  DEF Kid  Thing {\n"
              "  }\n"
              "}\n");
}

TEST_F(RuntimeNode, PrintsUseAndISLinesAndNullNodes) {
    znNode node(1, "u00000+Foo", &type, &browser);
    FieldFlags set = valueSet(), plain;
    node.addData("size", SFFloatType, field, plain, "1");
    node.addData("count", SFInt32Type, field, plain, "1");
    node.addData("child", SFNodeType, field, set, "NULL");
    char isName[] = "kid";
    std::vector<char*> names{isName};
    node.getZnField(2)->addISNames(&names);
    std::ostringstream os;
    node.print(os);
    EXPECT_EQ(os.str(),
              "\nUSE Foo {\n"
              "  child\tIS kid\n"
              "  child\tNULL\n"
              "}\n");
}

TEST_F(RuntimeNode, MissingPartsAreReportedAndThrownNotAnEndOfTheProcess) {
    const std::string err =
        wrltest::stderrOf([&] { EXPECT_THROW(znNode(1, nullptr, &type, &browser), std::invalid_argument); });
    EXPECT_NE(err.find("ERROR: Must a name, nodeType, and browser for a new node"), std::string::npos) << err;
}

TEST_F(RuntimeNode, NewNodeClearsThePauseOfItsTypeAndInitializeMarksDirty) {
    znNode first(1, "d00000+A", &type, &browser);
    first.pause(0);
    EXPECT_EQ(type.isPaused(), 1);
    EXPECT_EQ(first.getCPPScript(), nullptr);
    znNode second(2, "d00000+B", &type, &browser);
    EXPECT_EQ(type.isPaused(), 0);
    EXPECT_EQ(second.isDirty(), 0);
    second.initialize();  // marks dirty
    EXPECT_EQ(second.isDirty(), 1);
}

TEST_F(RuntimeNode, ActionGoesToTheFirstNodeOfAnInstance) {
    struct Counting : znNode {
        using znNode::znNode;
        int calls = 0;
        int action(SFTime&, int, void*) override { return ++calls; }
    } body(2, "d00000+Body", &type, &browser);
    znNode instance(1, "d00000+Inst", &type, &browser);
    instance.setFirstNode(&body);
    SFTime time(-1.0);
    EXPECT_EQ(instance.getCPPScript(), nullptr);
    EXPECT_EQ(instance.action(time, 2, nullptr), 1);
}
