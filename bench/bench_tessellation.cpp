// Speed of tessellating spheres at the default and at higher samplings.
#include <benchmark/benchmark.h>

#include "opSphere.h"
#include "opTessParaSurfaceAction.h"

static void BM_SphereTessellation(benchmark::State& state) {
    auto* tess = new opTessParaSurfaceAction();
    tess->ref();
    tess->setSampling(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        auto* sphere = new opSphere();
        sphere->ref();
        benchmark::DoNotOptimize(tess->apply(sphere));
        sphere->unref();
    }
    tess->unref();
}
BENCHMARK(BM_SphereTessellation)->Arg(15)->Arg(60)->Arg(240);
