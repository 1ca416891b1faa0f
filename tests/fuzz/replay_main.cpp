// The fuzz targets as tests: each file named on the command line, or found
// in a directory named there, is run through the target once, as libFuzzer
// would run it. The seeds and the inputs of past findings are replayed so.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" __attribute__((weak)) int LLVMFuzzerInitialize(int* argc, char*** argv);

namespace {

int replay(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        std::fprintf(stderr, "cannot read %s\n", file.c_str());
        return 1;
    }
    const std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    std::fprintf(stderr, "replaying %s (%zu bytes)\n", file.c_str(), bytes.size());
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (LLVMFuzzerInitialize) LLVMFuzzerInitialize(&argc, &argv);
    int failures = 0;
    int replayed = 0;
    for (int i = 1; i < argc; ++i) {
        const std::filesystem::path given(argv[i]);
        // A target without past findings has no folder of them.
        if (!std::filesystem::exists(given)) continue;
        std::vector<std::filesystem::path> files;
        if (std::filesystem::is_directory(given)) {
            for (const auto& entry : std::filesystem::recursive_directory_iterator(given))
                if (entry.is_regular_file()) files.push_back(entry.path());
            std::sort(files.begin(), files.end());
        } else {
            files.push_back(given);
        }
        for (const auto& file : files) {
            failures += replay(file);
            ++replayed;
        }
    }
    std::fprintf(stderr, "%d inputs replayed\n", replayed);
    return failures == 0 && replayed > 0 ? 0 : 1;
}
