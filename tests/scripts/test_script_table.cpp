// The language table: fixed IDs, flags and the lookups.
#include <gtest/gtest.h>

#include "loader/zn.h"
#include "scripts/zn_cppsi.h"
#include "scripts/zn_scriptinterfaces.h"

namespace {

char* runNothing(znBrowser*, char*) { return nullptr; }
znScriptConstructor noConstructor(char*) { return nullptr; }

}  // namespace

TEST(ScriptTable, AddAnswersTheFixedLanguageIDs) {
    znScriptInterfaces table(nullptr);
    EXPECT_EQ(table.add(newZnCPPSI, "so", nullptr, nullptr, nullptr, nullptr, 1), 1);
    EXPECT_EQ(table.add(newZnCPPSI, "js", nullptr, "javascript:", nullptr, nullptr, 1), 2);
    EXPECT_EQ(table.add(newZnCPPSI, "class", nullptr, nullptr, nullptr, nullptr, 1), 3);
    EXPECT_EQ(table.add(newZnCPPSI, "tcl", nullptr, nullptr, nullptr, nullptr, 1), 0);
    EXPECT_EQ(table.add(newZnCPPSI, "dll", nullptr, nullptr, nullptr, nullptr, 1), 0);
    EXPECT_EQ(table.getID("dll"), 1);
    // Other names are numbered by the count of additions.
    EXPECT_EQ(table.getID("tcl"), 4);
    EXPECT_EQ(table.getID("never"), 0);
}

TEST(ScriptTable, EnableChangesTheFlagOfAKnownIDOnly) {
    znScriptInterfaces table(nullptr);
    EXPECT_EQ(table.isEnabled(99), -1);
    table.enable(99, 0);
    EXPECT_EQ(table.isEnabled(99), -1);
    table.add(newZnCPPSI, "so", nullptr, nullptr, nullptr, nullptr, 1);
    table.enable(1, 0);
    EXPECT_EQ(table.isEnabled(1), 0);
    table.add(newZnCPPSI, "js", nullptr, nullptr, nullptr, nullptr, 0);
    EXPECT_EQ(table.isEnabled(2), 0);
}

TEST(ScriptTable, LookupsFindTheRowByExtensionOrPrefix) {
    znScriptInterfaces table(nullptr);
    table.add(newZnCPPSI, "so", noConstructor, nullptr, nullptr, nullptr, 1);
    table.add(nullptr, "js", nullptr, "javascript:", runNothing, nullptr, 1);
    EXPECT_EQ(findInterface("so"), &newZnCPPSI);
    EXPECT_EQ(findNodeConst("so"), &noConstructor);
    EXPECT_EQ(findScriptExec("js"), &runNothing);
    EXPECT_STREQ(findExtension("javascript:"), "js");
    EXPECT_EQ(findExtension("vrmlscript:"), nullptr);
    EXPECT_EQ(findInterface("END"), nullptr) << "the end row is never a language";
}

TEST(ScriptTable, ANewSystemObjectStartsTheTableAfresh) {
    ZN first(0);
    first.scriptInterfaces->add(newZnCPPSI, "so", nullptr, nullptr, nullptr, nullptr, 1);
    ZN second(0);
    EXPECT_EQ(findInterface("so"), nullptr);
    EXPECT_EQ(findScriptExec("so"), nullptr);
    EXPECT_EQ(findExtension(""), nullptr);
    znReleaseParts(second);
    znReleaseParts(first);
}
