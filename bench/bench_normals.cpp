// Normal generation where many faces meet at one point: a fan of triangles
// around its apex, tilted at random so that no two normals agree, and the
// same triangle over and over on three points. Time per corner should stay
// about level as the count grows tenfold.
#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

#include "optimizer/opt_normals.h"

namespace {

void fan(int count, std::vector<csVec3f>& points, std::vector<int>& faces) {
    std::mt19937 random(7);
    std::uniform_real_distribution<float> tilt(-0.05f, 0.05f);
    points.assign(1, csVec3f(0, 0, 0));
    faces.clear();
    for (int i = 0; i < count; ++i) {
        const float angle = 6.2831853f * static_cast<float>(i) / static_cast<float>(count);
        points.emplace_back(std::cos(angle), tilt(random), std::sin(angle));
        faces.insert(faces.end(), {0, i + 1, (i + 1) % count + 1, -1});
    }
}

void BM_NormalsOfAFan(benchmark::State& state) {
    std::vector<csVec3f> points;
    std::vector<int> faces;
    fan(static_cast<int>(state.range(0)), points, faces);
    const float crease = static_cast<float>(state.range(1)) / 10.0f;
    for (auto _ : state) {
        csMFVec3f normals;
        csMFInt indexes;
        optGenerateNormals(faces, false, points.data(), static_cast<int>(points.size()), crease, normals, indexes);
        benchmark::DoNotOptimize(normals.getCount());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0) * 3);
}

void BM_NormalsOfOneTriangleRepeated(benchmark::State& state) {
    std::vector<csVec3f> points = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    std::vector<int> faces;
    for (int64_t i = 0; i < state.range(0); ++i) faces.insert(faces.end(), {0, 1, 2, -1});
    for (auto _ : state) {
        csMFVec3f normals;
        csMFInt indexes;
        optGenerateNormals(faces, false, points.data(), 3, 0.5f, normals, indexes);
        benchmark::DoNotOptimize(normals.getCount());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0) * 3);
}

}  // namespace

// Corners per second (items) for 30,000 and 300,000 triangles, crease
// angle 0 and 0.5.
BENCHMARK(BM_NormalsOfAFan)->Args({30000, 0})->Args({30000, 5})->Args({300000, 5})->Unit(benchmark::kMillisecond);
BENCHMARK(BM_NormalsOfOneTriangleRepeated)->Arg(50000)->Arg(500000)->Unit(benchmark::kMillisecond);
