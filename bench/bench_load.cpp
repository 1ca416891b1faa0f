// Whole loads, text to finished scene graph, through wrlLoad.
//
// Each load runs in a child process, so that its peak memory is its own and
// the world it leaves alive does not weigh on the next one. Reported:
// bytes_per_second (file size over load time), peak_MB (the child's maximum
// resident size) and peak_per_file (that over the file size).
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <string>

#include "child_process.h"
#include "scene_generators.h"
#include "csNode.h"
#include "wrlLoader.h"

namespace {

struct LoadFigures {
    double seconds = 0;
    double peakBytes = 0;
    bool loaded = false;
};

LoadFigures loadInChild(const std::string& path) {
    return wrlbench::inChild<LoadFigures>([&] {
        std::string name = path;
        auto start = std::chrono::steady_clock::now();
        csNode* scene = wrlLoad(name.data());
        auto stop = std::chrono::steady_clock::now();
        LoadFigures f;
        f.seconds = std::chrono::duration<double>(stop - start).count();
        f.peakBytes = wrlbench::peakResidentBytes();
        f.loaded = scene != nullptr;
        return f;
    });
}

// Worlds are made once per kind and size and removed at exit.
const std::string& world(const std::string& kind, std::size_t megabytes,
                         const std::function<std::string(std::size_t)>& make) {
    static std::map<std::string, std::string> paths;
    static struct Cleanup {
        ~Cleanup() {
            for (auto& entry : paths) std::remove(entry.second.c_str());
        }
    } cleanup;
    std::string key = kind + std::to_string(megabytes);
    auto it = paths.find(key);
    if (it == paths.end())
        it = paths.emplace(key, wrlbench::writeTempWorld(key, make(megabytes << 20))).first;
    return it->second;
}

void runLoads(benchmark::State& state, const std::string& path) {
    if (std::getenv("ZNBUILTINS") == nullptr)
        setenv("ZNBUILTINS", WRL_SOURCE_DIR "/data/znbuiltins.wrl", 1);
    FILE* f = std::fopen(path.c_str(), "rb");
    std::fseek(f, 0, SEEK_END);
    double size = static_cast<double>(std::ftell(f));
    std::fclose(f);
    double peak = 0;
    for (auto _ : state) {
        LoadFigures figures = loadInChild(path);
        if (!figures.loaded) {
            state.SkipWithError("the world did not load");
            return;
        }
        state.SetIterationTime(figures.seconds);
        if (figures.peakBytes > peak) peak = figures.peakBytes;
    }
    state.SetBytesProcessed(static_cast<int64_t>(size) * state.iterations());
    state.counters["file_MB"] = size / 1048576.0;
    state.counters["peak_MB"] = peak / 1048576.0;
    state.counters["peak_per_file"] = peak / size;
}

void BM_LoadFaceSetWithNormals(benchmark::State& state) {
    runLoads(state, world("ifs-normals", static_cast<std::size_t>(state.range(0)),
                          [](std::size_t n) { return wrlbench::bigFaceSet(n, true); }));
}

void BM_LoadFaceSetGeneratedNormals(benchmark::State& state) {
    runLoads(state, world("ifs-crease", static_cast<std::size_t>(state.range(0)),
                          [](std::size_t n) { return wrlbench::bigFaceSet(n, false); }));
}

void BM_LoadDefUseShapes(benchmark::State& state) {
    runLoads(state, world("defuse", static_cast<std::size_t>(state.range(0)), wrlbench::manyDefUseShapes));
}

void BM_LoadProtoInstances(benchmark::State& state) {
    runLoads(state, world("proto", static_cast<std::size_t>(state.range(0)), wrlbench::manyProtoInstances));
}

// Worlds that once cost far more than their size: the time stays well
// under a second for each.
void BM_LoadTriangleFan(benchmark::State& state) {
    runLoads(state, world("fan", 0, [&](std::size_t) { return wrlbench::triangleFan(state.range(0)); }));
}

void BM_LoadLongComment(benchmark::State& state) {
    runLoads(state, world("comment", static_cast<std::size_t>(state.range(0)),
                          [](std::size_t n) { return wrlbench::longComment(n); }));
}

void BM_LoadRoutedNodes(benchmark::State& state) {
    runLoads(state, world("routes", 0, [&](std::size_t) { return wrlbench::routedNodes(state.range(0)); }));
}

void BM_LoadNestedProtos(benchmark::State& state) {
    runLoads(state, world("nested-protos", 0, [&](std::size_t) {
                 return wrlbench::nestedProtos(static_cast<int>(state.range(0)));
             }));
}

// Thirty loads of one world in one process, each scene let go before the
// next: the resident size after them against that after the first. A world
// that outlived its scene would pile up here.
struct RepeatFigures {
    double afterOne = 0;
    double afterAll = 0;
    bool loaded = false;
};

double residentBytes() {
    long pages = 0;
    if (FILE* f = std::fopen("/proc/self/statm", "r")) {
        long size = 0;
        if (std::fscanf(f, "%ld %ld", &size, &pages) != 2) pages = 0;
        std::fclose(f);
    }
    return static_cast<double>(pages) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

void BM_RepeatedLoadsGiveMemoryBack(benchmark::State& state) {
    if (std::getenv("ZNBUILTINS") == nullptr)
        setenv("ZNBUILTINS", WRL_SOURCE_DIR "/data/znbuiltins.wrl", 1);
    const std::string path = world("defuse", 1, wrlbench::manyDefUseShapes);
    constexpr int kLoads = 30;
    RepeatFigures figures;
    for (auto _ : state) {
        auto start = std::chrono::steady_clock::now();
        figures = wrlbench::inChild<RepeatFigures>([&] {
            RepeatFigures f;
            wrlLoadOptions options;
            options.report = [](const wrlReport*, void*) {};
            for (int i = 0; i < kLoads; ++i) {
                csNode* scene = wrlLoadWith(path.c_str(), &options, nullptr);
                f.loaded = scene != nullptr;
                if (scene != nullptr) scene->unref();
                if (i == 0) f.afterOne = residentBytes();
            }
            f.afterAll = residentBytes();
            return f;
        });
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        if (!figures.loaded) {
            state.SkipWithError("the world did not load");
            return;
        }
    }
    state.counters["resident_after_1_MB"] = figures.afterOne / 1048576.0;
    state.counters["resident_after_30_MB"] = figures.afterAll / 1048576.0;
    state.counters["ratio"] = figures.afterOne > 0 ? figures.afterAll / figures.afterOne : 0;
}

}  // namespace

// Sizes in MB. Whether time grows linearly with size shows in the MB/s
// staying level from 1 to 100.
BENCHMARK(BM_LoadFaceSetWithNormals)->Arg(1)->Arg(10)->Arg(100)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_LoadFaceSetGeneratedNormals)->Arg(1)->Arg(10)->Arg(100)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_LoadDefUseShapes)->Arg(1)->Arg(10)->Arg(100)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_LoadProtoInstances)->Arg(1)->Arg(10)->Arg(100)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_LoadTriangleFan)->Arg(30000)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_LoadLongComment)->Arg(8)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_LoadRoutedNodes)->Arg(30000)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_LoadNestedProtos)->Arg(14)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_RepeatedLoadsGiveMemoryBack)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(1);
