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

TEST(GrammarTrace, ShowsReadingShiftingReducingAndUnwinding) {
    ParseRun run = traced("Node { sffloat 1 }", true, false);
    EXPECT_EQ(run.result, 0);
    EXPECT_EQ(run.errors.rfind("Starting parse\nEntering state 0\n", 0), 0u) << run.errors;
    EXPECT_TRUE(contains(run.errors, "Reading a token: Next token is 258 (IDENTIFIER)\n"));
    EXPECT_TRUE(contains(run.errors, "Shifting token 258 (IDENTIFIER), Entering state "));
    EXPECT_TRUE(contains(run.errors, "Reading a token: Now at end of input.\n"));
    // A mid-rule marker reduces before the value's token is read.
    const std::size_t marker = run.errors.find(",  -> @9\n");
    const std::size_t value = run.errors.find("Next token is 273 (SFFLOAT)");
    ASSERT_NE(marker, std::string::npos);
    ASSERT_NE(value, std::string::npos);
    EXPECT_LT(marker, value);

    ParseRun bad = traced("Node { sfbool nope }", true, false);
    EXPECT_EQ(bad.result, 1);
    EXPECT_TRUE(contains(bad.errors, "Next token is 110 ($undefined.)\n"));
    EXPECT_TRUE(contains(bad.errors, "parse error\nParsing: n\n\nError: state stack now 0 "));
}

TEST(LexerTrace, ShowsAcceptedRulesAndIsOffByDefault) {
    ParseRun run = traced("Node { sffloat 1 }", false, true);
    EXPECT_TRUE(contains(run.errors, "(\"Node\")\n")) << run.errors;
    EXPECT_TRUE(contains(run.errors, "LEX--> Start State 273\n"));
    EXPECT_TRUE(contains(run.errors, "--EOF (start condition 0)\n"));
    EXPECT_TRUE(traced("Node { sffloat 1 }", false, false).errors.empty());
}
