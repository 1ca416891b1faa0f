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

// Their texts are the parser generator's and the scanner generator's own:
// these tests only see that each trace is switched on and off by its flag
// and shows what is read, a marker's reduction before its value's token.
TEST(Traces, EachTraceFollowsItsFlagAndShowsWhatIsRead) {
    ParseRun grammar = traced("Node { sffloat 1 }", true, false);
    EXPECT_EQ(grammar.result, 0);
    EXPECT_EQ(grammar.errors.rfind("Starting parse\n", 0), 0u) << grammar.errors;
    EXPECT_TRUE(contains(grammar.errors, "Next token is 258 (IDENTIFIER)\n"));
    const std::size_t marker = grammar.errors.find(",  -> @9\n");
    const std::size_t value = grammar.errors.find("Next token is 273 (SFFLOAT)");
    ASSERT_NE(marker, std::string::npos);
    ASSERT_NE(value, std::string::npos);
    EXPECT_LT(marker, value);
    EXPECT_FALSE(contains(grammar.errors, "accepting rule"));

    ParseRun lexer = traced("Node { sffloat 1 }", false, true);
    EXPECT_TRUE(contains(lexer.errors, "(\"Node\")\n")) << lexer.errors;
    EXPECT_TRUE(contains(lexer.errors, "--EOF (start condition 0)\n"));
    EXPECT_FALSE(contains(lexer.errors, "Starting parse"));
    EXPECT_TRUE(traced("Node { sffloat 1 }", false, false).errors.empty());
}
