// Reading big numeric lists: the hot path of every large model.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "browser/zn_browser_intern.h"
#include "fields/zn_field.h"

namespace {

constexpr size_t kTextSize = 10u << 20;

// Coordinates as a modeller writes them: three numbers, a comma, a line.
std::string vec3fText() {
    std::mt19937 random(7);
    std::uniform_real_distribution<float> value(-100.0f, 100.0f);
    std::string text = "[\n";
    char line[96];
    while (text.size() < kTextSize) {
        int n = std::snprintf(line, sizeof line, "  %.6g %.6g %.6g,\n", value(random), value(random), value(random));
        text.append(line, static_cast<size_t>(n));
    }
    text += "]";
    return text;
}

// Face indexes: small numbers with -1 after every face.
std::string int32Text() {
    std::mt19937 random(11);
    std::uniform_int_distribution<int> index(0, 99999);
    std::string text = "[\n";
    char line[96];
    while (text.size() < kTextSize) {
        int n = std::snprintf(line, sizeof line, "  %d, %d, %d, -1,\n", index(random), index(random), index(random));
        text.append(line, static_cast<size_t>(n));
    }
    text += "]";
    return text;
}

void BM_MFVec3fText(benchmark::State& state) {
    const std::string text = vec3fText();
    znBrowserIntern browser(nullptr);
    for (auto _ : state) {
        std::vector<_znArray<float>> list;
        browser.vrml2data(&list, MFVec3fType, text.c_str());
        benchmark::DoNotOptimize(list.data());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(text.size()));
}

void BM_MFInt32Text(benchmark::State& state) {
    const std::string text = int32Text();
    znBrowserIntern browser(nullptr);
    for (auto _ : state) {
        std::vector<int> list;
        browser.vrml2data(&list, MFInt32Type, text.c_str());
        benchmark::DoNotOptimize(list.data());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(text.size()));
}

}  // namespace

BENCHMARK(BM_MFVec3fText)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MFInt32Text)->Unit(benchmark::kMillisecond);
