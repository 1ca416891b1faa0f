// The text of each value token, as the lexer reads it for the expected type.
#include <gtest/gtest.h>

#include <cstdint>

#include <string>

#include "parse_run.h"

using Values = std::vector<std::string>;

TEST(ValueTokens, TextOfEachValueAsTheDatabaseGetsIt) {
    const struct {
        const char* field;
        std::string value;
        std::string expected;
    } cases[] = {
        // Bracketed items each get a comma; an unbracketed value is one item.
        {"mffloat", "[ 1 2 3 ]", "[1,2,3,]"},
        {"mfint32", "[ ]", "[]"},
        {"mffloat", "1.5", "[1.5]"},
        {"mfvec3f", "1 2 3", "[1 2 3]"},
        {"mfvec3f", "[ 1 2 3, 4,5,6 ]", "[1 2 3,4,5,6,]"},
        {"mfrotation", "[0 1 0 1.57]", "[0 1 0 1.57,]"},
        {"mfcolor", "[1 0 0, 0 1 0]", "[1 0 0,0 1 0,]"},
        {"mfvec2f", "[.5 -1e3]", "[.5 -1e3,]"},
        {"mfint32", "[0xFF -1 +2]", "[0xFF,-1,+2,]"},
        {"mfstring", "[ \"a\" \"b\\\"c\" ]", "[\"a\",\"b\\\"c\",]"},
        {"mfstring", "\"alone\"", "\"alone\""},
        // Node values.
        {"mfnode", "[ NULL ]", "[ NULL, ]"},
        {"mfnode", "NULL", "NULL"},
        {"sfnode", "NULL", "NULL"},
        {"mfnode", "Group { }", "x00000+Group_1"},
        {"mfnode", "[ Group { } DEF G Group { } NULL ]", "[ x00000+Group_1,d00000+G,NULL, ]"},
        // Single values keep their text as written.
        {"sfbool", "TRUE", "TRUE"},
        {"sfint32", "0x1F", "0x1F"},
        {"sffloat", "-1.5e-3", "-1.5e-3"},
        {"sftime", "2.", "2."},
        {"sfvec2f", "1,2", "1,2"},
        {"sfrotation", "0 1 0 3.14", "0 1 0 3.14"},
        {"sfvec3f", "1 # one\n 2 3", "1 # one\n 2 3"},
        {"sfimage", "2 1 3 0xFF0000 0x00FF00", "[ 2,1,3,0xFF0000,0x00FF00,]"},
        {"sfimage", "0 0 0", "[ 0,0,0,]"},
        // Strings: a hash is text, line feeds and bytes above 127 are kept,
        // a word starting with IS is no IS.
        {"sfstring", "\"a#b\"", "\"a#b\""},
        {"sfstring", "\"one\ntwo\"", "\"one\ntwo\""},
        {"sfstring", "\"caf\xc3\xa9 \xff\"", "\"caf\xc3\xa9 \xff\""},
        {"mfstring", "[\"caf\xc3\xa9 \xff\"]", "[\"caf\xc3\xa9 \xff\",]"},
        {"sfstring", "ISO", "ISO"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.field) + " " + c.value);
        ParseRun run = parseValue(c.field, c.value);
        EXPECT_EQ(run.result, 0) << run.errors;
        EXPECT_EQ(run.values(), Values{c.expected});
    }
    EXPECT_NE(parseValue("sfstring", "word").errors.find("String missing open-quote"), std::string::npos);
}

TEST(ValueTokens, NestedListsAreAssembledApart) {
    ParseRun run = parseText("Group { children [ Group { children [ NULL ] } NULL ] }");
    EXPECT_EQ(run.result, 0);
    EXPECT_EQ(run.values(), (Values{"[ NULL, ]", "[ x00000+Group_1,NULL, ]"}));
}

TEST(ValueTokens, ListsOverOneBufferKeepAllTheirText) {
    std::string list = "[", expected = "[";
    for (int i = 0; i < 30000; ++i) {
        list += " " + std::to_string(i);
        expected += std::to_string(i) + ",";
    }
    list += " ]";
    expected += "]";
    ASSERT_GT(expected.size(), 100000u);
    ParseRun run = parseValue("mfint32", list);
    EXPECT_EQ(run.result, 0);
    EXPECT_EQ(run.values(), Values{expected});
    // Items ending around the 100000-byte step of the list buffer.
    for (int filler : {99990, 99994, 99995, 99996, 99997, 100000}) {
        const std::string item(static_cast<std::size_t>(filler - 2), '1');
        EXPECT_EQ(parseValue("mfint32", "[ 7 " + item + " 8 ]").values(), Values{"[7," + item + ",8,]"}) << filler;
    }
}

TEST(ValueTokens, CommentTrapEndsAStringAtItsQuote) {
    // The rest of the string begins with '#': the comment runs past the
    // closing quote to the end of the line.
    ParseRun run = parseText("Node { sfstring \"#a\" sfint32 5\n}");
    EXPECT_EQ(run.values(), Values{"\"#a\""});
    EXPECT_EQ(run.result, 0);
    // In a list the item is closed with the quote alone, and what follows
    // the line is string text again up to the next quote.
    run = parseText("Node { mfstring [ \"#x\" ]\n y\" ] }");
    EXPECT_EQ(run.result, 0);
    EXPECT_EQ(run.values(), Values{"[\"\",y\",]"});
}

TEST(ValueTokens, IsIsGivenBackInEveryValueState) {
    ParseRun run = parseText("PROTO P [ field SFFloat f 1 ] { Node { sffloat IS f mffloat IS f sfstring IS f } }");
    EXPECT_EQ(run.result, 0);
    // The body's node reaches the database before the PROTO that holds it.
    EXPECT_EQ(run.values(), (Values{"IZZED", "IZZED", "IZZED", "1"}));
    EXPECT_TRUE(run.called("SetNodeData(sffloat,IZZED,22,0,ev,[f])"));
}

namespace {

// The error report of a run from "Error in" on: `length` characters, or its
// first line when `length` is 0. Empty for a run without one.
std::string reportOf(const std::string& errors, std::size_t length = 0) {
    const std::size_t at = errors.find("Error in");
    if (at == std::string::npos) return "";
    return errors.substr(at, length != 0 ? length : errors.find('\n', at) - at);
}

// Parses `text` with the lexer trace, which reads every list item by the
// rules alone, and without it; the value texts, the result and the error
// report must be the same. Answers the run without the trace.
ParseRun expectReadAlike(const std::string& text, std::size_t reportLength = 0) {
    ParseOptions traced;
    traced.lexerTrace = true;
    ParseRun byItem = parseText(text, traced);
    ParseRun byRun = parseText(text);
    EXPECT_EQ(byRun.values(), byItem.values());
    EXPECT_EQ(byRun.result, byItem.result);
    EXPECT_EQ(reportOf(byRun.errors, reportLength), reportOf(byItem.errors, reportLength));
    return byRun;
}

}  // namespace

// The trace only shows what is read: with it or without, the texts, the
// lines and the refusals of lists of every shape are the same.
TEST(ValueTokens, ListsReadAlikeWithAndWithoutTheTrace) {
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
        {"mffloat", "[ 1e 2 ]"},
        {"mffloat", "[ 1e+ 2E-3 -.5 +5. ]"},
        {"mffloat", "[ 1 2 -. 3 ]"},
        {"mfint32", "[ 5 0x 6 ]"},
        {"mfint32", "[ 5 1.5 6 ]"},
        {"mfvec3f", "[ 1 2 3 IS 4 5 6 ]"},
        {"mfvec3f", "[ 1 2 3\n\n4 5\n6\n7 8 9 ] ]"},
    };
    for (const auto& [field, value] : lists) {
        SCOPED_TRACE(field + " " + value);
        // The error report names the line, which the list's line feeds set.
        ParseRun run = expectReadAlike("Node { " + field + " " + value + " }\nNode { sffloat x }", 60);
        EXPECT_NE(reportOf(run.errors), "");
    }
}

// A list longer than the scanner's input buffer breaks at every place in an
// item in turn; the items, and the line of an error after the list, are
// what the rules read one by one.
TEST(ValueTokens, ListsOverTheInputBufferReadAlikeWithAndWithoutTheTrace) {
    std::string floats, integers;
    for (int i = 0; i < 1200; ++i) {
        floats += std::to_string(i % 7) + ".0100 -0.0030 1e-" + std::to_string(i % 3) + ",\n";
        integers += std::to_string(i * 37) + " -" + std::to_string(i % 5) + " 0 +4 -1,\n";
    }
    for (const auto& [field, items] : {std::pair{"mfvec3f", floats}, std::pair{"mfint32", integers}}) {
        for (int shift = 0; shift < 24; ++shift) {
            SCOPED_TRACE(std::string(field) + " " + std::to_string(shift));
            const std::string text = std::string(static_cast<std::size_t>(shift), ' ') + "Node { " + field + " [ " +
                                     items + "] }\nNode { sffloat x }";
            ParseRun run = expectReadAlike(text);
            EXPECT_EQ(run.values().size(), 1u);
            EXPECT_NE(reportOf(run.errors).find("line 1202"), std::string::npos) << reportOf(run.errors);
        }
    }
}

// Lists of random number-like text: whatever the bytes, the run of plain
// items and the rules alone read the same items and stop at the same line.
TEST(ValueTokens, RandomListsReadAlikeWithAndWithoutTheTrace) {
    const std::string alphabet = "0123456789.eE+- ,\n\t#x]";
    std::uint32_t seed = 12345;
    auto next = [&seed] {
        seed = seed * 1103515245u + 12345u;
        return (seed >> 16) & 0x7fff;
    };
    const char* fields[] = {"mffloat", "mfvec2f", "mfvec3f", "mfrotation", "mfint32"};
    for (int round = 0; round < 400; ++round) {
        std::string list = "[ ";
        const int length = 1 + static_cast<int>(next() % 60);
        for (int i = 0; i < length; ++i) {
            // Mostly digits and blanks, so that many items are whole.
            const unsigned pick = next() % 100;
            list += pick < 55 ? static_cast<char>('0' + next() % 10)
                              : pick < 80 ? ' ' : alphabet[next() % alphabet.size()];
        }
        list += " ]";
        const std::string field = fields[round % 5];
        SCOPED_TRACE(field + " " + list);
        expectReadAlike("Node { " + field + " " + list + " }\nNode { sffloat x }");
    }
}
