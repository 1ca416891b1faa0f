// How a node that reads files makes a local file out of a URL text.
#include <gtest/gtest.h>

#include "support_types.h"
#include "vrmlnodes/ImageTexture.h"

using wrltest::BehaviourWorld;

namespace {

class TextureWorld : public ::testing::Test {
protected:
    void SetUp() override {
        previous = world.system.browser->getURLInterface();
        world.system.browser->setURLInterface(&access);
        for (wrltest::SupportType& t : wrltest::readSupportTypes())
            if (t.name == "ImageTexture") declared = t;
        znNodeType& type = world.makeType("ImageTexture", {"STATIC_BUILTIN.so"}, declared.fields);
        node = world.makeNode(type);
        node->setUrlBase("http://host/dir/");
        node->initialize();
        texture = dynamic_cast<ImageTexture*>(node->getCPPScript());
        ASSERT_NE(texture, nullptr);
    }
    void TearDown() override { world.system.browser->setURLInterface(previous); }

    BehaviourWorld world;
    wrltest::AskedURL access{"/local/copy"};
    zn_URL* previous = nullptr;
    wrltest::SupportType declared;
    znNode* node = nullptr;
    ImageTexture* texture = nullptr;
};

}  // namespace

TEST_F(TextureWorld, RelativeNamesGoUnderTheBaseDirectoryAndOthersAsTheyAre) {
    EXPECT_STREQ(texture->getFile("   wood.png"), "/local/copy");
    EXPECT_EQ(access.asked, "http://host/dir/wood.png");
    EXPECT_EQ(access.pushed, 0);
    for (const char* name : {"file:wood.png", "\\share\\wood.png"}) {
        texture->getFile(name);
        EXPECT_EQ(access.asked, name);
    }
    // A name from the root lies on the remote base's server.
    texture->getFile("/abs/wood.png");
    EXPECT_EQ(access.asked, "http://host/abs/wood.png");
    // A base naming a file lends only its directory.
    node->setUrlBase("http://host/dir/world.wrl");
    texture->getFile("wood.png");
    EXPECT_EQ(access.asked, "http://host/dir/wood.png");
    node->setUrlBase("world.wrl");
    texture->getFile("wood.png");
    EXPECT_EQ(access.asked, "wood.png");
    texture->getFile("/abs/wood.png");
    EXPECT_EQ(access.asked, "/abs/wood.png");
    EXPECT_EQ(texture->getFile(nullptr), nullptr);
}
