// The parser's own checks: unknown names, repeated PROTOs, ROUTE tests,
// IS bindings, the questions it asks, and its fixed limits.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "parse_run.h"
#include "parser/vrmlnode.h"

using Calls = std::vector<std::string>;

namespace {
bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

int count(const std::vector<std::string>& calls, const std::string& prefix) {
    int n = 0;
    for (const std::string& c : calls) n += c.rfind(prefix, 0) == 0 ? 1 : 0;
    return n;
}
}  // namespace

TEST(UnknownNames, UnknownTypeWithNoAnswerIsSkippedDefOrNot) {
    ParseRun run = parseText("Foo { a 1 b { c } } Group { }");
    EXPECT_EQ(run.result, 0);
    EXPECT_TRUE(contains(run.errors, "\nPrompt:  Unknown node type Foo near line 1, correct one?\n"));
    EXPECT_TRUE(contains(run.errors, "\nMessage:  Unknown node type 'Foo', skipping node\n"));
    EXPECT_EQ(run.nodes(), Calls{"x00000+Group_1"});
    ParseRun def = parseText("DEF X Foo { } Group { }");
    EXPECT_EQ(def.result, 0) << def.errors;
    EXPECT_EQ(def.nodes(), Calls{"x00000+Group_0"});
}

TEST(UnknownNames, AnsweredTypeAndFieldNamesAreUsed) {
    ParseOptions options;
    options.input = "1\nGroup\n";
    ParseRun run = parseText("Gruop { }", options);
    EXPECT_EQ(run.result, 0) << run.errors;
    EXPECT_TRUE(run.called("CreateNode(Group,x00000+Gruop_0,[],0,0,0)"));
    options.input = "1\nsffloat\n";
    run = parseText("Node { sfflaot 2 }", options);
    EXPECT_EQ(run.result, 0) << run.errors;
    EXPECT_TRUE(contains(run.errors,
                         "Node's of type Node do not have fields/eventIn/EventOut named sfflaot.\nWhat is the correct "
                         "name?"));
    EXPECT_TRUE(run.called("SetNodeData(sffloat,2,22,0,ev,[])"));
}

TEST(UnknownNames, InvalidFieldTypeAsksAndReports) {
    ParseRun run = parseText("PROTO P [ field SFFlot x 1 ] { }");
    EXPECT_TRUE(contains(run.errors, "\nAlert:  Illegal field type: SFFlot\n"));
    EXPECT_TRUE(contains(run.errors, "Error: invalid field type: SFFlot.\nWhat is the correct type?\n"));
}

TEST(Protos, SecondProtoOfANameIsRefusedAndTheFirstKept) {
    ParseRun run = parseText("PROTO P [ field SFFloat a 1 ] { } PROTO P [ field SFInt32 b 2 ] { } P { a 3 }");
    EXPECT_EQ(run.result, 0);
    EXPECT_TRUE(contains(run.errors, "\nMessage:  PROTO P already defined\n"));
    EXPECT_EQ(count(run.calls, "CreatePrototype(P,"), 1);
    EXPECT_TRUE(run.called("SetNodeData(a,3,22,0,v,[])"));
    EXPECT_FALSE(run.called("SetNodeData(b,"));
    // Each parse opens its own scope; a second file may declare P again.
    EXPECT_FALSE(contains(parseText("PROTO P [ ] { }").errors, "already defined"));
}

TEST(Protos, NestingOf19ProtosIsReported) {
    std::string text;
    for (int i = 0; i < 20; ++i) text += "PROTO P" + std::to_string(i) + " [ ] { ";
    for (int i = 0; i < 20; ++i) text += "} ";
    ParseRun run = parseText(text);
    EXPECT_EQ(run.result, 0);
    EXPECT_TRUE(contains(run.errors, "\nAlert:  Parent nesting too deep!\n\n"));
}

TEST(Protos, NestingBeyondTheParentListStaysBounded) {
    std::string text;
    for (int i = 0; i < 45; ++i) text += "PROTO P" + std::to_string(i) + " [ ] { ";
    text += "Group { }";
    for (int i = 0; i < 45; ++i) text += " }";
    ParseRun run = parseText(text);
    EXPECT_EQ(run.result, 0);
    // The node names its first 19 enclosing PROTOs only.
    std::string parents = "[P0";
    for (int i = 1; i < VrmlNodeType::kMaxParents - 1; ++i) parents += "/P" + std::to_string(i);
    EXPECT_TRUE(run.called("CreateNode(Group,x00000+Group_0," + parents + "],0,0,0)"));
}

TEST(IsBindings, IsOutsideAProtoOrOfAnotherTypeIsReported) {
    ParseRun run = parseText("Node { sffloat IS x }");
    EXPECT_EQ(run.result, 0);
    EXPECT_TRUE(contains(run.errors, "Invalid IS field type: 0 for field sffloat\n"));
    run = parseText("PROTO P [ field SFInt32 n 1 ] { Node { sffloat IS n } }");
    EXPECT_TRUE(contains(run.errors, "Invalid IS field type: 275 for field sffloat\n"));
    EXPECT_TRUE(run.called("SetNodeData(sffloat,IZZED,22,0,ev,[])"));
}

TEST(Routes, EventOutToEventInPassesWithSuffixesAndPrefixes) {
    ParseRun run = parseText("DEF A Node { } DEF B Node { } ROUTE A.sffloat_changed TO B.sffloat");
    EXPECT_EQ(run.calls.back(), "InsertRouteByName(Node,d00000+A,sffloat,Node,d00000+B,set_sffloat,[])");
}

TEST(Routes, RouteInsideANodeWaitsForItAndInsideAProtoNamesItsParents) {
    ParseRun run = parseText("DEF A Node { } Group { ROUTE A.sffloat TO A.set_sffloat }");
    EXPECT_EQ(run.result, 0);
    EXPECT_EQ(run.calls.back(), "InsertRouteByName(Node,d00000+A,sffloat,Node,d00000+A,set_sffloat,[])");
    run = parseText("PROTO P [ ] { DEF A Node { } ROUTE A.sffloat TO A.sffloat }");
    EXPECT_TRUE(run.called("InsertRouteByName(Node,d00000+A,sffloat,Node,d00000+A,set_sffloat,[P])"));
}

TEST(Routes, BadRoutesAreRefusedWithTheirMessages) {
    const std::pair<const char*, const char*> cases[] = {
        {"DEF A Node { } ROUTE Z.sffloat TO A.sffloat", "\nMessage:  BAD ROUTE:  Unknown node type 'Z'\n"},
        {"ROUTE A.sffloat TO B.sffloat DEF A Node { } DEF B Node { }", "BAD ROUTE:  Unknown node type 'A'"},
        {"DEF A Node { } ROUTE A.nothing TO A.sffloat", "\nMessage:  BAD ROUTE:  nothing not an eventOut for d00000+A\n"},
        {"DEF A Node { } ROUTE A.sffloat TO A.nothing", "\nMessage:  BAD ROUTE:  nothing not an eventIn for d00000+A\n"},
    };
    for (const auto& [text, message] : cases) {
        SCOPED_TRACE(text);
        ParseRun run = parseText(text);
        EXPECT_TRUE(contains(run.errors, message)) << run.errors;
        EXPECT_EQ(count(run.calls, "InsertRouteByName"), 0);
    }
}

TEST(Routes, DifferentTypesGoThroughTheErrorReport) {
    ParseRun run = parseText("DEF A Node { } DEF B Node { }\nROUTE A.sfbool TO B.sftime\n");
    EXPECT_EQ(run.result, 0);
    EXPECT_TRUE(contains(run.errors, "\nAlert:  Error in test.wrl near line 2: BAD ROUTE: SFBOOL and SFTIME are "
                                     "different types\n\nParsing: "));
    EXPECT_EQ(count(run.calls, "InsertRouteByName"), 0);
}

TEST(Limits, VeryLongDefNamesAreKeptWhole) {
    const std::string name(300, 'n');
    ParseRun run = parseText("Group { children DEF " + name + " Group { } }");
    EXPECT_EQ(run.result, 0);
    EXPECT_TRUE(run.errors.empty()) << run.errors;
    EXPECT_TRUE(run.called("SetNodeData(children,d00000+" + name + ",34,0,ev,[])"));
}

// Each ROUTE finds the latest DEF of its names that it can see, and a
// Script's type its own interface, however many names came before: a
// body's DEFs are its own, and the file's are seen again after it.
TEST(Routes, NamesResolveToTheLatestDefinitionInScopeAmongMany) {
    std::string text = "DEF A Node { }\n"
                       "PROTO P [ ] { DEF A Node { } ROUTE A.sffloat TO A.sffloat }\n"
                       "DEF S Script { eventIn SFFloat f eventOut SFFloat g }\n"
                       "ROUTE S.g TO A.sffloat ROUTE A.sffloat TO S.f\n"
                       "Node { sfnode USE A }\n";
    const int many = 3000;
    for (int i = 0; i < many; ++i) text += "DEF N" + std::to_string(i) + " Node { }\n";
    for (int i = 1; i < many; ++i)
        text += "ROUTE N" + std::to_string(i) + ".sffloat TO N" + std::to_string(i - 1) + ".sffloat\n";
    text += "DEF A Node { } ROUTE A.sffloat TO N0.sffloat\n";
    ParseRun run = parseText(text);
    EXPECT_EQ(run.result, 0);
    EXPECT_TRUE(run.errors.empty()) << run.errors;
    EXPECT_EQ(count(run.calls, "InsertRouteByName"), 3 + (many - 1) + 1);
    EXPECT_TRUE(run.called("InsertRouteByName(Node,d00001+A,sffloat,Node,d00001+A,set_sffloat,[P])"));
    EXPECT_TRUE(run.called("InsertRouteByName(Script_d00000+S,d00000+S,g,Node,d00000+A,set_sffloat,[])"));
    EXPECT_TRUE(run.called("InsertRouteByName(Node,d00000+A,sffloat,Script_d00000+S,d00000+S,f,[])"));
    EXPECT_TRUE(run.called("InsertRouteByName(Node,d00000+N2999,sffloat,Node,d00000+N2998,set_sffloat,[])"));
    EXPECT_TRUE(run.called("InsertRouteByName(Node,d00002+A,sffloat,Node,d00000+N0,set_sffloat,[])"));
    EXPECT_TRUE(run.called("SetNodeData(sfnode,u00000+A,25,0,ev,[])"));
}

// A body's names go with it, those that a ROUTE in it looked up and those
// that nothing looked up alike. A node without DEF is named TYPE_n; here the
// bodies' anonymous Groups take the keys of the file's DEF Group_1 and
// Group_2 while they stand, and give them back.
TEST(Routes, ABodysNamesGoWithItWhetherOrNotARouteLookedThemUp) {
    ParseRun run = parseText("Group { }\n"
                             "DEF Group_1 Node { } DEF Group_2 Node { }\n"
                             "PROTO Q [ ] { Group { } }\n"
                             "PROTO R [ ] { Group { } ROUTE Group_2.sffloat TO Group_2.sffloat }\n"
                             "ROUTE Group_2.sffloat TO Group_1.sffloat\n");
    EXPECT_EQ(count(run.calls, "InsertRouteByName"), 1) << run.errors;
    EXPECT_TRUE(run.called("InsertRouteByName(Node,d00000+Group_2,sffloat,Node,d00000+Group_1,set_sffloat,[])"))
        << run.errors;
    EXPECT_TRUE(contains(run.errors, "BAD ROUTE:  sffloat not an eventOut for d00000+Group_2")) << run.errors;
}

// At the top of a file too, a node without DEF whose name TYPE_n a DEF of
// the file spelled first stands in front of that DEF for a ROUTE; one that
// came before the DEF is hidden by it.
TEST(Routes, ANodeWithoutDefTakesTheKeyOfAnEarlierDefOnly) {
    ParseRun run = parseText("Group { }\nDEF Group_1 Node { }\nGroup { }\n"
                             "ROUTE Group_1.sffloat TO Group_1.sffloat\n");
    EXPECT_EQ(count(run.calls, "InsertRouteByName"), 0);
    EXPECT_TRUE(contains(run.errors, "BAD ROUTE:  sffloat not an eventOut for d00000+Group_1")) << run.errors;
    run = parseText("Group { }\nGroup { }\nDEF Group_1 Node { }\nROUTE Group_1.sffloat TO Group_1.sffloat\n");
    EXPECT_TRUE(run.errors.empty()) << run.errors;
    EXPECT_TRUE(run.called("InsertRouteByName(Node,d00000+Group_1,sffloat,Node,d00000+Group_1,set_sffloat,[])"));
}
