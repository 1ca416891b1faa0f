#include "base/zn_memory_budget.h"

#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string>

#include "base/base_messages.h"
#include "base/zn_reports.h"
#include "base/zn_text.h"

namespace {

constexpr std::size_t kMegabyte = std::size_t{1} << 20;
// Where the machine does not say how much memory it has.
constexpr std::size_t kFallbackLimit = std::size_t{2} << 30;

thread_local znMemoryBudget* current = nullptr;

// Half the machine's memory: room for the host and for what the loader
// does not weigh.
std::size_t defaultLimit() {
    static const std::size_t limit = [] {
        const long pages = sysconf(_SC_PHYS_PAGES);
        const long pageSize = sysconf(_SC_PAGE_SIZE);
        if (pages <= 0 || pageSize <= 0) return kFallbackLimit;
        return static_cast<std::size_t>(pages) / 2 * static_cast<std::size_t>(pageSize);
    }();
    return limit;
}

}  // namespace

std::size_t znMemoryLimit() {
    const char* text = std::getenv(kMemoryLimitVariable);
    if (text == nullptr || *text == '\0') return defaultLimit();
    char* end = nullptr;
    errno = 0;
    const unsigned long long value = std::strtoull(text, &end, 10);
    // A value that is no number of megabytes is no limit of its own.
    if (errno != 0 || end == text || *end != '\0' || value == 0) return defaultLimit();
    if (value > SIZE_MAX / kMegabyte) return SIZE_MAX;
    return static_cast<std::size_t>(value) * kMegabyte;
}

std::string znSizeText(std::size_t bytes) {
    double size = static_cast<double>(bytes);
    std::size_t unit = 0;
    while (size >= 1024.0 && unit + 1 < std::size(kSizeUnits)) {
        size /= 1024.0;
        ++unit;
    }
    char text[32];
    std::snprintf(text, sizeof text, unit == 0 ? "%.0f %s" : "%.1f %s", size, kSizeUnits[unit]);
    return text;
}

void znMemoryBudget::reportRefusal(const char* what, std::size_t bytes, std::size_t count) const {
    const std::size_t needed = count != 0 && bytes > SIZE_MAX / count ? SIZE_MAX : bytes * count;
    znAlert(znFormatText(kMemoryLimitReached, what != nullptr ? what : "", znSizeText(needed).c_str(),
                         znSizeText(limit_).c_str(), kMemoryLimitVariable, znSizeText(used_).c_str())
                .c_str());
}

znMemoryBudget& znBudget() {
    if (current != nullptr) return *current;
    // Outside a load each cost stands alone, and the limit is read anew, as
    // the host may change it between calls.
    thread_local znMemoryBudget loose(0, false);
    loose = znMemoryBudget(znMemoryLimit(), false);
    return loose;
}

znBudgetScope::znBudgetScope() : own(znMemoryLimit()), previous(current) { current = &own; }

znBudgetScope::~znBudgetScope() { current = previous; }
