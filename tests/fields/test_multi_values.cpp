// Multiple values: the bounds messages word for word, gap filling, removal
// at the edges, and forwarding of list writes.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include <sys/resource.h>

#include "test_support.h"
#include "fields/all.h"
#include "recording_browser.h"

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

TEST(MFBounds, EachClassAndMethodNamesItselfInTheMessage) {
    MFInt32 ints;
    MFColor colors;
    SFColor red(1, 0, 0);
    MFFloat floats;
    MFVec3f vectors;
    SFVec3f v;
    MFNode nodes;
    MFString strings;
    char a[] = "a";
    for (int i = 0; i < 3; ++i) strings.addValue(a);
    std::vector<float> three{1, 2, 3};
    // The spacing before "index" differs between the array and list classes.
    const std::pair<std::function<void()>, const char*> cases[] = {
        {[&] { ints.get1Value(0); }, "Array index out of bounds in MFInt32.get1Value():  index=0"},
        {[&] { colors.set1Value(-1, red); }, "Array index out of bounds in MFColor.set1Value(): index=-1"},
        {[&] { floats.set1Value(-1, 2.0f); }, "Array index out of bounds in MFFloat.set1Value():  index=-1"},
        {[&] { vectors.insertValue(-2, v); }, "Array index out of bounds in MFVec3f.insertValue(): index=-2"},
        {[&] { floats.setValue(3, three); }, "Array index out of bounds in MFFloat.setValue():  size=3"},
        {[&] { strings.set1Value(3, a); }, "Array index out of bounds in MFString.set1Value():  index=3"},
        {[&] { strings.insertValue(3, a); }, "Array index out of bounds in MFString.insertValue(): index=3"},
        {[&] { nodes.get1Value(1); }, "Array index out of bounds in MFNode.get1Value():  index=1"},
    };
    for (const auto& [op, message] : cases) {
        SCOPED_TRACE(message);
        CaptureStderr();
        std::string text = "<no exception>";
        try {
            op();
        } catch (ArrayIndexOutOfBoundsException& e) {
            text = e.text;
        }
        EXPECT_EQ(text, message);
        EXPECT_EQ(GetCapturedStderr(), "\nThrowing Exception: " + std::string(message) + "\n");
    }
    // A longer vector sets the first `size`; the string form may add at the end.
    std::vector<float> four{1, 2, 3, 4};
    floats.setValue(3, four);
    EXPECT_EQ(floats.getSize(), 3);
    EXPECT_EQ(floats.get1Value(2), 3.0f);
    std::string s = "b";
    strings.set1Value(3, s);
    EXPECT_EQ(strings.getSize(), 4);
}

TEST(MFGapFilling, WritesBeyondTheEndGrowTheList) {
    MFInt32 ints;
    ints.set1Value(5, 9);
    EXPECT_EQ(ints.getSize(), 6);
    EXPECT_EQ(ints.get1Value(5), 9);

    MFFloat floats;
    floats.addValue(1.0f);
    floats.addValue(2.0f);
    floats.insertValue(2, 7.0f);  // the filler goes last
    EXPECT_EQ(floats.getSize(), 4);
    EXPECT_EQ(floats.get1Value(2), 7.0f);

    MFVec2f vectors;
    SFVec2f v(1, 2);
    vectors.set1Value(2, v);
    EXPECT_EQ(vectors.getSize(), 3);
    float out[2];
    vectors.get1Value(2, out);
    EXPECT_EQ(out[1], 2.0f);

    // The form with separate floats does nothing out of range.
    wrltest::RecordingBrowser browser;
    znMFColor colors(&browser);
    colors.setEventIndex(1);
    colors.set1Value(0, 1.0f, 1.0f, 1.0f);
    EXPECT_EQ(colors.getSize(), 0);
    EXPECT_TRUE(browser.posted.empty());
}

TEST(MFEdges, RemoveReadAndWriteStopAtTheEnds) {
    MFInt32 list;
    for (int i = 1; i <= 3; ++i) list.addValue(i);
    list.remove(100);  // out of range drops the last
    ASSERT_EQ(list.getSize(), 2);
    EXPECT_EQ(list.get1Value(1), 2);
    list.remove(0);
    EXPECT_EQ(list.get1Value(0), 2);
    MFString empty;
    empty.remove(0);
    EXPECT_EQ(empty.getSize(), 0);

    MFTime times;
    times.addValue(2.0);
    double read[2] = {0, -5};
    times.getValue(2, read);
    EXPECT_EQ(read[0], 2.0);
    EXPECT_EQ(read[1], -5.0);

    MFVec3f vectors;
    float in[6] = {1, 2, 3, 4, 5, 6};
    vectors.setValue(6, in);
    float some[4] = {};
    vectors.getValue(4, some);  // counts floats, not elements
    EXPECT_EQ(some[3], 4.0f);

    MFRotation rotations;
    std::vector<float> partial{0, 0, 1, 0, 1, 1};
    rotations.setValue(0, partial);  // the incomplete group is dropped
    EXPECT_EQ(rotations.getSize(), 1);
    MFVec2f pairs;
    float three[4] = {1, 2, 3, 4};
    pairs.setValue(3, three);  // the pointer form takes the whole last element
    EXPECT_EQ(pairs.getSize(), 2);
}

TEST(MFRuntime, WritesReachRealFieldsAndAFailingOneStopsThePost) {
    znMFString real(nullptr), outer(nullptr);
    std::vector<znField*> remote{&real};
    outer.addRemoteData(&remote);
    std::string s = "x";
    outer.addValue(s);
    EXPECT_EQ(real.getSize(), 1);
    real.addValue(s);
    EXPECT_EQ(outer.getSize(), 2);
    outer.setData(static_cast<void*>(nullptr));  // a null raw value leaves the list
    EXPECT_EQ(outer.getSize(), 2);
    outer.setData("");
    EXPECT_EQ(outer.getSize(), 0);

    wrltest::RecordingBrowser browser;
    znMFFloat target(&browser), forwarding(&browser);
    forwarding.setEventIndex(4);
    std::vector<znField*> targets{&target};
    forwarding.addRemoteData(&targets);
    wrltest::stderrOf([&] { EXPECT_THROW(forwarding.set1Value(-1, 1.0f), ArrayIndexOutOfBoundsException); });
    EXPECT_TRUE(browser.posted.empty());
}

TEST(ContainerMemory, ExhaustedMemoryThrowsAndEndsNothingElse) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the sanitizer's allocator reports instead of failing";
#else
    // A small address space makes the growth fail quickly; the child
    // process tells by its status that the allocation threw.
    auto grow = [] {
        struct rlimit limit;
        limit.rlim_cur = limit.rlim_max = 256u << 20;
        setrlimit(RLIMIT_AS, &limit);
        MFInt32 list;
        try {
            list.set1Value(0x7ffffff0, 1);
        } catch (const std::bad_alloc&) {
            std::_Exit(7);
        }
        std::_Exit(0);
    };
    EXPECT_EXIT(grow(), testing::ExitedWithCode(7), "");
#endif
}
