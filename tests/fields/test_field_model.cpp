// The bookkeeping side of runtime fields: IS links, event indexes, posting
// with dirty marks, copying and the factory.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "fields/all.h"
#include "nodes/zn_node.h"
#include "nodes/zn_nodetype.h"
#include "recording_browser.h"

using wrltest::RecordingBrowser;

namespace {

znField* make(Browser* b, FieldType t, DataType k = field, const char* value = nullptr, znNode* node = nullptr) {
    FieldFlags flags;
    return znField::newField(b, node, t, k, flags, value, nullptr);
}

}  // namespace

TEST(FieldRemote, VirtualFieldsNameTheirRealFieldsAndTakeRemoteIndexesOnce) {
    znSFFloat real(nullptr), outer(nullptr), plain(nullptr);
    std::vector<znField*> remote{&real};
    outer.addRemoteData(&remote);
    EXPECT_EQ(outer.isVirtual(), 1);
    std::vector<znField*> got;
    outer.getRealData(&got);
    EXPECT_EQ(got, std::vector<znField*>{&real});
    got.clear();
    plain.getRealData(&got);
    EXPECT_EQ(got, std::vector<znField*>{&plain});
    EXPECT_EQ(plain.isVirtual(), 0);

    // An empty list still makes the field virtual and it reads safely; a
    // null list is ignored.
    znSFInt32 empty(nullptr), none(nullptr);
    std::vector<znField*> nothing;
    empty.addRemoteData(&nothing);
    empty.setValue(4);
    EXPECT_EQ(empty.isVirtual(), 1);
    EXPECT_EQ(empty.getValue(), 4);
    none.addRemoteData(nullptr);
    EXPECT_EQ(none.isVirtual(), 0);

    RecordingBrowser browser;
    znSFFloat a(&browser), b(&browser), both(&browser);
    b.setEventIndex(7);
    std::vector<znField*> two{&a, &b};
    both.addRemoteData(&two);
    std::vector<int> first, second;
    both.getRemoteIndexes(first);
    both.getRemoteIndexes(second);
    EXPECT_EQ(first, (std::vector<int>{100, 7}));
    EXPECT_EQ(second, first);
}

TEST(FieldRemote, ListsGrowInOrderAndCopiesKeepTheirOwn) {
    znSFFloat a(nullptr), b(nullptr), c(nullptr), d(nullptr), e(nullptr), outer(nullptr);
    // One at a time, as the body nodes of an eventIn add themselves, with a
    // duplicate kept.
    std::vector<znField*> expected;
    for (znField* f : {&a, &b, &c, &b, &d}) {
        std::vector<znField*> one{f};
        outer.addRemoteData(&one);
        expected.push_back(f);
    }
    std::vector<znField*> got;
    outer.getRealData(&got);
    EXPECT_EQ(got, expected);

    znSFFloat copy(outer);
    std::vector<znField*> more{&e};
    outer.addRemoteData(&more);
    copy.getRealData(&got);
    EXPECT_EQ(got, expected);

    // Assignment replaces a longer list and a shorter one alike.
    znSFFloat shortList(nullptr);
    std::vector<znField*> single{&e};
    shortList.addRemoteData(&single);
    static_cast<znField&>(copy).znField::operator=(shortList);
    copy.getRealData(&got);
    EXPECT_EQ(got, single);
    static_cast<znField&>(shortList).znField::operator=(outer);
    shortList.getRealData(&got);
    expected.push_back(&e);
    EXPECT_EQ(got, expected);
    znSFFloat plain(nullptr);
    static_cast<znField&>(shortList).znField::operator=(plain);
    EXPECT_EQ(shortList.isVirtual(), 0);
}

TEST(FieldPosting, KindDecidesTheDirectionAndNoIndexOnlyMarksFieldAndNodeDirty) {
    RecordingBrowser browser;
    znField* in = make(&browser, SFFloatType, eventIn);
    in->setEventIndex(3);
    in->setEventIndex(9);  // the first index stands for life
    static_cast<znSFFloat*>(in)->setValue(2.5f);
    znField* out = make(&browser, SFInt32Type, field);
    out->setEventIndex(4);
    static_cast<znSFInt32*>(out)->setValue(1);
    ASSERT_EQ(browser.posted.size(), 2u);
    EXPECT_TRUE(browser.posted[0].eventIn);
    EXPECT_EQ(browser.posted[0].index, 3);
    EXPECT_EQ(browser.posted[0].time, -1.0);
    EXPECT_EQ(browser.posted[0].value, in->toField());
    EXPECT_FALSE(browser.posted[1].eventIn);
    EXPECT_EQ(browser.posted[1].index, 4);
    delete in;
    delete out;

    browser.posted.clear();
    std::vector<const char*> urls;
    znNodeType type(1, "T", urls, &browser, 0, 0, nullptr);
    znNode node(1, "d00000+N", &type, &browser);
    auto* f = static_cast<znSFFloat*>(make(&browser, SFFloatType, field, nullptr, &node));
    f->makeClean();
    node.makeClean();
    f->setValue(1.0f);
    EXPECT_TRUE(browser.posted.empty());
    EXPECT_EQ(f->isDirty(), 1);
    EXPECT_EQ(node.isDirty(), 1);
    delete f;
}

TEST(FieldPosting, ImagePostsButStaysCleanAndRawSetDataOnlyMarksDirty) {
    RecordingBrowser browser;
    znSFImage image(&browser);
    image.setEventIndex(2);
    image.makeClean();
    std::vector<int> pixels{1, 2};
    image.setValue(2, 1, 1, pixels);
    EXPECT_EQ(browser.posted.size(), 1u);
    EXPECT_EQ(image.isDirty(), 0);

    browser.posted.clear();
    znSFInt32 f(&browser);
    f.setEventIndex(1);
    f.makeClean();
    int v = 9;
    f.setData(&v);
    EXPECT_TRUE(browser.posted.empty());
    EXPECT_EQ(f.getValue(), 9);
    EXPECT_EQ(f.isDirty(), 1);
}

TEST(FieldCopy, CopyKeepsTheBookkeepingAssignmentOnlyTheValue) {
    znSFFloat real(nullptr), source(nullptr);
    std::vector<znField*> remote{&real};
    source.addRemoteData(&remote);
    source.setEventIndex(6);
    source.makeClean();
    znSFFloat copy(source);
    EXPECT_EQ(copy.isDirty(), 1);
    EXPECT_EQ(copy.getEventIndex(), 6);
    EXPECT_EQ(copy.isVirtual(), 1);

    znSFFloat from(nullptr), target(nullptr);
    from.setValue(3.0f);
    from.setEventIndex(6);
    target = from;
    EXPECT_EQ(target.getValue(), 3.0f);
    EXPECT_EQ(target.getEventIndex(), -1);
}

// The sanitizers see that no field frees or keeps another's names.
TEST(FieldCopy, ISNamesHeldAlikeStayEachFieldsOwn) {
    auto namesOf = [](znField& f) {
        std::vector<char*> out;
        f.getISNames(&out);
        std::vector<std::string> names(out.begin(), out.end());
        for (char* name : out) free(name);
        return names;
    };
    char x[] = "x", y[] = "y";
    std::vector<char*> justX{x}, justY{y};
    auto* first = new znSFFloat(nullptr);
    znSFFloat second(nullptr), third(nullptr);
    first->addISNames(&justX);
    second.addISNames(&justX);
    znSFFloat copy(*first);
    delete first;
    EXPECT_EQ(namesOf(second), std::vector<std::string>{"x"});
    EXPECT_EQ(namesOf(copy), std::vector<std::string>{"x"});

    // Adding to one field leaves the others with the same names alone.
    second.addISNames(&justY);
    EXPECT_EQ(namesOf(second), (std::vector<std::string>{"x", "y"}));
    EXPECT_EQ(namesOf(copy), std::vector<std::string>{"x"});
    third.addISNames(&justX);
    third.addISNames(&justY);
    static_cast<znField&>(copy).znField::operator=(third);
    EXPECT_EQ(namesOf(copy), (std::vector<std::string>{"x", "y"}));
    static_cast<znField&>(copy).znField::operator=(copy);
    EXPECT_EQ(namesOf(copy), (std::vector<std::string>{"x", "y"}));
    znSFFloat plain(nullptr);
    static_cast<znField&>(third).znField::operator=(plain);
    EXPECT_TRUE(namesOf(third).empty());
}

TEST(FieldFactory, MakesEveryTypeInBothNumberingsAndNothingAbove39) {
    for (int t = SFBoolType; t <= MFVec3fType; ++t) {
        znField* f = make(nullptr, static_cast<FieldType>(t), eventOut);
        ASSERT_NE(f, nullptr) << t;
        EXPECT_EQ(f->getFieldType(), t);
        EXPECT_EQ(f->getDataType(), eventOut);
        EXPECT_EQ(f->toField()->getType(), t);
        delete f;
    }
    znField* f = make(nullptr, static_cast<FieldType>(0));
    EXPECT_NE(dynamic_cast<znSFBool*>(f), nullptr);
    delete f;
    f = make(nullptr, static_cast<FieldType>(19));
    EXPECT_NE(dynamic_cast<znMFVec3f*>(f), nullptr);
    delete f;
    EXPECT_EQ(make(nullptr, static_cast<FieldType>(40)), nullptr);

    auto* t = static_cast<znSFTime*>(make(nullptr, SFTimeType, field, ""));
    EXPECT_EQ(t->getValue(), -1.0);
    EXPECT_EQ(t->isDirty(), 1);
    delete t;
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
