// VrmlNodeType's tables on their own: kinds, tokens and IS rules.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#include "parser/parser.hpp"
#include "parser/vrmlnode.h"
#include "parser/zn_lexer.h"

TEST(DeclaredTypes, ExposedFieldHasASetHalfAndNoChangedHalf) {
    VrmlNodeType t("T", nullptr);
    t.addExposedField("x", SFFLOAT);
    EXPECT_EQ(t.hasField("x"), SFFLOAT);
    EXPECT_EQ(t.hasEventIn("set_x"), SFFLOAT);
    EXPECT_EQ(t.hasEventOut("x_changed"), 0);
    int type = 0;
    EXPECT_EQ(t.getFieldType("x", &type), 3);
    EXPECT_EQ(type, SFFLOAT);
    EXPECT_EQ(t.hasExposedField("x"), 0);
}

TEST(DeclaredTypes, KindMasks) {
    VrmlNodeType t("T", nullptr);
    t.addField("f", SFINT32);
    t.addEventIn("i", SFBOOL);
    t.addEventOut("o", SFTIME);
    int type = 0;
    EXPECT_EQ(t.getFieldType("f", &type), 1);
    EXPECT_EQ(t.getFieldType("i", &type), 2);
    EXPECT_EQ(type, SFBOOL);
    EXPECT_EQ(t.getFieldType("o", &type), 4);
    EXPECT_EQ(t.getFieldType("none", &type), 0);
}

TEST(DeclaredTypes, FirstDeclarationOfANameWins) {
    VrmlNodeType t("T", nullptr);
    t.addField("f", SFINT32);
    t.addField("f", SFFLOAT);
    EXPECT_EQ(t.hasField("f"), SFINT32);
    EXPECT_EQ(t.setField("f", znCopyText("3")), 1);
    EXPECT_STREQ(t.fields->front()->value, "3");
    EXPECT_EQ(t.fields->size(), 1u);
}

TEST(DeclaredTypes, TokenToFieldTypeNumbers) {
    EXPECT_EQ(VrmlNodeType::getTypeJX(SFBOOL), 20);
    EXPECT_EQ(VrmlNodeType::getTypeJX(MFINT32), 33);
    EXPECT_EQ(VrmlNodeType::getTypeJX(MFNODE), 34);
    EXPECT_EQ(VrmlNodeType::getTypeJX(MFROTATION), 35);
    EXPECT_EQ(VrmlNodeType::getTypeJX(MFVEC3F), 39);
    EXPECT_EQ(VrmlNodeType::getTypeJX(SFBOOL - 1), -1);
    EXPECT_EQ(VrmlNodeType::getTypeJX(MFNODE + 1), -1);
    EXPECT_STREQ(VrmlNodeType::getTypeString(MFNODE), "MFNODE");
}

TEST(DeclaredTypes, InstanceCopyTakesDefaultsNotBindings) {
    VrmlNodeType t("T", nullptr);
    t.addField("f", SFINT32);
    t.setField("f", znCopyText("7"));
    EXPECT_EQ(t.setFieldIS("f", "P", "g", SFINT32, 1), 1);
    VrmlNodeType first(t, nullptr);
    VrmlNodeType second(t, nullptr);
    EXPECT_EQ(second.instanceNumber, 3);
    EXPECT_EQ(t.useCount, 3);
    EXPECT_STREQ(first.fields->front()->value, "7");
    EXPECT_TRUE(first.fields->front()->isFields.empty());
}

TEST(DeclaredTypes, IsChecksTheTypeAndKeepsNamesOnce) {
    VrmlNodeType t("T", nullptr);
    t.addField("f", SFINT32);
    EXPECT_EQ(t.setFieldIS("f", "P", "g", SFFLOAT, 1), 0);
    EXPECT_EQ(t.setFieldIS("f", "P", "g", SFINT32, 1), 1);
    EXPECT_EQ(t.setFieldIS("f", "P", "g", SFINT32, 7), 1);
    EXPECT_EQ(t.fields->front()->isFields.size(), 1u);
    EXPECT_EQ(t.setFieldIS("f", "P", "g", SFINT32, 5), -1);
    EXPECT_EQ(t.setFieldIS("f", nullptr, "g", SFINT32, 1), 0);
}
