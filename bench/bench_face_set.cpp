// One big IndexedFaceSet: the load through wrlLoad and, apart from it, the
// build of its csIndexedFaceSet from the filled fields.
//
// The face set stands alone at the top of the world, so the load leaves it
// unbuilt; a fetch as a shape would make builds it. Both steps run in a child
// process. Reported: bytes_per_second
// (file size over load and build together), load_MBps and build_MBps (file
// size over each step alone), build_ms, peak_MB (the child's maximum resident
// size after the build) and peak_per_file (that over the file size).
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <utility>

#include "child_process.h"
#include "csIndexedFaceSet.h"
#include "face_set_fetch.h"
#include "scene_generators.h"

namespace {

struct Steps {
    double loadSeconds = 0;
    double buildSeconds = 0;
    double peakBytes = 0;
    int primitives = 0;
};

// In the child: load, then fetch the face set DEF'd as F as a shape would.
Steps loadAndBuild(std::string path) {
    wrlbench::FaceSetFetch fetch = wrlbench::loadAndFetchFaceSet(std::move(path));
    Steps steps;
    steps.loadSeconds = fetch.loadSeconds;
    steps.buildSeconds = fetch.buildSeconds;
    steps.peakBytes = fetch.peakBytes;
    steps.primitives = fetch.faces ? fetch.faces->getPrimCount() : 0;
    return steps;
}

const std::string& bareFaceSet(bool withNormals, std::size_t megabytes) {
    static std::map<std::pair<bool, std::size_t>, std::string> paths;
    static struct Cleanup {
        ~Cleanup() {
            for (auto& entry : paths) std::remove(entry.second.c_str());
        }
    } cleanup;
    auto key = std::make_pair(withNormals, megabytes);
    auto it = paths.find(key);
    if (it == paths.end()) {
        std::string stem = std::string(withNormals ? "bare-normals" : "bare-crease") + std::to_string(megabytes);
        it = paths.emplace(key, wrlbench::writeTempWorld(stem, wrlbench::bigFaceSet(megabytes << 20, withNormals, false)))
                 .first;
    }
    return it->second;
}

void run(benchmark::State& state, bool withNormals) {
    if (std::getenv("ZNBUILTINS") == nullptr) setenv("ZNBUILTINS", WRL_SOURCE_DIR "/data/znbuiltins.wrl", 1);
    const std::string& path = bareFaceSet(withNormals, static_cast<std::size_t>(state.range(0)));
    FILE* f = std::fopen(path.c_str(), "rb");
    std::fseek(f, 0, SEEK_END);
    const double size = static_cast<double>(std::ftell(f));
    std::fclose(f);
    Steps sum, worst;
    for (auto _ : state) {
        Steps steps = wrlbench::inChild<Steps>([&] { return loadAndBuild(path); });
        if (steps.primitives == 0) {
            state.SkipWithError("the face set was not built");
            return;
        }
        state.SetIterationTime(steps.loadSeconds + steps.buildSeconds);
        sum.loadSeconds += steps.loadSeconds;
        sum.buildSeconds += steps.buildSeconds;
        if (steps.peakBytes > worst.peakBytes) worst.peakBytes = steps.peakBytes;
    }
    const double runs = static_cast<double>(state.iterations());
    const double megabytes = size / 1048576.0;
    state.SetBytesProcessed(static_cast<int64_t>(size) * state.iterations());
    state.counters["file_MB"] = megabytes;
    state.counters["load_MBps"] = megabytes * runs / sum.loadSeconds;
    state.counters["build_MBps"] = megabytes * runs / sum.buildSeconds;
    state.counters["build_ms"] = 1000.0 * sum.buildSeconds / runs;
    state.counters["peak_MB"] = worst.peakBytes / 1048576.0;
    state.counters["peak_per_file"] = worst.peakBytes / size;
}

void BM_FaceSetWithNormals(benchmark::State& state) { run(state, true); }
void BM_FaceSetGeneratedNormals(benchmark::State& state) { run(state, false); }

}  // namespace

// Sizes in MB.
BENCHMARK(BM_FaceSetWithNormals)->Arg(10)->Arg(100)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_FaceSetGeneratedNormals)->Arg(10)->Arg(100)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
