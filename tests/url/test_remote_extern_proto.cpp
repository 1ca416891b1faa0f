// An EXTERNPROTO whose file lies on a web server: fetched once into the
// cache, then read from it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "browser/zn_browser_intern.h"
#include "loader/wrl_loader.h"
#include "loader/zn.h"
#include "nodes/zn_node.h"
#include "test_support.h"
#include "url/zn_URL_web.h"
#include "url_test_server.h"

using testing::HasSubstr;

TEST(RemoteExternProto, PrototypeOfAServedFileLoadsThroughTheCache) {
    wrltest::TempDir dir;
    wrltest::ScopedEnv tmp("ZN_TMP_PATH", dir.path().c_str());
    wrltest::ScopedEnv noProxy("ZNPROXY", nullptr);
    zn_URL_web::remoteRequests = 1;
    wrltest::TestHttpServer server(
        "#VRML V2.0 utf8\nPROTO Far [ field SFVec3f at 0 0 0 ] { Transform { translation IS at } }\n");
    const std::string world = dir.write(
        "world.wrl", "#VRML V2.0 utf8\nEXTERNPROTO Near [ field SFVec3f at ] \"" + server.url("/lib/far.wrl") +
                         "\"\nDEF N Near { at 1 2 3 }\n");
    wrltest::WorldLoad load = wrltest::loadWorld(world);
    server.stop();
    ASSERT_NE(load.scene, nullptr);
    EXPECT_THAT(load.err, HasSubstr("Creating a cache file: " + dir.path() + "/.zncachefar.wrl"));
    EXPECT_EQ(server.requests(), std::vector<std::string>{"GET /lib/far.wrl\n"});
    auto* near = dynamic_cast<znNode*>(_ZNmain->browser->getNode("N"));
    ASSERT_NE(near, nullptr);
    ASSERT_NE(near->getFirstNode(), nullptr);
    EXPECT_STREQ(near->getFirstNode()->getType(), "Transform");
    EXPECT_EQ(wrltest::readFile(dir.path() + "/.zncachefar.wrl").substr(0, 15), "#VRML V2.0 utf8");
}
