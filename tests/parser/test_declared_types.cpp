// VrmlNodeType's tables on their own: kinds, tokens and IS rules.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#include "parser/parser.hpp"
#include "parser/vrmlnode.h"
#include "parser/zn_lexer.h"

TEST(DeclaredTypes, KindsAndTheHalvesOfAnExposedField) {
    VrmlNodeType t("T", nullptr);
    t.addExposedField("x", SFFLOAT);
    t.addField("f", SFINT32);
    t.addField("f", SFFLOAT);  // the first declaration of a name wins
    t.addEventIn("i", SFBOOL);
    t.addEventOut("o", SFTIME);
    EXPECT_EQ(t.hasEventIn("set_x"), SFFLOAT);
    EXPECT_EQ(t.hasEventOut("x_changed"), 0);
    int type = 0;
    const std::pair<const char*, int> kinds[] = {{"x", 3}, {"f", 1}, {"i", 2}, {"o", 4}, {"none", 0}};
    for (const auto& [name, kind] : kinds) EXPECT_EQ(t.getFieldType(name, &type), kind) << name;
    EXPECT_EQ(t.hasField("f"), SFINT32);
    EXPECT_EQ(t.setField("f", znCopyText("3")), 1);
    EXPECT_EQ(VrmlNodeType::getTypeJX(MFNODE), 34);
    EXPECT_EQ(VrmlNodeType::getTypeJX(MFNODE + 1), -1);
}

TEST(DeclaredTypes, IsChecksTheTypeKeepsNamesOnceAndInstancesTakeDefaultsOnly) {
    VrmlNodeType t("T", nullptr);
    t.addField("f", SFINT32);
    t.setField("f", znCopyText("7"));
    EXPECT_EQ(t.setFieldIS("f", "P", "g", SFFLOAT, 1), 0);
    EXPECT_EQ(t.setFieldIS("f", "P", "g", SFINT32, 1), 1);
    EXPECT_EQ(t.setFieldIS("f", "P", "g", SFINT32, 7), 1);
    EXPECT_EQ(t.fields->front()->isFields.size(), 1u);
    EXPECT_EQ(t.setFieldIS("f", "P", "g", SFINT32, 5), -1);
    EXPECT_EQ(t.setFieldIS("f", nullptr, "g", SFINT32, 1), 0);
    VrmlNodeType first(t, nullptr);
    VrmlNodeType second(t, nullptr);
    EXPECT_EQ(second.instanceNumber, 3);
    EXPECT_STREQ(first.fields->front()->value, "7");
    EXPECT_TRUE(first.fields->front()->isFields.empty());
}
