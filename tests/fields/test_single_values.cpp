// Single values, plain and runtime: forwarding to real fields, raw loads,
// empty texts and the detached clone.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#include "fields/all.h"
#include "recording_browser.h"

using wrltest::RecordingBrowser;

TEST(PlainValue, IsAlwaysDirtyAndItsCloneIsIndependent) {
    SFFloat f;
    EXPECT_EQ(f.getType(), -1);
    f.makeClean();
    EXPECT_EQ(f.isDirty(), 1);
    EXPECT_EQ(f.toString(), nullptr);

    SFRotation r(1, 0, 0, 0.5f);
    Field* c = r.clone();
    r.setValue(0, 1, 0, 2);
    auto* copy = dynamic_cast<SFRotation*>(c);
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->getAxisX(), 1.0f);
    EXPECT_EQ(copy->getRotation(), 0.5f);
    delete c;

    // A string counts its terminator; a short vector sets the count.
    SFString s;
    char text[] = "abc";
    s.setValue(text);
    std::string* stored = nullptr;
    s.getValue(&stored);
    EXPECT_EQ(stored->size(), 4u);
    SFVec3f v;
    std::vector<float> two{1, 2};
    v.setValue(two);
    _znArray<float>* raw = nullptr;
    v.getValue(&raw);
    EXPECT_EQ(raw->count, 2);
    EXPECT_EQ(v.getZ(), 0.0f);
}

TEST(RuntimeForwarding, WriteReachesEveryRealFieldAndPostsForEach) {
    RecordingBrowser browser;
    znSFFloat a(&browser), b(&browser), outer(&browser);
    a.setEventIndex(1);
    b.setEventIndex(2);
    outer.setEventIndex(3);
    std::vector<znField*> remote{&a, &b};
    outer.addRemoteData(&remote);
    outer.setValue(4.5f);
    EXPECT_EQ(a.getValue(), 4.5f);
    EXPECT_EQ(b.getValue(), 4.5f);
    EXPECT_EQ(outer.SFFloat::getValue(), 4.5f);
    ASSERT_EQ(browser.posted.size(), 3u);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(browser.posted[i].index, i + 1);
}

TEST(RuntimeForwarding, ReadsAskTheFirstRealFieldAndEveryWriteFormForwards) {
    znSFInt32 real(nullptr), outer(nullptr);
    std::vector<znField*> remote{&real};
    outer.addRemoteData(&remote);
    real.setValue(42);
    EXPECT_EQ(outer.getValue(), 42);
    EXPECT_EQ(*static_cast<int*>(outer.getData()), 42);
    int v = 5;
    outer.setData(&v);
    EXPECT_EQ(real.getValue(), 5);
    outer.makeClean();
    outer.setData(static_cast<void*>(nullptr));  // only marks dirty
    EXPECT_EQ(real.getValue(), 5);
    EXPECT_EQ(outer.isDirty(), 1);

    znSFVec3f realVec(nullptr), outerVec(nullptr);
    std::vector<znField*> vecs{&realVec};
    outerVec.addRemoteData(&vecs);
    SFVec3f value(1, 2, 3);
    outerVec = znSFVec3f(value);
    EXPECT_EQ(realVec.getY(), 2.0f);
}

TEST(RuntimeForwarding, VirtualImageIsItsRealFieldAndWritesOnlyThere) {
    RecordingBrowser browser;
    znSFImage real(&browser), outer(&browser);
    real.setEventIndex(8);
    outer.setEventIndex(9);
    std::vector<znField*> remote{&real};
    outer.addRemoteData(&remote);
    EXPECT_EQ(outer.toField(), static_cast<Field*>(&real));
    std::vector<int> pixels{7};
    outer.setValue(1, 1, 1, pixels);
    EXPECT_EQ(real.getWidth(), 1);
    ASSERT_EQ(browser.posted.size(), 1u);
    EXPECT_EQ(browser.posted[0].index, 8);

    znSFBool realBool(nullptr), outerBool(nullptr);
    std::vector<znField*> bools{&realBool};
    outerBool.addRemoteData(&bools);
    EXPECT_EQ(outerBool.toField(), static_cast<Field*>(&outerBool));
}

TEST(RuntimeClone, CloneIsPlainAndDetached) {
    znSFInt32 f(nullptr);
    FieldFlags flags;
    f.setType(SFInt32Type, field, flags);
    f.setValue(3);
    Field* c = f.clone();
    EXPECT_EQ(c->getType(), -1);
    EXPECT_EQ(dynamic_cast<znField*>(c), nullptr);
    EXPECT_EQ(static_cast<SFInt32*>(c)->getValue(), 3);
    delete c;
}

TEST(RuntimeText, EmptyTextResetsDefaultsButAnImageKeepsItsPixels) {
    znSFRotation r(nullptr);
    r.setValue(1, 0, 0, 3);
    r.setData("");
    EXPECT_EQ(r.getAxisX(), 0.0f);
    EXPECT_EQ(r.getAxisZ(), 1.0f);
    znSFString s(nullptr);
    char text[] = "abc";
    s.setValue(text);
    s.setData(static_cast<const char*>(nullptr));
    std::string* stored = nullptr;
    s.getValue(&stored);
    EXPECT_EQ(*stored, std::string(257, '\0'));

    znSFImage image(nullptr);
    std::vector<int> pixels{1, 2};
    image.setValue(2, 1, 1, pixels);
    image.setData("");
    EXPECT_EQ(image.getWidth(), 0);
    std::vector<int> kept;
    image.getPixels(kept);
    EXPECT_EQ(kept.size(), 2u);
}
