// Bad input: the exact report, the line it names, and where the parse stops.
#include <gtest/gtest.h>

#include <string>

#include "parse_run.h"

namespace {
std::string report(int line, const std::string& message, const std::string& text) {
    return "\nAlert:  Error in test.wrl near line " + std::to_string(line) + ": " + message + "\nParsing: " + text +
           "\n\n";
}

// An unknown type's question and message come before the report.
bool endsWith(const std::string& text, const std::string& tail) {
    return text.size() >= tail.size() && text.compare(text.size() - tail.size(), tail.size(), tail) == 0;
}
}  // namespace

TEST(SyntaxErrors, UnbracketedIntegersStopAtTheSecond) {
    ParseRun run = parseValue("mfint32", "1 2 3");
    // Only the first number is the value: the second is no field name.
    EXPECT_EQ(run.result, 1);
    EXPECT_EQ(run.errors, report(1, "parse error", "2"));
}

TEST(SyntaxErrors, DoubleOpenBracketEndsTheFileAtItsClose) {
    ParseRun run = parseValue("mffloat", "[ 1 [ 2 ] ]");
    EXPECT_EQ(run.result, 1);
    EXPECT_EQ(run.errors, report(1, "Double [", "[") + report(1, "parse error", "]"));
}

TEST(SyntaxErrors, UnmatchedCloseBracketGivesAnEmptyList) {
    ParseRun run = parseValue("mffloat", "]");
    EXPECT_EQ(run.result, 0);
    EXPECT_EQ(run.values(), std::vector<std::string>{"[]"});
    EXPECT_EQ(run.errors, report(1, "Unmatched ]", "]"));
}

TEST(SyntaxErrors, BadBooleanIsAParseError) {
    ParseRun run = parseValue("sfbool", "nope");
    EXPECT_EQ(run.result, 1);
    EXPECT_EQ(run.errors, report(1, "parse error", "n"));
}

TEST(SyntaxErrors, BracketInsideAnUnknownNodeIsAParseError) {
    ParseRun run = parseText("Foo { bar [ 1 2 ] }");
    EXPECT_EQ(run.result, 1);
    EXPECT_TRUE(endsWith(run.errors, report(1, "parse error", "["))) << run.errors;
}

TEST(SyntaxErrors, RouteInsideNodeListIsAParseError) {
    ParseRun run = parseText("Group { children [ ROUTE a.b TO c.d ] }");
    EXPECT_EQ(run.result, 1);
    EXPECT_EQ(run.errors, report(1, "parse error", "ROUTE"));
}

TEST(SyntaxErrors, EndOfInputInsideANodeIsAParseError) {
    ParseRun run = parseText("Group {\n");
    EXPECT_EQ(run.result, 1);
    EXPECT_NE(run.errors.find("near line 2: parse error"), std::string::npos);
}

TEST(SyntaxErrors, ByteAbove127OutsideStringsIsAParseError) {
    ParseRun run = parseText("Group { } \xe9");
    EXPECT_EQ(run.result, 1);
    EXPECT_NE(run.errors.find("parse error"), std::string::npos);
}

TEST(SyntaxErrors, LonePrototypeKeywordIsAnIdentifier) {
    // "PROTO" without a name reads as a node type name.
    ParseRun run = parseText("PROTO [ ]");
    EXPECT_EQ(run.result, 1);
    EXPECT_TRUE(endsWith(run.errors, report(1, "parse error", "["))) << run.errors;
}

TEST(ErrorLines, CountedAfterMultiLineStringCommentAndList) {
    ParseRun run = parseText("# one\nNode { sfstring \"a\nb\" # c\n mffloat [ 1\n2\n3 ]\n sfbool x }");
    EXPECT_EQ(run.result, 1);
    EXPECT_EQ(run.errors, report(7, "parse error", "x"));
}

TEST(ErrorLines, ShortAfterMultiLineVectorWithoutBrackets) {
    // Line feeds inside one vector token are not counted.
    ParseRun run = parseText("Node { sfvec3f 1\n2\n3\n sfbool x }");
    EXPECT_EQ(run.errors, report(2, "parse error", "x"));
    ParseRun listRun = parseText("Node { mfvec3f 1\n2\n3\n sfbool x }");
    EXPECT_EQ(listRun.errors, report(2, "parse error", "x"));
}

TEST(ErrorLines, EscapedLineFeedInStringIsNotCounted) {
    ParseRun run = parseText("Node { sfstring \"a\\\nb\"\n sfbool x }");
    EXPECT_EQ(run.errors, report(2, "parse error", "x"));
}

TEST(ErrorLines, ScannedTextIsCutAt31Characters) {
    const std::string word(40, 'w');
    ParseRun run = parseText("ROUTE a " + word);
    EXPECT_EQ(run.errors, report(1, "parse error", word.substr(0, 31)));
}

TEST(StackLimits, DeepNestingEndsInParserStackOverflow) {
    std::string text;
    for (int i = 0; i < 3000; ++i) text += "Group { children ";
    ParseRun run = parseText(text);
    EXPECT_EQ(run.result, 2);
    EXPECT_NE(run.errors.find("parser stack overflow"), std::string::npos);
}

TEST(StackLimits, NestingWithinTheLimitParses) {
    std::string text;
    for (int i = 0; i < 1000; ++i) text += "Group { children ";
    text += "Group { }";
    for (int i = 0; i < 1000; ++i) text += " }";
    ParseRun run = parseText(text);
    EXPECT_EQ(run.result, 0);
}
