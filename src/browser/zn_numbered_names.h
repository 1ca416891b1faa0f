// The numbers that follow each stem among the names of a world's name
// table ("Post_3": the stem "Post", the number 3). A numbered name that is
// not there stands for the greatest of the same stem below it ("Post_9" for
// "Post_3" when 4 to 8 are not there), and the index finds that one at once,
// where counting down would take one step per number: a name of a world
// may carry a number of a billion.
#ifndef ZN_NUMBERED_NAMES_H
#define ZN_NUMBERED_NAMES_H

#include <set>
#include <string>
#include <string_view>
#include <unordered_map>

#include "base/zn_name_table.h"

class znNumberedNames {
public:
    // Forgets the index; the next need makes it anew from the table.
    void clear();
    // Notes a name entered in the table. Until the index is first needed,
    // this costs nothing.
    void note(std::string_view name);
    // The greatest number below `n` with which `stem` is in `table`, or 0.
    int below(const znNameTable& table, std::string_view stem, int n);

    // Splits a name "stem_N", N a number from 1 to a billion written as
    // "%d" writes it; false for any other name.
    static bool split(std::string_view name, std::string_view& stem, int& number);

private:
    bool made = false;
    std::unordered_map<std::string, std::set<int>> numbers;
};

#endif
