// Syntax that files written by exporters and people use: each world loads
// whole, builds the scene it says, and its world text (`wrlload --vrml`)
// loads again to the same scene.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "browser/zn_browser_intern.h"
#include "loader/wrl_loader.h"
#include "loader/zn.h"
#include "nodes/zn_node.h"
#include "test_support.h"

using testing::HasSubstr;
using testing::Not;
using wrltest::occurrences;

namespace {

struct World {
    std::string scene;
    std::string err;
    bool loaded = false;
    std::unique_ptr<wrltest::WorldLoad> load;  // the world itself, while the test looks at it
};

// Checks that the written world of `body`, as main.wrl of `dir`, loads to
// the same scene, then loads `body` once more for the test to look at.
// Unanswered questions take their default.
World load(wrltest::TempDir& dir, const std::string& body) {
    wrltest::ScopedStdin noAnswer("");
    const std::string path = dir.write("main.wrl", "#VRML V2.0 utf8\n" + body);
    const wrltest::RoundTrip trip = wrltest::roundTrip(path);
    EXPECT_EQ(trip.second, trip.first) << "the written world builds another scene";
    World world;
    wrltest::WorldLoad again = wrltest::loadWorld(path);
    if (again.scene == nullptr) return world;
    world.loaded = true;
    world.scene = wrltest::sceneText(again.scene);
    world.err = again.err;
    world.load = std::make_unique<wrltest::WorldLoad>(std::move(again));
    return world;
}

znNode* node(const char* name) { return dynamic_cast<znNode*>(_ZNmain->browser->getNode(name)); }

}  // namespace

TEST(RealFileValues, ListsClosedAgainstTheNextTokenAndEmptyListsOfEveryType) {
    wrltest::TempDir dir;
    World w = load(dir,
                   "PROTO Lists [ field MFColor c [] field MFFloat f [] field MFInt32 i []\n"
                   "  field MFRotation r [] field MFString s [] field MFTime t []\n"
                   "  field MFVec2f v [] field MFVec3f p [] field MFNode n [] ] { Group { } }\n"
                   "Lists { c [] f [] i [] r [] s [] t [] v [] p [] n []}\n"
                   "WorldInfo { info [\"a\"]}\n"
                   "Shape { geometry Text { string [\"one\", \"two\"]} }\n"
                   "Group { children []}\n"
                   "Shape { appearance Appearance { texture ImageTexture { url []} }\n"
                   "  geometry IndexedFaceSet { coord Coordinate { point []} coordIndex []} }\n"
                   "Shape { geometry IndexedFaceSet { coord Coordinate { point [0 0 0, 1 0 0, 0 1 0]}"
                   " coordIndex [0 1 2]}}\n");
    ASSERT_TRUE(w.loaded);
    EXPECT_THAT(w.err, Not(HasSubstr("Error"))) << w.err;
    EXPECT_EQ(occurrences(w.scene, "opRep"), 3) << w.scene;
    EXPECT_THAT(w.scene, HasSubstr("text: \"one\ntwo\n\""));
    EXPECT_THAT(w.scene, HasSubstr("primitives: 1"));
    EXPECT_THAT(w.scene, HasSubstr("primitives: 0"));
}

TEST(RealFileValues, CommentsInsideValuesOfSeveralNumbers) {
    wrltest::TempDir dir;
    World w = load(dir,
                   "Transform { translation 1 # x\n 2 3 rotation 0 1 # axis\n 0 0.5\n"
                   "  children Shape {\n"
                   "    appearance Appearance { material Material { diffuseColor 1 # red\n 0.5 0 } }\n"
                   "    geometry IndexedFaceSet {\n"
                   "      coord Coordinate { point [ 0 0 0, 2 # one\n 0 0, 0 3 # two\n 0 ] }\n"
                   "      coordIndex [ 0 1 # a comment between indexes\n 2 ] } } }\n"
                   "PROTO Image [ field SFImage image 0 0 0 ] { Group { } }\n"
                   "DEF I Image { image 2 # width\n 1 # height\n 1 0xFF 0x80 }\n");
    ASSERT_TRUE(w.loaded);
    EXPECT_THAT(w.err, Not(HasSubstr("Error"))) << w.err;
    EXPECT_THAT(w.scene, HasSubstr("translation: 1 2 3"));
    EXPECT_THAT(w.scene, HasSubstr("rotation: 0 1 0 0.5"));
    EXPECT_THAT(w.scene, HasSubstr("diffuseColor: 1 0.5 0"));
    EXPECT_THAT(w.scene, HasSubstr("vertices: 3"));
    EXPECT_THAT(w.scene, HasSubstr("indices: 4"));
    EXPECT_THAT(w.scene, HasSubstr("boundMax: 2 3 0"));
    EXPECT_THAT(wrltest::writtenWorld(), HasSubstr("image\t2 1 1 0xFF 0x80"));
}

TEST(RealFileValues, EscapesInStringsReadAndWriteBack) {
    wrltest::TempDir dir;
    World w = load(dir, "Shape { geometry Text { string [ \"a\\\\b\" \"say \\\"hi\\\"\" \"x[1]\" ] } }\n"
                        "Shape { geometry Text { string \"lone [ bracket\" } }\n");
    ASSERT_TRUE(w.loaded);
    EXPECT_THAT(w.scene, HasSubstr("text: \"a\\b\nsay \"hi\"\nx[1]\n\""));
    EXPECT_THAT(w.scene, HasSubstr("text: \"lone [ bracket\n\""));
}

TEST(RealFileNames, NonAsciiAndLongDefNamesAreNamesLikeAnyOther) {
    wrltest::TempDir dir;
    const std::string longName(300, 'n');
    const std::string longType = "Proto" + std::string(150, 'p');
    World w = load(dir, "DEF Größe Transform { translation 1 0 0 children Shape { geometry Box { } } }\n"
                        "Group { children USE Größe }\n"
                        "PROTO " + longType + " [ ] { Shape { geometry Sphere { } } }\n"
                        "DEF " + longName + " Transform { children " + longType + " { } }\n"
                        "Group { children [ USE " + longName + " ] }\n"
                        "DEF " + longName + "2 TimeSensor { }\n"
                        "ROUTE " + longName + "2.time TO " + longName + "2.set_startTime\n");
    ASSERT_TRUE(w.loaded);
    EXPECT_THAT(w.err, Not(HasSubstr("Error"))) << w.err;
    EXPECT_THAT(w.err, Not(HasSubstr("failed getting unique name"))) << w.err;
    EXPECT_THAT(w.err, Not(HasSubstr("BAD ROUTE"))) << w.err;
    EXPECT_EQ(occurrences(w.scene, "csTransform \"Größe\""), 2) << w.scene;
    EXPECT_EQ(occurrences(w.scene, "csTransform \"" + longName + "\""), 2) << w.scene;
    EXPECT_EQ(occurrences(w.scene, "opSphere"), 2);
    ASSERT_NE(node(longName.c_str()), nullptr);
    EXPECT_STREQ(node(longName.c_str())->getType(), "Transform");
}

// An inlined file has names of its own: its PROTO P is not the world's P,
// and a USE there of a name that only the world DEFs is no node. Such a
// USE, like any of an unknown name inside a list, leaves the rest of the
// list alone.
TEST(RealFileNames, EachFileHasNamesOfItsOwn) {
    wrltest::TempDir dir;
    dir.write("part.wrl", "#VRML V2.0 utf8\n"
                          "PROTO P [ ] { Shape { geometry Sphere { } } }\n"
                          "P { }\n"
                          "Transform { children [ USE X Shape { geometry Cone { } } ] }\n");
    World w = load(dir, "PROTO P [ ] { Shape { geometry Box { } } }\n"
                        "DEF X Transform { children P { } }\n"
                        "Inline { url \"part.wrl\" }\n"
                        "Group { children [ USE Undefined Shape { geometry Cylinder { } } ] }\n");
    ASSERT_TRUE(w.loaded);
    EXPECT_EQ(occurrences(w.scene, "opSphere"), 1) << w.scene;
    EXPECT_EQ(occurrences(w.scene, "Unnamed Box Node"), 1) << w.scene;
    EXPECT_EQ(occurrences(w.scene, "opCone"), 1) << w.scene;
    EXPECT_EQ(occurrences(w.scene, "opCylinder"), 1) << w.scene;
    EXPECT_EQ(occurrences(w.scene, "csTransform \"X\""), 1) << w.scene;
    EXPECT_THAT(w.err, HasSubstr("failed getting unique name for DEF'ed node X."));
}

// Editors write a byte order mark before the header, and exporters names
// that begin with digits, which other loaders read.
TEST(RealFileNames, ByteOrderMarkAndNamesBeginningWithDigits) {
    wrltest::TempDir dir;
    wrltest::ScopedStdin noAnswer("");
    wrltest::WorldLoad w = wrltest::loadWorld(
        dir.write("bom.wrl", "\xEF\xBB\xBF#VRML V2.0 utf8\n"
                             "PROTO 3D_Part [ ] { Shape { geometry Box { } } }\n"
                             "DEF 1_Part Transform { children 3D_Part { } }\n"
                             "Group { children USE 1_Part }\n"));
    ASSERT_NE(w.scene, nullptr);
    EXPECT_THAT(w.err, Not(HasSubstr("Error"))) << w.err;
    EXPECT_EQ(occurrences(wrltest::sceneText(w.scene), "csTransform \"1_Part\""), 2);
    w = wrltest::loadWorld(dir.write("old.wrl", "\xEF\xBB\xBF#VRML V1.0 ascii\nSeparator { }\n"));
    EXPECT_EQ(w.scene, nullptr);
}

// A PROTO inside a PROTO body belongs to that body: it may share a name
// with a PROTO outside, and it builds only through its instances.
TEST(RealFileProtos, InnerDefinitionsAreScopedToTheirBody) {
    wrltest::TempDir dir;
    World w = load(dir,
                   "PROTO Thing [ field SFFloat r 1 ] {\n"
                   "  PROTO Thing [ field SFFloat r 2 ] { Shape { geometry Sphere { radius IS r } } }\n"
                   "  Transform { children [ Thing { r IS r } ] }\n"
                   "}\n"
                   "PROTO Box2 [ ] {\n"
                   "  PROTO Helper [ ] { Shape { geometry Box { size 2 2 2 } } }\n"
                   "  Group { children Helper { } }\n"
                   "}\n"
                   "PROTO Cone2 [ ] {\n"
                   "  PROTO Helper [ ] { Shape { geometry Cone { } } }\n"
                   "  PROTO Unused [ ] { Shape { geometry Cylinder { } } }\n"
                   "  Helper { }\n"
                   "}\n"
                   "Thing { r 5 }\n"
                   "Box2 { }\n"
                   "Cone2 { }\n"
                   "Cone2 { }\n");
    ASSERT_TRUE(w.loaded);
    EXPECT_THAT(w.err, Not(HasSubstr("already defined"))) << w.err;
    EXPECT_EQ(occurrences(w.scene, "opSphere"), 1) << w.scene;
    EXPECT_THAT(w.scene, HasSubstr("radius: 5"));
    EXPECT_EQ(occurrences(w.scene, "csIndexedFaceSet \"Unnamed Box Node\""), 1) << w.scene;
    EXPECT_EQ(occurrences(w.scene, "opCone"), 2) << w.scene;
    EXPECT_EQ(occurrences(w.scene, "opCylinder"), 0) << w.scene;
}

// A PROTO whose body is an instance of another PROTO stands where that one
// stands; a chain of them longer than the expansion limit is cut with a
// message instead of exhausting the stack.
TEST(RealFileProtos, ChainsOfProtosBuildAndOverlongChainsStop) {
    for (int length : {3, 150}) {
        SCOPED_TRACE(length);
        wrltest::TempDir dir;
        std::string text = "PROTO P0 [ ] { Shape { geometry Box { } } }\n";
        for (int i = 1; i < length; ++i)
            text += "PROTO P" + std::to_string(i) + " [ ] { P" + std::to_string(i - 1) + " { } }\n";
        text += "P" + std::to_string(length - 1) + " { }\n";
        wrltest::ScopedStdin noAnswer("");
        wrltest::WorldLoad w = wrltest::loadWorld(dir.write("chain.wrl", "#VRML V2.0 utf8\n" + text));
        ASSERT_NE(w.scene, nullptr);
        const std::string scene = wrltest::sceneText(w.scene);
        if (length == 3) {
            EXPECT_EQ(occurrences(scene, "opRep"), 1) << scene;
            EXPECT_THAT(w.err, Not(HasSubstr("nested more than")));
        } else {
            EXPECT_EQ(occurrences(scene, "opRep"), 0) << scene;
            EXPECT_EQ(occurrences(w.err, "PROTO instances nested more than 100 deep"), 1) << w.err;
        }
    }
}

TEST(RealFileExternProtos, EmptyInterfacesAndUrlListsWithoutBlanks) {
    wrltest::TempDir dir;
    dir.write("lib.wrl", "#VRML V2.0 utf8\nPROTO E [ ] { Shape { geometry Box { } } }\n");
    World w = load(dir,
                   "EXTERNPROTO E [ ] \"lib.wrl#E\"\n"
                   "EXTERNPROTO F [][\"a.wrl\" \"lib.wrl#E\"]\n"
                   "EXTERNPROTO G [] [\"lib.wrl\"]\n"
                   "E { } F { } G { }\n");
    ASSERT_TRUE(w.loaded);
    EXPECT_EQ(occurrences(w.scene, "opRep"), 3) << w.scene << w.err;
    EXPECT_EQ(occurrences(w.err, "Could not open EXTERNPROTO a.wrl"), 1) << w.err;
}

// An EXTERNPROTO that no URL resolves is reported, its nodes take the
// declared interface and build nothing, and the world goes on after it.
TEST(RealFileExternProtos, UnresolvedOnesBuildNothingAndTheRestLoads) {
    wrltest::TempDir dir;
    dir.write("lib.wrl", "#VRML V2.0 utf8\nPROTO Other [ ] { Group { } }\n");
    World w = load(dir,
                   "EXTERNPROTO Missing [ field SFFloat r exposedField SFColor c eventIn SFBool go ]"
                   " [ \"missing.wrl\" \"urn:web3d:none\" ]\n"
                   "EXTERNPROTO NotThere [ field SFFloat r ] \"lib.wrl#NotThere\"\n"
                   "DEF M Missing { r 2 c 1 0 0 }\n"
                   "NotThere { r 1 }\n"
                   "DEF T Transform { children [ Missing { } Shape { geometry Box { } } ] }\n"
                   "DEF Timer TimeSensor { }\n"
                   "ROUTE Timer.isActive TO M.go\n");
    ASSERT_TRUE(w.loaded);
    EXPECT_THAT(w.err, Not(HasSubstr("parse error"))) << w.err;
    EXPECT_THAT(w.err, HasSubstr("EXTERNPROTO Missing: no URL of its list gives its PROTO"));
    EXPECT_THAT(w.err, HasSubstr("No PROTO NotThere in EXTERNPROTO file lib.wrl"));
    EXPECT_EQ(occurrences(w.scene, "opRep"), 1) << w.scene;
    EXPECT_THAT(w.scene, HasSubstr("csTransform \"T\""));
    znNode* m = node("M");
    ASSERT_NE(m, nullptr);
    EXPECT_GE(m->getDataID("r"), 0);
    EXPECT_GE(m->getDataID("c"), 0);
}

// Other loaders read a Script's exposedField as a field with its two events.
TEST(RealFileScripts, ExposedFieldInAScriptInterface) {
    wrltest::TempDir dir;
    World w = load(dir,
                   "DEF S Script { exposedField SFFloat level 2 field SFInt32 n 3 }\n"
                   "Shape { appearance Appearance { material DEF Paint Material { } } geometry Box { } }\n"
                   "DEF Timer TimeSensor { }\n"
                   "ROUTE S.level_changed TO Paint.set_transparency\n"
                   "ROUTE Timer.fraction_changed TO S.set_level\n");
    ASSERT_TRUE(w.loaded);
    EXPECT_THAT(w.err, Not(HasSubstr("Error"))) << w.err;
    EXPECT_THAT(w.err, Not(HasSubstr("BAD ROUTE"))) << w.err;
    EXPECT_EQ(occurrences(w.scene, "opRep"), 1);
    znNode* s = node("S");
    ASSERT_NE(s, nullptr);
    EXPECT_GE(s->getDataID("level"), 0);
    EXPECT_GE(s->getDataID("set_level"), 0);
    EXPECT_THAT(wrltest::writtenWorld(), HasSubstr("level\t2.000000"));
}

// A node of an unknown type is walked over whatever its body holds; the
// node around it keeps its name and its other children.
TEST(RealFileUnknownTypes, SkippedBodiesLeaveTheEnclosingNodeWhole) {
    wrltest::TempDir dir;
    World w = load(dir,
                   "DEF G Group { children [\n"
                   "  Gizmo { size 2 list [ 1 2 ] name \"a } { \\\" \" # } comment\n"
                   "          sub Thing { a 1 } ROUTE a.b TO c.d }\n"
                   "  Shape { geometry Box { } }\n"
                   "  Gizmo { } ] }\n"
                   "DEF X Gizmo { }\n"
                   "Transform { children [ USE G USE X ] }\n"
                   "Transform { children USE X }\n");
    ASSERT_TRUE(w.loaded);
    EXPECT_THAT(w.err, Not(HasSubstr("parse error"))) << w.err;
    EXPECT_EQ(occurrences(w.err, "Unknown node type 'Gizmo', skipping node"), 1) << w.err;
    EXPECT_EQ(occurrences(w.err, "Unknown node type Gizmo near line"), 1) << w.err;
    EXPECT_THAT(w.err, Not(HasSubstr("getNodeID"))) << w.err;
    EXPECT_EQ(occurrences(w.scene, "csGroup \"G\""), 2) << w.scene;
    EXPECT_EQ(occurrences(w.scene, "opRep"), 2) << w.scene;
}

// Fields that a node's type does not have, as some exporters write, are
// reported once per type and field, and their values of every form are
// passed over; what follows them reads as usual.
TEST(RealFileUnknownTypes, ValuesOfUnknownFieldsArePassedOver) {
    wrltest::TempDir dir;
    World w = load(dir,
                   "Transform { translation 1 2 3 extra 1 2\n 3 flag TRUE\n children [\n"
                   "  Shape { appearance Appearance { material Material { glow [ 1, 2 # ] in a comment\n 3 ]\n"
                   "      label \"a } [ b\" diffuseColor 1 0 0 } }\n"
                   "    geometry Box { weird DEF W Foo { a [ 1 ] } also USE W size 2 2 2 } }\n"
                   "  Shape { geometry Sphere { radius 3 nothing } } ] }\n"
                   "Shape { appearance Appearance { material Material { glow [ 5 ] } } geometry Cone { } }\n");
    ASSERT_TRUE(w.loaded);
    EXPECT_THAT(w.err, Not(HasSubstr("parse error"))) << w.err;
    for (const char* field : {"'extra' of Transform", "'flag' of Transform", "'glow' of Material",
                              "'label' of Material", "'weird' of Box", "'also' of Box", "'nothing' of Sphere"})
        EXPECT_EQ(occurrences(w.err, std::string("Unknown field ") + field + ", skipping its value"), 1) << field;
    EXPECT_THAT(w.scene, HasSubstr("translation: 1 2 3"));
    EXPECT_THAT(w.scene, HasSubstr("diffuseColor: 1 0 0"));
    EXPECT_THAT(w.scene, HasSubstr("boundMax: 1 1 1"));
    EXPECT_THAT(w.scene, HasSubstr("radius: 3"));
    EXPECT_EQ(occurrences(w.scene, "opRep"), 1);
    EXPECT_EQ(occurrences(w.scene, "opSphere"), 1);
    EXPECT_EQ(occurrences(w.scene, "opCone"), 1);
}

// A graph that refers back to itself is written with a USE of the node.
TEST(RealFileOutput, NodesThatReferToThemselvesAreWrittenAsUse) {
    wrltest::TempDir dir;
    World w = load(dir, "DEF S Script { field SFNode me USE S }\nUSE S\n"
                        "DEF T Transform { children [ Shape { geometry Box { } } USE T ] }\n");
    ASSERT_TRUE(w.loaded);
    const std::string written = wrltest::writtenWorld();
    EXPECT_THAT(written, HasSubstr("me\t\n  USE S\n"));
    EXPECT_THAT(written, HasSubstr("USE T\n"));
    EXPECT_EQ(occurrences(written, "DEF S"), 1) << written;
}
