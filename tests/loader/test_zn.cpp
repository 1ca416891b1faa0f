#include <gtest/gtest.h>

#include "browser/zn_browser_intern.h"
#include "loader/zn.h"
#include "loader/zn_interfaces.h"
#include "scripts/zn_scriptinterfaces.h"

TEST(ZN, MakesItsThreeMembersAndKeepsThemPastItsOwnEnd) {
    ZN* system = new ZN(7);
    EXPECT_EQ(system->mode, 7);
    ASSERT_NE(system->browser, nullptr);
    ASSERT_NE(system->appInterfaces, nullptr);
    ASSERT_NE(system->scriptInterfaces, nullptr);
    znBrowserIntern* browser = system->browser;
    delete system;
    // The browser outlives the system object.
    EXPECT_EQ(browser->ZNType(), -1);
    browser->registerZNType(1);
    EXPECT_EQ(browser->ZNType(), 1);
}
