// Lexer and grammar together over a file of big geometry: one coordinate
// list and one index list of about 50 MB each, parsed as a check without
// output, so that the database's share is left out.
#include <benchmark/benchmark.h>

#include <iostream>
#include <streambuf>
#include <string>

#include "parser/parser.hpp"
#include "parser/zn_lexer.h"
#include "parser/zn_parser.h"

namespace {

constexpr std::size_t kListBytes = 50u * 1000u * 1000u;

constexpr const char* kTypes =
    "PROTO Coordinate [ exposedField MFVec3f point [ ] ] { }\n"
    "PROTO IndexedFaceSet [ field MFInt32 coordIndex [ ] ] { }\n";

const std::string& geometryFile() {
    static const std::string text = [] {
        std::string t = "#VRML V2.0 utf8\nCoordinate { point [\n";
        t.reserve(2 * kListBytes + 1000);
        unsigned n = 0;
        char item[96];
        while (t.size() < kListBytes) {
            const int len = std::snprintf(item, sizeof item, "  %u.%03u %u.%03u -%u.%03u,\n", n % 1000, n % 997,
                                          (n / 7) % 1000, n % 991, (n / 13) % 1000, n % 983);
            t.append(item, static_cast<std::size_t>(len));
            ++n;
        }
        t += "] }\nIndexedFaceSet { coordIndex [\n";
        const std::size_t start = t.size();
        n = 0;
        while (t.size() - start < kListBytes) {
            const int len = std::snprintf(item, sizeof item, "%u, %u, %u, -1,\n", n % 100000, (n + 1) % 100000,
                                          (n + 2) % 100000);
            t.append(item, static_cast<std::size_t>(len));
            ++n;
        }
        t += "] }\n";
        return t;
    }();
    return text;
}

// Reads the text in place, so that the measurement holds no copy of it.
class TextBuffer : public std::streambuf {
public:
    explicit TextBuffer(const std::string& text) {
        char* begin = const_cast<char*>(text.data());
        setg(begin, begin, begin + text.size());
    }
};

void BM_ParseGeometry(benchmark::State& state) {
    const std::string& text = geometryFile();
    for (auto _ : state) {
        state.PauseTiming();
        znParser parser;
        std::string types(kTypes);
        TextBuffer typeBuffer(types);
        std::istream typeInput(&typeBuffer);
        parser.parseSystemInput(typeInput, "types");
        state.ResumeTiming();
        TextBuffer buffer(text);
        std::istream input(&buffer);
        const int result = parser.parseInput(input, "geometry");
        if (result != 0) state.SkipWithError("the geometry file did not parse");
        benchmark::DoNotOptimize(result);
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(text.size()));
}

}  // namespace

BENCHMARK(BM_ParseGeometry)->Unit(benchmark::kMillisecond)->Iterations(3);
