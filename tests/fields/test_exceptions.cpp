// Every throw leaves its line on the error stream, also when caught.
#include <gtest/gtest.h>

#include <string>

#include "fields/zn_exception.h"

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

TEST(ExceptionText, ConstructionWritesTheThrowingLineAndKeepsAtMost511Characters) {
    CaptureStderr();
    InvalidFieldException e("Invalid field name = foo");
    EXPECT_EQ(GetCapturedStderr(), "\nThrowing Exception: Invalid field name = foo\n");
    EXPECT_STREQ(e.text, "Invalid field name = foo");

    CaptureStderr();
    Exception none;
    EXPECT_EQ(GetCapturedStderr(), "");
    EXPECT_STREQ(none.text, "");

    CaptureStderr();
    Exception cut(std::string(700, 'x').c_str());
    GetCapturedStderr();
    EXPECT_EQ(std::string(cut.text), std::string(511, 'x'));
}

TEST(ExceptionText, ThrowFormatsTheMessageAndClassesAreCaughtAsTheirBases) {
    CaptureStderr();
    try {
        znThrow<InvalidRouteException>("Bad route due to invalid source node ID: %d", 12);
        FAIL();
    } catch (InvalidRouteException& e) {
        EXPECT_STREQ(e.text, "Bad route due to invalid source node ID: 12");
    }
    EXPECT_EQ(GetCapturedStderr(), "\nThrowing Exception: Bad route due to invalid source node ID: 12\n");
    CaptureStderr();
    EXPECT_THROW(throw znInvalidNodeIDException("x"), znException);
    EXPECT_THROW(throw ArrayIndexOutOfBoundsException("x"), Exception);
    GetCapturedStderr();
}
