#include <gtest/gtest.h>

#include <vector>


#include "csAppearance.h"
#include "csEnvironment.h"
#include "csGroup.h"
#include "csIndexedFaceSet.h"
#include "csMaterial.h"
#include "csShape.h"
#include "csTexture.h"
#include "csImage.h"
#include "csViewpoint.h"

namespace {

// Counts destructions, so that a test sees an object end.
int destroyed = 0;

class CountedGroup : public csGroup {
public:
    CountedGroup() = default;

protected:
    ~CountedGroup() override { ++destroyed; }
};

}  // namespace

TEST(csGroup, AddChildRefsAndRemoveChildUnrefs) {
    csGroup* parent = new csGroup();
    parent->ref();
    csGroup* child = new csGroup();
    child->ref();
    parent->addChild(child);
    EXPECT_EQ(child->getRefCount(), 2);
    parent->addChild(child);  // the same child twice holds two references
    EXPECT_EQ(child->getRefCount(), 3);
    EXPECT_EQ(parent->getChildCount(), 2);
    EXPECT_TRUE(parent->removeChild(child));
    EXPECT_EQ(child->getRefCount(), 2);
    EXPECT_TRUE(parent->removeChild(0));
    EXPECT_EQ(child->getRefCount(), 1);
    EXPECT_FALSE(parent->removeChild(child));
    EXPECT_FALSE(parent->removeChild(5));
    parent->addChild(nullptr);
    EXPECT_EQ(parent->getChildCount(), 0);
    child->unref();
    parent->unref();
}

TEST(csGroup, ChildrenDieWithTheirLastReference) {
    destroyed = 0;
    csGroup* parent = new csGroup();
    parent->ref();
    parent->addChild(new CountedGroup());
    parent->removeChild(0);
    EXPECT_EQ(destroyed, 1);

    // A replacement that only the old child held lives through the swap.
    auto* old = new CountedGroup();
    parent->addChild(old);
    auto* inner = new CountedGroup();
    old->addChild(inner);
    EXPECT_TRUE(parent->replaceChild(0, inner));
    EXPECT_EQ(destroyed, 2);
    EXPECT_EQ(parent->getChild(0), inner);
    EXPECT_EQ(inner->getRefCount(), 1);
    EXPECT_FALSE(parent->replaceChild(3, inner));

    // setChildCount cuts from the end and never grows.
    parent->addChild(new CountedGroup());
    parent->addChild(new CountedGroup());
    parent->setChildCount(5);
    EXPECT_EQ(parent->getChildCount(), 3);
    parent->setChildCount(1);
    EXPECT_EQ(parent->getChild(0), inner);
    EXPECT_EQ(destroyed, 4);
    parent->addChild(new CountedGroup());
    parent->unref();  // the parent takes its children with it
    EXPECT_EQ(destroyed, 6);
}

TEST(csShape, EveryHolderKeepsItsOwnReference) {
    csShape* shape = new csShape();
    shape->ref();
    auto* faces = new csIndexedFaceSet();
    faces->ref();
    auto* appearance = new csAppearance();
    appearance->ref();
    shape->addGeometry(faces);
    shape->setAppearance(appearance);
    EXPECT_EQ(faces->getRefCount(), 2);
    EXPECT_EQ(appearance->getRefCount(), 2);
    EXPECT_TRUE(shape->removeGeometry(0));
    EXPECT_EQ(faces->getRefCount(), 1);
    shape->setAppearance(nullptr);
    EXPECT_EQ(appearance->getRefCount(), 1);

    auto* material = new csMaterial();
    appearance->setMaterial(material);
    appearance->setMaterial(material);  // ref before unref: it must survive
    EXPECT_EQ(material->getRefCount(), 1);

    auto* other = new csIndexedFaceSet();
    other->ref();
    auto* index = new csIndexSet(3);
    faces->setCoordIndexSet(index);
    faces->setNormalIndexSet(index);
    other->setCoordIndexSet(index);
    EXPECT_EQ(index->getRefCount(), 3);
    faces->unref();
    EXPECT_EQ(index->getRefCount(), 1);
    other->unref();

    csEnvironment* env = new csEnvironment();
    env->ref();
    csGroup* light = new csGroup();
    env->addChild(light);
    env->lights().append(light);
    EXPECT_EQ(light->getRefCount(), 2);
    env->removeChild(0);
    EXPECT_EQ(light->getRefCount(), 1);

    auto* texture = new csTexture();
    texture->ref();
    auto* image = new csImage();
    static_cast<csMFRef*>(texture->getField(csTexture::IMAGE))->set(0, image);
    EXPECT_EQ(texture->getImage(), image);
    EXPECT_EQ(image->getRefCount(), 1);
    texture->unref();
    env->unref();
    appearance->unref();
    shape->unref();
}

TEST(csEnvironment, HoldsWhatItListsAndBindsUntilItGoes) {
    auto* env = new csEnvironment();
    env->ref();
    auto* first = new csViewpoint();
    first->ref();
    env->viewpoints().append(first);
    env->setViewpoint(first);
    EXPECT_EQ(first->getRefCount(), 3);
    env->setViewpoint(first);  // ref before unref: it must survive
    EXPECT_EQ(first->getRefCount(), 3);
    auto* second = new csViewpoint();
    second->ref();
    env->setViewpoint(second);
    EXPECT_EQ(first->getRefCount(), 2);
    env->setViewpoint(nullptr);
    EXPECT_EQ(second->getRefCount(), 1);
    env->setViewpoint(second);
    env->unref();  // the environment lets go of both
    EXPECT_EQ(first->getRefCount(), 1);
    EXPECT_EQ(second->getRefCount(), 1);
    first->unref();
    second->unref();
}

TEST(csObject, TypeFollowsTheClassChainAndAHandleStandsForTheObjectUntilItDies) {
    auto* group = new csEnvironment();
    group->ref();
    EXPECT_TRUE(group->isOfType(csGroup::getClassType()));
    EXPECT_FALSE(group->isOfType(csShape::getClassType()));
    EXPECT_STREQ(group->getType()->getName(), "csEnvironment");
    auto* set = new csIndexSet(1);
    set->ref();
    const int handle = group->getHandle();
    EXPECT_NE(handle, 0);
    EXPECT_EQ(group->getHandle(), handle);  // asked again, the same number
    EXPECT_NE(set->getHandle(), handle);
    EXPECT_EQ(csObject::fromHandleAs<csGroup>(handle), group);
    EXPECT_EQ(csObject::fromHandleAs<csIndexSet>(handle), nullptr);  // of another class
    EXPECT_EQ(csObject::fromHandle(0), nullptr);
    group->unref();
    EXPECT_EQ(csObject::fromHandle(handle), nullptr);  // a stale number finds nothing
    EXPECT_NE(csObject::fromHandle(set->getHandle()), nullptr);
    set->unref();
}

TEST(csObject, HandlesOfManyObjectsStayTrueAsTheirNeighboursDie) {
    // Enough objects to fill several thousand-number stretches of handles;
    // every other one dies, then all but the last.
    std::vector<csIndexSet*> sets;
    std::vector<int> handles;
    for (int i = 0; i < 10000; ++i) {
        sets.push_back(new csIndexSet(1));
        sets.back()->ref();
        handles.push_back(sets.back()->getHandle());
    }
    for (std::size_t i = 0; i < sets.size(); i += 2) sets[i]->unref();
    for (std::size_t i = 0; i < sets.size(); ++i)
        EXPECT_EQ(csObject::fromHandle(handles[i]), i % 2 == 0 ? nullptr : sets[i]) << i;
    for (std::size_t i = 1; i + 1 < sets.size(); i += 2) sets[i]->unref();
    EXPECT_EQ(csObject::fromHandle(handles[1]), nullptr);
    EXPECT_EQ(csObject::fromHandle(handles.back()), sets.back());
    // A new object gets a number of its own, never that of a living one.
    auto* fresh = new csIndexSet(1);
    fresh->ref();
    EXPECT_NE(fresh->getHandle(), handles.back());
    EXPECT_EQ(csObject::fromHandle(fresh->getHandle()), fresh);
    fresh->unref();
    sets.back()->unref();
}

// A name given by setName is the object's own copy; a static name is the
// very text given, and neither is freed twice nor lost when one follows
// the other (the sanitizers watch the frees).
TEST(csObject, ASetNameIsCopiedAndAStaticNameIsBorrowed) {
    static const char kFixed[] = "Unnamed Group Node";
    csGroup* group = new csGroup();
    group->ref();
    char given[] = "Crate";
    group->setName(given);
    given[0] = 'X';
    EXPECT_STREQ(group->getName(), "Crate");
    group->setStaticName(kFixed);
    EXPECT_EQ(group->getName(), kFixed);
    group->setName("Again");
    EXPECT_NE(group->getName(), static_cast<const char*>("Again"));
    EXPECT_STREQ(group->getName(), "Again");
    group->setStaticName(nullptr);
    EXPECT_EQ(group->getName(), nullptr);
    group->setStaticName(kFixed);
    group->unref();

    csGroup* copied = new csGroup();
    copied->ref();
    copied->setStaticName(kFixed);
    copied->setName("Own");
    copied->unref();
}
