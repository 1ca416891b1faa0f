// Text and FontStyle beyond the shipped text example: faces from lists of
// families, the size bounds, refreshes after a change and wrong node types.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "csAppearance.h"
#include "csScreenAlignedText.h"
#include "csTransform.h"
#include "opRep.h"
#include "optimizer/optFontStyle.h"
#include "optimizer/optText.h"
#include "scene_world.h"

using wrltest::childAs;
using wrltest::SceneLoad;

namespace {

csScreenAlignedText* textOf(csEnvironment* scene, int index) {
    return wrltest::geometryAt<csScreenAlignedText>(scene, index);
}

}  // namespace

TEST(optText, FamilyAndStyleChooseTheFaceAndSizeIsTenPointsAUnit) {
    SceneLoad world;
    csEnvironment* scene = world.load(
        "Shape { geometry Text { string \"b\" fontStyle FontStyle { family [ \"SANS\" \"SERIF\" ] style "
        "\"BOLDITALIC\" size 2.55 } } }\n"
        "Shape { geometry Text { string \"c\" fontStyle FontStyle { family \"TYPEWRITER\" style \"ITALIC\" } } }\n"
        "Shape { geometry DEF EMPTY Text { fontStyle FontStyle { size 0.5 } } }\n");
    const int faces[] = {7, 1, 0};
    const int sizes[] = {25, 10, 5};
    for (int i = 0; i < 3; ++i) {
        SCOPED_TRACE(i);
        csScreenAlignedText* text = textOf(scene, i);
        ASSERT_NE(text, nullptr);
        EXPECT_EQ(text->getFace(), faces[i]);
        EXPECT_EQ(text->getSize(), sizes[i]);
    }
    EXPECT_STREQ(textOf(scene, 2)->getName(), "EMPTY");
    EXPECT_STREQ(textOf(scene, 2)->getText().getString(), "");
}

TEST(optFontStyle, NamesMatchExactlyAndSizesAreHeldToTheRangeOfInt) {
    EXPECT_EQ(optFontStyle::faceFor("SANS", "PLAIN"), 4);
    EXPECT_EQ(optFontStyle::faceFor("sans", "bold"), 0);
    EXPECT_EQ(optFontStyle::faceFor(nullptr, nullptr), 0);
    EXPECT_EQ(optFontStyle::sizeFor(0.99f), 9);
    EXPECT_EQ(optFontStyle::sizeFor(1e30f), std::numeric_limits<int>::max());
    EXPECT_EQ(optFontStyle::sizeFor(-1e30f), std::numeric_limits<int>::min());
    EXPECT_EQ(optFontStyle::sizeFor(std::numeric_limits<float>::quiet_NaN()), 0);
}

TEST(optText, ChangesReachTheTextThroughTheRefreshPass) {
    SceneLoad world;
    csEnvironment* scene = world.load(
        "DEF S Shape { geometry DEF T Text { string \"old\" fontStyle FontStyle { style \"BOLD\" } } }\n"
        "DEF F FontStyle { family \"SANS\" size 3 }\n");
    auto* node = dynamic_cast<optText*>(world.builtinNamed("T"));
    Builtin* shape = world.builtinNamed("S");
    ASSERT_NE(node, nullptr);
    ASSERT_NE(shape, nullptr);
    csScreenAlignedText* text = textOf(scene, 0);
    ASSERT_EQ(text, node->getText());
    EXPECT_EQ(text->getFace(), 2);

    MFString strings;
    std::string one = "new", two = "lines";
    strings.addValue(one);
    strings.addValue(two);
    node->set_string(strings, 1.0);
    SFNode style(*dynamic_cast<BaseNode*>(world.builtinNamed("F")));
    node->set_fontStyle(style, 1.0);
    EXPECT_STREQ(text->getText().getString(), "old\n") << "not before the pass";

    SFTime time(1.0);
    shape->action(time, kActionRefresh, nullptr);
    EXPECT_STREQ(text->getText().getString(), "new\nlines\n");
    EXPECT_EQ(text->getFace(), 4);
    EXPECT_EQ(text->getSize(), 30);

    // Length and extent are kept and change nothing that shows.
    MFFloat lengths;
    lengths.addValue(2.0f);
    node->set_length(lengths, 1.0);
    SFFloat extent(4.0f);
    node->set_maxExtent(extent, 1.0);
    text->setText(csString("mark"));
    shape->action(time, kActionRefresh, nullptr);
    EXPECT_STREQ(text->getText().getString(), "mark");
}

TEST(optText, NodesOfTheWrongTypeInTextFieldsBuildNothing) {
    SceneLoad world;
    csEnvironment* scene = world.load("Shape { geometry FontStyle { family \"SANS\" } }\n"
                                      "Shape { geometry Text { string \"x\" fontStyle Material { } } }\n");
    opRep* styleShape = wrltest::shapeAt(scene, 0);
    ASSERT_NE(styleShape, nullptr);
    EXPECT_EQ(styleShape->getGeometryCount(), 0) << "a font style is no geometry";
    csScreenAlignedText* text = textOf(scene, 1);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->getFace(), 0);
    EXPECT_EQ(text->getSize(), 50);
}
