// Field values between VRML text and data. Numbers are read with
// std::from_chars, so a host's locale never changes what a text means, and
// the big lists of a model are read in one pass without writing into the
// text or allocating per number.
#include "fields/zn_field_text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "base/zn_memory_budget.h"
#include "base/zn_reports.h"
#include "base/zn_text.h"
#include "fields/field_messages.h"
#include "fields/zn_values.h"

namespace {

// Separators of the elements of a multiple value, and of the numbers of one
// colour, vector or rotation.
constexpr const char* kElementDelimiters = " ,\n\r\t]";
constexpr const char* kNumberDelimiters = " ,\t\n\r\\";
constexpr const char* kStringDelimiters = " \r\n\t,]";

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r'; }

// A table, since the test runs once per character of the largest texts.
struct DelimiterTable {
    bool is[256] = {};
    constexpr explicit DelimiterTable(const char* set) {
        for (; *set; ++set) is[static_cast<unsigned char>(*set)] = true;
    }
};
constexpr DelimiterTable kElementDelimiterTable(kElementDelimiters);

inline bool isElementDelimiter(char c) { return kElementDelimiterTable.is[static_cast<unsigned char>(c)]; }

bool hasNonBlank(const char* p, const char* end) {
    for (; p < end; ++p)
        if (!isBlank(*p)) return true;
    return false;
}

bool isHexDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

// The decimal numbers of a model, "12", "-0.0430" or "1.5e-3", read
// exactly without a library call: a mantissa below 2^53 and a power of ten
// of at most 22 are both exact doubles, and one rounded multiplication or
// division of two exact values is what strtod answers.
// False when the number is not of that easy kind, or reads as nothing.
bool readPlainDecimal(const char* p, const char* end, double& out, const char** stop = nullptr) {
    static constexpr double kPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                         1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    // Nineteen digits always fit the mantissa; leading zeros count as digits
    // and add nothing.
    constexpr std::ptrdiff_t kMostDigits = 19;
    constexpr std::uint64_t kExactLimit = std::uint64_t{1} << 53;
    std::uint64_t mantissa = 0;
    const char* first = p;
    while (p < end && static_cast<unsigned char>(*p - '0') <= 9) mantissa = mantissa * 10 + static_cast<unsigned>(*p++ - '0');
    std::ptrdiff_t digits = p - first;
    int scale = 0;
    if (p < end && *p == '.') {
        const char* fraction = ++p;
        while (p < end && static_cast<unsigned char>(*p - '0') <= 9)
            mantissa = mantissa * 10 + static_cast<unsigned>(*p++ - '0');
        scale = -static_cast<int>(p - fraction);
        digits += p - fraction;
    }
    if (digits == 0 || digits > kMostDigits) return false;
    if (p < end && (*p == 'e' || *p == 'E')) {
        const char* q = p + 1;
        bool negativeExponent = false;
        if (q < end && (*q == '+' || *q == '-')) negativeExponent = *q++ == '-';
        // An "e" with no digits after it is not read, as strtod leaves it.
        if (q < end && static_cast<unsigned char>(*q - '0') <= 9) {
            int exponent = 0;
            for (; q < end && static_cast<unsigned char>(*q - '0') <= 9; ++q) {
                if (exponent > 1000) return false;
                exponent = exponent * 10 + (*q - '0');
            }
            scale += negativeExponent ? -exponent : exponent;
            p = q;
        }
    }
    // Hexadecimal, infinity and not-a-number forms are the library's.
    if (p < end && (*p == 'x' || *p == 'X' || *p == 'n' || *p == 'N' || *p == 'i' || *p == 'I')) return false;
    if (mantissa == 0) {
        if (stop != nullptr) *stop = p;
        out = 0.0;
        return true;
    }
    if (scale < -22 || scale > 22 || mantissa > kExactLimit) return false;
    if (stop != nullptr) *stop = p;
    const double m = static_cast<double>(mantissa);
    out = scale < 0 ? m / kPowers[-scale] : m * kPowers[scale];
    return true;
}

// Steps over leading blanks and one sign; answers whether it was a minus.
bool skipBlanksAndSign(const char*& p, const char* end) {
    while (p < end && isBlank(*p)) ++p;
    if (p < end && (*p == '+' || *p == '-')) return *p++ == '-';
    return false;
}

// Reads a number at the start of [p, end) as strtod does in the "C" locale:
// leading white space, a sign, decimal, hexadecimal, inf and nan forms.
// Answers false when nothing could be read.
bool readDouble(const char* p, const char* end, double& out) {
    const bool negative = skipBlanksAndSign(p, end);
    if (p >= end || *p == '+' || *p == '-') return false;
    double value = 0.0;
    if (readPlainDecimal(p, end, value)) {
        out = negative ? -value : value;
        return true;
    }
    std::from_chars_result r;
    if (end - p > 2 && p[0] == '0' && (p[1] == 'x' || p[1] == 'X') && (isHexDigit(p[2]) || p[2] == '.')) {
        r = std::from_chars(p + 2, end, value, std::chars_format::hex);
        if (r.ec == std::errc::invalid_argument) {
            // "0x" without hex digits reads as the zero before it.
            value = 0.0;
            r.ec = std::errc();
        }
    } else {
        r = std::from_chars(p, end, value, std::chars_format::general);
        if (r.ec == std::errc::invalid_argument) return false;
    }
    out = negative ? -value : value;
    return true;
}

// Reads an integer as strtoul with base 0 does, narrowed to int: 0x gives
// hexadecimal, a leading 0 octal; a minus sign negates modulo 2^64.
bool readInt(const char* p, const char* end, int& out) {
    const bool negative = skipBlanksAndSign(p, end);
    if (p >= end) return false;
    int base = 10;
    if (*p == '0') {
        if (end - p > 2 && (p[1] == 'x' || p[1] == 'X') && isHexDigit(p[2])) {
            base = 16;
            p += 2;
        } else {
            base = 8;
        }
    }
    unsigned long long value = 0;
    if (base == 10) {
        // The indexes of a mesh: short decimals, read here in one pass.
        const char* q = p;
        while (q < end && q - p < 18 && *q >= '0' && *q <= '9') value = value * 10 + static_cast<unsigned>(*q++ - '0');
        if (q > p && (q == end || *q < '0' || *q > '9')) {
            if (negative) value = 0ULL - value;
            out = static_cast<int>(static_cast<unsigned int>(value));
            return true;
        }
        value = 0;
    }
    auto r = std::from_chars(p, end, value, base);
    if (r.ec == std::errc::invalid_argument) return false;
    if (r.ec == std::errc::result_out_of_range)
        value = ~0ULL;
    else if (negative)
        value = 0ULL - value;
    out = static_cast<int>(static_cast<unsigned int>(value));
    return true;
}

// Tokens per element of a multiple value.
int tokensPerElement(FieldType elementType) {
    switch (elementType) {
        case SFVec2fType: return 2;
        case SFColorType:
        case SFVec3fType: return 3;
        case SFRotationType: return 4;
        default: return 1;
    }
}

// A comment, which the scanner keeps inside the text of a value whose
// numbers stand on several lines, runs from '#' to the end of its line.
inline const char* skipComment(const char* p, const char* end) {
    while (p < end && *p != '\n') ++p;
    return p;
}

// The next token of a multiple value in [p, end): its span, or false.
bool nextToken(const char*& p, const char* end, const char*& start, const char*& stop) {
    for (;;) {
        while (p < end && isElementDelimiter(*p)) ++p;
        if (p >= end) return false;
        if (*p != '#') break;
        p = skipComment(p, end);
    }
    start = p;
    while (p < end && !isElementDelimiter(*p) && *p != '#') ++p;
    stop = p;
    return true;
}

// The element text that sz_strtok_r would build from `n` token spans: the
// original text with the first delimiter behind each inner token made a
// blank. Written into `shortText` when it fits, a node name mostly does,
// else into `longText`.
template <std::size_t N>
const char* elementText(const char* const* starts, const char* const* stops, int n, char (&shortText)[N],
                        std::string& longText) {
    const auto length = static_cast<std::size_t>(stops[n - 1] - starts[0]);
    char* out = shortText;
    if (length >= N) {
        longText.assign(starts[0], length);
        out = longText.data();
    } else {
        std::memcpy(out, starts[0], length);
        out[length] = '\0';
    }
    for (int i = 0; i + 1 < n; ++i) out[static_cast<size_t>(stops[i] - starts[0])] = ' ';
    return out;
}

// Reads up to `count` numbers of `text` into `slots`; a token that does not
// read leaves its slot.
void readNumbers(const char* text, const char* end, int count, float* slots) {
    const char* p = text;
    for (int i = 0; i < count; ++i) {
        for (;;) {
            while (p < end && std::strchr(kNumberDelimiters, *p) && *p) ++p;
            if (p >= end || *p != '#') break;
            p = skipComment(p, end);
        }
        if (p >= end) return;
        const char* start = p;
        while (p < end && !std::strchr(kNumberDelimiters, *p) && *p != '#') ++p;
        double v;
        if (readDouble(start, p, v)) slots[i] = static_cast<float>(v);
    }
}

template <class T>
T emptyElement() {
    return T();
}
template <>
_znArray<float> emptyElement<_znArray<float>>() {
    return _znArray<float>();
}

// One element of a numeric multiple value, read straight from its token
// spans into `temp`. Answers false where the generic route must decide.
bool fastElement(int& temp, FieldType, const char* const* s, const char* const* e, int) {
    readInt(s[0], e[0], temp);
    return true;
}
bool fastElement(float& temp, FieldType, const char* const* s, const char* const* e, int) {
    double v;
    if (readDouble(s[0], e[0], v)) temp = static_cast<float>(v);
    return true;
}
bool fastElement(double& temp, FieldType, const char* const* s, const char* const* e, int) {
    double v;
    if (readDouble(s[0], e[0], v)) temp = v;
    return true;
}
// Copies the few floats of one element without a library call.
inline void copyFloats(float* to, const float* from, int n) {
    if (n > 4) {
        std::copy(from, from + n, to);
        return;
    }
    switch (n) {
        case 4: to[3] = from[3]; [[fallthrough]];
        case 3: to[2] = from[2]; [[fallthrough]];
        case 2: to[1] = from[1]; [[fallthrough]];
        case 1: to[0] = from[0]; [[fallthrough]];
        default: break;
    }
}

inline bool contains(const char* p, const char* end, char c) {
    for (; p < end; ++p)
        if (*p == c) return true;
    return false;
}

bool fastElement(_znArray<float>& temp, FieldType, const char* const* s, const char* const* e, int n) {
    // A backslash splits numbers, and a "]" inside the gap becomes part of
    // the next number: both are left to the generic route.
    for (int i = 0; i < n; ++i) {
        if (contains(s[i], e[i], '\\')) return false;
        if (i + 1 < n && contains(e[i] + 1, s[i + 1], ']')) return false;
    }
    float slots[4] = {0, 0, 0, 0};
    copyFloats(slots, temp.data, std::min(n, temp.count));
    for (int i = 0; i < n; ++i) {
        double v;
        if (readDouble(s[i], e[i], v)) slots[i] = static_cast<float>(v);
    }
    temp.resize(n);
    copyFloats(temp.data, slots, n);
    return true;
}

// Appends a copy of the temporary element.
template <class T>
inline void appendElement(std::vector<T>& list, const T& temp) {
    list.push_back(temp);
}
template <>
inline void appendElement(std::vector<_znArray<float>>& list, const _znArray<float>& temp) {
    list.emplace_back(temp.count);
    copyFloats(list.back().data, temp.data, temp.count);
}
bool fastElement(BaseNode&, FieldType, const char* const*, const char* const*, int) { return false; }

// A number token of a list read in one pass: a sign and a plain decimal that
// ends where the token ends. False for any other token, which the general
// route must read.
bool readPlainToken(const char*& p, const char* end, double& out) {
    const char* q = p;
    bool negative = false;
    if (q < end && (*q == '+' || *q == '-')) negative = *q++ == '-';
    const char* stop = nullptr;
    if (!readPlainDecimal(q, end, out, &stop)) return false;
    if (stop < end && !isElementDelimiter(*stop)) return false;
    if (negative) out = -out;
    p = stop;
    return true;
}

// An index token of a list in one pass: a sign and at most nine decimal
// digits without a leading zero (which would make it octal), ending where
// the token ends.
bool readPlainToken(const char*& p, const char* end, int& out) {
    const char* q = p;
    bool negative = false;
    if (q < end && (*q == '+' || *q == '-')) negative = *q++ == '-';
    const char* digits = q;
    int value = 0;
    // Nine digits fit an int; a longer number is left to the general route,
    // which reads it as the text says.
    while (q < end && static_cast<unsigned char>(*q - '0') <= 9) {
        if (q - digits < 9) value = value * 10 + (*q - '0');
        ++q;
    }
    const std::ptrdiff_t count = q - digits;
    if (count == 0 || count > 9 || (count > 1 && *digits == '0')) return false;
    if (q < end && !isElementDelimiter(*q)) return false;
    out = negative ? -value : value;
    p = q;
    return true;
}

void storePlain(float& to, const double* v, int) { to = static_cast<float>(v[0]); }
void storePlain(double& to, const double* v, int) { to = v[0]; }
void storePlain(_znArray<float>& to, const double* v, int n) {
    to.resize(n);
    for (int i = 0; i < n; ++i) to.data[i] = static_cast<float>(v[i]);
}

// Reads the elements of a list as long as each is made of plain decimal
// tokens, as the scanner writes the lists of a model; answers where the
// general route takes over, which is the end of the text for such a list.
template <class T>
const char* readPlainElements(std::vector<T>& list, T& temp, int tokens, const char* p, const char* end) {
    if constexpr (std::is_same_v<T, BaseNode>) {
        return p;
    } else if constexpr (std::is_same_v<T, int>) {
        for (;;) {
            const char* q = p;
            while (q < end && isElementDelimiter(*q)) ++q;
            if (q >= end) return q;
            int value = 0;
            if (!readPlainToken(q, end, value)) return p;
            list.push_back(value);
            temp = value;
            p = q;
        }
    } else {
        double values[4];
        for (;;) {
            const char* q = p;
            for (int k = 0; k < tokens; ++k) {
                const char* gap = q;
                while (q < end && isElementDelimiter(*q)) ++q;
                // A "]" between the numbers of one element is read otherwise.
                if (k > 0 && contains(gap, q, ']')) return p;
                if (q >= end) return k == 0 ? q : p;
                if (!readPlainToken(q, end, values[k])) return p;
            }
            storePlain(temp, values, tokens);
            appendElement(list, temp);
            p = q;
        }
    }
}

}  // namespace

// --- Bounded output -----------------------------------------------------------

znTextOut::~znTextOut() {
    if (!cut) return;
    char message[128];
    std::snprintf(message, sizeof message, kFieldTextCut, kFieldTextBufferSize - 1);
    znMessage(message);
}

void znTextOut::fixed(double v) {
    char buffer[400];
    auto r = std::to_chars(buffer, buffer + sizeof buffer, v, std::chars_format::fixed, 6);
    put(buffer, static_cast<size_t>(r.ptr - buffer));
}

void znTextOut::integer(long long v) {
    char buffer[32];
    auto r = std::to_chars(buffer, buffer + sizeof buffer, v);
    put(buffer, static_cast<size_t>(r.ptr - buffer));
}

// --- Tokenizers --------------------------------------------------------------

int nodigits(const char* text) {
    if (!text || !*text) return 1;
    for (; *text; ++text)
        if (*text >= '0' && *text <= '9') return 0;
    return 1;
}

char* stringtok(char* text, const char* delimiters) {
    static char* cursor = nullptr;
    if (text) cursor = text;
    if (!cursor || !*cursor) return nullptr;
    char* start = cursor;
    bool quoted = false;
    for (char* p = cursor; *p; ++p) {
        if (*p == '"') {
            if (!(quoted && p > start && p[-1] == '\\')) quoted = !quoted;
            continue;
        }
        if (!quoted && std::strchr(delimiters, *p)) {
            *p = '\0';
            cursor = p + 1;
            return start;
        }
    }
    cursor = start + std::strlen(start);
    return start;
}

char* sz_strtok_r(int count, char* text, const char*, char** state) {
    if (text && std::strstr(text, kEmptyListMark)) std::printf("%s\n", kEmptyListTrace);
    if (count < 1) return nullptr;
    char* first = nullptr;
    char* previousEnd = nullptr;
    for (int i = 0; i < count; ++i) {
        char* token = strtok_r(i == 0 ? text : nullptr, kElementDelimiters, state);
        if (!token) return nullptr;
        // Keep the tokens of one element together as one string.
        if (previousEnd) *previousEnd = ' ';
        if (!first) first = token;
        char* tokenEnd = token + std::strlen(token);
        previousEnd = (*state > tokenEnd) ? tokenEnd : nullptr;
    }
    return first;
}

// --- Single values ---------------------------------------------------------------

namespace {
// The SFString value of a text: what stands between the first quote and the
// first unescaped one. A backslash takes the character after it as it is,
// so "\\" is one backslash and "\"" a quote inside the string.
std::string unquote(const char* text) {
    const char* quote = std::strchr(text, '"');
    if (!quote || (quote > text && quote[-1] == '\\')) return std::string();
    std::string value;
    for (const char* p = quote + 1; *p; ++p) {
        if (*p == '\\') {
            if (!*++p) break;
        } else if (*p == '"') {
            return value;
        }
        value.push_back(*p);
    }
    return std::string();
}

// The texts of images name no nodes.
class NoNodeNames final : public znNodeNames {
public:
    void findNode(const char*, BaseNode& node) override { node = BaseNode(); }
    const char* nameOf(BaseNode&) override { return nullptr; }
};

// The end of the token that starts at `p` in a list of strings: past the
// closing quote of a quoted string, else at the next delimiter.
const char* stringTokenEnd(const char* p) {
    if (*p == '"') {
        for (++p; *p && *p != '"'; ++p)
            if (*p == '\\' && p[1]) ++p;
        return *p ? p + 1 : p;
    }
    while (*p && !std::strchr(kStringDelimiters, *p)) ++p;
    return p;
}
}  // namespace

void znReadBool(int& value, const char* text) { value = std::strstr(text, "TRUE") ? 1 : 0; }

void znWriteBool(int value, znTextOut& out) { out.put(value ? "TRUE" : "FALSE"); }

void znReadInt32(int& value, const char* text) {
    int v;
    if (readInt(text, text + std::strlen(text), v)) value = v;
}

void znWriteInt32(int value, znTextOut& out) { out.integer(value); }

void znReadFloat(float& value, const char* text) {
    double v;
    if (readDouble(text, text + std::strlen(text), v)) value = static_cast<float>(v);
}

void znWriteFloat(float value, znTextOut& out) { out.fixed(value); }

void znReadTime(double& value, const char* text) {
    double v;
    if (readDouble(text, text + std::strlen(text), v)) value = v;
}

void znWriteTime(double value, znTextOut& out) { out.fixed(value); }

void znReadVector(_znArray<float>& value, int count, const char* text) {
    if (!text || count <= 0) return;
    // A vector, colour or rotation: read on the stack, as a file holds one
    // per node or more.
    float inlineSlots[_znArray<float>::kInline] = {};
    std::vector<float> moreSlots;
    float* slots = inlineSlots;
    if (count > _znArray<float>::kInline) {
        moreSlots.assign(static_cast<size_t>(count), 0.0f);
        slots = moreSlots.data();
    }
    for (int i = 0; i < count && i < value.count; ++i) slots[i] = value.data[i];
    readNumbers(text, text + std::strlen(text), count, slots);
    if (value.count < count) value.resize(count);
    value.count = count;
    std::copy(slots, slots + count, value.data);
}

void znWriteVector(_znArray<float>& value, int count, znTextOut& out) {
    if (count > value.count) return;
    for (int i = 0; i < value.count; ++i) {
        out.fixed(value.data[i]);
        out.put(" ", 1);
    }
}

void znReadString(std::string& value, const char* text) { value = znTerminated(unquote(text)); }

void znWriteString(const std::string& value, znTextOut& out) {
    // Quotes and backslashes are escaped, so that the text reads back to the
    // same string.
    out.put("\"", 1);
    // The stored string ends in a NUL of its own.
    const std::string_view chars(value.c_str());
    std::size_t from = 0;
    for (std::size_t at = chars.find_first_of("\"\\"); at != std::string::npos;
         at = chars.find_first_of("\"\\", at + 1)) {
        out.put(chars.data() + from, at - from);
        out.put("\\", 1);
        from = at;
    }
    out.put(chars.data() + from, chars.size() - from);
    out.put("\"", 1);
}

void znReadNode(BaseNode& value, const char* text, znNodeNames& names) {
    while (*text && isBlank(*text)) ++text;
    if (std::strcmp(text, "NULL") == 0)
        value = BaseNode();
    else
        names.findNode(text, value);
}

void znWriteNode(BaseNode& value, znTextOut& out, znNodeNames& names) {
    if (const char* name = names.nameOf(value)) out.put(name);
}

void znReadImage(std::vector<int>& value, const char* text) {
    // Every number of the text belongs to the image, brackets or not.
    NoNodeNames none;
    if (std::strchr(text, '[')) {
        znReadList(value, SFInt32Type, text, none);
    } else {
        std::string all = std::string("[") + text;
        znReadList(value, SFInt32Type, all.c_str(), none);
    }
}

void znWriteImage(const std::vector<int>& value, znTextOut& out) {
    for (size_t i = 0; i < value.size(); ++i) {
        char buffer[32];
        int n = std::snprintf(buffer, sizeof buffer, i < 3 ? "%d " : "0x%X ", value[i]);
        out.put(buffer, static_cast<size_t>(n));
    }
}

// --- Multiple values --------------------------------------------------------------

namespace {
void writeValue(void* data, FieldType type, znTextOut& out, znNodeNames& names);
}  // namespace

template <class T>
void znReadList(std::vector<T>& list, FieldType elementType, const char* text, znNodeNames& names) {
    if (!text) return;
    if (std::strcmp(text, kEmptyListMark) == 0) text = "";
    const int tokens = tokensPerElement(elementType);
    const char* bracket = std::strchr(text, '[');
    const bool single = bracket == nullptr;
    const char* p = single ? text : bracket + 1;
    const char* end = p + std::strlen(p);
    if (std::strstr(p, kEmptyListMark)) std::printf("%s\n", kEmptyListTrace);
    list.clear();
    if (!single) {
        // Size the list once. The scanner ends every element of a list with
        // a comma, so the commas count the elements of the largest texts
        // with one cheap pass; texts from elsewhere only grow as they go.
        const std::size_t elements = static_cast<std::size_t>(std::count(p, end, ',')) + 1;
        if (!znBudget().take(sizeof(T), elements, [elements] { return znFormatText(kListOverLimit, elements); }))
            return;
        list.reserve(elements);
    }
    T temp = emptyElement<T>();
    if (!single) p = readPlainElements(list, temp, tokens, p, end);
    char shortText[64];
    std::string longText;
    const char* starts[4];
    const char* stops[4];
    for (;;) {
        int found = 0;
        while (found < tokens && nextToken(p, end, starts[found], stops[found])) ++found;
        // A partial element at the end is dropped.
        if (found < tokens) break;
        if (hasNonBlank(starts[0], stops[tokens - 1])) {
            if (!fastElement(temp, elementType, starts, stops, tokens)) {
                znReadFieldText(&temp, elementType, elementText(starts, stops, tokens, shortText, longText), names);
            }
            appendElement(list, temp);
        }
        if (single) break;
    }
}

void znReadStringList(std::vector<std::string>& list, const char* text) {
    if (!text) return;
    // A list when its text begins with "[": a lone string may hold one.
    while (isBlank(*text)) ++text;
    const bool single = *text != '[';
    const char* p = single ? text : text + 1;
    list.clear();
    std::string token;
    while (*p) {
        while (*p && std::strchr(kStringDelimiters, *p)) ++p;
        if (!*p) break;
        const char* end = stringTokenEnd(p);
        token.assign(p, end);
        p = end;
        list.push_back(znTerminated(unquote(token.c_str())));
        if (single) break;
    }
}

template <class T>
void znWriteList(std::vector<T>& list, FieldType elementType, znTextOut& out, znNodeNames& names) {
    if (list.empty()) {
        out.put("[]", 2);
        return;
    }
    if (list.size() == 1) {
        writeValue(&list[0], elementType, out, names);
        return;
    }
    // The comma stands behind the last element too; readers accept that.
    out.put("[ ", 2);
    for (T& value : list) {
        writeValue(&value, elementType, out, names);
        out.put(", ", 2);
    }
    out.put("]", 1);
}

// --- By field type ------------------------------------------------------------------

void znReadFieldText(void* data, FieldType type, const char* text, znNodeNames& names) {
    if (!data || !text || !*text || type < kFirstFieldType || type > kLastFieldType) return;
    switch (type) {
        case SFBoolType: znReadBool(*static_cast<int*>(data), text); break;
        case SFColorType:
        case SFVec3fType: znReadVector(*static_cast<_znArray<float>*>(data), 3, text); break;
        case SFVec2fType: znReadVector(*static_cast<_znArray<float>*>(data), 2, text); break;
        case SFRotationType: znReadVector(*static_cast<_znArray<float>*>(data), 4, text); break;
        case SFFloatType: znReadFloat(*static_cast<float*>(data), text); break;
        case SFTimeType: znReadTime(*static_cast<double*>(data), text); break;
        case SFInt32Type: znReadInt32(*static_cast<int*>(data), text); break;
        case SFStringType: znReadString(*static_cast<std::string*>(data), text); break;
        case SFNodeType: znReadNode(*static_cast<BaseNode*>(data), text, names); break;
        case SFImageType: znReadImage(*static_cast<std::vector<int>*>(data), text); break;
        case MFColorType:
            znReadList(*static_cast<std::vector<_znArray<float>>*>(data), SFColorType, text, names);
            break;
        case MFFloatType: znReadList(*static_cast<std::vector<float>*>(data), SFFloatType, text, names); break;
        case MFInt32Type: znReadList(*static_cast<std::vector<int>*>(data), SFInt32Type, text, names); break;
        case MFNodeType: znReadList(*static_cast<std::vector<BaseNode>*>(data), SFNodeType, text, names); break;
        case MFRotationType:
            znReadList(*static_cast<std::vector<_znArray<float>>*>(data), SFRotationType, text, names);
            break;
        case MFStringType: znReadStringList(*static_cast<std::vector<std::string>*>(data), text); break;
        case MFTimeType: znReadList(*static_cast<std::vector<double>*>(data), SFTimeType, text, names); break;
        case MFVec2fType:
            znReadList(*static_cast<std::vector<_znArray<float>>*>(data), SFVec2fType, text, names);
            break;
        case MFVec3fType:
            znReadList(*static_cast<std::vector<_znArray<float>>*>(data), SFVec3fType, text, names);
            break;
    }
}

namespace {
void writeValue(void* data, FieldType type, znTextOut& out, znNodeNames& names) {
    switch (type) {
        case SFBoolType: znWriteBool(*static_cast<int*>(data), out); break;
        case SFFloatType: znWriteFloat(*static_cast<float*>(data), out); break;
        case SFTimeType: znWriteTime(*static_cast<double*>(data), out); break;
        case SFInt32Type: znWriteInt32(*static_cast<int*>(data), out); break;
        case SFStringType: znWriteString(*static_cast<std::string*>(data), out); break;
        case SFColorType:
        case SFVec3fType: znWriteVector(*static_cast<_znArray<float>*>(data), 3, out); break;
        case SFVec2fType: znWriteVector(*static_cast<_znArray<float>*>(data), 2, out); break;
        case SFRotationType: znWriteVector(*static_cast<_znArray<float>*>(data), 4, out); break;
        case SFNodeType: znWriteNode(*static_cast<BaseNode*>(data), out, names); break;
        case SFImageType: znWriteImage(*static_cast<std::vector<int>*>(data), out); break;
        case MFColorType:
            znWriteList(*static_cast<std::vector<_znArray<float>>*>(data), SFColorType, out, names);
            break;
        case MFFloatType: znWriteList(*static_cast<std::vector<float>*>(data), SFFloatType, out, names); break;
        case MFInt32Type: znWriteList(*static_cast<std::vector<int>*>(data), SFInt32Type, out, names); break;
        case MFNodeType: znWriteList(*static_cast<std::vector<BaseNode>*>(data), SFNodeType, out, names); break;
        case MFRotationType:
            znWriteList(*static_cast<std::vector<_znArray<float>>*>(data), SFRotationType, out, names);
            break;
        case MFStringType:
            znWriteList(*static_cast<std::vector<std::string>*>(data), SFStringType, out, names);
            break;
        case MFTimeType: znWriteList(*static_cast<std::vector<double>*>(data), SFTimeType, out, names); break;
        case MFVec2fType:
            znWriteList(*static_cast<std::vector<_znArray<float>>*>(data), SFVec2fType, out, names);
            break;
        case MFVec3fType:
            znWriteList(*static_cast<std::vector<_znArray<float>>*>(data), SFVec3fType, out, names);
            break;
    }
}
}  // namespace

void znWriteFieldText(void* data, FieldType type, char* out, znNodeNames& names) {
    if (!out) return;
    znTextOut text(out);
    if (!data || type < kFirstFieldType || type > kLastFieldType) return;
    writeValue(data, type, text, names);
}

void znWriteFieldText(void* data, FieldType type, std::string& out, znNodeNames& names) {
    znTextOut text(out);
    if (!data || type < kFirstFieldType || type > kLastFieldType) return;
    writeValue(data, type, text, names);
}

template void znReadList(std::vector<int>&, FieldType, const char*, znNodeNames&);
template void znReadList(std::vector<float>&, FieldType, const char*, znNodeNames&);
template void znReadList(std::vector<double>&, FieldType, const char*, znNodeNames&);
template void znReadList(std::vector<_znArray<float>>&, FieldType, const char*, znNodeNames&);
template void znReadList(std::vector<BaseNode>&, FieldType, const char*, znNodeNames&);
template void znWriteList(std::vector<int>&, FieldType, znTextOut&, znNodeNames&);
template void znWriteList(std::vector<float>&, FieldType, znTextOut&, znNodeNames&);
template void znWriteList(std::vector<double>&, FieldType, znTextOut&, znNodeNames&);
template void znWriteList(std::vector<_znArray<float>>&, FieldType, znTextOut&, znNodeNames&);
template void znWriteList(std::vector<BaseNode>&, FieldType, znTextOut&, znNodeNames&);
template void znWriteList(std::vector<std::string>&, FieldType, znTextOut&, znNodeNames&);
