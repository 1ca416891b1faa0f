// The text of each value token, as the lexer reads it for the expected type.
#include <gtest/gtest.h>

#include <string>

#include "parse_run.h"

using Values = std::vector<std::string>;

TEST(ListTokens, BracketedItemsEachGetAComma) {
    ParseRun run = parseValue("mffloat", "[ 1 2 3 ]");
    EXPECT_EQ(run.result, 0);
    EXPECT_EQ(run.values(), Values{"[1,2,3,]"});
}

TEST(ListTokens, EmptyListIsBareBrackets) {
    EXPECT_EQ(parseValue("mfint32", "[ ]").values(), Values{"[]"});
}

TEST(ListTokens, UnbracketedValueIsOneItemListWithoutComma) {
    EXPECT_EQ(parseValue("mffloat", "1.5").values(), Values{"[1.5]"});
    EXPECT_EQ(parseValue("mfvec3f", "1 2 3").values(), Values{"[1 2 3]"});
}

TEST(ListTokens, VectorItemsKeepTheirSeparators) {
    EXPECT_EQ(parseValue("mfvec3f", "[ 1 2 3, 4,5,6 ]").values(), Values{"[1 2 3,4,5,6,]"});
    EXPECT_EQ(parseValue("mfrotation", "[0 1 0 1.57]").values(), Values{"[0 1 0 1.57,]"});
    EXPECT_EQ(parseValue("mfcolor", "[1 0 0, 0 1 0]").values(), Values{"[1 0 0,0 1 0,]"});
    EXPECT_EQ(parseValue("mfvec2f", "[.5 -1e3]").values(), Values{"[.5 -1e3,]"});
}

TEST(ListTokens, HexadecimalAndSignedIntegers) {
    EXPECT_EQ(parseValue("mfint32", "[0xFF -1 +2]").values(), Values{"[0xFF,-1,+2,]"});
}

TEST(ListTokens, StringsKeepQuotesAndBackslashes) {
    EXPECT_EQ(parseValue("mfstring", "[ \"a\" \"b\\\"c\" ]").values(), Values{"[\"a\",\"b\\\"c\",]"});
}

TEST(ListTokens, StringOutsideBracketsIsBareString) {
    EXPECT_EQ(parseValue("mfstring", "\"alone\"").values(), Values{"\"alone\""});
}

TEST(ListTokens, ListOverOneBufferKeepsAllItsText) {
    std::string list = "[";
    std::string expected = "[";
    for (int i = 0; i < 30000; ++i) {
        list += " " + std::to_string(i);
        expected += std::to_string(i) + ",";
    }
    list += " ]";
    expected += "]";
    ASSERT_GT(expected.size(), 100000u);
    ParseRun run = parseValue("mfint32", list);
    EXPECT_EQ(run.result, 0);
    ASSERT_EQ(run.values().size(), 1u);
    EXPECT_EQ(run.values()[0], expected);
}

TEST(ListTokens, ItemsEndingAtTheBufferBoundaryAreKept) {
    // Lengths around the 100000-byte step of the list buffer.
    for (int filler : {99990, 99994, 99995, 99996, 99997, 100000}) {
        const std::string item(static_cast<std::size_t>(filler - 2), '1');
        ParseRun run = parseValue("mfint32", "[ 7 " + item + " 8 ]");
        ASSERT_EQ(run.values().size(), 1u) << filler;
        EXPECT_EQ(run.values()[0], "[7," + item + ",8,]") << filler;
    }
}

TEST(NodeValues, NullInsideBrackets) {
    EXPECT_EQ(parseValue("mfnode", "[ NULL ]").values(), Values{"[ NULL, ]"});
}

TEST(NodeValues, NullWithoutBrackets) {
    EXPECT_EQ(parseValue("mfnode", "NULL").values(), Values{"NULL"});
    EXPECT_EQ(parseValue("sfnode", "NULL").values(), Values{"NULL"});
}

TEST(NodeValues, NodeWithoutBracketsIsItsName) {
    ParseRun run = parseValue("mfnode", "Group { }");
    EXPECT_EQ(run.values(), Values{"x00000+Group_1"});
}

TEST(NodeValues, ListOfNodesAndNull) {
    ParseRun run = parseValue("mfnode", "[ Group { } DEF G Group { } NULL ]");
    EXPECT_EQ(run.values(), Values{"[ x00000+Group_1,d00000+G,NULL, ]"});
}

TEST(NodeValues, NestedListsAreAssembledApart) {
    ParseRun run = parseText("Group { children [ Group { children [ NULL ] } NULL ] }");
    EXPECT_EQ(run.result, 0);
    EXPECT_EQ(run.values(), (Values{"[ NULL, ]", "[ x00000+Group_1,NULL, ]"}));
}

TEST(SingleValues, TokenTextIsKeptAsWritten) {
    EXPECT_EQ(parseValue("sfbool", "TRUE").values(), Values{"TRUE"});
    EXPECT_EQ(parseValue("sfbool", "FALSE").values(), Values{"FALSE"});
    EXPECT_EQ(parseValue("sfint32", "0x1F").values(), Values{"0x1F"});
    EXPECT_EQ(parseValue("sffloat", "-1.5e-3").values(), Values{"-1.5e-3"});
    EXPECT_EQ(parseValue("sftime", "2.").values(), Values{"2."});
    EXPECT_EQ(parseValue("sfvec2f", "1,2").values(), Values{"1,2"});
    EXPECT_EQ(parseValue("sfcolor", "1 0 0").values(), Values{"1 0 0"});
    EXPECT_EQ(parseValue("sfrotation", "0 1 0 3.14").values(), Values{"0 1 0 3.14"});
}

TEST(SingleValues, VectorMayHoldCommentAndLineFeed) {
    EXPECT_EQ(parseValue("sfvec3f", "1 # one\n 2 3").values(), Values{"1 # one\n 2 3"});
}

TEST(SingleValues, SFImageBody) {
    EXPECT_EQ(parseValue("sfimage", "2 1 3 0xFF0000 0x00FF00").values(), Values{"[ 2,1,3,0xFF0000,0x00FF00,]"});
}

TEST(SingleValues, EmptySFImageEndsAfterItsComponentCount) {
    EXPECT_EQ(parseValue("sfimage", "0 0 0").values(), Values{"[ 0,0,0,]"});
}

TEST(StringValues, HashInsideQuotesIsText) {
    EXPECT_EQ(parseValue("sfstring", "\"a#b\"").values(), Values{"\"a#b\""});
}

TEST(StringValues, MultiLineStringKeepsItsLineFeeds) {
    ParseRun run = parseValue("sfstring", "\"one\ntwo\"");
    EXPECT_EQ(run.values(), Values{"\"one\ntwo\""});
}

TEST(StringValues, BytesAbove127AreStringText) {
    const std::string text = "\"caf\xc3\xa9 \xff\"";
    EXPECT_EQ(parseValue("sfstring", text).values(), Values{text});
    EXPECT_EQ(parseValue("mfstring", "[" + text + "]").values(), Values{"[" + text + ",]"});
}

TEST(StringValues, CommentTrapEndsStringAtItsQuoteAndDropsTheLine) {
    // The rest of the string begins with '#': the comment runs past the
    // closing quote to the end of the line.
    ParseRun run = parseText("Node { sfstring \"#a\" sfint32 5\n}");
    EXPECT_EQ(run.values(), Values{"\"#a\""});
    EXPECT_EQ(run.result, 0);
}

TEST(StringValues, CommentTrapInListClosesTheItem) {
    // The item is closed with the quote alone, and what follows the line
    // is string text again up to the next quote.
    ParseRun run = parseText("Node { mfstring [ \"#x\" ]\n y\" ] }");
    EXPECT_EQ(run.result, 0);
    EXPECT_EQ(run.values(), Values{"[\"\",y\",]"});
}

TEST(StringValues, WordWithoutQuoteIsReportedAndKept) {
    ParseRun run = parseValue("sfstring", "word");
    EXPECT_EQ(run.values(), Values{"word"});
    EXPECT_NE(run.errors.find("String missing open-quote"), std::string::npos);
}

TEST(IsInValueStates, IsIsGivenBack) {
    ParseRun run = parseText("PROTO P [ field SFFloat f 1 ] { Node { sffloat IS f mffloat IS f sfstring IS f } }");
    EXPECT_EQ(run.result, 0);
    // The body's node reaches the database before the PROTO that holds it.
    EXPECT_EQ(run.values(), (Values{"IZZED", "IZZED", "IZZED", "1"}));
    EXPECT_TRUE(run.called("SetNodeData(sffloat,IZZED,22,0,ev,[f])"));
}

TEST(IsInValueStates, WordStartingWithIsIsAString) {
    EXPECT_EQ(parseValue("sfstring", "ISO").values(), Values{"ISO"});
}

// The trace only shows what is read: with it or without, the texts, the
// lines and the refusals of lists of every shape are the same.
TEST(ListTokens, ReadAlikeWithAndWithoutTheTrace) {
    const std::vector<std::pair<std::string, std::string>> lists = {
        {"mfvec3f", "[ 1 2 3,\n 4 5 6\n,7 8 9 ]"},
        {"mfvec3f", "[ 1 2\n 3 4 5 6 ]"},
        {"mfvec3f", "[ 1 2 3 # three\n 4 5 6 ]"},
        {"mfvec3f", "[ 1 2 # inside\n 3 4 5 6 ]"},
        {"mfvec3f", "[1 2 3-4 5 6]"},
        {"mfvec3f", "[ 1 2 3 4 ]"},
        {"mfvec3f", "1 2 3 4 5 6"},
        {"mfvec2f", "[ .5 -1e3, 2. +3 ]"},
        {"mfrotation", "[ 0 1 0 1.57\n\n 1 0 0 3.14 ]"},
        {"mfcolor", "[1 0 0,0 1 0,,0 0 1]"},
        {"mfint32", "[ 0 1 2 -1,\n 0x1F 010 +7 -1 ]"},
        {"mfint32", "[ 1-1 2 ]"},
        {"mffloat", "[ 1 2.5e2 .25 ]"},
        {"mftime", "[ 1 2 3 ]"},
        {"mfint32", "12 13"},
    };
    for (const auto& [field, value] : lists) {
        SCOPED_TRACE(field + " " + value);
        const std::string text = "Node { " + field + " " + value + " }\nNode { sffloat x }";
        ParseOptions traced;
        traced.lexerTrace = true;
        ParseRun byItem = parseText(text, traced);
        ParseRun byRun = parseText(text);
        EXPECT_EQ(byRun.values(), byItem.values());
        EXPECT_EQ(byRun.result, byItem.result);
        // The error report names the line, which the list's line feeds set.
        const std::size_t report = byItem.errors.find("Error in");
        ASSERT_NE(report, std::string::npos);
        EXPECT_EQ(byRun.errors.substr(byRun.errors.find("Error in"), 60), byItem.errors.substr(report, 60));
    }
}
