// The bookkeeping side of runtime fields: IS links, event indexes, posting,
// copying, the factory and the printed names of types and kinds.
#include <gtest/gtest.h>

#include <cstring>
#include <sstream>

#include "fields/all.h"
#include "nodes/zn_node.h"
#include "nodes/zn_nodetype.h"
#include "recording_browser.h"

using wrltest::RecordingBrowser;

namespace {

znField* make(Browser* b, FieldType t, DataType k = field, const char* value = nullptr) {
    FieldFlags flags;
    return znField::newField(b, nullptr, t, k, flags, value, nullptr);
}

}  // namespace

TEST(FieldEventIndex, FirstIndexStandsForLife) {
    znSFFloat f(nullptr);
    f.setEventIndex(5);
    f.setEventIndex(9);
    EXPECT_EQ(f.getEventIndex(), 5);
}

TEST(FieldRemote, VirtualFieldNamesItsRealFields) {
    znSFFloat real(nullptr), outer(nullptr), plain(nullptr);
    std::vector<znField*> remote{&real};
    outer.addRemoteData(&remote);
    EXPECT_EQ(outer.isVirtual(), 1);
    std::vector<znField*> got;
    outer.getRealData(&got);
    ASSERT_EQ(got.size(), 1u);
    EXPECT_EQ(got[0], &real);
    got.clear();
    plain.getRealData(&got);
    ASSERT_EQ(got.size(), 1u);
    EXPECT_EQ(got[0], &plain);
    EXPECT_EQ(plain.isVirtual(), 0);
}

TEST(FieldRemote, EmptyRemoteListStillMakesVirtualAndReadsSafely) {
    znSFInt32 f(nullptr);
    std::vector<znField*> none;
    f.addRemoteData(&none);
    EXPECT_EQ(f.isVirtual(), 1);
    f.setValue(4);
    EXPECT_EQ(f.getValue(), 4);
}

TEST(FieldRemote, NullRemoteListIsIgnored) {
    znSFInt32 f(nullptr);
    f.addRemoteData(nullptr);
    EXPECT_EQ(f.isVirtual(), 0);
}

TEST(FieldRemote, RemoteIndexesAreHandedOutOnceFromTheBrowser) {
    RecordingBrowser browser;
    znSFFloat a(&browser), b(&browser), outer(&browser);
    b.setEventIndex(7);
    std::vector<znField*> remote{&a, &b};
    outer.addRemoteData(&remote);
    std::vector<int> first, second;
    outer.getRemoteIndexes(first);
    outer.getRemoteIndexes(second);
    EXPECT_EQ(first, (std::vector<int>{100, 7}));
    EXPECT_EQ(second, first);
}

TEST(FieldISNames, NamesAreCopiedInAndOut) {
    znSFFloat f(nullptr);
    char a[] = "alpha", b[] = "beta";
    std::vector<char*> names{a, b};
    f.addISNames(&names);
    std::vector<char*> out;
    f.getISNames(&out);
    ASSERT_EQ(out.size(), 2u);
    EXPECT_STREQ(out[0], "alpha");
    EXPECT_NE(out[0], a);
    for (char* n : out) free(n);
}

TEST(FieldPosting, EventInPostsInWithNowTimeStamp) {
    RecordingBrowser browser;
    znField* f = make(&browser, SFFloatType, eventIn);
    f->setEventIndex(3);
    static_cast<znSFFloat*>(f)->setValue(2.5f);
    ASSERT_EQ(browser.posted.size(), 1u);
    EXPECT_TRUE(browser.posted[0].eventIn);
    EXPECT_EQ(browser.posted[0].index, 3);
    EXPECT_EQ(browser.posted[0].time, -1.0);
    EXPECT_EQ(browser.posted[0].value, f->toField());
    delete f;
}

TEST(FieldPosting, FieldAndEventOutPostOut) {
    RecordingBrowser browser;
    znField* f = make(&browser, SFInt32Type, field);
    f->setEventIndex(4);
    static_cast<znSFInt32*>(f)->setValue(1);
    ASSERT_EQ(browser.posted.size(), 1u);
    EXPECT_FALSE(browser.posted[0].eventIn);
    delete f;
}

TEST(FieldPosting, NoIndexPostsNothingButMarksFieldAndNodeDirty) {
    RecordingBrowser browser;
    std::vector<const char*> urls;
    znNodeType type(1, "T", urls, &browser, 0, 0, nullptr);
    znNode node(1, "d00000+N", &type, &browser);
    FieldFlags flags;
    znField* f = znField::newField(&browser, &node, SFFloatType, field, flags, nullptr, nullptr);
    static_cast<znSFFloat*>(f)->makeClean();
    node.makeClean();
    static_cast<znSFFloat*>(f)->setValue(1.0f);
    EXPECT_TRUE(browser.posted.empty());
    EXPECT_EQ(static_cast<znSFFloat*>(f)->isDirty(), 1);
    EXPECT_EQ(node.isDirty(), 1);
    delete f;
}

TEST(FieldPosting, ImagePostsButStaysClean) {
    RecordingBrowser browser;
    znSFImage image(&browser);
    image.setEventIndex(2);
    image.makeClean();
    std::vector<int> pixels{1, 2};
    image.setValue(2, 1, 1, pixels);
    EXPECT_EQ(browser.posted.size(), 1u);
    EXPECT_EQ(image.isDirty(), 0);
}

TEST(FieldPosting, RawSetDataPostsNothing) {
    RecordingBrowser browser;
    znSFInt32 f(&browser);
    f.setEventIndex(1);
    f.makeClean();
    int v = 9;
    f.setData(&v);
    EXPECT_TRUE(browser.posted.empty());
    EXPECT_EQ(f.getValue(), 9);
    EXPECT_EQ(f.isDirty(), 1);
}

TEST(FieldCopy, CopyIsDirtyAndSharesRealFieldsAndIndex) {
    znSFFloat real(nullptr), source(nullptr);
    std::vector<znField*> remote{&real};
    source.addRemoteData(&remote);
    source.setEventIndex(6);
    source.makeClean();
    znSFFloat copy(source);
    EXPECT_EQ(copy.isDirty(), 1);
    EXPECT_EQ(copy.getEventIndex(), 6);
    EXPECT_EQ(copy.isVirtual(), 1);
}

TEST(FieldCopy, AssignmentTakesValueOnlyAndKeepsBookkeeping) {
    znSFFloat source(nullptr), target(nullptr);
    source.setValue(3.0f);
    source.setEventIndex(6);
    target = source;
    EXPECT_EQ(target.getValue(), 3.0f);
    EXPECT_EQ(target.getEventIndex(), -1);
}

TEST(FieldCopy, BookkeepingAssignmentCopiesNames) {
    znSFFloat source(nullptr), target(nullptr);
    char a[] = "x";
    std::vector<char*> names{a};
    source.addISNames(&names);
    static_cast<znField&>(target).znField::operator=(source);
    std::vector<char*> out;
    target.getISNames(&out);
    ASSERT_EQ(out.size(), 1u);
    EXPECT_STREQ(out[0], "x");
    free(out[0]);
}

TEST(FieldFactory, MakesEveryTypeWithItsNumber) {
    for (int t = SFBoolType; t <= MFVec3fType; ++t) {
        znField* f = make(nullptr, static_cast<FieldType>(t));
        ASSERT_NE(f, nullptr) << t;
        EXPECT_EQ(f->getFieldType(), t);
        EXPECT_EQ(f->toField()->getType(), t);
        delete f;
    }
}

TEST(FieldFactory, SecondNumberingMakesTheSameClasses) {
    znField* f = make(nullptr, static_cast<FieldType>(0));
    EXPECT_NE(dynamic_cast<znSFBool*>(f), nullptr);
    delete f;
    f = make(nullptr, static_cast<FieldType>(19));
    EXPECT_NE(dynamic_cast<znMFVec3f*>(f), nullptr);
    delete f;
}

TEST(FieldFactory, NumberAbove39MakesNothing) { EXPECT_EQ(make(nullptr, static_cast<FieldType>(40)), nullptr); }

TEST(FieldFactory, EmptyValueResetsToDefaultAndEndsDirty) {
    znField* f = make(nullptr, SFTimeType, field, "");
    auto* t = static_cast<znSFTime*>(f);
    EXPECT_EQ(t->getValue(), -1.0);
    EXPECT_EQ(t->isDirty(), 1);
    delete f;
}

TEST(FieldFactory, InitialValueIsNotForwardedToRealFields) {
    RecordingBrowser browser;
    znSFString real(&browser);
    real.makeClean();
    std::vector<znField*> remote{&real};
    FieldFlags flags;
    znField* f = znField::newField(&browser, nullptr, SFStringType, field, flags, "\"abc\"", &remote);
    EXPECT_EQ(f->isVirtual(), 1);
    EXPECT_EQ(real.isDirty(), 0);
    delete f;
}

TEST(FieldPrinting, TypeNamesArePaddedToElevenColumns) {
    std::ostringstream os;
    os << SFBoolType << "|" << SFRotationType << "|" << MFVec3fType << "|" << static_cast<FieldType>(5) << "|";
    EXPECT_EQ(os.str(), "SFBool     |SFRotation |MFVec3f    ||");
}

TEST(FieldPrinting, KindNamesArePaddedToThirteenColumns) {
    std::ostringstream os;
    os << field << "|" << eventOut << "|" << eventIn << "|";
    EXPECT_EQ(os.str(), "field        |eventOut     |eventIn      |");
}

TEST(FieldPrinting, NullEntryOfAListPrintsTabNull) {
    std::vector<znField*> list{nullptr};
    std::ostringstream os;
    os << list;
    EXPECT_EQ(os.str(), "\tNULL\n");
}
