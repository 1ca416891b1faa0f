#include "base/zn_text.h"

#include <cstdio>

std::string znFormatText(const char* format, va_list args) {
    va_list again;
    va_copy(again, args);
    const int n = std::vsnprintf(nullptr, 0, format, args);
    std::string out(n > 0 ? static_cast<std::size_t>(n) : 0, '\0');
    if (n > 0) std::vsnprintf(out.data(), out.size() + 1, format, again);
    va_end(again);
    return out;
}

std::string znFormatText(const char* format, ...) {
    va_list args;
    va_start(args, format);
    std::string out = znFormatText(format, args);
    va_end(args);
    return out;
}
