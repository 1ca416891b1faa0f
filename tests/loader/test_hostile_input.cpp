// Worlds written to hurt, whole loads of them: each ends in bounded time and
// memory, says what it left out, and leaves nothing behind.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <zlib.h>

#include <filesystem>
#include <string>
#include <vector>

#include "browser/zn_browser_intern.h"
#include "csNode.h"
#include "csRefPtr.h"
#include "loader/zn.h"
#include "nodes/zn_node.h"
#include "test_support.h"
#include "wrlLoader.h"

using testing::HasSubstr;
using testing::Not;

namespace {

void collect(const wrlReport* report, void* data) { *static_cast<std::string*>(data) += std::string(report->text) + "\n"; }

// A quiet load of `path`; with `keepWorld` the world outlives the scene
// until the test lets it go.
struct Load {
    explicit Load(const std::string& path, bool keepWorld = false, bool remote = true) {
        wrlLoadOptions options;
        options.banner = false;
        options.questions = false;
        options.keepWorld = keepWorld;
        options.remote = remote;
        options.report = collect;
        options.reportData = &reports;
        scene.reset(wrlLoadWith(path.c_str(), &options, &result));
    }

    wrlLoadResult result;
    std::string reports;  // every report, one a line
    csRefPtr<csNode> scene;
};

class HostileInput : public testing::Test {
protected:
    HostileInput() : builtins("ZNBUILTINS", wrltest::nodeSupportFile().c_str()), tmp("ZN_TMP_PATH", scratch.path().c_str()) {}

    // The value of a field of the node DEF'd as `name`, as the field writes it.
    static std::string fieldText(ZN* world, const char* name, const char* field) {
        auto* node = dynamic_cast<znNode*>(world->browser->getNode(name));
        if (node == nullptr) return "(no node)";
        const int id = node->getDataID(field);
        if (id < 0 || id >= node->getFieldCount()) return "(no field)";
        std::vector<char> text(kFieldTextBufferSize);
        node->getZnField(id)->getData(text.data());
        return text.data();
    }

    std::vector<std::string> scratchFiles() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(scratch.path()))
            names.push_back(entry.path().filename().string());
        return names;
    }

    wrltest::ScopedEnv builtins;
    wrltest::TempDir dir;
    wrltest::TempDir scratch;  // ZN_TMP_PATH
    wrltest::ScopedEnv tmp;
};

}  // namespace

// The fast reader of indexes stops at nine digits; longer numbers take the
// general rule of every integer text (strtoul, narrowed to 32 bits).
TEST_F(HostileInput, TenDigitIntegersReadAlikeInEveryIntegerFieldType) {
    const std::string path = dir.write("ints.wrl",
                                       "#VRML V2.0 utf8\n"
                                       "PROTO Holder [ field SFInt32 one 3000000000 field MFInt32 many [ 4294967295 ] ] "
                                       "{ Group { } }\n"
                                       "DEF SW Switch { whichChoice 3000000000 }\n"
                                       "DEF FS IndexedFaceSet { coordIndex [ 0 1 2 -1 3000000000 1234567890 9999999999 "
                                       "-2147483648 2147483647 -1 ] }\n"
                                       "DEF PT PixelTexture { image 2 1 1 4294967295 1234567890 }\n"
                                       "DEF H Holder { }\n"
                                       "DEF S Script { field SFInt32 value -3000000000 field MFInt32 list 1000000000 }\n");
    Load l(path, true);
    ASSERT_EQ(l.result.status, WRL_LOADED) << l.reports;
    ZN* world = l.result.world;
    EXPECT_EQ(fieldText(world, "SW", "whichChoice"), "-1294967296");
    EXPECT_EQ(fieldText(world, "FS", "coordIndex"),
              "[ 0, 1, 2, -1, -1294967296, 1234567890, 1410065407, -2147483648, 2147483647, -1, ]");
    EXPECT_EQ(fieldText(world, "PT", "image"), "2 1 1 0xFFFFFFFF 0x499602D2 ");
    EXPECT_EQ(fieldText(world, "H", "one"), "-1294967296");
    EXPECT_EQ(fieldText(world, "H", "many"), "-1");
    EXPECT_EQ(fieldText(world, "S", "value"), "1294967296");
    EXPECT_EQ(fieldText(world, "S", "list"), "1000000000");
    l.scene.reset(nullptr);
    wrlReleaseWorld(world);
}

// Thirty thousand triangles around one point: every corner's normal is
// generated, and all of them meet at the first point.
TEST_F(HostileInput, AFanOfThirtyThousandTrianglesLoadsWhole) {
    std::string text = "#VRML V2.0 utf8\nShape { geometry IndexedFaceSet { coord Coordinate { point [ 0 0 0";
    for (int i = 0; i <= 30000; ++i) text += " " + std::to_string(i % 100) + " " + std::to_string(i / 100) + " 1,";
    text += " ] } coordIndex [";
    for (int i = 1; i <= 30000; ++i) text += " 0 " + std::to_string(i) + " " + std::to_string(i + 1) + " -1";
    text += " ] creaseAngle 0.5 } }\n";
    Load l(dir.write("fan.wrl", text));
    ASSERT_EQ(l.result.status, WRL_LOADED) << l.reports;
    const std::string scene = wrltest::sceneText(l.scene.get());
    EXPECT_THAT(scene, HasSubstr("primitives: 30000\n"));
    EXPECT_THAT(scene, HasSubstr("vertices: 30002\n"));
    EXPECT_THAT(scene, HasSubstr("normals: 120000\n"));
}

// One comment of 8 MB on one line: the lines after it still count right.
TEST_F(HostileInput, AnEightMegabyteCommentOnOneLineIsPassedOver) {
    const std::string text = "#VRML V2.0 utf8\n#" + std::string(8 << 20, 'c') + "\nShape { geometry Box { } }\n}\n";
    Load l(dir.write("comment.wrl", text));
    ASSERT_EQ(l.result.status, WRL_PARSE_ERROR) << l.reports;
    EXPECT_EQ(l.result.errorLine, 4);
    EXPECT_THAT(wrltest::sceneText(l.scene.get()), HasSubstr("Unnamed Box Node"));
}

// A null byte used to read as the end of the file: the rest was lost
// without a word.
TEST_F(HostileInput, ANullByteIsASyntaxError) {
    const std::string text = std::string("#VRML V2.0 utf8\nGroup { }\n") + std::string(3, '\0') + "Group { }\n";
    Load l(dir.write("nul.wrl", text));
    EXPECT_EQ(l.result.status, WRL_PARSE_ERROR);
    EXPECT_EQ(l.result.errorLine, 3);
}

// A few kilobytes that unpack to 200 MB: the unpacking stops at the memory
// limit, says so, and takes its partial file with it.
TEST_F(HostileInput, AGzipBombStopsAtTheLimitAndLeavesNoFile) {
    const std::string bomb = dir.path() + "/bomb.wrl.gz";
    gzFile out = gzopen(bomb.c_str(), "wb9");
    ASSERT_NE(out, nullptr);
    const std::string header = "#VRML V2.0 utf8\nGroup { children [\n";
    gzwrite(out, header.data(), static_cast<unsigned>(header.size()));
    const std::string blanks(1 << 20, ' ');
    for (int i = 0; i < 200; ++i) gzwrite(out, blanks.data(), static_cast<unsigned>(blanks.size()));
    gzclose(out);
    wrltest::ScopedEnv limit("ZN_MEMORY_LIMIT", "16");
    const std::string world = dir.write("world.wrl", "#VRML V2.0 utf8\nInline { url \"bomb.wrl.gz\" }\nGroup { }\n");

    Load l(world);
    EXPECT_EQ(l.result.status, WRL_LOADED);
    EXPECT_THAT(l.reports, HasSubstr("bomb.wrl.gz unpacks to more than 16.0 MB, the memory limit (ZN_MEMORY_LIMIT): "
                                     "it is not read."));
    EXPECT_THAT(l.reports, HasSubstr("Inline:  Can't open bomb.wrl.gz!"));
    EXPECT_THAT(scratchFiles(), testing::IsEmpty());

    Load whole(bomb);
    EXPECT_THAT(whole.reports, HasSubstr("unpacks to more than 16.0 MB"));
    EXPECT_THAT(scratchFiles(), testing::IsEmpty());
}

// Devices and pipes never end, or never begin: they are not read, the
// world's own name no more than the names in it.
TEST_F(HostileInput, DevicesAndPipesAreNotRead) {
    const std::string pipe = dir.path() + "/pipe.wrl";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& name : {std::string("/dev/zero"), pipe}) {
        Load l(name);
        EXPECT_EQ(l.scene.get(), nullptr) << name;
        EXPECT_EQ(l.result.status, WRL_NOT_FOUND) << name;
        EXPECT_EQ(l.result.reason, "a device, pipe or socket, not a file") << name;
    }
    const std::string world = dir.write("world.wrl",
                                        "#VRML V2.0 utf8\n"
                                        "Inline { url [ \"/dev/zero\" \"pipe.wrl\" ] }\n"
                                        "Shape { appearance Appearance { texture ImageTexture { url \"pipe.wrl\" } } "
                                        "geometry Box { } }\n");
    Load l(world);
    EXPECT_EQ(l.result.status, WRL_LOADED) << l.reports;
    EXPECT_THAT(l.reports, HasSubstr("/dev/zero is no regular file: it is not read."));
    EXPECT_THAT(l.reports, HasSubstr("/pipe.wrl is no regular file: it is not read."));
    EXPECT_THAT(l.reports, HasSubstr("optImageTexture:  Can't open pipe.wrl!"));
}

// A host that loads worlds from strangers keeps them off the network.
TEST_F(HostileInput, RemoteNamesAreRefusedWhenTheLoadStaysOffTheNetwork) {
    const std::string world = dir.write("world.wrl",
                                        "#VRML V2.0 utf8\n"
                                        "Inline { url \"http://127.0.0.1:9/far.wrl\" }\n"
                                        "EXTERNPROTO Far [ ] \"https://127.0.0.1:9/protos.wrl#Far\"\n"
                                        "Group { }\n");
    Load l(world, false, false);
    EXPECT_EQ(l.result.status, WRL_LOADED) << l.reports;
    EXPECT_THAT(l.reports, HasSubstr("http://127.0.0.1:9/far.wrl: remote files are not read in this load."));
    EXPECT_THAT(l.reports, HasSubstr("https://127.0.0.1:9/protos.wrl: remote files are not read in this load."));
    EXPECT_THAT(l.reports, Not(HasSubstr("Connecting")));

    Load far("http://127.0.0.1:9/world.wrl", false, false);
    EXPECT_EQ(far.result.status, WRL_NOT_FOUND);
    EXPECT_THAT(far.reports, HasSubstr("remote files are not read in this load."));
}

// Ten levels of a PROTO whose body holds two instances of the one below
// are a thousand Shapes; forty levels would be a million million.
TEST_F(HostileInput, ExpansionBeyondTheMemoryLimitBuildsNothingMore) {
    std::string text = "#VRML V2.0 utf8\nPROTO P0 [ ] { Shape { geometry Box { } } }\n";
    for (int i = 1; i <= 40; ++i)
        text += "PROTO P" + std::to_string(i) + " [ ] { Group { children [ P" + std::to_string(i - 1) + " { } P" +
                std::to_string(i - 1) + " { } ] } }\n";
    text += "P40 { }\nDEF LAST Group { }\n";
    wrltest::ScopedEnv limit("ZN_MEMORY_LIMIT", "8");
    Load l(dir.write("bomb.wrl", text));
    EXPECT_EQ(l.result.status, WRL_LOADED) << l.reports;
    EXPECT_THAT(l.reports, testing::ContainsRegex("An instance of PROTO P[0-9]+ would need [0-9.]+ KB, past the "
                                                  "memory limit of 8.0 MB \\(ZN_MEMORY_LIMIT; [0-9.]+ MB spent\\): "
                                                  "it is left out, and so is whatever else would pass the limit."));
    // Reported once, whatever else is refused.
    EXPECT_EQ(l.reports.find("would need"), l.reports.rfind("would need"));
}

// Two short lists make a surface of a million points; one list of a million
// values is refused before its room is taken.
TEST_F(HostileInput, SweepsAndListsBeyondTheLimitAreLeftOut) {
    std::string spine, section;
    for (int i = 0; i < 1000; ++i) spine += "0 " + std::to_string(i) + " 0, ";
    for (int i = 0; i < 1000; ++i) section += std::to_string(i % 2) + " " + std::to_string(i) + ", ";
    wrltest::ScopedEnv limit("ZN_MEMORY_LIMIT", "20");
    Load sweep(dir.write("sweep.wrl", "#VRML V2.0 utf8\nShape { geometry DEF EX Extrusion { spine [ " + spine +
                                                 "] crossSection [ " + section + "] } }\n"));
    EXPECT_EQ(sweep.result.status, WRL_LOADED);
    EXPECT_THAT(sweep.reports, HasSubstr("Extrusion EX (1000 spine by 1000 cross-section points) would need"));
    EXPECT_THAT(wrltest::sceneText(sweep.scene.get()), HasSubstr("vertices: 0\n"));

    std::string many = "#VRML V2.0 utf8\nDEF S Script { field MFFloat values [";
    for (int i = 0; i < 300000; ++i) many += " 1";
    many += " ] }\n";
    wrltest::ScopedEnv lower("ZN_MEMORY_LIMIT", "1");
    Load list(dir.write("list.wrl", many));
    EXPECT_EQ(list.result.status, WRL_LOADED);
    EXPECT_THAT(list.reports, HasSubstr("A list of 300001 values would need 1.1 MB, past the memory limit of 1.0 MB"));
}
