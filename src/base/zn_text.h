// Texts: formatted messages, and copies of texts into fixed buffers, cut to
// fit. The copies run for every name of every node of a world, so they do
// without the formatted-output machinery.
#ifndef ZN_TEXT_H
#define ZN_TEXT_H

#include <cstdarg>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

// `format` filled from `args`, whatever its length: the messages that quote
// names and values of any size.
std::string znFormatText(const char* format, va_list args);
std::string znFormatText(const char* format, ...) __attribute__((format(printf, 1, 2)));

// Copies `text` (null counts as empty) into `out`, cut to size - 1
// characters and terminated. Answers the length of `text`, so that a
// result of `size` or more tells the caller that it was cut.
inline std::size_t znCopyCut(char* out, std::size_t size, const char* text) {
    const char* source = text != nullptr ? text : "";
    const std::size_t length = std::strlen(source);
    if (size == 0) return length;
    const std::size_t kept = length < size ? length : size - 1;
    std::memcpy(out, source, kept);
    out[kept] = '\0';
    return length;
}

template <std::size_t N>
std::size_t znCopyCut(char (&out)[N], const char* text) {
    return znCopyCut(out, N, text);
}

// The UTF-8 byte order mark that some editors write before a file's text.
inline constexpr const char* kByteOrderMark = "\xEF\xBB\xBF";

// Writes the decimal digits of `value` at `out`, at least `width` of them
// with leading zeros, as "%0*d" would; answers the end of what it wrote.
// `out` must hold 12 + width characters.
inline char* znWriteDecimal(char* out, int value, int width = 1) {
    char digits[12];
    int count = 0;
    unsigned magnitude = value < 0 ? 0u - static_cast<unsigned>(value) : static_cast<unsigned>(value);
    do {
        digits[count++] = static_cast<char>('0' + magnitude % 10);
        magnitude /= 10;
    } while (magnitude != 0);
    if (value < 0) {
        *out++ = '-';
        --width;
    }
    for (int i = count; i < width; ++i) *out++ = '0';
    while (count > 0) *out++ = digits[--count];
    return out;
}

// Whether `text`, the text of a node-valued field, names no node: nothing,
// NULL, or a list of nothing. Such a value resolves no reference and can be
// taken as the type's default.
inline bool znNamesNoNode(const char* text) {
    if (text == nullptr) return true;
    std::string_view value(text);
    const auto first = value.find_first_not_of(" \t\r\n,");
    if (first == std::string_view::npos) return true;
    value.remove_prefix(first);
    value.remove_suffix(value.size() - 1 - value.find_last_not_of(" \t\r\n,"));
    if (value == "NULL") return true;
    return value.front() == '[' && value.back() == ']' &&
           value.find_first_not_of(" \t\r\n,", 1) == value.size() - 1;
}

#endif
