#include "scene_generators.h"

#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace wrlbench {

namespace {

const char kHeader[] = "#VRML V2.0 utf8\n";

// Appends printf-style text without a temporary string per call.
void appendf(std::string& out, const char* format, double a, double b, double c) {
    char buffer[96];
    int n = std::snprintf(buffer, sizeof buffer, format, a, b, c);
    out.append(buffer, static_cast<std::size_t>(n));
}

void appendf(std::string& out, const char* format, double a, double b) {
    char buffer[96];
    int n = std::snprintf(buffer, sizeof buffer, format, a, b);
    out.append(buffer, static_cast<std::size_t>(n));
}

void appendInts(std::string& out, long a, long b, long c, long d) {
    char buffer[96];
    int n = std::snprintf(buffer, sizeof buffer, "%ld %ld %ld %ld -1,\n", a, b, c, d);
    out.append(buffer, static_cast<std::size_t>(n));
}

}  // namespace

std::string bigFaceSet(std::size_t targetBytes, bool withNormals, bool inShape) {
    // Bytes per grid vertex: about 26 of coordinates, 22 of normals, 15 of
    // texture coordinates and 30 of indices (one quad per vertex).
    const double perVertex = withNormals ? 93.0 : 71.0;
    long side = static_cast<long>(std::sqrt(static_cast<double>(targetBytes) / perVertex));
    if (side < 2) side = 2;
    std::string out;
    out.reserve(targetBytes + targetBytes / 8);
    out += kHeader;
    out += inShape ? "Shape {\n appearance Appearance { material Material { } }\n geometry IndexedFaceSet {\n"
                   : "DEF F IndexedFaceSet {\n";
    if (!withNormals) out += "  creaseAngle 0.5\n";
    out += "  coord Coordinate { point [\n";
    for (long j = 0; j < side; ++j)
        for (long i = 0; i < side; ++i) {
            double x = i * 0.01, z = j * 0.01;
            appendf(out, "%.4f %.4f %.4f,\n", x, 0.1 * std::sin(x * 3.0) * std::cos(z * 2.0), z);
        }
    out += "  ] }\n";
    if (withNormals) {
        out += "  normal Normal { vector [\n";
        for (long j = 0; j < side; ++j)
            for (long i = 0; i < side; ++i) {
                double a = i * 0.01, b = j * 0.01;
                double nx = -0.3 * std::cos(a * 3.0) * std::cos(b * 2.0), nz = 0.2 * std::sin(a * 3.0) * std::sin(b * 2.0);
                double len = std::sqrt(nx * nx + 1.0 + nz * nz);
                appendf(out, "%.4f %.4f %.4f,\n", nx / len, 1.0 / len, nz / len);
            }
        out += "  ] }\n";
    }
    out += "  texCoord TextureCoordinate { point [\n";
    for (long j = 0; j < side; ++j)
        for (long i = 0; i < side; ++i)
            appendf(out, "%.4f %.4f,\n", double(i) / (side - 1), double(j) / (side - 1));
    out += "  ] }\n  coordIndex [\n";
    for (long j = 0; j + 1 < side; ++j)
        for (long i = 0; i + 1 < side; ++i) {
            long v = j * side + i;
            appendInts(out, v, v + side, v + side + 1, v + 1);
        }
    out += inShape ? "  ]\n }\n}\n" : "  ]\n}\n";
    return out;
}

std::string bigElevationGrid(long side) {
    std::string out;
    out.reserve(static_cast<std::size_t>(side * side) * 8 + 128);
    out += kHeader;
    appendf(out, "DEF F ElevationGrid { xDimension %.0f zDimension %.0f creaseAngle 0.5 height [\n", double(side),
            double(side));
    for (long j = 0; j < side; ++j) {
        for (long i = 0; i < side; ++i) {
            char buffer[32];
            int n = std::snprintf(buffer, sizeof buffer, "%.3f ", std::sin(i * 0.05) * std::cos(j * 0.03));
            out.append(buffer, static_cast<std::size_t>(n));
        }
        out += '\n';
    }
    out += "] }\n";
    return out;
}

std::string longExtrusion(long spinePoints, long sectionPoints) {
    std::string out;
    out += kHeader;
    out += "DEF F Extrusion { creaseAngle 0.5 crossSection [\n";
    for (long k = 0; k <= sectionPoints; ++k) {
        const double a = 2.0 * M_PI * static_cast<double>(k % sectionPoints) / static_cast<double>(sectionPoints);
        appendf(out, "%.4f %.4f,\n", 0.2 * std::cos(a), 0.2 * std::sin(a));
    }
    out += "] spine [\n";
    for (long i = 0; i < spinePoints; ++i) {
        const double t = 0.01 * static_cast<double>(i);
        appendf(out, "%.4f %.4f %.4f,\n", std::cos(t), 0.002 * static_cast<double>(i), std::sin(t));
    }
    out += "] }\n";
    return out;
}

std::string manyDefUseShapes(std::size_t targetBytes) {
    std::string out;
    out.reserve(targetBytes + 4096);
    out += kHeader;
    out += "DEF RED Appearance { material Material { diffuseColor 1 0 0 } }\n"
           "DEF BLUE Appearance { material Material { diffuseColor 0 0 1 } }\n"
           "DEF BOX Box { size 0.5 0.5 0.5 }\n"
           "DEF BALL Sphere { radius 0.25 }\n";
    for (long i = 0; out.size() < targetBytes; ++i) {
        char buffer[160];
        int n = std::snprintf(buffer, sizeof buffer,
                              "Transform { translation %ld %ld 0 children Shape { appearance USE %s geometry USE %s } }\n",
                              i % 1000, i / 1000, (i & 1) ? "RED" : "BLUE", (i & 2) ? "BOX" : "BALL");
        out.append(buffer, static_cast<std::size_t>(n));
    }
    return out;
}

std::string manyProtoInstances(std::size_t targetBytes) {
    std::string out;
    out.reserve(targetBytes + 4096);
    out += kHeader;
    out += "PROTO Post [ field SFVec3f at 0 0 0 field SFColor tint 1 1 1 field SFVec3f size 0.2 1 0.2 ] {\n"
           "  Transform { translation IS at children Shape {\n"
           "    appearance Appearance { material Material { diffuseColor IS tint } }\n"
           "    geometry Box { size IS size } } }\n"
           "}\n";
    // About 104 bytes an instance: 96,000 of them make 10 MB.
    for (long i = 0; out.size() < targetBytes; ++i) {
        char buffer[160];
        int n = std::snprintf(buffer, sizeof buffer,
                              "DEF P%07ld Post { at %ld.000 0.000 %ld.000 tint 0.%02ld0 0.500 0.500 size 0.200 1.000 "
                              "0.200 }\n",
                              i, i % 1000, i / 1000, i % 100);
        out.append(buffer, static_cast<std::size_t>(n));
    }
    return out;
}

std::string triangleFan(long triangles) {
    std::string out = std::string(kHeader) + "Shape { geometry IndexedFaceSet {\n  coord Coordinate { point [ 0 0 0";
    for (long i = 0; i <= triangles; ++i) {
        const double angle = 6.283185307179586 * static_cast<double>(i) / static_cast<double>(triangles + 1);
        appendf(out, ", %.5f %.5f %.5f", std::cos(angle), std::sin(angle), 0.1 * static_cast<double>(i % 7));
    }
    out += " ] }\n  coordIndex [";
    for (long i = 1; i <= triangles; ++i) out += " 0 " + std::to_string(i) + " " + std::to_string(i + 1) + " -1";
    out += " ]\n  creaseAngle 0.5\n} }\n";
    return out;
}

std::string longComment(std::size_t bytes) {
    std::string out = std::string(kHeader) + "#";
    out.append(bytes, 'c');
    out += "\nShape { geometry Box { } }\n";
    return out;
}

std::string routedNodes(long nodes) {
    std::string out = kHeader;
    for (long i = 0; i < nodes; ++i) {
        out += "DEF T" + std::to_string(i) + " Transform { children Shape { geometry Box { } } }\n";
        if (i % 10 == 0)
            out += "DEF S" + std::to_string(i) + " Script { eventIn SFVec3f in eventOut SFVec3f out }\n";
    }
    for (long i = 1; i < nodes; ++i)
        out += "ROUTE T" + std::to_string(i - 1) + ".translation_changed TO T" + std::to_string(i) +
               ".set_translation\n";
    for (long i = 0; i < nodes; i += 10)
        out += "ROUTE T" + std::to_string(i) + ".translation_changed TO S" + std::to_string(i) + ".in\n";
    return out;
}

std::string nestedProtos(int levels) {
    std::string out = std::string(kHeader) + "PROTO P0 [ ] { Shape { geometry Box { } } }\n";
    for (int i = 1; i <= levels; ++i)
        out += "PROTO P" + std::to_string(i) + " [ ] { Group { children [ P" + std::to_string(i - 1) + " { } P" +
               std::to_string(i - 1) + " { } ] } }\n";
    out += "P" + std::to_string(levels) + " { }\n";
    return out;
}

std::string writeTempWorld(const std::string& stem, const std::string& text) {
    const char* dir = std::getenv("TMPDIR");
    std::string path = std::string(dir && *dir ? dir : "/tmp") + "/wrlbench-" + stem + "-XXXXXX.wrl";
    int fd = mkstemps(path.data(), 4);
    if (fd < 0) throw std::runtime_error("cannot make a temporary world file");
    std::size_t done = 0;
    while (done < text.size()) {
        ssize_t n = write(fd, text.data() + done, text.size() - done);
        if (n <= 0) {
            close(fd);
            throw std::runtime_error("cannot write a temporary world file");
        }
        done += static_cast<std::size_t>(n);
    }
    close(fd);
    return path;
}

}  // namespace wrlbench
