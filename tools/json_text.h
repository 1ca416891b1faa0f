// JSON text as wrlload writes it: numbers in the shortest form that reads
// back to the same value, strings always valid UTF-8.
#ifndef WRL_JSON_TEXT_H
#define WRL_JSON_TEXT_H

#include <ostream>
#include <string>

// The version of wrlload's JSON documents, carried in each as
// "formatVersion". It changes whenever a key changes its meaning or goes.
constexpr int kWrlloadJsonFormatVersion = 1;

// A float in its shortest form that reads back to the same float; a double
// likewise; null for what JSON cannot hold (infinities, NaN).
void jsonNumber(std::ostream& out, float value);
void jsonNumber(std::ostream& out, double value);
void jsonNumber(std::ostream& out, long long value);

// A quoted string. Bytes that are not UTF-8 become U+FFFD each, so that the
// document stays readable whatever a world named its nodes; quotes,
// backslashes and control characters are escaped.
void jsonString(std::ostream& out, const std::string& text);

#endif
