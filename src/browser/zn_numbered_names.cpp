#include "browser/zn_numbered_names.h"

namespace {
constexpr int kLargestNumber = 1000000000;
}

bool znNumberedNames::split(std::string_view name, std::string_view& stem, int& number) {
    const std::size_t underscore = name.rfind('_');
    if (underscore == std::string_view::npos) return false;
    const std::string_view digits = name.substr(underscore + 1);
    if (digits.empty() || digits.size() > 10 || digits[0] == '0') return false;
    long long value = 0;
    for (const char c : digits) {
        if (c < '0' || c > '9') return false;
        value = value * 10 + (c - '0');
    }
    if (value > kLargestNumber) return false;
    stem = name.substr(0, underscore);
    number = static_cast<int>(value);
    return true;
}

void znNumberedNames::clear() {
    made = false;
    numbers.clear();
}

void znNumberedNames::note(std::string_view name) {
    if (!made) return;
    std::string_view stem;
    int number = 0;
    if (split(name, stem, number)) numbers[std::string(stem)].insert(number);
}

int znNumberedNames::below(const znNameTable& table, std::string_view stem, int n) {
    if (!made) {
        made = true;
        table.forEach([this](std::string_view name, int) { note(name); });
    }
    const auto found = numbers.find(std::string(stem));
    if (found == numbers.end()) return 0;
    auto at = found->second.lower_bound(n);
    return at == found->second.begin() ? 0 : *--at;
}
