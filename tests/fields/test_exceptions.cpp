// Every throw leaves its line on the error stream, also when caught; the
// classes' own texts and formats are checked where they are thrown.
#include <gtest/gtest.h>

#include <string>

#include "fields/zn_exception.h"
#include "test_support.h"

TEST(ExceptionText, ConstructionWritesTheThrowingLineAndKeepsAtMost511Characters) {
    EXPECT_EQ(wrltest::stderrOf([] { EXPECT_STREQ(Exception().text, ""); }), "");
    const std::string said = wrltest::stderrOf(
        [] { EXPECT_EQ(std::string(Exception(std::string(700, 'x').c_str()).text), std::string(511, 'x')); });
    EXPECT_EQ(said, "\nThrowing Exception: " + std::string(511, 'x') + "\n");
    // A formatted text is cut alike.
    wrltest::stderrOf([] {
        try {
            znThrow<InvalidRouteException>("%s: %d", std::string(600, 'y').c_str(), 12);
        } catch (Exception& e) {
            EXPECT_EQ(std::string(e.text), std::string(511, 'y'));
        }
    });
}
