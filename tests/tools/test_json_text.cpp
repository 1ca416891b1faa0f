// JSON text that other programs can read back exactly.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <sstream>
#include <string>

#include "json_text.h"

namespace {

template <class T>
std::string numberText(T value) {
    std::ostringstream out;
    jsonNumber(out, value);
    return out.str();
}

std::string stringText(const std::string& text) {
    std::ostringstream out;
    jsonString(out, text);
    return out.str();
}

}  // namespace

TEST(jsonNumber, EveryFloatReadsBackToItself) {
    // Powers, thirds and sevenths across the range, and the edges of it.
    for (int exponent = -44; exponent <= 38; ++exponent) {
        for (float mantissa : {1.0f, 1.0f / 3.0f, 1.0f / 7.0f, -9.87654321f}) {
            const float value = mantissa * std::pow(10.0f, float(exponent));
            if (!std::isfinite(value)) continue;
            const std::string text = numberText(value);
            EXPECT_EQ(std::strtof(text.c_str(), nullptr), value) << text;
        }
    }
    for (float edge : {std::numeric_limits<float>::max(), std::numeric_limits<float>::denorm_min(),
                       std::numeric_limits<float>::min(), -0.0f}) {
        const std::string text = numberText(edge);
        EXPECT_EQ(std::strtof(text.c_str(), nullptr), edge) << text;
    }
    EXPECT_EQ(numberText(0.1f), "0.1");
    EXPECT_EQ(numberText(0.8f), "0.8");
    EXPECT_EQ(numberText(2.0f), "2");
    EXPECT_EQ(numberText(0.1), "0.1");
    EXPECT_EQ(numberText(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(numberText(12345678901LL), "12345678901");
}

TEST(jsonNumber, WhatJsonCannotHoldIsNull) {
    EXPECT_EQ(numberText(std::numeric_limits<float>::infinity()), "null");
    EXPECT_EQ(numberText(-std::numeric_limits<double>::infinity()), "null");
    EXPECT_EQ(numberText(std::nanf("")), "null");
}

TEST(jsonString, EscapesQuotesBackslashesAndControls) {
    EXPECT_EQ(stringText("say \"hi\"\\ \n\t\x01"), "\"say \\\"hi\\\"\\\\ \\u000a\\u0009\\u0001\"");
    EXPECT_EQ(stringText(""), "\"\"");
}

TEST(jsonString, KeepsUtf8AndReplacesEveryByteThatIsNone) {
    const std::string replacement = "\xEF\xBF\xBD";
    // Two, three and four bytes, at the edges of their ranges.
    const std::string valid = "\xC2\x80 \xDF\xBF \xE0\xA0\x80 \xED\x9F\xBF \xEE\x80\x80 \xF0\x90\x80\x80 \xF4\x8F\xBF\xBF";
    EXPECT_EQ(stringText(valid), "\"" + valid + "\"");
    const struct {
        std::string bytes, expected;
    } cases[] = {
        {"a\xFF" "b", "a" + replacement + "b"},                            // never a UTF-8 byte
        {"\xC0\xAF", replacement + replacement},                            // an overlong '/'
        {"\xE0\x80\xAF", replacement + replacement + replacement},          // overlong in three
        {"\xED\xA0\x80", replacement + replacement + replacement},          // a surrogate
        {"\xF4\x90\x80\x80", replacement + replacement + replacement + replacement},  // past U+10FFFF
        {"\xE2\x82", replacement + replacement},                            // cut short at the end
        {"\xE2\x82" "A", replacement + replacement + "A"},                  // cut short before ASCII
        {"\x80" "x", replacement + "x"},                                   // a lone continuation
    };
    for (const auto& c : cases) EXPECT_EQ(stringText(c.bytes), "\"" + c.expected + "\"") << stringText(c.bytes);
}
