// A text value of the toolkit.
#ifndef CS_STRING_H
#define CS_STRING_H

#include <string>

class csString {
public:
    csString() = default;
    csString(const char* text) : _text(text ? text : "") {}  // NOLINT: converts like the toolkit's
    csString(const std::string& text) : _text(text) {}       // NOLINT

    const char* getString() const { return _text.c_str(); }
    int getLength() const { return static_cast<int>(_text.size()); }
    bool operator==(const csString& o) const { return _text == o._text; }

private:
    std::string _text;
};

#endif
