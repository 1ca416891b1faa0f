// Field text conversion: one test per row of the conversion table, the edge
// cases of multiple values, the tokenizers, and locale independence.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include "browser/zn_browser_intern.h"
#include "fields/all.h"
#include "nodes/zn_node.h"
#include "nodes/zn_nodetype.h"
#include "test_support.h"

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

namespace {

class FieldText : public testing::Test {
protected:
    FieldText() : browser(nullptr) {}

    template <class T>
    T read(FieldType type, const char* text, T start = T()) {
        browser.vrml2data(&start, type, text);
        return start;
    }
    std::string write(void* data, FieldType type) {
        std::vector<char> out(kFieldTextBufferSize);
        browser.data2vrml(data, type, out.data());
        return out.data();
    }
    static std::vector<float> floats(const _znArray<float>& a) { return std::vector<float>(a.data, a.data + a.count); }
    static std::vector<std::vector<float>> floats(const std::vector<_znArray<float>>& list) {
        std::vector<std::vector<float>> out;
        for (const auto& a : list) out.push_back(floats(a));
        return out;
    }
    // A node entered in the world under a stored name.
    znNode* addNode(int id, const char* name) {
        if (!type) {
            std::vector<const char*> urls;
            type = new znNodeType(1, "Thing", urls, &browser, 0, 0, nullptr);
            browser.enterType(type);
        }
        auto* node = new znNode(id, name, type, &browser);
        browser.enterNode(node);
        return node;
    }

    znBrowserIntern browser;
    znNodeType* type = nullptr;
};

}  // namespace

TEST_F(FieldText, SFBoolTrueAnywhereInTheText) {
    EXPECT_EQ(read<int>(SFBoolType, "FALSE TRUE"), 1);
    EXPECT_EQ(read<int>(SFBoolType, "FALSE", 1), 0);
    int v = 1;
    EXPECT_EQ(write(&v, SFBoolType), "TRUE");
    v = 0;
    EXPECT_EQ(write(&v, SFBoolType), "FALSE");
}

TEST_F(FieldText, SFColorThreeNumbers) {
    auto c = read<_znArray<float>>(SFColorType, "1 0.5,0");
    EXPECT_EQ(floats(c), (std::vector<float>{1, 0.5f, 0}));
    EXPECT_EQ(write(&c, SFColorType), "1.000000 0.500000 0.000000 ");
}

TEST_F(FieldText, SFFloatStoredOnlyWhenRead) {
    EXPECT_EQ(read<float>(SFFloatType, " 2.5"), 2.5f);
    EXPECT_EQ(read<float>(SFFloatType, "abc", 7.0f), 7.0f);
    EXPECT_EQ(read<float>(SFFloatType, "1e2"), 100.0f);
    float v = 1.25f;
    EXPECT_EQ(write(&v, SFFloatType), "1.250000");
}

TEST_F(FieldText, SFImageNumbersAndHexOutput) {
    auto numbers = read<std::vector<int>>(SFImageType, "2 1 3 0xFF0000 0x00FF00");
    EXPECT_EQ(numbers, (std::vector<int>{2, 1, 3, 0xFF0000, 0xFF00}));
    EXPECT_EQ(write(&numbers, SFImageType), "2 1 3 0xFF0000 0xFF00 ");
    EXPECT_EQ(read<std::vector<int>>(SFImageType, "[1 1 1 7]"), (std::vector<int>{1, 1, 1, 7}));
}

TEST_F(FieldText, SFInt32HexOctalAndSign) {
    EXPECT_EQ(read<int>(SFInt32Type, "0x10"), 16);
    EXPECT_EQ(read<int>(SFInt32Type, "010"), 8);
    EXPECT_EQ(read<int>(SFInt32Type, "-5"), -5);
    EXPECT_EQ(read<int>(SFInt32Type, "08"), 0);
    EXPECT_EQ(read<int>(SFInt32Type, "x", 4), 4);
    int v = -12;
    EXPECT_EQ(write(&v, SFInt32Type), "-12");
}

TEST_F(FieldText, SFNodeByNameNullAndForwardReference) {
    znNode* node = addNode(3, "d00000+Box");
    BaseNode found = read<BaseNode>(SFNodeType, "  d00000+Box");
    EXPECT_EQ(found.handleNode(), node);
    EXPECT_EQ(write(&found, SFNodeType), "d00000+Box");
    EXPECT_EQ(read<BaseNode>(SFNodeType, "NULL").internal, nullptr);
    EXPECT_EQ(browser.isUnresolvedReference(), 0);
    CaptureStderr();
    BaseNode later = read<BaseNode>(SFNodeType, "d00000+Later");
    GetCapturedStderr();
    EXPECT_EQ(later.internal, nullptr);
    EXPECT_EQ(browser.isUnresolvedReference(), 1);
}

TEST_F(FieldText, SFNodeNullWritesNothing) {
    BaseNode none;
    CaptureStderr();
    EXPECT_EQ(write(&none, SFNodeType), "");
    GetCapturedStderr();
}

TEST_F(FieldText, SFRotationFourNumbers) {
    auto r = read<_znArray<float>>(SFRotationType, "0 1 0 1.5708");
    EXPECT_EQ(r.count, 4);
    EXPECT_FLOAT_EQ(r.data[3], 1.5708f);
}

TEST_F(FieldText, SFStringUnescaping) {
    EXPECT_STREQ(read<std::string>(SFStringType, "\"a \\\"b\\\" c\"").c_str(), "a \"b\" c");
    EXPECT_STREQ(read<std::string>(SFStringType, "\"a\\b\" tail").c_str(), "ab");
    EXPECT_STREQ(read<std::string>(SFStringType, "no quote").c_str(), "");
    EXPECT_STREQ(read<std::string>(SFStringType, "\"open").c_str(), "");
    EXPECT_STREQ(read<std::string>(SFStringType, "\"\"").c_str(), "");
    std::string stored = read<std::string>(SFStringType, "\"ab\"");
    EXPECT_EQ(stored.size(), 3u);
    EXPECT_EQ(write(&stored, SFStringType), "\"ab\"");
}

TEST_F(FieldText, SFTimeAndVectors) {
    EXPECT_EQ(read<double>(SFTimeType, "12.5"), 12.5);
    double t = 0.5;
    EXPECT_EQ(write(&t, SFTimeType), "0.500000");
    EXPECT_EQ(floats(read<_znArray<float>>(SFVec2fType, "1 2")), (std::vector<float>{1, 2}));
    EXPECT_EQ(floats(read<_znArray<float>>(SFVec3fType, "1 2 3")), (std::vector<float>{1, 2, 3}));
}

TEST_F(FieldText, ArrayWithFewerNumbersKeepsTheRest) {
    _znArray<float> v(3);
    v.data[2] = 9;
    browser.vrml2data(&v, SFVec3fType, "1 2");
    EXPECT_EQ(floats(v), (std::vector<float>{1, 2, 9}));
}

TEST_F(FieldText, MFColorAndRotationLists) {
    auto colors = read<std::vector<_znArray<float>>>(MFColorType, "[ 1 0 0, 0 1 0 ]");
    EXPECT_EQ(floats(colors), (std::vector<std::vector<float>>{{1, 0, 0}, {0, 1, 0}}));
    auto rotations = read<std::vector<_znArray<float>>>(MFRotationType, "[0 0 1 0]");
    EXPECT_EQ(rotations.size(), 1u);
}

TEST_F(FieldText, MFFloatAndMFTime) {
    EXPECT_EQ(read<std::vector<float>>(MFFloatType, "[1.5, 2, 3]"), (std::vector<float>{1.5f, 2, 3}));
    EXPECT_EQ(read<std::vector<double>>(MFTimeType, "[0.25 1]"), (std::vector<double>{0.25, 1}));
}

TEST_F(FieldText, MFInt32LoneNumberWithoutBrackets) {
    EXPECT_EQ(read<std::vector<int>>(MFInt32Type, "7 8 9"), (std::vector<int>{7}));
}

TEST_F(FieldText, MFInt32BadTokenRepeatsTheTemporary) {
    EXPECT_EQ(read<std::vector<int>>(MFInt32Type, "[1 x 3]"), (std::vector<int>{1, 1, 3}));
}

TEST_F(FieldText, EmptyBracketsGiveEmptyListForEveryType) {
    EXPECT_TRUE(read<std::vector<int>>(MFInt32Type, "[]", {1}).empty());
    EXPECT_TRUE(read<std::vector<float>>(MFFloatType, "[ ]", {1}).empty());
    EXPECT_TRUE(read<std::vector<_znArray<float>>>(MFVec3fType, "[]").empty());
    EXPECT_TRUE(read<std::vector<std::string>>(MFStringType, "[]", {"x"}).empty());
    EXPECT_TRUE(read<std::vector<BaseNode>>(MFNodeType, "[]").empty());
}

TEST_F(FieldText, EmptyListMarkReadsAsEmpty) {
    EXPECT_TRUE(read<std::vector<int>>(MFInt32Type, "IZZED", {1}).empty());
}

TEST_F(FieldText, MFVec2fPartialElementIsDropped) {
    EXPECT_EQ(read<std::vector<_znArray<float>>>(MFVec2fType, "[1 2, 3 4]").size(), 2u);
    EXPECT_EQ(read<std::vector<_znArray<float>>>(MFVec2fType, "[1 2 3]").size(), 1u);
}

TEST_F(FieldText, ClosingBracketInsideAnElementSpoilsTheNextNumber) {
    auto list = read<std::vector<_znArray<float>>>(MFVec3fType, "[1 2 ]3 4 5 6]");
    EXPECT_EQ(floats(list), (std::vector<std::vector<float>>{{1, 2, 0}, {4, 5, 6}}));
}

TEST_F(FieldText, BackslashSplitsNumbersOfAnElement) {
    auto list = read<std::vector<_znArray<float>>>(MFVec2fType, "[1\\2 3]");
    EXPECT_EQ(floats(list), (std::vector<std::vector<float>>{{1, 2}}));
}

TEST_F(FieldText, MFStringQuotedBlanksCommasAndEscapedQuotes) {
    auto list = read<std::vector<std::string>>(MFStringType, "[ \"a b\", \"c,d\" \"e\\\"f\" ]");
    ASSERT_EQ(list.size(), 3u);
    EXPECT_STREQ(list[0].c_str(), "a b");
    EXPECT_STREQ(list[1].c_str(), "c,d");
    EXPECT_STREQ(list[2].c_str(), "e\"f");
    EXPECT_EQ(write(&list, MFStringType), "[ \"a b\", \"c,d\", \"e\"f\", ]");
}

TEST_F(FieldText, MFStringLongElementIsNotCut) {
    std::string text = "[\"" + std::string(400, 'q') + "\"]";
    auto list = read<std::vector<std::string>>(MFStringType, text.c_str());
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(std::strlen(list[0].c_str()), 400u);
}

TEST_F(FieldText, MFNodeNamesResolve) {
    znNode* a = addNode(1, "d00000+A");
    znNode* b = addNode(2, "d00000+B");
    auto list = read<std::vector<BaseNode>>(MFNodeType, "[ d00000+A, d00000+B ]");
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0].handleNode(), a);
    EXPECT_EQ(list[1].handleNode(), b);
    EXPECT_EQ(write(&list, MFNodeType), "[ d00000+A, d00000+B, ]");
}

TEST_F(FieldText, MultipleValueOutputForms) {
    std::vector<int> none, one{5}, two{1, 2};
    EXPECT_EQ(write(&none, MFInt32Type), "[]");
    EXPECT_EQ(write(&one, MFInt32Type), "5");
    EXPECT_EQ(write(&two, MFInt32Type), "[ 1, 2, ]");
    std::vector<_znArray<float>> vecs;
    vecs.emplace_back(std::vector<float>{1, 2}.data(), 2);
    vecs.emplace_back(std::vector<float>{3, 4}.data(), 2);
    std::string text = write(&vecs, MFVec2fType);
    EXPECT_EQ(text, "[ 1.000000 2.000000 , 3.000000 4.000000 , ]");
    EXPECT_EQ(floats(read<std::vector<_znArray<float>>>(MFVec2fType, text.c_str())),
              (std::vector<std::vector<float>>{{1, 2}, {3, 4}}));
}

TEST_F(FieldText, OverlongOutputIsCutAndReported) {
    std::vector<int> many(20000, -1234567);
    CaptureStderr();
    std::string text = write(&many, MFInt32Type);
    std::string err = GetCapturedStderr();
    EXPECT_EQ(text.size(), static_cast<size_t>(kFieldTextBufferSize - 1));
    EXPECT_EQ(err, "\nMessage:  Field text cut at 99999 characters\n\n");
}

TEST_F(FieldText, NothingHappensForNullOrEmptyText) {
    EXPECT_EQ(read<int>(SFInt32Type, "", 3), 3);
    EXPECT_EQ(read<int>(SFInt32Type, nullptr, 3), 3);
    EXPECT_EQ(read<int>(static_cast<FieldType>(40), "5", 3), 3);
}

// --- Tokenizers ---------------------------------------------------------------

TEST(FieldTextTokens, SzStrtokJoinsTokensOfOneElement) {
    char text[] = "1 2,3 4 5";
    char* state = nullptr;
    char* first = sz_strtok_r(3, text, ",]", &state);
    EXPECT_STREQ(first, "1 2 3");
    EXPECT_EQ(sz_strtok_r(3, nullptr, ",]", &state), nullptr);
    EXPECT_EQ(sz_strtok_r(0, text, ",]", &state), nullptr);
}

TEST(FieldTextTokens, StringtokHonoursQuotes) {
    char text[] = "\"a b\",c";
    EXPECT_STREQ(stringtok(text, " ,"), "\"a b\"");
    EXPECT_STREQ(stringtok(nullptr, " ,"), "c");
    EXPECT_EQ(stringtok(nullptr, " ,"), nullptr);
}

TEST(FieldTextTokens, NodigitsAnswers) {
    EXPECT_EQ(nodigits(nullptr), 1);
    EXPECT_EQ(nodigits(""), 1);
    EXPECT_EQ(nodigits("abc"), 1);
    EXPECT_EQ(nodigits("a1"), 0);
}

// --- Runtime fields convert through the browser -----------------------------------

TEST(FieldTextRuntime, ImageLoadsAppendPixels) {
    znBrowserIntern browser(nullptr);
    znSFImage image(&browser);
    image.setData("1 1 1 0xFF");
    image.setData("2 1 1 0x01 0x02");
    EXPECT_EQ(image.getWidth(), 2);
    std::vector<int> pixels;
    image.getPixels(pixels);
    EXPECT_EQ(pixels, (std::vector<int>{0xFF, 1, 2}));
    char* text = image.toString();
    EXPECT_STREQ(text, "2 1 1 0xFF 0x1 0x2 ");
    free(text);
}

TEST(FieldTextRuntime, VirtualToStringShowsTheLocalCopy) {
    znBrowserIntern browser(nullptr);
    znSFInt32 real(&browser), outer(&browser);
    std::vector<znField*> remote{&real};
    outer.addRemoteData(&remote);
    outer.setValue(3);
    real.setValue(8);
    EXPECT_EQ(outer.getValue(), 8);
    char* text = outer.toString();
    EXPECT_STREQ(text, "3");
    free(text);
}

TEST(FieldTextRuntime, MFTextReplacesTheList) {
    znBrowserIntern browser(nullptr);
    znMFFloat list(&browser);
    list.setData("[1 2]");
    list.setData("[3]");
    EXPECT_EQ(list.getSize(), 1);
}

// --- Locale -------------------------------------------------------------------------

namespace {
// Builds a German locale (comma as decimal point) in `dir`; false when the
// tools for it are missing.
bool buildCommaLocale(const std::string& dir) {
    pid_t pid = fork();
    if (pid == 0) {
        std::string target = dir + "/de_DE.UTF-8";
        execlp("localedef", "localedef", "-i", "de_DE", "-f", "UTF-8", target.c_str(),
               static_cast<char*>(nullptr));
        _exit(127);
    }
    int status = 0;
    waitpid(pid, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) <= 1;
}
}  // namespace

TEST(FieldTextLocale, CommaDecimalLocaleStillReadsPoint) {
    wrltest::TempDir dir;
    if (!buildCommaLocale(dir.path())) GTEST_SKIP() << "no locale tools";
    wrltest::ScopedEnv locpath("LOCPATH", dir.path().c_str());
    const char* set = std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
    if (!set) GTEST_SKIP() << "comma locale not available";
    EXPECT_EQ(std::strtod("1.5", nullptr), 1.0);  // the host's view
    znBrowserIntern browser(nullptr);
    float f = 0;
    browser.vrml2data(&f, SFFloatType, "1.5");
    std::vector<float> list;
    browser.vrml2data(&list, MFFloatType, "[2.5 3.25]");
    std::vector<char> out(kFieldTextBufferSize);
    browser.data2vrml(&f, SFFloatType, out.data());
    std::setlocale(LC_NUMERIC, "C");
    EXPECT_EQ(f, 1.5f);
    EXPECT_EQ(list, (std::vector<float>{2.5f, 3.25f}));
    EXPECT_STREQ(out.data(), "1.500000");
}

// Numbers of every shape that a model holds, and some that it rarely does:
// each must read to the very double that strtod gives, through the quick
// path for plain decimals or around it.
TEST_F(FieldText, DecimalsReadExactlyAsStrtodReadsThem) {
    unsigned seed = 12345;
    auto next = [&seed](unsigned range) {
        seed = seed * 1103515245u + 12345u;
        return (seed >> 8) % range;
    };
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        if (next(3) == 0) text += next(2) == 0 ? "-" : "+";
        const unsigned digits = 1 + next(18);
        const unsigned point = next(digits + 2);
        for (unsigned d = 0; d < digits; ++d) {
            if (d == point) text += '.';
            text += static_cast<char>('0' + next(10));
        }
        if (next(4) == 0) text += (next(2) == 0 ? "e" : "E") + std::to_string(static_cast<int>(next(61)) - 30);
        SCOPED_TRACE(text);
        const double expected = std::strtod(text.c_str(), nullptr);
        const double got = read<double>(SFTimeType, text.c_str(), -7.0);
        EXPECT_EQ(std::memcmp(&got, &expected, sizeof got), 0) << got << " vs " << expected;
    }
    // Forms that the quick path leaves to the library, and prefixes.
    for (const char* text : {"0x1p3", "1e", "1.5e+", "-0", "0.000000000000000000000000001", "1e23", "5.", ".25",
                             "12abc", "123456789012345678901234567890"}) {
        SCOPED_TRACE(text);
        const double expected = std::strtod(text, nullptr);
        const double got = read<double>(SFTimeType, text, -7.0);
        EXPECT_EQ(std::memcmp(&got, &expected, sizeof got), 0) << got << " vs " << expected;
    }
}
