#include "fields/zn_exception.h"

#include <cstdio>
#include <cstring>

#include "fields/field_messages.h"

Exception::Exception() { text[0] = '\0'; }

Exception::Exception(const char* message) {
    std::snprintf(text, sizeof text, "%s", message ? message : "");
    std::fprintf(stderr, "%s%s\n", kThrowingPrefix, text);
}

void znFormatMessage(char (&out)[512], const char* format, ...) {
    va_list args;
    va_start(args, format);
    std::vsnprintf(out, sizeof out, format, args);
    va_end(args);
}
