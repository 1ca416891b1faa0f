// Field values between VRML text and data. Numbers are read with
// std::from_chars, so a host's locale never changes what a text means, and
// the big lists of a model are read in one pass without writing into the
// text or allocating per number.
#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "browser/browser_messages.h"
#include "browser/zn_browser_intern.h"
#include "fields/zn_exception.h"
#include "fields/zn_field.h"
#include "fields/zn_values.h"
#include "base/zn_reports.h"
#include "nodes/zn_node.h"

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

// Reads a number at the start of [p, end) as strtod does in the "C" locale:
// leading white space, a sign, decimal, hexadecimal, inf and nan forms.
// Answers false when nothing could be read.
bool readDouble(const char* p, const char* end, double& out) {
    while (p < end && isBlank(*p)) ++p;
    bool negative = false;
    if (p < end && (*p == '+' || *p == '-')) {
        negative = *p == '-';
        ++p;
    }
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
    while (p < end && isBlank(*p)) ++p;
    bool negative = false;
    if (p < end && (*p == '+' || *p == '-')) {
        negative = *p == '-';
        ++p;
    }
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

// --- Bounded output ---------------------------------------------------------

// Writes at most kFieldTextBufferSize - 1 characters and a terminator; the
// first overflow is reported once and the text is cut there.
class TextOut {
public:
    explicit TextOut(char* out) : at(out), end(out + kFieldTextBufferSize - 1) { *at = '\0'; }
    ~TextOut() {
        if (!cut) return;
        char message[128];
        std::snprintf(message, sizeof message, kFieldTextCut, kFieldTextBufferSize - 1);
        znMessage(message);
    }
    TextOut(const TextOut&) = delete;
    TextOut& operator=(const TextOut&) = delete;

    void put(const char* text, size_t n) {
        size_t room = static_cast<size_t>(end - at);
        if (n > room) {
            n = room;
            cut = true;
        }
        std::memcpy(at, text, n);
        at += n;
        *at = '\0';
    }
    void put(const char* text) { put(text, std::strlen(text)); }
    // "%f": six decimals, independent of the locale.
    void fixed(double v) {
        char buffer[400];
        auto r = std::to_chars(buffer, buffer + sizeof buffer, v, std::chars_format::fixed, 6);
        put(buffer, static_cast<size_t>(r.ptr - buffer));
    }
    void integer(long long v) {
        char buffer[32];
        auto r = std::to_chars(buffer, buffer + sizeof buffer, v);
        put(buffer, static_cast<size_t>(r.ptr - buffer));
    }

private:
    char* at;
    char* end;
    bool cut = false;
};

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
// original text with the first delimiter behind each inner token made a blank.
void elementText(const char* const* starts, const char* const* stops, int n, std::string& out) {
    out.assign(starts[0], stops[n - 1]);
    for (int i = 0; i + 1 < n; ++i) out[static_cast<size_t>(stops[i] - starts[0])] = ' ';
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

// --- Text to data --------------------------------------------------------------

void znBrowserIntern::lfvrml2data(_znArray<float>& array, int count, const char* text) {
    if (!text || count <= 0) return;
    std::vector<float> slots(static_cast<size_t>(count), 0.0f);
    for (int i = 0; i < count && i < array.count; ++i) slots[i] = array.data[i];
    readNumbers(text, text + std::strlen(text), count, slots.data());
    if (array.count < count) array.resize(count);
    array.count = count;
    std::copy(slots.begin(), slots.end(), array.data);
}

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

void znBrowserIntern::vrml2data(void* data, FieldType type, const char* text) {
    if (!data || !text || !*text || type < kFirstFieldType || type > kLastFieldType) return;
    const char* end = text + std::strlen(text);
    switch (type) {
        case SFBoolType:
            *static_cast<int*>(data) = std::strstr(text, "TRUE") ? 1 : 0;
            break;
        case SFColorType:
        case SFVec3fType:
            lfvrml2data(*static_cast<_znArray<float>*>(data), 3, text);
            break;
        case SFVec2fType:
            lfvrml2data(*static_cast<_znArray<float>*>(data), 2, text);
            break;
        case SFRotationType:
            lfvrml2data(*static_cast<_znArray<float>*>(data), 4, text);
            break;
        case SFFloatType: {
            double v;
            if (readDouble(text, end, v)) *static_cast<float*>(data) = static_cast<float>(v);
            break;
        }
        case SFTimeType: {
            double v;
            if (readDouble(text, end, v)) *static_cast<double*>(data) = v;
            break;
        }
        case SFInt32Type: {
            int v;
            if (readInt(text, end, v)) *static_cast<int*>(data) = v;
            break;
        }
        case SFStringType:
            *static_cast<std::string*>(data) = znTerminated(unquote(text));
            break;
        case SFNodeType: {
            BaseNode& target = *static_cast<BaseNode*>(data);
            while (*text && isBlank(*text)) ++text;
            if (std::strcmp(text, "NULL") == 0) {
                target = BaseNode();
                break;
            }
            int nodeID = getNodeID(text);
            if (nodeID == 0) {
                if (!addingType) unresolvedReference = 1;
                target = BaseNode();
                break;
            }
            auto found = nodes.find(nodeID);
            znNode* node = found != nodes.end() ? found->second : nullptr;
            if (node && node->getID() != 0)
                target = *static_cast<BaseNode*>(node);
            else
                target = BaseNode();
            break;
        }
        case SFImageType:
            // Every number of the text belongs to the image, brackets or not.
            if (std::strchr(text, '[')) {
                mvrml2data(this, *static_cast<std::vector<int>*>(data), SFInt32Type, text);
            } else {
                std::string all = std::string("[") + text;
                mvrml2data(this, *static_cast<std::vector<int>*>(data), SFInt32Type, all.c_str());
            }
            break;
        case MFColorType:
            mvrml2data(this, *static_cast<std::vector<_znArray<float>>*>(data), SFColorType, text);
            break;
        case MFFloatType:
            mvrml2data(this, *static_cast<std::vector<float>*>(data), SFFloatType, text);
            break;
        case MFInt32Type:
            mvrml2data(this, *static_cast<std::vector<int>*>(data), SFInt32Type, text);
            break;
        case MFNodeType:
            mvrml2data(this, *static_cast<std::vector<BaseNode>*>(data), SFNodeType, text);
            break;
        case MFRotationType:
            mvrml2data(this, *static_cast<std::vector<_znArray<float>>*>(data), SFRotationType, text);
            break;
        case MFStringType:
            mvrml2string(*static_cast<std::vector<std::string>*>(data), text);
            break;
        case MFTimeType:
            mvrml2data(this, *static_cast<std::vector<double>*>(data), SFTimeType, text);
            break;
        case MFVec2fType:
            mvrml2data(this, *static_cast<std::vector<_znArray<float>>*>(data), SFVec2fType, text);
            break;
        case MFVec3fType:
            mvrml2data(this, *static_cast<std::vector<_znArray<float>>*>(data), SFVec3fType, text);
            break;
    }
}

template <class T>
void mvrml2data(znBrowserIntern* browser, std::vector<T>& list, FieldType elementType, const char* text) {
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
        list.reserve(static_cast<size_t>(std::count(p, end, ',')) + 1);
    }
    T temp = emptyElement<T>();
    if (!single) p = readPlainElements(list, temp, tokens, p, end);
    std::string generic;
    const char* starts[4];
    const char* stops[4];
    for (;;) {
        int found = 0;
        while (found < tokens && nextToken(p, end, starts[found], stops[found])) ++found;
        // A partial element at the end is dropped.
        if (found < tokens) break;
        if (hasNonBlank(starts[0], stops[tokens - 1])) {
            if (!fastElement(temp, elementType, starts, stops, tokens)) {
                elementText(starts, stops, tokens, generic);
                browser->vrml2data(&temp, elementType, generic.c_str());
            }
            appendElement(list, temp);
        }
        if (single) break;
    }
}

void mvrml2string(std::vector<std::string>& list, const char* text) {
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

// --- Data to text ----------------------------------------------------------------

namespace {

void writeFloats(_znArray<float>& array, int count, TextOut& text) {
    if (count > array.count) return;
    for (int i = 0; i < array.count; ++i) {
        text.fixed(array.data[i]);
        text.put(" ", 1);
    }
}

void writeNodeName(znBrowserIntern& browser, BaseNode& node, TextOut& text) {
    try {
        znNode* n = browser.getNode(node.getID());
        if (const char* name = n ? n->getName(nullptr) : nullptr) text.put(name);
    } catch (znInvalidNodeIDException&) {
        // A null node writes nothing.
    }
}

void writeValue(znBrowserIntern& browser, void* data, FieldType type, TextOut& text);

template <class T>
void writeList(znBrowserIntern& browser, std::vector<T>& list, FieldType elementType, TextOut& text) {
    if (list.empty()) {
        text.put("[]", 2);
        return;
    }
    if (list.size() == 1) {
        writeValue(browser, &list[0], elementType, text);
        return;
    }
    // The comma stands behind the last element too; readers accept that.
    text.put("[ ", 2);
    for (T& value : list) {
        writeValue(browser, &value, elementType, text);
        text.put(", ", 2);
    }
    text.put("]", 1);
}

void writeValue(znBrowserIntern& browser, void* data, FieldType type, TextOut& text) {
    switch (type) {
        case SFBoolType:
            text.put(*static_cast<int*>(data) ? "TRUE" : "FALSE");
            break;
        case SFFloatType:
            text.fixed(*static_cast<float*>(data));
            break;
        case SFTimeType:
            text.fixed(*static_cast<double*>(data));
            break;
        case SFInt32Type:
            text.integer(*static_cast<int*>(data));
            break;
        case SFStringType: {
            // Quotes and backslashes are escaped, so that the text reads back
            // to the same string.
            text.put("\"", 1);
            // The stored string ends in a NUL of its own.
            const std::string_view value(static_cast<std::string*>(data)->c_str());
            std::size_t from = 0;
            for (std::size_t at = value.find_first_of("\"\\"); at != std::string::npos;
                 at = value.find_first_of("\"\\", at + 1)) {
                text.put(value.data() + from, at - from);
                text.put("\\", 1);
                from = at;
            }
            text.put(value.data() + from, value.size() - from);
            text.put("\"", 1);
            break;
        }
        case SFColorType:
        case SFVec3fType:
            writeFloats(*static_cast<_znArray<float>*>(data), 3, text);
            break;
        case SFVec2fType:
            writeFloats(*static_cast<_znArray<float>*>(data), 2, text);
            break;
        case SFRotationType:
            writeFloats(*static_cast<_znArray<float>*>(data), 4, text);
            break;
        case SFNodeType:
            writeNodeName(browser, *static_cast<BaseNode*>(data), text);
            break;
        case SFImageType: {
            const auto& numbers = *static_cast<std::vector<int>*>(data);
            for (size_t i = 0; i < numbers.size(); ++i) {
                char buffer[32];
                int n = std::snprintf(buffer, sizeof buffer, i < 3 ? "%d " : "0x%X ", numbers[i]);
                text.put(buffer, static_cast<size_t>(n));
            }
            break;
        }
        case MFColorType:
            writeList(browser, *static_cast<std::vector<_znArray<float>>*>(data), SFColorType, text);
            break;
        case MFFloatType:
            writeList(browser, *static_cast<std::vector<float>*>(data), SFFloatType, text);
            break;
        case MFInt32Type:
            writeList(browser, *static_cast<std::vector<int>*>(data), SFInt32Type, text);
            break;
        case MFNodeType:
            writeList(browser, *static_cast<std::vector<BaseNode>*>(data), SFNodeType, text);
            break;
        case MFRotationType:
            writeList(browser, *static_cast<std::vector<_znArray<float>>*>(data), SFRotationType, text);
            break;
        case MFStringType:
            writeList(browser, *static_cast<std::vector<std::string>*>(data), SFStringType, text);
            break;
        case MFTimeType:
            writeList(browser, *static_cast<std::vector<double>*>(data), SFTimeType, text);
            break;
        case MFVec2fType:
            writeList(browser, *static_cast<std::vector<_znArray<float>>*>(data), SFVec2fType, text);
            break;
        case MFVec3fType:
            writeList(browser, *static_cast<std::vector<_znArray<float>>*>(data), SFVec3fType, text);
            break;
    }
}

}  // namespace

void znBrowserIntern::lfdata2vrml(_znArray<float>& array, int count, char* out) {
    if (!out) return;
    TextOut text(out);
    writeFloats(array, count, text);
}

// `out` holds kFieldTextBufferSize characters, as every caller's buffer does.
void znBrowserIntern::data2vrml(void* data, FieldType type, char* out) {
    if (!out) return;
    TextOut text(out);
    if (!data || type < kFirstFieldType || type > kLastFieldType) return;
    writeValue(*this, data, type, text);
}

template <class T>
void mdata2vrml(znBrowserIntern* browser, std::vector<T>& list, FieldType elementType, char* out) {
    if (!out) return;
    TextOut text(out);
    writeList(*browser, list, elementType, text);
}

template void mvrml2data(znBrowserIntern*, std::vector<int>&, FieldType, const char*);
template void mvrml2data(znBrowserIntern*, std::vector<float>&, FieldType, const char*);
template void mvrml2data(znBrowserIntern*, std::vector<double>&, FieldType, const char*);
template void mvrml2data(znBrowserIntern*, std::vector<_znArray<float>>&, FieldType, const char*);
template void mvrml2data(znBrowserIntern*, std::vector<BaseNode>&, FieldType, const char*);
template void mdata2vrml(znBrowserIntern*, std::vector<int>&, FieldType, char*);
template void mdata2vrml(znBrowserIntern*, std::vector<float>&, FieldType, char*);
template void mdata2vrml(znBrowserIntern*, std::vector<double>&, FieldType, char*);
template void mdata2vrml(znBrowserIntern*, std::vector<_znArray<float>>&, FieldType, char*);
template void mdata2vrml(znBrowserIntern*, std::vector<BaseNode>&, FieldType, char*);
template void mdata2vrml(znBrowserIntern*, std::vector<std::string>&, FieldType, char*);
