// Bytes loaded as a world, the whole way from the file to the scene, as a
// host loads a file from a stranger: no banner, no questions, reports kept
// from the terminal, no network, and the world let go after each input.
//
// Each input is written to a file of a private directory, whose "tmp"
// below stands for ZN_TMP_PATH (cache, unpacked and script files), and is
// emptied after each input, so that no run sees what another left.
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "csNode.h"
#include "wrlLoader.h"

namespace {

std::string privateDir;

void removePrivateDir() {
    std::error_code ignored;
    std::filesystem::remove_all(privateDir, ignored);
}

void swallow(const wrlReport*, void*) {}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    char pattern[] = "/tmp/fuzz_loadXXXXXX";
    if (mkdtemp(pattern) == nullptr) std::abort();
    privateDir = pattern;
    std::atexit(removePrivateDir);
    const std::string tmp = privateDir + "/tmp";
    mkdir(tmp.c_str(), 0700);
    setenv("ZN_TMP_PATH", tmp.c_str(), 1);
    // Decoded pictures would outlive the inputs that named them.
    setenv("ZN_CACHE_IMAGES", "0", 1);
    // Well below the fuzzer's own limit on memory, so that what the loader
    // weighs is refused before the fuzzer calls it a finding.
    setenv("ZN_MEMORY_LIMIT", "256", 0);
    setenv("ZNBUILTINS", WRL_SOURCE_DIR "/data/znbuiltins.wrl", 0);
    unsetenv("OPTPATH");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string world = privateDir + "/world.wrl";
    FILE* file = std::fopen(world.c_str(), "wb");
    if (file == nullptr) std::abort();
    if (size > 0 && std::fwrite(data, 1, size, file) != size) std::abort();
    std::fclose(file);

    wrlLoadOptions options;
    options.banner = false;
    options.questions = false;
    options.remote = false;
    options.report = swallow;
    wrlLoadResult result;
    if (csNode* scene = wrlLoadWith(world.c_str(), &options, &result)) {
        scene->ref();
        scene->unref();
    }

    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(privateDir + "/tmp", ignored))
        std::filesystem::remove_all(entry.path(), ignored);
    return 0;
}
