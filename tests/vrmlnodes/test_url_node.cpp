// How a node that reads files makes a local file out of a URL text.
#include <gtest/gtest.h>

#include <list>

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

TEST_F(TextureWorld, RelativeNameWithBlanksGoesUnderTheBase) {
    EXPECT_STREQ(texture->getFile("   wood.png"), "/local/copy");
    EXPECT_EQ(access.asked, "http://host/dir/wood.png");
    EXPECT_EQ(access.pushed, 0);
}

TEST_F(TextureWorld, ColonOrLeadingSlashIgnoresTheBase) {
    texture->getFile("file:wood.png");
    EXPECT_EQ(access.asked, "file:wood.png");
    texture->getFile("/abs/wood.png");
    EXPECT_EQ(access.asked, "/abs/wood.png");
    texture->getFile("\\share\\wood.png");
    EXPECT_EQ(access.asked, "\\share\\wood.png");
}

TEST_F(TextureWorld, BaseNamingAFileLendsOnlyItsDirectory) {
    node->setUrlBase("http://host/dir/world.wrl");
    texture->getFile("wood.png");
    EXPECT_EQ(access.asked, "http://host/dir/wood.png");
    node->setUrlBase("world.wrl");
    texture->getFile("wood.png");
    EXPECT_EQ(access.asked, "wood.png");
}

TEST_F(TextureWorld, NullTextGivesNull) { EXPECT_EQ(texture->getFile(nullptr), nullptr); }

TEST_F(TextureWorld, AddURLpathOnlyAppendsTheValues) {
    MFString urls;
    std::string a = "a.png", b = "b.png";
    urls.addValue(a);
    urls.addValue(b);
    std::list<std::string> out{"first"};
    texture->addURLpath(urls, out);
    EXPECT_EQ(out, (std::list<std::string>{"first", "a.png", "b.png"}));
}
