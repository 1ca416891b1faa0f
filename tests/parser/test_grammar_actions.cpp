// The sequence of semantic calls that the grammar makes for a text.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "parse_run.h"

using Calls = std::vector<std::string>;

TEST(GrammarActions, EmptyFileIsAccepted) {
    ParseRun run = parseText("");
    EXPECT_EQ(run.result, 0);
    EXPECT_TRUE(run.calls.empty());
}

TEST(GrammarActions, FileWithoutHeaderParses) {
    EXPECT_EQ(parseText("Group { }").result, 0);
    EXPECT_EQ(parseText("#VRML V2.0 utf8\nGroup { }").result, 0);
    EXPECT_EQ(parseText("# any first line\nGroup { }").result, 0);
}

TEST(GrammarActions, AnonymousDefAndUseAtTopLevel) {
    ParseRun run = parseText("Group { }\nDEF A Group { }\nUSE A\n");
    EXPECT_EQ(run.result, 0);
    EXPECT_EQ(run.calls, (Calls{"enterNode(Group)", "setName(x00000+Group_0)", "getName()", "exitNode()",
                                "enterNode(Group)", "setName(d00000+A)", "getName()", "exitNode()",
                                "createToplevelUSE(u00000+A)"}));
}

TEST(GrammarActions, RepeatedDefOpensANewNumber) {
    ParseRun run = parseText("DEF A Group { } DEF A Group { } USE A");
    EXPECT_TRUE(run.called("setName(d00001+A)"));
    EXPECT_TRUE(run.called("createToplevelUSE(u00001+A)"));
}

TEST(GrammarActions, UseInsideAFieldIsNoTopLevelUse) {
    ParseRun run = parseText("DEF A Group { } Group { children [ USE A ] }");
    EXPECT_EQ(run.result, 0);
    EXPECT_FALSE(run.called("createToplevelUSE(u00000+A)"));
    EXPECT_EQ(run.values(), Calls{"[ u00000+A, ]"});
}

TEST(GrammarActions, UseOfUnknownNameGoesOnWithThePlainName) {
    ParseRun run = parseText("USE B");
    EXPECT_TRUE(run.called("createToplevelUSE(B)"));
    EXPECT_NE(run.errors.find("failed getting unique name for DEF'ed node B."), std::string::npos);
}

TEST(GrammarActions, FieldValueCalls) {
    ParseRun run = parseText("Node { sffloat 2 }");
    EXPECT_EQ(run.calls, (Calls{"enterNode(Node)", "setName(x00000+Node_0)", "enterField(sffloat)", "setField(2)",
                                "exitField()", "getName()", "exitNode()"}));
}

TEST(GrammarActions, RouteNamesTheDefForms) {
    ParseRun run = parseText("DEF A Node { } DEF B Node { } ROUTE A.sffloat TO B.set_sffloat");
    EXPECT_EQ(run.result, 0);
    EXPECT_EQ(run.calls.back(), "setRoute(d00000+A,sffloat,d00000+B,set_sffloat)");
}

TEST(GrammarActions, RouteInsideANodeBody) {
    ParseRun run = parseText("DEF A Node { } Group { ROUTE A.x TO A.y }");
    EXPECT_EQ(run.result, 0);
    EXPECT_TRUE(run.called("setRoute(d00000+A,x,d00000+A,y)"));
}

TEST(GrammarActions, ProtoDeclaration) {
    ParseRun run = parseText(
        "PROTO P [ eventIn SFBool go eventOut SFTime done field MFFloat f [ 1 2 ] exposedField SFVec3f v 1 2 3 ]"
        " { Group { } }\nP { f 3 }");
    EXPECT_EQ(run.result, 0);
    EXPECT_EQ(run.calls,
              (Calls{"beginProto(P)", "addEventIn(SFBool,go)", "addEventOut(SFTime,done)", "addField(MFFloat,f)",
                     "setProtoField(f,[1,2,])", "addExposedField(SFVec3f,v)", "setProtoField(v,1 2 3)", "inProto(P)",
                     "enterNode(Group)", "setName(x00000+Group_0)", "getName()", "exitNode()", "endProto()",
                     "enterNode(P)", "setName(x00000+P_1)", "enterField(f)", "setField([3])", "exitField()",
                     "getName()", "exitNode()"}));
}

TEST(GrammarActions, ProtoInsideANodeBody) {
    ParseRun run = parseText("Group { PROTO Q [ ] { } children [ Q { } ] }");
    EXPECT_EQ(run.result, 0);
    EXPECT_TRUE(run.called("endProto()"));
    EXPECT_EQ(run.values(), Calls{"[ x00000+Q_1, ]"});
}

TEST(GrammarActions, ScriptDeclaresItsOwnInterface) {
    ParseRun run = parseText("Script { eventIn SFBool go field SFInt32 a 1 eventOut SFTime t }");
    EXPECT_EQ(run.result, 0);
    EXPECT_EQ(run.calls, (Calls{"enterNode(Script)", "setName(x00000+Script_0)", "inScript()",
                                "addEventIn(SFBool,go)", "inScript()", "addField(SFInt32,a)", "enterField(a)",
                                "setField(1)", "inScript()", "addEventOut(SFTime,t)", "getName()", "exitNode()"}));
    EXPECT_TRUE(run.errors.empty()) << run.errors;
}

TEST(GrammarActions, EventDeclarationOutsideScriptIsReportedAndKept) {
    ParseRun run = parseText("Group { eventIn SFBool go }");
    EXPECT_EQ(run.result, 0);
    EXPECT_TRUE(run.called("addEventIn(SFBool,go)"));
    EXPECT_NE(run.errors.find("Field or event declaration outside of Script or prototype"), std::string::npos);
}

TEST(GrammarActions, EventBoundByIsInAProto) {
    ParseRun run = parseText("PROTO P [ eventIn SFBool on ] { Script { eventIn SFBool go IS on } }");
    EXPECT_EQ(run.result, 0);
    EXPECT_TRUE(run.called("setFieldIS(on)"));
}

TEST(GrammarActions, UnknownNodeTypeIsSkipped) {
    ParseRun run = parseText("Foo { a 1 b { c } } Group { }");
    EXPECT_EQ(run.result, 0);
    EXPECT_EQ(run.calls, (Calls{"enterNode(Foo)", "setName(x00000+Foo_0)", "getName()", "enterNode(Group)",
                                "setName(x00000+Group_1)", "getName()", "exitNode()"}));
}

TEST(GrammarActions, ExternProtoTakesTheProtoOfItsFile) {
    ParseOptions options;
    options.setup = [](znParserRecord& r) {
        r.serve("lib.wrl", "PROTO First [ field SFFloat a 1 ] { }\nPROTO B [ field SFFloat b 2 ] { }\n");
    };
    ParseRun run = parseText("EXTERNPROTO A [ field SFFloat b ] \"lib.wrl#B\"\nA { b 3 }", options);
    EXPECT_EQ(run.result, 0) << run.errors;
    EXPECT_EQ(run.calls, (Calls{"openExternInput(lib.wrl)", "beginProto(First)", "addField(SFFloat,a)",
                                "setProtoField(a,1)", "inProto(First)", "endProto()", "beginProto(B)",
                                "addField(SFFloat,b)", "setProtoField(b,2)", "inProto(B)", "endProto()",
                                "enterNode(A)", "setName(x00000+A_0)", "enterField(b)", "setField(3)", "exitField()",
                                "getName()", "exitNode()"}));
}

TEST(GrammarActions, ExternProtoTriesTheNextUrl) {
    ParseOptions options;
    options.setup = [](znParserRecord& r) { r.serve("good.wrl", "PROTO G [ ] { }"); };
    ParseRun run = parseText("EXTERNPROTO A [ ] [ \"missing.wrl\" \"good.wrl\" ] A { }", options);
    EXPECT_EQ(run.result, 0) << run.errors;
    EXPECT_NE(run.errors.find("\nPARSE ERROR:  Could not open EXTERNPROTO missing.wrl.\n"), std::string::npos);
    EXPECT_TRUE(run.called("enterNode(A)"));
}

TEST(GrammarActions, ExternProtoWithoutItsProtoIsAParseError) {
    ParseOptions options;
    options.setup = [](znParserRecord& r) { r.serve("lib.wrl", "Group { }"); };
    ParseRun run = parseText("EXTERNPROTO A [ ] \"lib.wrl\"", options);
    EXPECT_EQ(run.result, 1);
    EXPECT_NE(run.errors.find("parse error"), std::string::npos);
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
    options.setup = [](znParserRecord& r) { r.serve("b.wrl", "PROTO B [ ] { }"); };
    ParseRun run = parseText("EXTERNPROTO A [ ] [ \"a.wrl\", \"b.wrl\" ]", options);
    EXPECT_EQ(run.result, 0) << run.errors;
    EXPECT_TRUE(run.called("openExternInput(a.wrl)"));
    EXPECT_TRUE(run.called("openExternInput(b.wrl)"));
}
