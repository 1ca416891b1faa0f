// Field text conversion: the rows of the conversion table, the edge cases
// of multiple values, and locale independence.
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
    void expectStrtod(const std::string& text) {
        const double expected = std::strtod(text.c_str(), nullptr);
        const double got = read<double>(SFTimeType, text.c_str(), -7.0);
        EXPECT_EQ(std::memcmp(&got, &expected, sizeof got), 0) << text << ": " << got << " vs " << expected;
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

TEST_F(FieldText, SingleValueRows) {
    EXPECT_EQ(read<int>(SFBoolType, "FALSE TRUE"), 1);  // TRUE anywhere in the text
    EXPECT_EQ(read<int>(SFBoolType, "FALSE", 1), 0);
    int yes = 1, no = 0;
    EXPECT_EQ(write(&yes, SFBoolType), "TRUE");
    EXPECT_EQ(write(&no, SFBoolType), "FALSE");

    auto c = read<_znArray<float>>(SFColorType, "1 0.5,0");
    EXPECT_EQ(floats(c), (std::vector<float>{1, 0.5f, 0}));
    EXPECT_EQ(write(&c, SFColorType), "1.000000 0.500000 0.000000 ");

    EXPECT_EQ(read<float>(SFFloatType, " 2.5"), 2.5f);
    EXPECT_EQ(read<float>(SFFloatType, "abc", 7.0f), 7.0f);  // stored only when read
    EXPECT_EQ(read<float>(SFFloatType, "1e2"), 100.0f);
    float f = 1.25f;
    EXPECT_EQ(write(&f, SFFloatType), "1.250000");

    auto numbers = read<std::vector<int>>(SFImageType, "2 1 3 0xFF0000 0x00FF00");
    EXPECT_EQ(numbers, (std::vector<int>{2, 1, 3, 0xFF0000, 0xFF00}));
    EXPECT_EQ(write(&numbers, SFImageType), "2 1 3 0xFF0000 0xFF00 ");
    EXPECT_EQ(read<std::vector<int>>(SFImageType, "[1 1 1 7]"), (std::vector<int>{1, 1, 1, 7}));

    EXPECT_EQ(read<int>(SFInt32Type, "0x10"), 16);
    EXPECT_EQ(read<int>(SFInt32Type, "010"), 8);
    EXPECT_EQ(read<int>(SFInt32Type, "-5"), -5);
    EXPECT_EQ(read<int>(SFInt32Type, "08"), 0);
    EXPECT_EQ(read<int>(SFInt32Type, "x", 4), 4);
    int i = -12;
    EXPECT_EQ(write(&i, SFInt32Type), "-12");

    auto r = read<_znArray<float>>(SFRotationType, "0 1 0 1.5708");
    EXPECT_EQ(r.count, 4);
    EXPECT_FLOAT_EQ(r.data[3], 1.5708f);

    EXPECT_EQ(read<double>(SFTimeType, "12.5"), 12.5);
    double t = 0.5;
    EXPECT_EQ(write(&t, SFTimeType), "0.500000");
    EXPECT_EQ(floats(read<_znArray<float>>(SFVec2fType, "1 2")), (std::vector<float>{1, 2}));
    EXPECT_EQ(floats(read<_znArray<float>>(SFVec3fType, "1 2 3")), (std::vector<float>{1, 2, 3}));
    _znArray<float> partial(3);
    partial.data[2] = 9;
    browser.vrml2data(&partial, SFVec3fType, "1 2");  // fewer numbers keep the rest
    EXPECT_EQ(floats(partial), (std::vector<float>{1, 2, 9}));

    // Nothing happens for no text or an unknown type.
    EXPECT_EQ(read<int>(SFInt32Type, "", 3), 3);
    EXPECT_EQ(read<int>(SFInt32Type, nullptr, 3), 3);
    EXPECT_EQ(read<int>(static_cast<FieldType>(40), "5", 3), 3);
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
    BaseNode none;
    EXPECT_EQ(write(&none, SFNodeType), "");
    GetCapturedStderr();
    EXPECT_EQ(later.internal, nullptr);
    EXPECT_EQ(browser.isUnresolvedReference(), 1);
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

TEST_F(FieldText, MultipleValueRows) {
    auto colors = read<std::vector<_znArray<float>>>(MFColorType, "[ 1 0 0, 0 1 0 ]");
    EXPECT_EQ(floats(colors), (std::vector<std::vector<float>>{{1, 0, 0}, {0, 1, 0}}));
    EXPECT_EQ(read<std::vector<_znArray<float>>>(MFRotationType, "[0 0 1 0]").size(), 1u);
    EXPECT_EQ(read<std::vector<float>>(MFFloatType, "[1.5, 2, 3]"), (std::vector<float>{1.5f, 2, 3}));
    EXPECT_EQ(read<std::vector<double>>(MFTimeType, "[0.25 1]"), (std::vector<double>{0.25, 1}));
    // A lone number without brackets; a bad token repeats the temporary.
    EXPECT_EQ(read<std::vector<int>>(MFInt32Type, "7 8 9"), (std::vector<int>{7}));
    EXPECT_EQ(read<std::vector<int>>(MFInt32Type, "[1 x 3]"), (std::vector<int>{1, 1, 3}));
    // Numbers of ten and more digits are narrowed as the general reader
    // narrows them, not overflowed on the fast route.
    EXPECT_EQ(read<std::vector<int>>(MFInt32Type, "[ 3000000000, 1234567890123, 7 ]"),
              (std::vector<int>{static_cast<int>(3000000000u), static_cast<int>(1234567890123ull & 0xffffffffu), 7}));

    znNode* a = addNode(1, "d00000+A");
    znNode* b = addNode(2, "d00000+B");
    auto nodes = read<std::vector<BaseNode>>(MFNodeType, "[ d00000+A, d00000+B ]");
    ASSERT_EQ(nodes.size(), 2u);
    EXPECT_EQ(nodes[0].handleNode(), a);
    EXPECT_EQ(nodes[1].handleNode(), b);
    EXPECT_EQ(write(&nodes, MFNodeType), "[ d00000+A, d00000+B, ]");
}

TEST_F(FieldText, EmptyBracketsAndTheEmptyMarkGiveEmptyListsForEveryType) {
    EXPECT_TRUE(read<std::vector<int>>(MFInt32Type, "[]", {1}).empty());
    EXPECT_TRUE(read<std::vector<float>>(MFFloatType, "[ ]", {1}).empty());
    EXPECT_TRUE(read<std::vector<_znArray<float>>>(MFVec3fType, "[]").empty());
    EXPECT_TRUE(read<std::vector<std::string>>(MFStringType, "[]", {"x"}).empty());
    EXPECT_TRUE(read<std::vector<BaseNode>>(MFNodeType, "[]").empty());
    EXPECT_TRUE(read<std::vector<int>>(MFInt32Type, "IZZED", {1}).empty());
}

TEST_F(FieldText, PartialElementsOfVectorLists) {
    EXPECT_EQ(read<std::vector<_znArray<float>>>(MFVec2fType, "[1 2, 3 4]").size(), 2u);
    EXPECT_EQ(read<std::vector<_znArray<float>>>(MFVec2fType, "[1 2 3]").size(), 1u);  // dropped
    // A closing bracket inside an element spoils the next number.
    EXPECT_EQ(floats(read<std::vector<_znArray<float>>>(MFVec3fType, "[1 2 ]3 4 5 6]")),
              (std::vector<std::vector<float>>{{1, 2, 0}, {4, 5, 6}}));
    // A backslash splits numbers of an element.
    EXPECT_EQ(floats(read<std::vector<_znArray<float>>>(MFVec2fType, "[1\\2 3]")),
              (std::vector<std::vector<float>>{{1, 2}}));
}

TEST_F(FieldText, MFStringQuotedBlanksCommasAndEscapedQuotes) {
    auto list = read<std::vector<std::string>>(MFStringType, "[ \"a b\", \"c,d\" \"e\\\"f\" ]");
    ASSERT_EQ(list.size(), 3u);
    EXPECT_STREQ(list[0].c_str(), "a b");
    EXPECT_STREQ(list[1].c_str(), "c,d");
    EXPECT_STREQ(list[2].c_str(), "e\"f");
    EXPECT_EQ(write(&list, MFStringType), "[ \"a b\", \"c,d\", \"e\\\"f\", ]");
    std::string text = "[\"" + std::string(400, 'q') + "\"]";
    auto longOne = read<std::vector<std::string>>(MFStringType, text.c_str());
    ASSERT_EQ(longOne.size(), 1u);
    EXPECT_EQ(std::strlen(longOne[0].c_str()), 400u);  // not cut
}

TEST_F(FieldText, MultipleValueOutputFormsReadBackAndOverlongOutputIsCut) {
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

    std::vector<int> many(20000, -1234567);
    CaptureStderr();
    std::string cut = write(&many, MFInt32Type);
    EXPECT_EQ(GetCapturedStderr(), "\nMessage:  Field text cut at 99999 characters\n\n");
    EXPECT_EQ(cut.size(), static_cast<size_t>(kFieldTextBufferSize - 1));
}

TEST(FieldTextRuntime, RuntimeFieldsConvertThroughTheBrowser) {
    znBrowserIntern browser(nullptr);
    znSFImage image(&browser);
    image.setData("1 1 1 0xFF");
    image.setData("2 1 1 0x01 0x02");  // a load appends pixels
    EXPECT_EQ(image.getWidth(), 2);
    std::vector<int> pixels;
    image.getPixels(pixels);
    EXPECT_EQ(pixels, (std::vector<int>{0xFF, 1, 2}));
    char* text = image.toString();
    EXPECT_STREQ(text, "2 1 1 0xFF 0x1 0x2 ");
    free(text);

    // A virtual field's text shows its local copy.
    znSFInt32 real(&browser), outer(&browser);
    std::vector<znField*> remote{&real};
    outer.addRemoteData(&remote);
    outer.setValue(3);
    real.setValue(8);
    EXPECT_EQ(outer.getValue(), 8);
    text = outer.toString();
    EXPECT_STREQ(text, "3");
    free(text);

    znMFFloat list(&browser);
    list.setData("[1 2]");
    list.setData("[3]");  // text replaces the list
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
        expectStrtod(text);
    }
    // Forms that the quick path leaves to the library, and prefixes.
    for (const char* text : {"0x1p3", "1e", "1.5e+", "-0", "0.000000000000000000000000001", "1e23", "5.", ".25",
                             "12abc", "123456789012345678901234567890"})
        expectStrtod(text);
}
