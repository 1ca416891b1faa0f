// The exceptions of the value and node model. Objects are thrown by value;
// catch sites read `text` directly.
#ifndef ZN_EXCEPTION_H
#define ZN_EXCEPTION_H

#include <cstdarg>

class Exception {
public:
    // No message: the text stays empty and nothing is written.
    Exception();
    // Copies at most 511 characters of `message` and writes it, after the
    // "Throwing Exception" prefix, to the error stream, so that a caught
    // failure still leaves a line.
    explicit Exception(const char* message);
    virtual ~Exception() = default;

    char text[512];
};

// Formats a message for an exception into a bounded buffer.
void znFormatMessage(char (&out)[512], const char* format, ...);

// Declares an exception class that adds nothing but its place in the tree.
#define ZN_EXCEPTION_CLASS(Name, Base)                                   \
    class Name : public Base {                                           \
    public:                                                              \
        Name() = default;                                                \
        explicit Name(const char* message) : Base(message) {}            \
    }

ZN_EXCEPTION_CLASS(znException, Exception);
ZN_EXCEPTION_CLASS(znInvalidNodeIDException, znException);
ZN_EXCEPTION_CLASS(znInvalidNodeTypeIDException, znException);
ZN_EXCEPTION_CLASS(znInvalidNodeNameException, znException);
ZN_EXCEPTION_CLASS(InvalidVRMLSyntaxException, Exception);
ZN_EXCEPTION_CLASS(InvalidRouteException, Exception);
ZN_EXCEPTION_CLASS(InvalidEventInException, Exception);
ZN_EXCEPTION_CLASS(InvalidEventOutException, Exception);
ZN_EXCEPTION_CLASS(InvalidFieldException, Exception);
ZN_EXCEPTION_CLASS(InvalidExposedFieldException, Exception);
ZN_EXCEPTION_CLASS(ArrayIndexOutOfBoundsException, Exception);

#undef ZN_EXCEPTION_CLASS

// Formats `format` and throws `E` with the result.
template <class E, class... Args>
[[noreturn]] void znThrow(const char* format, Args... args) {
    char message[512];
    znFormatMessage(message, format, args...);
    throw E(message);
}

#endif
