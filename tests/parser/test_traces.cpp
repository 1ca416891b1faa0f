// The debug traces of the grammar (yydebug) and of the lexer.
#include <gtest/gtest.h>

#include <string>

#include "parse_run.h"

namespace {
ParseRun traced(const std::string& text, bool grammar, bool lexer) {
    ParseOptions options;
    options.grammarTrace = grammar;
    options.lexerTrace = lexer;
    return parseText(text, options);
}

bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }
}  // namespace

TEST(GrammarTrace, ShowsReadingShiftingAndReducing) {
    ParseRun run = traced("Group { }", true, false);
    EXPECT_EQ(run.result, 0);
    EXPECT_EQ(run.errors.rfind("Starting parse\nEntering state 0\n", 0), 0u) << run.errors;
    EXPECT_TRUE(contains(run.errors, "Reading a token: Next token is 258 (IDENTIFIER)\n"));
    EXPECT_TRUE(contains(run.errors, "Shifting token 258 (IDENTIFIER), Entering state "));
    EXPECT_TRUE(contains(run.errors, "Reducing via rule 7 (line 162),  -> @1\nstate stack now 0 "));
    EXPECT_TRUE(contains(run.errors, "Reducing via rule 35 (line 343), '{' nodeGuts '}'  -> nodeg\n"));
    EXPECT_TRUE(contains(run.errors, "Reducing via rule 8 (line 171), IDENTIFIER @1 nodeg  -> nodeDeclaration\n"));
    EXPECT_TRUE(contains(run.errors, "Reading a token: Now at end of input.\n"));
    EXPECT_FALSE(contains(run.errors, "Stack now"));
    EXPECT_FALSE(contains(run.errors, "Cleanup"));
}

TEST(GrammarTrace, MarkerReducesBeforeTheNextTokenIsRead) {
    ParseRun run = traced("Node { sffloat 1 }", true, false);
    const std::size_t marker = run.errors.find("Reducing via rule 43 (line 376),  -> @9\n");
    const std::size_t value = run.errors.find("Next token is 273 (SFFLOAT)");
    ASSERT_NE(marker, std::string::npos);
    ASSERT_NE(value, std::string::npos);
    EXPECT_LT(marker, value);
}

TEST(GrammarTrace, UndefinedTokenAndErrorUnwinding) {
    ParseRun run = traced("Node { sfbool nope }", true, false);
    EXPECT_EQ(run.result, 1);
    EXPECT_TRUE(contains(run.errors, "Next token is 110 ($undefined.)\n"));
    EXPECT_TRUE(contains(run.errors, "parse error\nParsing: n\n\nError: state stack now 0 "));
    EXPECT_TRUE(contains(run.errors, "Error: state stack now 0\n"));
}

TEST(LexerTrace, AcceptedRulesByTheirListingLine) {
    ParseRun run = traced("Node { sffloat 1 }", false, true);
    EXPECT_TRUE(contains(run.errors, "--accepting rule at line 538(\"Node\")\n")) << run.errors;
    EXPECT_TRUE(contains(run.errors, "--accepting rule at line 969(\" \")\n"));
    EXPECT_TRUE(contains(run.errors, "--accepting rule at line 979(\"{\")\n"));
    EXPECT_TRUE(contains(run.errors, "LEX--> Start State 273\n--accepting rule at line 969(\" \")\n--accepting rule at line 632(\"1\")\n"));
    EXPECT_TRUE(contains(run.errors, "--EOF (start condition 0)\n"));
}

TEST(LexerTrace, OffByDefault) {
    ParseRun run = traced("Node { sffloat 1 }", false, false);
    EXPECT_TRUE(run.errors.empty()) << run.errors;
}
