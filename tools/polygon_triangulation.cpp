#include "polygon_triangulation.h"

#include <cmath>

namespace {

// Cutting ears takes time that grows with the cube of the corners: a face
// with more is fanned, so that no world can make an export hang.
constexpr int kMostCornersCut = 256;

struct Point2 {
    double x, y;
};

double cross(const Point2& o, const Point2& a, const Point2& b) {
    return (a.x - o.x) * (b.y - o.y) - (a.y - o.y) * (b.x - o.x);
}

bool inside(const Point2& p, const Point2& a, const Point2& b, const Point2& c) {
    return cross(a, b, p) >= 0.0 && cross(b, c, p) >= 0.0 && cross(c, a, p) >= 0.0;
}

void fan(int count, int first, const std::vector<int>& left, std::vector<std::array<int, 3>>& out) {
    for (int k = first + 1; k + 1 < count; ++k) out.push_back({left[first], left[k], left[k + 1]});
}

}  // namespace

csVec3f polygonNormal(const std::vector<csVec3f>& corners) {
    double n[3] = {0.0, 0.0, 0.0};
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const csVec3f& a = corners[i];
        const csVec3f& b = corners[(i + 1) % corners.size()];
        n[0] += (double(a[1]) - b[1]) * (double(a[2]) + b[2]);
        n[1] += (double(a[2]) - b[2]) * (double(a[0]) + b[0]);
        n[2] += (double(a[0]) - b[0]) * (double(a[1]) + b[1]);
    }
    const double length = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
    if (!(length > 0.0) || !std::isfinite(length)) return csVec3f(0.0f, 0.0f, 1.0f);
    return csVec3f(float(n[0] / length), float(n[1] / length), float(n[2] / length));
}

std::vector<std::array<int, 3>> triangulatePolygon(const std::vector<csVec3f>& corners, const csVec3f& normal,
                                                   bool convex) {
    std::vector<std::array<int, 3>> triangles;
    const int count = static_cast<int>(corners.size());
    std::vector<int> left(corners.size());
    for (int i = 0; i < count; ++i) left[static_cast<std::size_t>(i)] = i;
    if (convex || count == 3 || count > kMostCornersCut) {
        fan(count, 0, left, triangles);
        return triangles;
    }
    // The plane across the normal's largest component, turned so that the
    // polygon runs counter-clockwise in it.
    int drop = 2;
    if (std::fabs(normal[0]) >= std::fabs(normal[1]) && std::fabs(normal[0]) >= std::fabs(normal[2])) drop = 0;
    else if (std::fabs(normal[1]) >= std::fabs(normal[2])) drop = 1;
    const int u = (drop + 1) % 3, v = (drop + 2) % 3;
    const double sense = normal[drop] < 0.0f ? -1.0 : 1.0;
    std::vector<Point2> flat;
    for (const csVec3f& c : corners) flat.push_back({double(c[u]), sense * double(c[v])});

    int remaining = count;
    while (remaining > 3) {
        bool cut = false;
        for (int i = 0; i < remaining && !cut; ++i) {
            const int a = left[static_cast<std::size_t>((i + remaining - 1) % remaining)];
            const int b = left[static_cast<std::size_t>(i)];
            const int c = left[static_cast<std::size_t>((i + 1) % remaining)];
            const Point2 &pa = flat[static_cast<std::size_t>(a)], &pb = flat[static_cast<std::size_t>(b)],
                         &pc = flat[static_cast<std::size_t>(c)];
            if (cross(pa, pb, pc) <= 0.0) continue;  // a reflex or flat corner is no ear
            bool empty = true;
            for (int k = 0; k < remaining && empty; ++k) {
                const int other = left[static_cast<std::size_t>(k)];
                if (other == a || other == b || other == c) continue;
                empty = !inside(flat[static_cast<std::size_t>(other)], pa, pb, pc);
            }
            if (!empty) continue;
            triangles.push_back({a, b, c});
            left.erase(left.begin() + i);
            --remaining;
            cut = true;
        }
        if (!cut) break;
    }
    fan(remaining, 0, left, triangles);
    return triangles;
}
