#include <gtest/gtest.h>

#include "csEnvironment.h"
#include "loader/wrl_loader.h"
#include "optimizer/gfx_opt.h"

namespace {

// Puts a fresh root in place for the test and the old one back after.
class WithRoot {
public:
    explicit WithRoot(csEnvironment* root) : saved_(topSceneNode) { topSceneNode = root; }
    ~WithRoot() { topSceneNode = saved_; }

private:
    csEnvironment* saved_;
};

}  // namespace

TEST(gfx_opt, SetTopNodeAddsAndRefs) {
    csEnvironment* root = new csEnvironment();
    root->ref();
    WithRoot scope(root);
    gfx_opt g(nullptr);
    csGroup* group = new csGroup();
    g.set_top_Node(group);
    EXPECT_EQ(root->getChildCount(), 1);
    EXPECT_EQ(root->getChild(0), group);
    EXPECT_EQ(group->getRefCount(), 2);  // one for the child list, one from set_top_Node
    g.set_top_Node(group);               // the same group twice is added twice
    EXPECT_EQ(root->getChildCount(), 2);
    EXPECT_EQ(group->getRefCount(), 4);
    EXPECT_EQ(g.getRoot(), root);
    root->unref();
    group->unref();
    group->unref();
}

TEST(gfx_opt, SetTopNodeWithoutGroupOrRootDoesNothing) {
    csEnvironment* root = new csEnvironment();
    root->ref();
    gfx_opt g(nullptr);
    {
        WithRoot scope(root);
        g.set_top_Node(nullptr);
        EXPECT_EQ(root->getChildCount(), 0);
    }
    WithRoot none(nullptr);
    csGroup* group = new csGroup();
    group->ref();
    g.set_top_Node(group);
    EXPECT_EQ(group->getRefCount(), 1);
    group->unref();
    root->unref();
}

TEST(gfx_opt, DefaultsOfTheInterface) {
    gfx_opt g(nullptr);
    gfx& base = g;
    EXPECT_STREQ(base.getClass(), "gfx");
    EXPECT_STREQ(base.getType(), "gfx_opt");
    EXPECT_EQ(base.getNavigationType(), 1);
    EXPECT_EQ(base.setNavigationType("WALK"), 0);
    EXPECT_EQ(base.isViewpointInterpolating(), 0);
    EXPECT_FLOAT_EQ(base.getCollisionDistance(), 0.25f);
    EXPECT_FLOAT_EQ(base.getEyeHeight(), 1.6f);
    EXPECT_FLOAT_EQ(base.getStepHeight(), 0.75f);
    EXPECT_EQ(base.getFOV(), 0.0f);
    EXPECT_EQ(base.getNavigationSpeed(), 0.0f);
    EXPECT_EQ(base.getHeadlight(), 0);
    EXPECT_EQ(base.getWorldInfoTitle(), nullptr);
    EXPECT_TRUE(base.getWorldInfoInfo().empty());
    EXPECT_EQ(base.handleAnchor({"a.wrl"}, {}), 0);
    std::vector<const char*> urls{"b.wrl"}, params;
    EXPECT_EQ(base.loadNewWorld(urls, params), 0);
    EXPECT_EQ(g.keyHandler(nullptr, 'q'), 1);
    EXPECT_EQ(g.getCamera(), nullptr);
    EXPECT_EQ(g.getPose(), nullptr);
}

TEST(gfx_opt, CameraMatrixIsLeftAsItWas) {
    gfx_opt g(nullptr);
    float m[4][4];
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) m[i][j] = static_cast<float>(i * 4 + j);
    g.getCameraMatrix(m);
    g.getViewpointMatrix(m);
    g.getMouseMatrix(m);
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) EXPECT_EQ(m[i][j], static_cast<float>(i * 4 + j));
}
