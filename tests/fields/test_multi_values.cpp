// Multiple values: the bounds messages word for word, gap filling, removal
// at the edges, and forwarding of list writes.
#include <gtest/gtest.h>

#include <string>

#include <sys/resource.h>

#include "fields/all.h"
#include "recording_browser.h"

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

namespace {

// Runs `op`, expects the bounds exception and answers its text.
template <class Op>
std::string boundsText(Op op) {
    CaptureStderr();
    std::string text = "<no exception>";
    try {
        op();
    } catch (ArrayIndexOutOfBoundsException& e) {
        text = e.text;
    }
    std::string err = GetCapturedStderr();
    if (text != "<no exception>") {
        EXPECT_EQ(err, "\nThrowing Exception: " + text + "\n");
    }
    return text;
}

}  // namespace

TEST(MFBounds, Get1ValueOnEmptyList) {
    MFInt32 list;
    EXPECT_EQ(boundsText([&] { list.get1Value(0); }),
              "Array index out of bounds in MFInt32.get1Value():  index=0");
}

TEST(MFBounds, Set1ValueSpacingDiffersBetweenArrayAndListClasses) {
    MFColor colors;
    SFColor c(1, 0, 0);
    EXPECT_EQ(boundsText([&] { colors.set1Value(-1, c); }),
              "Array index out of bounds in MFColor.set1Value(): index=-1");
    MFFloat floats;
    EXPECT_EQ(boundsText([&] { floats.set1Value(-1, 2.0f); }),
              "Array index out of bounds in MFFloat.set1Value():  index=-1");
}

TEST(MFBounds, InsertValueMessage) {
    MFVec3f list;
    SFVec3f v;
    EXPECT_EQ(boundsText([&] { list.insertValue(-2, v); }),
              "Array index out of bounds in MFVec3f.insertValue(): index=-2");
}

TEST(MFBounds, SetValueWithWholeSizeThrows) {
    MFFloat list;
    std::vector<float> three{1, 2, 3};
    EXPECT_EQ(boundsText([&] { list.setValue(3, three); }),
              "Array index out of bounds in MFFloat.setValue():  size=3");
    std::vector<float> four{1, 2, 3, 4};
    list.setValue(3, four);
    EXPECT_EQ(list.getSize(), 3);
    EXPECT_EQ(list.get1Value(2), 3.0f);
}

TEST(MFBounds, StringCharFormsRefuseTheEnd) {
    MFString list;
    char a[] = "a";
    list.addValue(a);
    list.addValue(a);
    list.addValue(a);
    EXPECT_EQ(boundsText([&] { list.set1Value(3, a); }),
              "Array index out of bounds in MFString.set1Value():  index=3");
    EXPECT_EQ(boundsText([&] { list.insertValue(3, a); }),
              "Array index out of bounds in MFString.insertValue(): index=3");
    std::string s = "b";
    list.set1Value(3, s);
    EXPECT_EQ(list.getSize(), 4);
}

TEST(MFBounds, NodeListGet1ValueNamesItsClass) {
    MFNode list;
    EXPECT_EQ(boundsText([&] { list.get1Value(1); }),
              "Array index out of bounds in MFNode.get1Value():  index=1");
}

TEST(MFGapFilling, Set1ValueBeyondEndGrowsToIndexPlusOne) {
    MFInt32 list;
    list.set1Value(5, 9);
    EXPECT_EQ(list.getSize(), 6);
    EXPECT_EQ(list.get1Value(5), 9);
}

TEST(MFGapFilling, InsertValueAtTheEndPutsFillerLast) {
    MFFloat list;
    list.addValue(1.0f);
    list.addValue(2.0f);
    list.insertValue(2, 7.0f);
    EXPECT_EQ(list.getSize(), 4);
    EXPECT_EQ(list.get1Value(2), 7.0f);
}

TEST(MFGapFilling, ArrayElementsGrowAndTakeWidth) {
    MFVec2f list;
    SFVec2f v(1, 2);
    list.set1Value(2, v);
    EXPECT_EQ(list.getSize(), 3);
    float out[2];
    list.get1Value(2, out);
    EXPECT_EQ(out[1], 2.0f);
}

TEST(MFGapFilling, SeparateFloatFormOutOfRangeDoesNothing) {
    wrltest::RecordingBrowser browser;
    znMFColor list(&browser);
    list.setEventIndex(1);
    list.set1Value(0, 1.0f, 1.0f, 1.0f);
    EXPECT_EQ(list.getSize(), 0);
    EXPECT_TRUE(browser.posted.empty());
}

TEST(MFRemove, OutOfRangeDropsTheLast) {
    MFInt32 list;
    for (int i = 1; i <= 3; ++i) list.addValue(i);
    list.remove(100);
    ASSERT_EQ(list.getSize(), 2);
    EXPECT_EQ(list.get1Value(1), 2);
    list.remove(0);
    EXPECT_EQ(list.get1Value(0), 2);
}

TEST(MFRemove, EmptyListStaysEmpty) {
    MFString list;
    list.remove(0);
    EXPECT_EQ(list.getSize(), 0);
}

TEST(MFRead, GetValueStopsAtTheSize) {
    MFTime list;
    list.addValue(2.0);
    double out[2] = {0, -5};
    list.getValue(2, out);
    EXPECT_EQ(out[0], 2.0);
    EXPECT_EQ(out[1], -5.0);
}

TEST(MFRead, ArrayFloatCountsFloats) {
    MFVec3f list;
    float in[6] = {1, 2, 3, 4, 5, 6};
    list.setValue(6, in);
    float out[4] = {};
    list.getValue(4, out);
    EXPECT_EQ(out[3], 4.0f);
    std::vector<float> flat;
    list.getValue(flat);
    EXPECT_EQ(flat.size(), 6u);
}

TEST(MFWrite, FloatVectorFormDropsIncompleteGroup) {
    MFRotation list;
    std::vector<float> v{0, 0, 1, 0, 1, 1};
    list.setValue(0, v);
    EXPECT_EQ(list.getSize(), 1);
}

TEST(MFWrite, FloatPointerFormTakesWholeLastElement) {
    MFVec2f list;
    float in[4] = {1, 2, 3, 4};
    list.setValue(3, in);
    EXPECT_EQ(list.getSize(), 2);
}

TEST(MFRuntime, FailingRealFieldStopsTheWrite) {
    wrltest::RecordingBrowser browser;
    znMFFloat real(&browser), outer(&browser);
    outer.setEventIndex(4);
    std::vector<znField*> remote{&real};
    outer.addRemoteData(&remote);
    CaptureStderr();
    EXPECT_THROW(outer.set1Value(-1, 1.0f), ArrayIndexOutOfBoundsException);
    GetCapturedStderr();
    EXPECT_TRUE(browser.posted.empty());
}

TEST(MFRuntime, WritesReachRealFieldsAndReadsComeFromThem) {
    znMFString real(nullptr), outer(nullptr);
    std::vector<znField*> remote{&real};
    outer.addRemoteData(&remote);
    std::string s = "x";
    outer.addValue(s);
    EXPECT_EQ(real.getSize(), 1);
    real.addValue(s);
    EXPECT_EQ(outer.getSize(), 2);
}

TEST(MFRuntime, EmptyTextClearsAndNullRawLeaves) {
    znMFString list(nullptr);
    std::string s = "x";
    list.addValue(s);
    list.setData(static_cast<void*>(nullptr));
    EXPECT_EQ(list.getSize(), 1);
    list.setData("");
    EXPECT_EQ(list.getSize(), 0);
}

TEST(ContainerMemory, ExhaustedMemoryEndsWithMessage) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the sanitizer's allocator reports instead of failing";
#else
    // A small address space makes the growth fail quickly.
    auto grow = [] {
        struct rlimit limit;
        limit.rlim_cur = limit.rlim_max = 256u << 20;
        setrlimit(RLIMIT_AS, &limit);
        MFInt32 list;
        list.set1Value(0x7ffffff0, 1);
    };
    EXPECT_EXIT(grow(), testing::ExitedWithCode(1), "out of memory");
#endif
}
