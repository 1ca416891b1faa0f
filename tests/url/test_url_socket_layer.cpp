// The socket layer under retrieval: its error numbers and formatted writes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "test_support.h"
#include "url/url_messages.h"
#include "url/zn_URL_web.h"


TEST(SocketLayer, BadPortsAndSystemErrorsKeepTheirOwnTexts) {
    for (const char* port : {"0", "no-such-service-anywhere", "70000", "-5"}) {
        errno = 0;
        EXPECT_EQ(zn_URL_web::make_inet_addr("127.0.0.1", port, "tcp"), nullptr) << port;
        EXPECT_EQ(errno, kErrorBadPort) << port;
        EXPECT_STREQ(zn_URL_web::sn_strerror(), kBadPortText) << port;
    }
    errno = ECONNREFUSED;
    EXPECT_STREQ(zn_URL_web::sn_strerror(), std::strerror(ECONNREFUSED));
}

TEST(SocketLayer, FdPrintfWritesTheFormattedTextOrReports) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    EXPECT_EQ(zn_URL_web::fd_printf(ends[1], kRequestFormat, "/a b.wrl"), 13);
    close(ends[1]);
    char got[64] = {};
    EXPECT_EQ(read(ends[0], got, sizeof got), 13);
    close(ends[0]);
    EXPECT_STREQ(got, "GET /a b.wrl\n");
    EXPECT_EQ(wrltest::stderrOf([&] { EXPECT_EQ(zn_URL_web::fd_printf(ends[1], kRequestFormat, "/x"), -1); }),
              "fd_printf can't print to " + std::to_string(ends[1]) + " using GET %s\n\n");
    EXPECT_EQ(zn_URL_web::fd_printf(ends[1], nullptr), 0);
}
