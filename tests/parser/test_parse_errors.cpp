// Bad input: the exact report, the line it names, and where the parse stops.
#include <gtest/gtest.h>

#include <string>

#include "parse_run.h"
#include "parser/zn_lexer.h"

namespace {
std::string report(int line, const std::string& message, const std::string& text) {
    return "\nAlert:  Error in test.wrl near line " + std::to_string(line) + ": " + message + "\nParsing: " + text +
           "\n\n";
}
}  // namespace

TEST(SyntaxErrors, ReportNamesTheLineAndTheScannedText) {
    const std::string word(40, 'w');
    const struct {
        std::string text;
        int result;
        std::string errors;
    } cases[] = {
        // Only the first number is the value: the second is no field name.
        {"Node { mfint32 1 2 3 }", 1, report(1, "parse error", "2")},
        {"Node { mffloat [ 1 [ 2 ] ] }", 1, report(1, "Double [", "[") + report(1, "parse error", "]")},
        {"Node { mffloat ] }", 0, report(1, "Unmatched ]", "]")},
        {"Node { sfbool nope }", 1, report(1, "parse error", "n")},
        {"Group { children [ ROUTE a.b TO c.d ] }", 1, report(1, "parse error", "ROUTE")},
        // Line feeds of strings, comments and lists are counted...
        {"# one\nNode { sfstring \"a\nb\" # c\n mffloat [ 1\n2\n3 ]\n sfbool x }", 1, report(7, "parse error", "x")},
        // ...but not those inside one vector token, nor escaped ones.
        {"Node { sfvec3f 1\n2\n3\n sfbool x }", 1, report(2, "parse error", "x")},
        {"Node { mfvec3f 1\n2\n3\n sfbool x }", 1, report(2, "parse error", "x")},
        {"Node { sfstring \"a\\\nb\"\n sfbool x }", 1, report(2, "parse error", "x")},
        {"ROUTE a " + word, 1, report(1, "parse error", word.substr(0, 31))},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        ParseRun run = parseText(c.text);
        EXPECT_EQ(run.result, c.result);
        EXPECT_EQ(run.errors, c.errors);
    }
    EXPECT_EQ(parseValue("mffloat", "]").values(), std::vector<std::string>{"[]"});
}

TEST(SyntaxErrors, UnknownNodesEndOfInputAndStrayBytesAreParseErrors) {
    // A lone "PROTO" reads as a type name, which then has no body.
    for (const char* text : {"PROTO [ ]"}) {
        SCOPED_TRACE(text);
        ParseRun run = parseText(text);
        EXPECT_EQ(run.result, 1);
        const std::string tail = report(1, "parse error", "[");
        ASSERT_GE(run.errors.size(), tail.size()) << run.errors;
        EXPECT_EQ(run.errors.substr(run.errors.size() - tail.size()), tail);
    }
    ParseRun open = parseText("Group {\n");
    EXPECT_EQ(open.result, 1);
    EXPECT_NE(open.errors.find("near line 2: parse error"), std::string::npos);
    ParseRun stray = parseText("Group { } \xe9");
    EXPECT_EQ(stray.result, 1);
    EXPECT_NE(stray.errors.find("parse error"), std::string::npos);
}

TEST(StackLimits, DeepNestingEndsInParserStackOverflowAndLessParses) {
    std::string deep;
    for (int i = 0; i < 3000; ++i) deep += "Group { children ";
    ParseRun run = parseText(deep);
    EXPECT_EQ(run.result, 2);
    EXPECT_NE(run.errors.find("parser stack overflow"), std::string::npos);

    std::string text;
    for (int i = 0; i < 1000; ++i) text += "Group { children ";
    text += "Group { }";
    for (int i = 0; i < 1000; ++i) text += " }";
    EXPECT_EQ(parseText(text).result, 0);
}

// A parse that stops anywhere lets go of every text it read (the leak check
// of the test suite runs these; names are not on the heap, and are counted).
TEST(SyntaxErrors, StoppedParsesLetGoOfWhatTheyRead) {
    ParseOptions options;
    options.files["lib.wrl"] = "PROTO L [ field SFFloat r 1 ] { Group { children [ Group {";
    const char* texts[] = {
        "Node { mffloat [ 1 2 3",
        "Node { mfstring [ \"a\" \"b",
        "Node { mfstring [\"a\"] sfbool x }",
        "DEF A Node { sfstring \"x\" mfint32 [ 1 2 } }",
        "DEF A DEF",
        "Node { sfimage 2 2 1 0xFF",
        "PROTO P [ field MFString s [ \"a\" ] exposedField SFFloat f 1 ] { Group { children [ Node { sf",
        "EXTERNPROTO E [ field SFFloat r eventIn SFBool b ] [ \"a.wrl\" \"b.wrl\" ",
        "EXTERNPROTO E [ field SFFloat r ] \"lib.wrl\" E { }",
        "Group { children [ Gizmo { a [ 1 \"",
        "ROUTE a.b TO c",
        "Group { children [ Group { } NULL Node { mfvec3f [ 1 2 3, 4 5",
    };
    for (const char* text : texts) {
        SCOPED_TRACE(text);
        EXPECT_NE(parseText(text, options).result, 0);
        EXPECT_EQ(znNameTextsHeld(), 0u);
    }
    const char* whole =
        "PROTO P [ field SFFloat f 1 eventIn SFBool b ] { DEF T Transform { children Shape { } } }\n"
        "DEF A P { f 2 } USE A Group { children [ DEF S Script { field SFNode n USE A eventOut SFBool o } ] }\n"
        "ROUTE S.o TO A.b";
    EXPECT_EQ(parseText(whole, options).result, 0);
    EXPECT_EQ(znNameTextsHeld(), 0u);
}
