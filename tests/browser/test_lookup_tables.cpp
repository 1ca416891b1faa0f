// The tables that hold one entry per node: names to numbers and numbers to
// objects. Their faults would show only in big worlds (growth, numbers
// beyond the array), so those paths are driven here directly.
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "base/zn_id_table.h"
#include "base/zn_name_table.h"

namespace {

std::string nodeName(int i) { return "x" + std::to_string(i) + "+Transform_" + std::to_string(i * 7); }

TEST(NameTable, KeepsEveryNameThroughGrowth) {
    znNameTable table;
    const int n = 50000;
    for (int i = 0; i < n; ++i) EXPECT_TRUE(table.insert(nodeName(i), i).second);
    EXPECT_EQ(table.size(), static_cast<size_t>(n));
    for (int i = 0; i < n; ++i) {
        const int* found = table.find(nodeName(i));
        ASSERT_NE(found, nullptr) << i;
        EXPECT_EQ(*found, i);
    }
    EXPECT_EQ(table.find(nodeName(n)), nullptr);
}

TEST(NameTable, InsertKeepsTheFirstAndIndexingReplaces) {
    znNameTable table;
    EXPECT_TRUE(table.insert("A", 1).second);
    auto again = table.insert("A", 2);
    EXPECT_FALSE(again.second);
    EXPECT_EQ(*again.first, 1);
    table["A"] = 3;
    EXPECT_EQ(*table.find("A"), 3);
    EXPECT_EQ(table["B"], 0);  // a new name starts at 0
    EXPECT_EQ(table.size(), 2u);
}

TEST(NameTable, KeptTextsStayWholeAndAreLentOnlyToTheirOwnHead) {
    znNameTable table;
    std::vector<const char*> kept;
    // Enough texts to fill several storage blocks, so that some closing NUL
    // falls at a block's end.
    for (int i = 0; i < 20000; ++i) {
        const std::string text = "d" + std::to_string(i) + "+Shape";
        kept.push_back(table.assignKept(text, i));
        ASSERT_NE(kept.back(), nullptr);
    }
    for (int i = 0; i < 20000; ++i) {
        EXPECT_STREQ(kept[i], ("d" + std::to_string(i) + "+Shape").c_str());
        EXPECT_EQ(*table.find(kept[i] + 1), i);  // the key is the text less its head
    }
    // The same name under the same head: the one text, the latest number.
    EXPECT_EQ(table.assignKept("d7+Shape", 70), kept[7]);
    EXPECT_EQ(*table.find("7+Shape"), 70);
    // Under another head the name is the same key, but its text is not.
    EXPECT_EQ(table.assignKept("x7+Shape", 71), nullptr);
    EXPECT_EQ(*table.find("7+Shape"), 71);
    EXPECT_STREQ(kept[7], "d7+Shape");
    // A name entered without its head has no text to lend.
    table.insert("9+Box", 5);
    EXPECT_EQ(table.assignKept("d9+Box", 6), nullptr);
    EXPECT_EQ(*table.find("9+Box"), 6);
    const std::string longText = "d" + std::string(100000, 'n');
    const char* longKept = table.assignKept(longText, 1);
    ASSERT_NE(longKept, nullptr);
    EXPECT_EQ(std::string(longKept), longText);
    EXPECT_EQ(table.assignKept("", 1), nullptr);
    EXPECT_STREQ(table.assignKept("d", 2), "d");
    EXPECT_EQ(*table.find(""), 2);
    std::size_t seen = 0;
    table.forEach([&](std::string_view name, int) { seen += name.size() == longText.size() - 1 ? 1 : 0; });
    EXPECT_EQ(seen, 1u);
}

TEST(NameTable, TellsApartEmptyPrefixedAndLongNames) {
    znNameTable table;
    const std::string longName(200000, 'n');  // longer than a storage block
    table.insert("", 10);
    table.insert("P", 11);
    table.insert("P_1", 12);
    table.insert(longName, 13);
    table.insert(longName + "x", 14);
    EXPECT_EQ(*table.find(""), 10);
    EXPECT_EQ(*table.find("P"), 11);
    EXPECT_EQ(*table.find("P_1"), 12);
    EXPECT_EQ(table.find("P_"), nullptr);
    EXPECT_EQ(*table.find(longName), 13);
    EXPECT_EQ(*table.find(longName + "x"), 14);
    table.clear();
    EXPECT_TRUE(table.empty());
    EXPECT_EQ(table.find("P"), nullptr);
    table.insert("P", 1);
    EXPECT_EQ(*table.find("P"), 1);
}

TEST(IdTable, NumbersNearAndFarFromTheArray) {
    znIdTable<int> table;
    int objects[6] = {};
    EXPECT_TRUE(table.empty());
    EXPECT_TRUE(table.emplace(1, &objects[0]));
    EXPECT_FALSE(table.emplace(1, &objects[1]));
    EXPECT_EQ(table.find(1), &objects[0]);
    // Far and negative numbers take the other road.
    table.set(INT_MAX, &objects[2]);
    table.set(-5, &objects[3]);
    table.set(100000, &objects[4]);
    EXPECT_EQ(table.find(INT_MAX), &objects[2]);
    EXPECT_EQ(table.find(-5), &objects[3]);
    EXPECT_EQ(table.find(100000), &objects[4]);
    EXPECT_EQ(table.find(2), nullptr);
    EXPECT_EQ(table.largest(), INT_MAX);
    EXPECT_EQ(table.size(), 4u);

    // The array grows over a number that went to the hash map: the number
    // must still be found, replaced and erased, once.
    for (int i = 2; i < 60000; ++i) table.set(i, &objects[5]);
    EXPECT_EQ(table.find(100000), &objects[4]);
    table.set(100000, &objects[1]);
    EXPECT_EQ(table.find(100000), &objects[1]);
    table.erase(100000);
    EXPECT_EQ(table.find(100000), nullptr);
    EXPECT_EQ(table.count(100000), 0u);

    table.erase(INT_MAX);
    EXPECT_EQ(table.largest(), 59999);
    auto sorted = table.inOrder();
    ASSERT_EQ(sorted.size(), table.size());
    EXPECT_EQ(sorted.front().first, -5);
    EXPECT_EQ(sorted.back().first, 59999);
    table.clear();
    EXPECT_TRUE(table.empty());
    EXPECT_EQ(table.find(1), nullptr);
}

}  // namespace
