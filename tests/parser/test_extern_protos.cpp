// EXTERNPROTO: prototypes of other files, read through the same parse.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "browser/zn_browser_intern.h"
#include "loader/wrl_loader.h"
#include "loader/zn.h"
#include "nodes/zn_node.h"
#include "nodes/zn_nodetype.h"
#include "test_support.h"

using testing::HasSubstr;

namespace {

const char kLibrary[] =
    "#VRML V2.0 utf8\n"
    "PROTO First [ field SFColor c 1 1 1 ] {\n"
    "  Shape { appearance Appearance { material Material { diffuseColor IS c } } }\n"
    "}\n"
    "PROTO B [ field SFFloat r 1 ] { Transform { children Shape { geometry Sphere { radius IS r } } } }\n"
    "Group { }\n";

// Loads `main` from a directory that also holds the library; the world
// lasts as long as the answer.
wrltest::WorldLoad load(wrltest::TempDir& dir, const std::string& main) {
    wrltest::ScopedStdin noAnswer("");
    dir.write("lib.wrl", kLibrary);
    wrltest::WorldLoad load = wrltest::loadWorld(dir.write("main.wrl", "#VRML V2.0 utf8\n" + main));
    EXPECT_NE(load.scene, nullptr);
    return load;
}

znNode* node(const char* name) { return dynamic_cast<znNode*>(_ZNmain->browser->getNode(name)); }

}  // namespace

TEST(ExternProtos, FragmentNamesThePrototypeThatTakesTheLocalName) {
    wrltest::TempDir dir;
    wrltest::WorldLoad world = load(dir, "EXTERNPROTO A [ field SFFloat r ] \"lib.wrl#B\"\nDEF X A { r 3 }\n");
    const std::string& err = world.err;
    EXPECT_EQ(err.find("Error"), std::string::npos) << err;
    znNode* x = node("X");
    ASSERT_NE(x, nullptr);
    EXPECT_STREQ(x->getType(), "A");
    // The instance expands into the body of B.
    ASSERT_NE(x->getFirstNode(), nullptr);
    EXPECT_STREQ(x->getFirstNode()->getType(), "Transform");
}

TEST(ExternProtos, MissingFileIsReportedOnceAndTheNextUrlIsUsed) {
    wrltest::TempDir dir;
    wrltest::WorldLoad world =
        load(dir, "EXTERNPROTO C [ field SFColor c ] [ \"missing.wrl\" \"lib.wrl\" ]\nDEF Y C { c 1 0 0 }\n");
    const std::string& err = world.err;
    const std::string alert = "PARSE ERROR:  Could not open EXTERNPROTO missing.wrl.";
    ASSERT_THAT(err, HasSubstr(alert));
    EXPECT_EQ(err.find(alert, err.find(alert) + 1), std::string::npos) << err;
    // Without a fragment the file's first PROTO is the one.
    znNode* y = node("Y");
    ASSERT_NE(y, nullptr);
    ASSERT_NE(y->getFirstNode(), nullptr);
    EXPECT_STREQ(y->getFirstNode()->getType(), "Shape");
}

TEST(ExternProtos, LinesOfTheOuterFileComeBackAfterTheExternalOne) {
    wrltest::TempDir dir;
    wrltest::WorldLoad world = load(dir,
                           "EXTERNPROTO A [ field SFFloat r ] \"lib.wrl#B\"\n"
                           "A { }\n"
                           "Transform { translation 1 2 3 }\n"
                           "Group { children [ Group { } ] ] }\n");
    const std::string& err = world.err;
    EXPECT_THAT(err, HasSubstr("main.wrl near line 5: parse error")) << err;
}

TEST(ExternProtos, ChainOfTenLevelsLoadsAndOneDeeperStopsAtTheLimit) {
    // Each file's only PROTO is an EXTERNPROTO of the next file.
    for (int last : {9, 12}) {
        SCOPED_TRACE(last);
        wrltest::TempDir dir;
        for (int i = 1; i < last; ++i)
            dir.write("chain" + std::to_string(i) + ".wrl",
                      "#VRML V2.0 utf8\nEXTERNPROTO P [ ] \"chain" + std::to_string(i + 1) + ".wrl\"\n");
        dir.write("chain" + std::to_string(last) + ".wrl", "#VRML V2.0 utf8\nPROTO P [ ] { Group { } }\n");
        wrltest::WorldLoad world = load(dir, "EXTERNPROTO P [ ] \"chain1.wrl\"\nDEF Z P { }\n");
        const std::string& err = world.err;
        if (last == 12) {
            EXPECT_THAT(err, HasSubstr("Can't exceed EXTERNPROTO depth of 10!"));
            continue;
        }
        EXPECT_EQ(err.find("EXTERNPROTO depth"), std::string::npos) << err;
        EXPECT_EQ(err.find("parse error"), std::string::npos) << err;
        ASSERT_NE(node("Z"), nullptr);
        EXPECT_NE(node("Z")->getFirstNode(), nullptr);
    }
}
