// The face sets that the loader makes itself: one big ElevationGrid and one
// long Extrusion, each loaded and then built as a shape would fetch it,
// with generated normals. Building must stay linear in the points, so the
// figure to watch is build_ns_per_point across the sizes.
//
// Both steps run in a child process. Reported: build_ms, build_ns_per_point,
// load_ms, points and peak_MB (the child's maximum resident size after the
// build).
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
    int points = 0;
};

// In the child: load, then fetch the node DEF'd as F as a shape would.
Steps loadAndBuild(std::string path) {
    wrlbench::FaceSetFetch fetch = wrlbench::loadAndFetchFaceSet(std::move(path));
    Steps steps;
    steps.loadSeconds = fetch.loadSeconds;
    steps.buildSeconds = fetch.buildSeconds;
    steps.peakBytes = fetch.peakBytes;
    steps.points = fetch.faces && fetch.faces->getCoordSet() ? fetch.faces->getCoordSet()->getCount() : 0;
    return steps;
}

const std::string& world(bool grid, long size) {
    static std::map<std::pair<bool, long>, std::string> paths;
    static struct Cleanup {
        ~Cleanup() {
            for (auto& entry : paths) std::remove(entry.second.c_str());
        }
    } cleanup;
    auto key = std::make_pair(grid, size);
    auto it = paths.find(key);
    if (it == paths.end()) {
        // An extrusion of `size` spine points with a circle of 64.
        std::string text = grid ? wrlbench::bigElevationGrid(size) : wrlbench::longExtrusion(size, 64);
        it = paths.emplace(key, wrlbench::writeTempWorld(grid ? "grid" : "sweep", text)).first;
    }
    return it->second;
}

void run(benchmark::State& state, bool grid) {
    if (std::getenv("ZNBUILTINS") == nullptr) setenv("ZNBUILTINS", WRL_SOURCE_DIR "/data/znbuiltins.wrl", 1);
    const std::string& path = world(grid, static_cast<long>(state.range(0)));
    Steps sum, worst;
    for (auto _ : state) {
        Steps steps = wrlbench::inChild<Steps>([&] { return loadAndBuild(path); });
        if (steps.points == 0) {
            state.SkipWithError("the face set was not built");
            return;
        }
        state.SetIterationTime(steps.buildSeconds);
        sum.loadSeconds += steps.loadSeconds;
        sum.buildSeconds += steps.buildSeconds;
        worst.points = steps.points;
        if (steps.peakBytes > worst.peakBytes) worst.peakBytes = steps.peakBytes;
    }
    const double runs = static_cast<double>(state.iterations());
    state.counters["points"] = worst.points;
    state.counters["build_ms"] = 1000.0 * sum.buildSeconds / runs;
    state.counters["build_ns_per_point"] = 1e9 * sum.buildSeconds / runs / worst.points;
    state.counters["load_ms"] = 1000.0 * sum.loadSeconds / runs;
    state.counters["peak_MB"] = worst.peakBytes / 1048576.0;
}

void BM_ElevationGrid(benchmark::State& state) { run(state, true); }
void BM_Extrusion(benchmark::State& state) { run(state, false); }

}  // namespace

// Grid sides, and spine points of a 64-point circle.
BENCHMARK(BM_ElevationGrid)->Arg(250)->Arg(1000)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_Extrusion)->Arg(1000)->Arg(16000)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
