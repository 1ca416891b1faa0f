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
