// Every shipped example loads, and its scene is the one kept beside the
// tests: a change of what the loader builds shows here as a changed scene.
// scripts/update-example-scenes writes the expected files anew.
#include <dirent.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "scene_printer.h"
#include "test_support.h"
#include "wrlLoader.h"


namespace {

const std::string kExamples = std::string(WRL_SOURCE_DIR) + "/data/examples/";
const std::string kExpected = std::string(WRL_TEST_DATA_DIR) + "/examples/";

std::vector<std::string> exampleNames() {
    std::vector<std::string> names;
    if (DIR* dir = opendir(kExamples.c_str())) {
        while (dirent* entry = readdir(dir)) {
            std::string name = entry->d_name;
            if (name.size() > 4 && name.compare(name.size() - 4, 4, ".wrl") == 0)
                names.push_back(name.substr(0, name.size() - 4));
        }
        closedir(dir);
    }
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace

TEST(Examples, EachLoadsToItsExpectedScene) {
    // The scene must not depend on the tester's environment.
    wrltest::ScopedEnv quality("TESS_QUALITY", nullptr);
    wrltest::ScopedEnv transparency("ZN_TRANSP_MODE", nullptr);
    // Each example reads its images itself, as it does in a process of its
    // own, whatever the examples before it read.
    wrltest::ScopedEnv images("ZN_CACHE_IMAGES", "0");
    const std::vector<std::string> names = exampleNames();
    ASSERT_GE(names.size(), 7u);
    // Loaded by the relative names that the update script uses, so that the
    // file names of textures in the scenes do not depend on the checkout.
    wrltest::ScopedDirectory sourceTree(WRL_SOURCE_DIR);
    for (const std::string& name : names) {
        SCOPED_TRACE(name);
        wrltest::WorldLoad load = wrltest::loadWorld("data/examples/" + name + ".wrl");
        ASSERT_NE(load.scene, nullptr);
        EXPECT_EQ(load.err.find("Error"), std::string::npos) << load.err;
        std::ostringstream json;
        printSceneJson(json, load.scene);
        EXPECT_EQ(json.str(), wrltest::readFile(kExpected + name + ".json"));
    }
}
