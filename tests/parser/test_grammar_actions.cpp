// What the grammar's actions hand to the database for a text.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "parse_run.h"

using Calls = std::vector<std::string>;

namespace {
bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }
}  // namespace

TEST(GrammarActions, EmptyFileAndFilesWithoutHeaderParse) {
    ParseRun run = parseText("");
    EXPECT_EQ(run.result, 0);
    EXPECT_TRUE(run.calls.empty());
    for (const char* text : {"Group { }", "#VRML V2.0 utf8\nGroup { }", "# any first line\nGroup { }"})
        EXPECT_EQ(parseText(text).result, 0) << text;
}

TEST(GrammarActions, AnonymousDefAndUseNamesAndRepeatedDefs) {
    ParseRun run = parseText("Group { }\nDEF A Group { }\nUSE A\n");
    EXPECT_EQ(run.result, 0);
    EXPECT_EQ(run.nodes(), (Calls{"x00000+Group_0", "d00000+A"}));
    EXPECT_EQ(run.calls.back(), "createToplevelUSE(u00000+A)");
    // A repeated DEF opens a new number.
    run = parseText("DEF A Group { } DEF A Group { } USE A");
    EXPECT_EQ(run.nodes(), (Calls{"d00000+A", "d00001+A"}));
    EXPECT_TRUE(run.called("createToplevelUSE(u00001+A)"));
}

TEST(GrammarActions, UseInsideAFieldIsAValueAndAnUnknownNameGoesOnPlain) {
    ParseRun run = parseText("DEF A Group { } Group { children [ USE A ] }");
    EXPECT_EQ(run.result, 0);
    EXPECT_FALSE(run.called("createToplevelUSE(u00000+A)"));
    EXPECT_EQ(run.values(), Calls{"[ u00000+A, ]"});
    run = parseText("USE B");
    EXPECT_TRUE(run.called("createToplevelUSE(B)"));
    EXPECT_TRUE(contains(run.errors, "failed getting unique name for DEF'ed node B."));
}

// The world takes a field that no record names from the node's type, so a
// node sends only what the file set, and what the type cannot stand for.
TEST(GrammarActions, NodeSendsTheFieldsItSetsAndLeavesDefaultsToItsType) {
    ParseRun run = parseText("Node { sffloat 2 }");
    EXPECT_EQ(run.calls, (Calls{"CreateNode(Node,x00000+Node_0,[],0,0,0)", "SetNodeData(sffloat,2,22,0,ev,[])",
                                "EndNode()"}));
    ParseRun group = parseText("Group { children [ ] }");
    EXPECT_EQ(group.calls, (Calls{"CreateNode(Group,x00000+Group_0,[],0,0,0)",
                                  "SetNodeData(children,[  ],34,0,ev,[])", "EndNode()"}));
    // A default that names a node makes that node's reference: it is sent.
    run = parseText("PROTO P [ field SFNode n Group { } field SFNode m NULL ] { } P { }");
    EXPECT_EQ(run.result, 0) << run.errors;
    EXPECT_TRUE(run.called("SetNodeData(n,x00000+Group_0,25,0,-,[])"));
    EXPECT_FALSE(run.called("SetNodeData(m,"));
    // Where a name stands for two items, the type cannot place the other by
    // its name, and every record is sent.
    run = parseText("PROTO D [ eventIn SFBool x field SFBool x TRUE ] { } D { }");
    EXPECT_EQ(run.result, 0) << run.errors;
    EXPECT_TRUE(run.called("SetNodeData(x,(null),20,2,-,[])"));
    EXPECT_TRUE(run.called("SetNodeData(x,TRUE,20,0,-,[])"));
}

TEST(GrammarActions, ProtoDeclaration) {
    ParseRun run = parseText(
        "PROTO P [ eventIn SFBool go eventOut SFTime done field MFFloat f [ 1 2 ] exposedField SFVec3f v 1 2 3 ]"
        " { Group { } }\nP { f 3 }");
    EXPECT_EQ(run.result, 0);
    EXPECT_EQ(run.calls,
              (Calls{"CreateNode(Group,x00000+Group_0,[P],0,0,0)", "EndNode()",
                     "CreatePrototype(P,[],(null),0,(null))", "SetPrototypeData(go,(null),20,2,-)",
                     "SetPrototypeData(set_v,(null),30,2,e)", "SetPrototypeData(done,(null),28,1,-)",
                     "SetPrototypeData(f,[1,2,],32,0,-)", "SetPrototypeData(v,1 2 3,30,0,e)", "EndPrototype()",
                     "CreateNode(P,x00000+P_1,[],0,0,0)", "SetNodeData(f,[3],32,0,v,[])", "EndNode()"}));
}

TEST(GrammarActions, ProtoInsideANodeBody) {
    ParseRun run = parseText("Group { PROTO Q [ ] { } children [ Q { } ] }");
    EXPECT_EQ(run.result, 0);
    EXPECT_TRUE(run.called("CreatePrototype(Q,[],(null),0,(null))"));
    // A PROTO leaves the interface mode behind it, so the value does not
    // count as given in the node.
    EXPECT_TRUE(run.called("SetNodeData(children,[ x00000+Q_1, ],34,0,e,[])"));
}

TEST(GrammarActions, NestedProtoNamesItsParents) {
    ParseRun run = parseText("PROTO Outer [ ] { PROTO Inner [ ] { Group { } } Inner { } }");
    EXPECT_EQ(run.result, 0) << run.errors;
    EXPECT_TRUE(run.called("CreateNode(Group,x00000+Group_0,[Outer/Inner],0,0,0)"));
    EXPECT_TRUE(run.called("CreatePrototype(Inner,[Outer],(null),0,(null))"));
    EXPECT_TRUE(run.called("CreateNode(Inner,x00000+Inner_1,[Outer],0,0,0)"));
    EXPECT_TRUE(run.called("CreatePrototype(Outer,[],(null),0,(null))"));
}

TEST(GrammarActions, ScriptNodeGetsATypeOfItsOwn) {
    ParseRun run = parseText("DEF S Script { field SFInt32 a 1 }");
    EXPECT_EQ(run.result, 0);
    EXPECT_TRUE(run.errors.empty()) << run.errors;
    EXPECT_EQ(run.calls, (Calls{"CreatePrototype(Script_d00000+S,[],[],0,(null))",
                                "SetPrototypeData(set_url,(null),36,2,e)", "SetPrototypeData(url,[],36,0,e)",
                                "SetPrototypeData(a,1,24,0,-)", "EndPrototype()",
                                "CreateNode(Script_d00000+S,d00000+S,[],0,0,0)",
                                "SetNodeData(set_url,(null),36,2,e,[])", "SetNodeData(url,[],36,0,e,[])",
                                "SetNodeData(a,1,24,0,v,[])", "EndNode()"}));
}

TEST(GrammarActions, EventsAreDeclaredOnlyInScriptsAndProtosAndBoundByIs) {
    ParseRun run = parseText("Script { eventIn SFBool go field SFInt32 a 1 eventOut SFTime t }");
    EXPECT_EQ(run.result, 0);
    EXPECT_TRUE(run.errors.empty()) << run.errors;
    EXPECT_TRUE(run.called("SetNodeData(go,(null),20,2,-,[])"));
    EXPECT_TRUE(run.called("SetNodeData(t,(null),28,1,-,[])"));
    EXPECT_TRUE(run.called("SetNodeData(a,1,24,0,v,[])"));
    run = parseText("Group { eventIn SFBool go }");
    EXPECT_EQ(run.result, 0);
    EXPECT_TRUE(contains(run.errors, "Field or event declaration outside of Script or prototype"));
    EXPECT_FALSE(run.called("SetNodeData(go,(null),20,2,-,[])"));
    run = parseText("PROTO P [ eventIn SFBool on ] { Script { eventIn SFBool go IS on } }");
    EXPECT_EQ(run.result, 0);
    EXPECT_TRUE(run.called("SetNodeData(go,(null),20,2,v,[on])"));
}

TEST(GrammarActions, ExposedFieldIsBindsBothHalves) {
    ParseRun run = parseText("PROTO P [ exposedField SFFloat x 1 ] { Node { sffloat IS x } }");
    EXPECT_EQ(run.result, 0) << run.errors;
    EXPECT_TRUE(run.called("SetNodeData(sffloat,IZZED,22,0,ev,[x])"));
    EXPECT_TRUE(run.called("SetNodeData(set_sffloat,(null),22,2,ev,[set_x])"));
}

// The declared interface stands in for a PROTO no file gives, and the text
// after the declaration is read as the file's own.
TEST(GrammarActions, ExternProtoWithoutItsProtoDefinesTheDeclaredInterface) {
    ParseOptions options;
    options.files["lib.wrl"] = "Group { }";
    ParseRun run = parseText("EXTERNPROTO A [ field SFFloat r eventIn SFBool go ] \"lib.wrl\" A { r 2 } Group { }",
                             options);
    EXPECT_EQ(run.result, 0) << run.errors;
    EXPECT_TRUE(contains(run.errors, "No PROTO in EXTERNPROTO file lib.wrl"));
    EXPECT_TRUE(run.called("CreatePrototype(A,[],(null),0,(null))"));
    EXPECT_TRUE(run.called("SetNodeData(r,2,22,0,v,[])"));
    // The file's own Group was read and dropped.
    EXPECT_EQ(run.nodes(), (std::vector<std::string>{"x00000+A_1", "x00000+Group_2"}));
}

TEST(MidRuleMarkers, ExpectTakesEffectForTheVeryNextToken) {
    // Each marker sets the type before the value's first character is read;
    // a marker that waited for a look-ahead would read it in NODE.
    ParseRun run = parseText(
        "PROTO P [ field MFInt32 a [ 1 2 ] exposedField SFString s \"x y\" ] { }"
        " Script { field MFVec2f v [ 1 2 ] } Node { mfstring [ \"q\" ] }");
    EXPECT_EQ(run.result, 0) << run.errors;
    EXPECT_EQ(run.values(), (Calls{"[1,2,]", "\"x y\"", "[1 2,]", "[\"q\",]"}));
}

TEST(MidRuleMarkers, ExternProtoUrlListIsOneValue) {
    ParseOptions options;
    options.files["b.wrl"] = "PROTO B [ ] { }";
    ParseRun run = parseText("EXTERNPROTO A [ ] [ \"a.wrl\", \"b.wrl\" ]", options);
    EXPECT_EQ(run.result, 0) << run.errors;
    EXPECT_TRUE(contains(run.errors, "Could not open EXTERNPROTO a.wrl."));
    EXPECT_TRUE(run.called("CreatePrototype(A,[],(null),0,(null))"));
}
