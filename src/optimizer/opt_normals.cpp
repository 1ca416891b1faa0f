#include "optimizer/opt_normals.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <vector>

#include "optimizer/opt_geometry.h"
#include "optimizer/optimizer_messages.h"

namespace {

// Below this in every component, the cross product of two edges is taken
// for zero: the corner is collinear and gives the face no normal.
constexpr float kCollinear = 0.0001f;
// Whether two unit normals lie within the crease angle: acos(dot) at most
// the angle, with the dot product taken in single precision. acos falls as the dot product rises, so
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
    // A product rounded above 1 is two normals that are one: it merges.
    bool merges(float dot) const { return merging && dot >= threshold; }
    bool mergesAny() const { return merging; }
    bool mergesAll() const { return merging && threshold <= -1.0f; }
    // The distance between two unit normals below which they merge.
    float chord() const { return merging ? std::sqrt(std::max(0.0f, 2.0f - 2.0f * threshold)) : 0.0f; }

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

// Smooths the normals of the corners at one point: each takes the sum of
// the face normals at the point that lie within the crease angle of its own,
// its own included. Corners with one face normal are one group, so a fan of
// flat faces or a point where thousands of corners meet costs the number of
// distinct normals. Many distinct normals are searched through a tree of
// boxes that knows the sum of each box: a box wholly within the merging
// distance gives its sum at once, one wholly beyond it nothing, so only
// boxes at the edge of that distance are opened. The work grows about as
// the corners times the logarithm of their number, whatever the angle.
class Smoother {
public:
    explicit Smoother(const CreaseTest& test) : crease(test) {}

    void smooth(const int* at, int count, csMFVec3f& normals) {
        if (count <= 0) return;
        if (!crease.mergesAny() || count == 1) {
            for (int k = 0; k < count; ++k) {
                csVec3f own = normals.get(at[k]);
                own.normalize();
                normals.set(at[k], own);
            }
            return;
        }
        group(at, count, normals);
        sums.assign(groups.size(), csVec3f(0, 0, 0));
        if (crease.mergesAll()) {
            csVec3f all(0, 0, 0);
            for (const Group& g : groups) all.add(all, g.sum);
            for (csVec3f& sum : sums) sum = all;
        } else if (groups.size() <= kDirectGroups) {
            for (size_t a = 0; a < groups.size(); ++a)
                for (size_t b = 0; b < groups.size(); ++b)
                    if (a == b || crease.merges(groups[a].normal.dot(groups[b].normal)))
                        sums[a].add(sums[a], groups[b].sum);
        } else {
            throughTree();
        }
        for (int k = 0; k < count; ++k) {
            csVec3f sum = sums[static_cast<size_t>(groupOf[static_cast<size_t>(k)])];
            sum.normalize();
            normals.set(at[k], sum);
        }
    }

private:
    static constexpr size_t kDirectGroups = 48;
    static constexpr int kLeafGroups = 8;

    struct Group {
        csVec3f normal;
        csVec3f sum;  // the normal times its corners
    };
    struct Box {
        csVec3f low, high, sum;
        int begin = 0, end = 0;         // its groups in `members`
        int left = -1, right = -1;      // boxes within; -1 for a leaf
    };

    // The corners' groups by equal normals, in groupOf.
    void group(const int* at, int count, csMFVec3f& normals) {
        order.resize(static_cast<size_t>(count));
        for (int k = 0; k < count; ++k) order[static_cast<size_t>(k)] = k;
        corner.resize(static_cast<size_t>(count));
        for (int k = 0; k < count; ++k) corner[static_cast<size_t>(k)] = normals.get(at[k]);
        std::sort(order.begin(), order.end(),
                  [&](int a, int b) { return less(corner[static_cast<size_t>(a)], corner[static_cast<size_t>(b)]); });
        groups.clear();
        groupOf.resize(static_cast<size_t>(count));
        for (size_t i = 0; i < order.size(); ++i) {
            const csVec3f& n = corner[static_cast<size_t>(order[i])];
            if (groups.empty() || !(groups.back().normal == n)) groups.push_back({n, csVec3f(0, 0, 0)});
            groups.back().sum.add(groups.back().sum, n);
            groupOf[static_cast<size_t>(order[i])] = static_cast<int>(groups.size() - 1);
        }
    }

    static bool less(const csVec3f& a, const csVec3f& b) {
        for (int i = 0; i < 3; ++i)
            if (a[i] != b[i]) return a[i] < b[i];
        return false;
    }

    // Distance and angle agree only for unit normals: a place that held no
    // face normal, or something else, is tested against every group.
    static bool unit(const csVec3f& n) {
        const float squared = n.dot(n);
        return squared > 0.99f && squared < 1.01f;
    }

    void throughTree() {
        members.clear();
        loose.clear();
        for (size_t g = 0; g < groups.size(); ++g)
            (unit(groups[g].normal) ? members : loose).push_back(static_cast<int>(g));
        boxes.clear();
        if (!members.empty()) build(0, static_cast<int>(members.size()));
        const float radius = crease.chord();
        // Between these the float test of the angle decides, member by member.
        const float outside = radius * (1.0f + 1.0e-3f) + 1.0e-6f;
        const float inside = radius * (1.0f - 1.0e-3f);
        for (size_t g = 0; g < groups.size(); ++g) {
            const csVec3f& n = groups[g].normal;
            csVec3f& sum = sums[g];
            if (!unit(n)) {
                for (size_t h = 0; h < groups.size(); ++h)
                    if (h == g || crease.merges(n.dot(groups[h].normal))) sum.add(sum, groups[h].sum);
                continue;
            }
            for (int other : loose)
                if (crease.merges(n.dot(groups[static_cast<size_t>(other)].normal)))
                    sum.add(sum, groups[static_cast<size_t>(other)].sum);
            if (boxes.empty()) continue;
            pending.clear();
            pending.push_back(0);
            while (!pending.empty()) {
                const Box& box = boxes[static_cast<size_t>(pending.back())];
                pending.pop_back();
                if (nearest(n, box) > outside) continue;
                if (farthest(n, box) <= inside) {
                    sum.add(sum, box.sum);
                    continue;
                }
                if (box.left < 0) {
                    for (int i = box.begin; i < box.end; ++i) {
                        const int member = members[static_cast<size_t>(i)];
                        if (member == static_cast<int>(g) || crease.merges(n.dot(groups[static_cast<size_t>(member)].normal)))
                            sum.add(sum, groups[static_cast<size_t>(member)].sum);
                    }
                    continue;
                }
                pending.push_back(box.left);
                pending.push_back(box.right);
            }
        }
    }

    // A box over members[begin, end), split at the median of its longest
    // side; answers its number.
    int build(int begin, int end) {
        const int number = static_cast<int>(boxes.size());
        boxes.emplace_back();
        Box box;
        box.begin = begin;
        box.end = end;
        box.low = box.high = groups[static_cast<size_t>(members[static_cast<size_t>(begin)])].normal;
        box.sum.set(0, 0, 0);
        for (int i = begin; i < end; ++i) {
            const Group& g = groups[static_cast<size_t>(members[static_cast<size_t>(i)])];
            for (int axis = 0; axis < 3; ++axis) {
                box.low[axis] = std::min(box.low[axis], g.normal[axis]);
                box.high[axis] = std::max(box.high[axis], g.normal[axis]);
            }
            box.sum.add(box.sum, g.sum);
        }
        if (end - begin > kLeafGroups) {
            int axis = 0;
            for (int a = 1; a < 3; ++a)
                if (box.high[a] - box.low[a] > box.high[axis] - box.low[axis]) axis = a;
            const int middle = begin + (end - begin) / 2;
            std::nth_element(members.begin() + begin, members.begin() + middle, members.begin() + end,
                             [&](int a, int b) {
                                 return groups[static_cast<size_t>(a)].normal[axis] <
                                        groups[static_cast<size_t>(b)].normal[axis];
                             });
            box.left = build(begin, middle);
            box.right = build(middle, end);
        }
        boxes[static_cast<size_t>(number)] = box;
        return number;
    }

    static float nearest(const csVec3f& n, const Box& box) {
        float squared = 0.0f;
        for (int i = 0; i < 3; ++i) {
            const float d = n[i] < box.low[i] ? box.low[i] - n[i] : (n[i] > box.high[i] ? n[i] - box.high[i] : 0.0f);
            squared += d * d;
        }
        return std::sqrt(squared);
    }

    static float farthest(const csVec3f& n, const Box& box) {
        float squared = 0.0f;
        for (int i = 0; i < 3; ++i) {
            const float d = std::max(std::fabs(n[i] - box.low[i]), std::fabs(n[i] - box.high[i]));
            squared += d * d;
        }
        return std::sqrt(squared);
    }

    const CreaseTest& crease;
    std::vector<int> order;
    std::vector<csVec3f> corner;
    std::vector<Group> groups;
    std::vector<int> groupOf;
    std::vector<csVec3f> sums;
    std::vector<int> members;  // unit groups, in the order of the boxes
    std::vector<int> loose;    // the other groups
    std::vector<Box> boxes;
    std::vector<int> pending;
};

}  // namespace

// Each face takes the normal of its first three corners that are not
// collinear, seen in processing order; then at every point the normals of
// its corners that lie within the crease angle of one another are
// averaged. Corners are bucketed by point, and each point's smoothing is
// about linear in its corners (Smoother), so the work is linear in all.
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
    Smoother smoother(crease);
    for (int v = 0; v < points; ++v) {
        const int first = start[static_cast<size_t>(v)];
        smoother.smooth(cornersAt.data() + first, start[static_cast<size_t>(v) + 1] - first, normalOut);
    }
}
