#include "optimizer/opt_normals.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "optimizer/opt_geometry.h"
#include "optimizer/optimizer_messages.h"

namespace {

// Below this in every component, the cross product of two edges is taken
// for zero: the corner is collinear and gives the face no normal.
constexpr float kCollinear = 0.0001f;
// Whether two unit normals lie within the crease angle: acos(dot) at most
// the angle, with the dot product taken in single precision and a product
// beyond [-1, 1] merging nothing. acos falls as the dot product rises, so
// the test is a threshold on the dot product, found once per angle by
// bisection over the floats of [-1, 1]; smoothing then needs no acos.
class CreaseTest {
public:
    explicit CreaseTest(float angle) {
        if (!within(1.0f, angle)) return;  // negative or NaN: nothing merges
        merging = true;
        if (within(-1.0f, angle)) {
            threshold = -1.0f;
            return;
        }
        std::int64_t below = keyOf(-1.0f), atOrAbove = keyOf(1.0f);
        while (atOrAbove - below > 1) {
            std::int64_t middle = below + (atOrAbove - below) / 2;
            if (within(floatOf(middle), angle))
                atOrAbove = middle;
            else
                below = middle;
        }
        threshold = floatOf(atOrAbove);
    }
    bool merges(float dot) const { return merging && dot >= threshold && dot <= 1.0f; }

private:
    static bool within(float dot, float angle) { return std::acos(static_cast<double>(dot)) <= angle; }
    // Floats in their order as integers: -0 and +0 meet at 0.
    static std::int64_t keyOf(float f) {
        std::uint32_t bits;
        std::memcpy(&bits, &f, sizeof bits);
        return (bits & 0x80000000u) ? -static_cast<std::int64_t>(bits & 0x7fffffffu) : static_cast<std::int64_t>(bits);
    }
    static float floatOf(std::int64_t key) {
        std::uint32_t bits = key < 0 ? (0x80000000u | static_cast<std::uint32_t>(-key)) : static_cast<std::uint32_t>(key);
        float f;
        std::memcpy(&f, &bits, sizeof f);
        return f;
    }

    bool merging = false;
    float threshold = 2.0f;
};

// An index of the coordinate list as the normal generator takes it: one
// that names no point is mended to the first point when below -1, else to
// the last.
int mended(int e, int points) {
    if (e < kOptTerminator) return 0;
    if (e >= points) return points - 1;
    return e;
}

}  // namespace

// Each face takes the normal of its first three corners that are not
// collinear, seen in processing order; then at every point the normals of
// its corners that lie within the crease angle of one another are
// averaged. Corners are bucketed by point, so the work is linear in the
// corners and quadratic only in the corners at one point.
void optGenerateNormals(const std::vector<int>& list, bool reverse, const csVec3f* point, int pointCount,
                        float creaseAngle, csMFVec3f& normalOut, csMFInt& indexOut) {
    const int length = optCountOf(list);
    const int points = point ? pointCount : 0;
    const int walked = (reverse && length > 0 && list[static_cast<size_t>(length - 1)] == kOptTerminator) ? length - 1 : length;
    auto entry = [&](int i) { return list[static_cast<size_t>(reverse ? walked - 1 - i : i)]; };

    // Face normals, and the number of corners at each point.
    std::vector<int> start(static_cast<size_t>(points) + 1, 0);
    int corner = 0;
    int faceStart = 0;   // the face's first corner: its corners so far are faceStart to corner
    int inFace = 0;
    bool hasNormal = false;
    csVec3f faceNormal, triple[3];
    for (int i = 0; i < walked; ++i) {
        int e = entry(i);
        if (e < kOptTerminator || e >= points) {
            std::fprintf(stderr, "%s%d\n", kInvalidIndex, e);
            e = mended(e, points);
        }
        if (e == kOptTerminator) {
            hasNormal = false;
            faceStart = corner;
            inFace = 0;
            continue;
        }
        if (!hasNormal) {
            const csVec3f p = e < points ? point[e] : csVec3f();
            if (inFace < 3) {
                triple[inFace] = p;
            } else {
                triple[0] = triple[1];
                triple[1] = triple[2];
                triple[2] = p;
            }
            if (inFace >= 2) {
                csVec3f a, b;
                a.sub(triple[2], triple[1]);
                a.normalize();
                b.sub(triple[0], triple[1]);
                b.normalize();
                faceNormal.cross(a, b);
                if (std::fabs(faceNormal[0]) >= kCollinear || std::fabs(faceNormal[1]) >= kCollinear ||
                    std::fabs(faceNormal[2]) >= kCollinear) {
                    faceNormal.normalize();
                    hasNormal = true;
                    for (int c = faceStart; c <= corner; ++c) {
                        normalOut.set(c, faceNormal);
                        indexOut.set(c, c);
                    }
                }
            }
        } else {
            normalOut.set(corner, faceNormal);
            indexOut.set(corner, corner);
        }
        if (e < points) ++start[static_cast<size_t>(e) + 1];
        ++corner;
        ++inFace;
    }

    // The corners of each point, in processing order. Walked from the last
    // corner down, each point's end moves back to its start.
    for (int v = 0; v < points; ++v) start[static_cast<size_t>(v) + 1] += start[static_cast<size_t>(v)];
    std::vector<int> cornersAt(static_cast<size_t>(start[static_cast<size_t>(points)]));
    for (int i = walked - 1; i >= 0; --i) {
        int e = entry(i);
        if (e < kOptTerminator || e >= points) e = mended(e, points);
        if (e == kOptTerminator) continue;
        --corner;
        if (e < points) cornersAt[static_cast<size_t>(--start[static_cast<size_t>(e) + 1])] = corner;
    }
    // Point v's corners now run from start[v + 1] to start[v + 2]; shift back.
    start.erase(start.begin());
    start.push_back(static_cast<int>(cornersAt.size()));

    // Smoothing reads the face normals only, never a normal smoothed before.
    const CreaseTest crease(creaseAngle);
    std::vector<csVec3f> scratch;
    for (int v = 0; v < points; ++v) {
        const int first = start[static_cast<size_t>(v)];
        const int count = start[static_cast<size_t>(v) + 1] - first;
        if (static_cast<int>(scratch.size()) < count) scratch.resize(static_cast<size_t>(count));
        const int* at = cornersAt.data() + first;
        for (int k = 0; k < count; ++k) scratch[static_cast<size_t>(k)] = normalOut.get(at[k]);
        for (int a = 0; a < count; ++a) {
            const csVec3f& own = scratch[static_cast<size_t>(a)];
            csVec3f sum = own;
            for (int b = 0; b < count; ++b)
                if (b != a && crease.merges(own.dot(scratch[static_cast<size_t>(b)])))
                    sum.add(sum, scratch[static_cast<size_t>(b)]);
            sum.normalize();
            normalOut.set(at[a], sum);
        }
    }
}

