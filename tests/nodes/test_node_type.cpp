// Node types: the name index with its "_changed" rule, lookups that throw,
// the PROTO print and the one-time support message.
#include <gtest/gtest.h>

#include <stdexcept>

#include "test_support.h"

#include <sstream>
#include <string>

#include "browser/zn_browser_intern.h"
#include "fields/all.h"
#include "nodes/zn_node.h"
#include "nodes/zn_nodetype.h"

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

namespace {

class NodeType : public testing::Test {
protected:
    NodeType() : browser(nullptr), type(1, "Thing", urls, &browser, 0, 0, nullptr) {
        FieldFlags plain, exposed;
        exposed.bits = FieldFlags::kExposed;
        type.addData("size", SFFloatType, field, plain, "2.5");
        type.addData("on", SFBoolType, field, exposed, nullptr);
        type.addData("set_on", SFBoolType, eventIn, exposed, nullptr);
        type.addData("fired", SFTimeType, eventOut, plain, nullptr);
    }

    std::vector<const char*> urls;
    znBrowserIntern browser;
    znNodeType type;
};

}  // namespace

TEST_F(NodeType, ChangedSuffixFindsTheFieldAndTheFirstEntryOfANameStands) {
    EXPECT_EQ(type.getDataID("on_changed"), type.getDataID("on"));
    EXPECT_EQ(type.getDataID("set_on"), 2);
    EXPECT_EQ(type.getDataID("size_changedb"), 0);
    EXPECT_EQ(type.getDataID("nothing"), -1);
    std::string longName(200, 'a');
    EXPECT_EQ(type.getDataID((longName + "_changed").c_str()), -1);
    // A second entry of one name keeps the first index.
    FieldFlags flags;
    EXPECT_EQ(type.addData("size", SFInt32Type, field, flags, nullptr), 4);
    EXPECT_EQ(type.getDataID("size"), 0);
    EXPECT_EQ(type.getFieldCount(), 5);

    // A look-up from any place answers as the plain one, before the name's
    // place or past it, for the repeated name and the _changed form too.
    for (const char* name : {"size", "on", "set_on", "fired", "on_changed", "nothing", ""})
        for (int from = -1; from <= 6; ++from)
            EXPECT_EQ(type.getDataIDFrom(name, from), type.getDataID(name)) << name << " from " << from;
}

TEST_F(NodeType, BadIndexOrNameThrowsOrAnswersNull) {
    CaptureStderr();
    try {
        type.getData(5);
        FAIL();
    } catch (Exception& e) {
        EXPECT_STREQ(e.text, "Invalid field ID = 5");
    }
    EXPECT_EQ(GetCapturedStderr(), "\nThrowing Exception: Invalid field ID = 5\n");
    EXPECT_EQ(type.getData(5, static_cast<Field*>(nullptr)), nullptr);
    // An unknown name throws without text, silently.
    CaptureStderr();
    try {
        type.getData("zz");
        FAIL();
    } catch (Exception& e) {
        EXPECT_STREQ(e.text, "");
    }
    EXPECT_THROW(type.getEventIn("zz"), InvalidEventInException);
    EXPECT_THROW(type.getField("zz"), InvalidFieldException);
    EXPECT_EQ(GetCapturedStderr(), "");
    EXPECT_EQ(type.getEventOut("zz", static_cast<Field*>(nullptr)), nullptr);
}

TEST_F(NodeType, PrintsAsProtoDeclaration) {
    std::ostringstream os;
    type.print(os);
    EXPECT_EQ(os.str(),
              "PROTO Thing [\n"
              "  field        SFFloat    size\t2.500000\n"
              "  exposedField SFBool     on\tFALSE\n"
              "  eventOut     SFTime     fired\t\n"
              "] { }\n");
    type.setSystemProto(1);  // a system type prints nothing
    std::ostringstream none;
    type.print(none);
    EXPECT_EQ(none.str(), "");
}

TEST_F(NodeType, SupportMessageOncePerSystemTypeWithoutInterface) {
    type.setSystemProto(1);
    CaptureStderr();
    type.printSupportMsg();
    type.printSupportMsg();
    std::string err = GetCapturedStderr();
    EXPECT_EQ(err.find("Thing nodes not supported in this version.\nCheck your $ZNBUILTINS file, or visit "), 9u);
    EXPECT_EQ(err.find("Alert:", 10), std::string::npos);
    EXPECT_NE(err.find(" \nfor node support information."), std::string::npos);
}

TEST(NodeTypeSetup, NotSupportedInitIsReported) {
    std::vector<const char*> urls{""};
    char init[] = "\"NOT_SUPPORTED\" rest";
    CaptureStderr();
    znNodeType type(3, "Fog", urls, nullptr, 0, 0, init);
    EXPECT_EQ(GetCapturedStderr(), "\nMessage:  Fog is not supported.\n");
    EXPECT_EQ(type.getInterface(), nullptr);
}

TEST(NodeTypeSetup, MissingNameIsReportedAndThrownNotAnEndOfTheProcess) {
    std::vector<const char*> urls;
    const std::string err = wrltest::stderrOf(
        [&] { EXPECT_THROW(znNodeType(1, nullptr, urls, nullptr, 0, 0, nullptr), std::invalid_argument); });
    EXPECT_NE(err.find("ERROR: Must specify name for a node type"), std::string::npos) << err;
}

TEST(NodeTypeSetup, IndentIsTwoBlanksPerLevelAndBounded) {
    std::vector<const char*> urls;
    znNodeType type(1, "T", urls, nullptr, 0, 0, nullptr);
    EXPECT_STREQ(type.indent(), "");
    type.raiseDepth();
    type.raiseDepth();
    EXPECT_STREQ(type.indent(), "    ");
    for (int i = 0; i < 100; ++i) type.raiseDepth();
    EXPECT_EQ(std::string(type.indent()).size(), 138u);
}
