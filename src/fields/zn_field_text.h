// Field values between VRML text and data. Each family of values reads and
// writes its own text here; the browser's vrml2data and data2vrml only
// forward, handing over the names of its nodes.
#ifndef ZN_FIELD_TEXT_H
#define ZN_FIELD_TEXT_H

#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

#include "fields/zn_array.h"
#include "fields/zn_field.h"
#include "nodes/zn_vrml.h"

// A node value stands in text as the name of its node; the world that owns
// the names answers for them.
class znNodeNames {
public:
    // Makes `node` the node that `name` stands for, or a null node when no
    // node does (yet).
    virtual void findNode(const char* name, BaseNode& node) = 0;
    // The name of the node behind `node`, or null.
    virtual const char* nameOf(BaseNode& node) = 0;

protected:
    ~znNodeNames() = default;
};

// Writes at most kFieldTextBufferSize - 1 characters and a terminator into
// the buffer it is given; the first overflow is reported once, when the
// writer ends, and the text is cut there. Given a string, it appends to it
// without a bound, for a writer of whole worlds, where no value may be cut.
class znTextOut {
public:
    explicit znTextOut(char* out) : at(out), end(out + kFieldTextBufferSize - 1) { *at = '\0'; }
    explicit znTextOut(std::string& out) : grown(&out) {}
    ~znTextOut();
    znTextOut(const znTextOut&) = delete;
    znTextOut& operator=(const znTextOut&) = delete;

    void put(const char* text, std::size_t n) {
        if (grown != nullptr) {
            grown->append(text, n);
            return;
        }
        std::size_t room = static_cast<std::size_t>(end - at);
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
    void fixed(double v);
    void integer(long long v);

private:
    char* at = nullptr;
    char* end = nullptr;
    std::string* grown = nullptr;
    bool cut = false;
};

// --- The families ------------------------------------------------------------
// A reader leaves its value as it was where the text holds nothing that it
// can read.

// SFBool: 1 when "TRUE" stands anywhere in the text.
void znReadBool(int& value, const char* text);
void znWriteBool(int value, znTextOut& out);
// SFInt32: as strtoul with base 0 reads it, narrowed to int.
void znReadInt32(int& value, const char* text);
void znWriteInt32(int value, znTextOut& out);
// SFFloat and SFTime: as strtod reads them in the "C" locale.
void znReadFloat(float& value, const char* text);
void znWriteFloat(float value, znTextOut& out);
void znReadTime(double& value, const char* text);
void znWriteTime(double value, znTextOut& out);
// SFVec2f, SFVec3f, SFColor and SFRotation: `count` numbers.
void znReadVector(_znArray<float>& value, int count, const char* text);
void znWriteVector(_znArray<float>& value, int count, znTextOut& out);
// SFString: what stands between the first quote and the first unescaped one.
void znReadString(std::string& value, const char* text);
void znWriteString(const std::string& value, znTextOut& out);
// SFNode: a node name, or NULL.
void znReadNode(BaseNode& value, const char* text, znNodeNames& names);
void znWriteNode(BaseNode& value, znTextOut& out, znNodeNames& names);
// SFImage: width, height, components and the pixels, brackets or not.
void znReadImage(std::vector<int>& value, const char* text);
void znWriteImage(const std::vector<int>& value, znTextOut& out);
// The multiple values: a bracketed list of elements of `elementType`, or
// one element without brackets.
template <class T>
void znReadList(std::vector<T>& list, FieldType elementType, const char* text, znNodeNames& names);
void znReadStringList(std::vector<std::string>& list, const char* text);
template <class T>
void znWriteList(std::vector<T>& list, FieldType elementType, znTextOut& out, znNodeNames& names);

// The value of field type `type` (20 to 39) at `data`, from and to text;
// other types and null pointers do nothing. `out` holds
// kFieldTextBufferSize characters.
void znReadFieldText(void* data, FieldType type, const char* text, znNodeNames& names);
void znWriteFieldText(void* data, FieldType type, char* out, znNodeNames& names);
// The same text, appended to `out` whole, however long.
void znWriteFieldText(void* data, FieldType type, std::string& out, znNodeNames& names);

// Tokenizers of field texts.
// 1 when `text` is null, empty or has no digit.
int nodigits(const char* text);
// A tokenizer that honours quotes, with a cursor of its own that a non-null
// `text` resets.
char* stringtok(char* text, const char* delimiters);
// `count` tokens at once as one string, or null when they run out.
char* sz_strtok_r(int count, char* text, const char* delimiters, char** state);

#endif
