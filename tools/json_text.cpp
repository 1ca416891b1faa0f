#include "json_text.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace {

template <class T>
void shortest(std::ostream& out, T value) {
    if (!std::isfinite(value)) {
        out << "null";
        return;
    }
    char buffer[64];
    const std::to_chars_result written = std::to_chars(buffer, buffer + sizeof buffer, value);
    out.write(buffer, written.ptr - buffer);
}

// The length of the well-formed UTF-8 sequence at `s`, or 0 when the bytes
// there form none: no overlong forms, no surrogates, nothing past U+10FFFF.
std::size_t sequenceLength(const unsigned char* s, std::size_t available) {
    const unsigned char lead = s[0];
    if (lead < 0x80) return 1;
    std::size_t length;
    unsigned char low = 0x80, high = 0xBF;  // the range of the second byte
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        if (lead == 0xE0) low = 0xA0;
        if (lead == 0xED) high = 0x9F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        if (lead == 0xF0) low = 0x90;
        if (lead == 0xF4) high = 0x8F;
    } else {
        return 0;
    }
    if (available < length) return 0;
    if (s[1] < low || s[1] > high) return 0;
    for (std::size_t i = 2; i < length; ++i)
        if ((s[i] & 0xC0) != 0x80) return 0;
    return length;
}

}  // namespace

void jsonNumber(std::ostream& out, float value) { shortest(out, value); }
void jsonNumber(std::ostream& out, double value) { shortest(out, value); }
void jsonNumber(std::ostream& out, long long value) { out << value; }

void jsonString(std::ostream& out, const std::string& text) {
    static const char kReplacement[] = "\xEF\xBF\xBD";
    out << '"';
    const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
    const std::size_t size = text.size();
    for (std::size_t i = 0; i < size;) {
        const unsigned char c = bytes[i];
        if (c == '"' || c == '\\') {
            out << '\\' << static_cast<char>(c);
            ++i;
        } else if (c < 0x20) {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\u%04x", c);
            out << escaped;
            ++i;
        } else if (const std::size_t length = sequenceLength(bytes + i, size - i)) {
            out.write(text.data() + i, static_cast<std::streamsize>(length));
            i += length;
        } else {
            out << kReplacement;
            ++i;
        }
    }
    out << '"';
}
