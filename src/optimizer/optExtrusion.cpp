#include "optimizer/optExtrusion.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <vector>

#include "base/zn_text.h"
#include "csMatrix4f.h"
#include "base/zn_memory_budget.h"
#include "base/zn_reports.h"
#include "optimizer/optSceneName.h"
#include "optimizer/opt_face_builder.h"
#include "optimizer/opt_geometry.h"
#include "optimizer/opt_set_fill.h"
#include "optimizer/optimizer_messages.h"

namespace {

using Elements = std::vector<_znArray<float>>;

template <class Field>
const Elements& elementsOf(Field* field) {
    static const Elements none;
    Elements* values = nullptr;
    if (field) field->getValue(&values);
    return values ? *values : none;
}

csVec3f vec3Of(const _znArray<float>& e) { return csVec3f(optComponent(e, 0), optComponent(e, 1), optComponent(e, 2)); }
csVec2f vec2Of(const _znArray<float>& e) { return csVec2f(optComponent(e, 0), optComponent(e, 1)); }

// Entry i of a list that gives one entry per spine point; a shorter list
// repeats its last entry, and an empty one gives none.
const _znArray<float>* entryFor(const Elements& list, int i) {
    if (list.empty()) return nullptr;
    return &list[static_cast<size_t>(std::min(i, static_cast<int>(list.size()) - 1))];
}

csVec3f minus(const csVec3f& a, const csVec3f& b) {
    csVec3f r;
    r.sub(a, b);
    return r;
}
csVec3f crossOf(const csVec3f& a, const csVec3f& b) {
    csVec3f r;
    r.cross(a, b);
    return r;
}

// Below this length a vector counts as none: the points were one, or the
// neighbours in a line.
constexpr float kNone = 1e-6f;

// The spine-aligned cross-section plane of one spine point: the cross-
// section's x and z run along `x` and `z`, and `y` runs along the spine.
struct Frame {
    csVec3f x{1.0f, 0.0f, 0.0f};
    csVec3f y{0.0f, 1.0f, 0.0f};
    csVec3f z{0.0f, 0.0f, 1.0f};
};

// The frame whose y is the unit vector `y`, turned there from the plain
// frame by the shortest rotation, as for a spine that runs in a line.
Frame turnedTo(const csVec3f& y) {
    Frame frame;
    frame.y = y;
    const csVec3f axis(y[2], 0.0f, -y[0]);  // (0, 1, 0) x y
    if (axis.length() < kNone) {
        if (y[1] < 0.0f) frame.z = csVec3f(0.0f, 0.0f, -1.0f);
    } else {
        csMatrix4f turn;
        turn.makeRot(axis[0], axis[1], axis[2], std::acos(std::max(-1.0f, std::min(1.0f, y[1]))));
        frame.x = turn.xformVec(csVec3f(1.0f, 0.0f, 0.0f));
        frame.z = crossOf(frame.x, frame.y);
    }
    return frame;
}

// The frames of the spine points, by the rules of the sweep: y along the
// spine from the previous point to the next, z square to the two segments
// that meet at the point, kept from turning over between neighbours, and
// x making the frame right-handed. Points that coincide are skipped when
// neighbours are looked for; a point whose z cannot be found takes its
// predecessor's, or the first found; a spine in one line has no z at all
// and is turned from the plain frame. A closed spine treats its ends as
// one point.
std::vector<Frame> framesOf(const std::vector<csVec3f>& spine, bool closed) {
    const int n = static_cast<int>(spine.size());
    // The nearest points before and after each that differ from it.
    std::vector<int> before(static_cast<size_t>(n), -1), after(static_cast<size_t>(n), -1);
    for (int i = 1; i < n; ++i)
        before[i] = spine[i - 1] == spine[i] ? before[i - 1] : i - 1;
    for (int i = n - 2; i >= 0; --i)
        after[i] = spine[i + 1] == spine[i] ? after[i + 1] : i + 1;
    if (closed) {
        for (int i = 0; i < n && before[i] < 0; ++i) before[i] = before[n - 1];
        for (int i = n - 1; i >= 0 && after[i] < 0; --i) after[i] = after[0];
    }

    std::vector<Frame> frames(static_cast<size_t>(n));
    std::vector<char> hasY(static_cast<size_t>(n), 0), hasZ(static_cast<size_t>(n), 0);
    bool anyZ = false;
    for (int i = 0; i < n; ++i) {
        const int b = before[i], a = after[i];
        csVec3f y;
        if (b >= 0 && a >= 0)
            y = minus(spine[a], spine[b]);
        else if (a >= 0)
            y = minus(spine[a], spine[i]);
        else if (b >= 0)
            y = minus(spine[i], spine[b]);
        if (y.normalize() >= kNone) {
            frames[i].y = y;
            hasY[i] = 1;
        }
        if (b >= 0 && a >= 0) {
            csVec3f z = crossOf(minus(spine[a], spine[i]), minus(spine[b], spine[i]));
            if (z.normalize() >= kNone) {
                frames[i].z = z;
                hasZ[i] = 1;
                anyZ = true;
            }
        }
    }
    // Points without a direction of their own follow the one before them,
    // or the first that has one.
    int firstY = 0;
    while (firstY < n && !hasY[firstY]) ++firstY;
    for (int i = 0; i < n; ++i)
        if (!hasY[i]) frames[i].y = i > 0 ? frames[i - 1].y : (firstY < n ? frames[firstY].y : csVec3f(0, 1, 0));

    if (!anyZ) {
        for (Frame& frame : frames) frame = turnedTo(frame.y);
        return frames;
    }
    int firstZ = -1;
    for (int i = 0; i < n; ++i) {
        if (!hasZ[i]) {
            if (firstZ >= 0) frames[i].z = frames[i - 1].z;
            continue;
        }
        if (firstZ >= 0 && frames[i].z.dot(frames[i - 1].z) < 0.0f) frames[i].z.scale(-1.0f, frames[i].z);
        if (firstZ < 0) firstZ = i;
    }
    for (int i = 0; i < firstZ; ++i) frames[i].z = frames[firstZ].z;
    for (Frame& frame : frames) {
        frame.x = crossOf(frame.y, frame.z);
        frame.x.normalize();
        frame.z = crossOf(frame.x, frame.y);
        frame.z.normalize();
    }
    return frames;
}

// Where along a polyline each point lies, from 0 at the first to 1 at the
// last, by length; by count when the line has no length.
template <class Point, class Distance>
std::vector<float> fractionsAlong(const std::vector<Point>& points, Distance distance) {
    const size_t n = points.size();
    std::vector<float> at(n, 0.0f);
    for (size_t i = 1; i < n; ++i) at[i] = at[i - 1] + distance(points[i - 1], points[i]);
    const float total = n > 0 ? at[n - 1] : 0.0f;
    for (size_t i = 1; i < n; ++i)
        at[i] = total > 0.0f ? at[i] / total : static_cast<float>(i) / static_cast<float>(n - 1);
    return at;
}

}  // namespace

optExtrusion::optExtrusion(znInternal* pair) : BaseNode(pair), Extrusion(pair) {
    geometry.reset(new csIndexedFaceSet());
    nameInScene(geometry.get(), *this, kUnnamedExtrusion);
}

int optExtrusion::action(SFTime&, int mode, void*) {
    if ((mode == kActionFetch && !built) || (built && sweepDirty)) {
        build();
        built = 1;
    }
    return geometry->getHandle();
}

void optExtrusion::build() {
    sweepDirty = 0;
    std::vector<csVec3f> spinePoints;
    for (const auto& e : elementsOf(spine)) spinePoints.push_back(vec3Of(e));
    std::vector<csVec2f> section;
    for (const auto& e : elementsOf(crossSection)) section.push_back(vec2Of(e));
    const int n = static_cast<int>(spinePoints.size());
    const int m = static_cast<int>(section.size());

    geometry->setCoordSet(nullptr);
    geometry->faceLength().clear();
    geometry->setPrimCount(0);
    geometry->setColorBind(csGeoSet::OFF);
    geometry->setSolid(optFlag(solid, true) ? 1 : 0);
    geometry->setConvex(optFlag(convex, true) ? 1 : 0);
    if (n < 2 || m < 2) return;

    // A closed line ends where it begins; its last point is its first.
    const bool closedSpine = n > 2 && spinePoints.front() == spinePoints.back();
    const bool closedSection = m > 2 && section.front() == section.back();
    const int rows = closedSpine ? n - 1 : n;
    const int ring = closedSection ? m - 1 : m;
    const bool begin = !closedSpine && ring > 2 && optFlag(beginCap, true);
    const bool end = !closedSpine && ring > 2 && optFlag(endCap, true);
    const long long walls = static_cast<long long>(n - 1) * (m - 1);
    const long long corners = 4 * walls + (begin ? ring : 0) + (end ? ring : 0);
    const long long entries = corners + walls + 2;
    if (entries > INT_MAX || static_cast<long long>(n) * m > INT_MAX) {
        znMessage(znFormatText(kSweepTooLarge, sceneName(kUnnamedExtrusion), n, m).c_str());
        return;
    }
    // A few thousand numbers of spine and cross-section make a surface of
    // millions of points: its points, texture coordinates, both index sets
    // and a normal per corner.
    const std::size_t bytes = static_cast<std::size_t>(n) * m * (sizeof(csVec3f) + sizeof(csVec2f)) +
                              static_cast<std::size_t>(entries) * 2 * sizeof(int) +
                              static_cast<std::size_t>(corners) * sizeof(csVec3f);
    if (!znBudget().take(bytes, 1, [&] {
            return znFormatText(kSweepOverLimit, sceneName(kUnnamedExtrusion), n, m);
        }))
        return;

    // The points: `ring` of them for each of `rows` spine points.
    const std::vector<Frame> frames = framesOf(spinePoints, closedSpine);
    const Elements& scales = elementsOf(scale);
    const Elements& turns = elementsOf(orientation);
    auto* coords = new csCoordSet3f(rows * ring);
    csMFVec3f& point = coords->point();
    for (int i = 0; i < rows; ++i) {
        const _znArray<float>* s = entryFor(scales, i);
        const float sx = s ? optComponent(*s, 0) : 1.0f, sz = s ? optComponent(*s, 1) : 1.0f;
        csMatrix4f turn;
        if (const _znArray<float>* r = entryFor(turns, i))
            turn.makeRot(optComponent(*r, 0), optComponent(*r, 1), optComponent(*r, 2), optComponent(*r, 3));
        const Frame& f = frames[static_cast<size_t>(i)];
        for (int j = 0; j < ring; ++j) {
            const csVec3f v = turn.xformVec(csVec3f(section[j][0] * sx, 0.0f, section[j][1] * sz));
            const csVec3f& o = spinePoints[static_cast<size_t>(i)];
            point.set(i * ring + j, csVec3f(o[0] + v[0] * f.x[0] + v[1] * f.y[0] + v[2] * f.z[0],
                                            o[1] + v[0] * f.x[1] + v[1] * f.y[1] + v[2] * f.z[1],
                                            o[2] + v[0] * f.x[2] + v[1] * f.y[2] + v[2] * f.z[2]));
        }
    }
    geometry->setCoordSet(coords);

    // Texture coordinates: an n by m grid over the walls, then one ring for
    // the caps, the cross-section fitted into the unit square by its larger
    // extent.
    const std::vector<float> across =
        fractionsAlong(section, [](const csVec2f& a, const csVec2f& b) { return std::hypot(b[0] - a[0], b[1] - a[1]); });
    const std::vector<float> along =
        fractionsAlong(spinePoints, [](const csVec3f& a, const csVec3f& b) { return minus(b, a).length(); });
    const int capBase = n * m;
    auto* texCoords = new csTexCoordSet2f(capBase + ((begin || end) ? ring : 0));
    csMFVec2f& tex = texCoords->point();
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < m; ++j) tex.set(i * m + j, csVec2f(across[static_cast<size_t>(j)], along[static_cast<size_t>(i)]));
    if (begin || end) {
        float low[2] = {section[0][0], section[0][1]}, high[2] = {low[0], low[1]};
        for (const csVec2f& c : section)
            for (int k = 0; k < 2; ++k) {
                low[k] = std::min(low[k], c[k]);
                high[k] = std::max(high[k], c[k]);
            }
        const float extent = std::max(high[0] - low[0], high[1] - low[1]);
        const float unit = extent > 0.0f ? 1.0f / extent : 0.0f;
        for (int j = 0; j < ring; ++j)
            tex.set(capBase + j, csVec2f((section[j][0] - low[0]) * unit, (section[j][1] - low[1]) * unit));
    }

    // Walls run from each spine point to the next; on a cross-section that
    // runs counter-clockwise seen along the spine they face outwards. The
    // begin cap faces back along the spine, the end cap on along it.
    const bool counterClockwise = optFlag(ccw, true);
    optFaceBuilder faces(counterClockwise, entries);
    optFaceBuilder texFaces(counterClockwise, entries);
    auto vertex = [&](int i, int j) { return (i == rows ? 0 : i) * ring + (j == ring ? 0 : j); };
    for (int i = 0; i + 1 < n; ++i)
        for (int j = 0; j + 1 < m; ++j) {
            faces.quad(vertex(i, j), vertex(i, j + 1), vertex(i + 1, j + 1), vertex(i + 1, j));
            texFaces.quad(i * m + j, i * m + j + 1, (i + 1) * m + j + 1, (i + 1) * m + j);
        }
    std::vector<int> cap(static_cast<size_t>(ring)), capTex(static_cast<size_t>(ring));
    if (begin) {
        for (int j = 0; j < ring; ++j) {
            cap[static_cast<size_t>(j)] = vertex(0, ring - 1 - j);
            capTex[static_cast<size_t>(j)] = capBase + ring - 1 - j;
        }
        faces.face(cap.data(), ring);
        texFaces.face(capTex.data(), ring);
    }
    if (end) {
        for (int j = 0; j < ring; ++j) {
            cap[static_cast<size_t>(j)] = vertex(n - 1, j);
            capTex[static_cast<size_t>(j)] = capBase + j;
        }
        faces.face(cap.data(), ring);
        texFaces.face(capTex.data(), ring);
    }
    faces.compileFaces(*geometry.get());
    faces.generateNormals(*geometry.get(), creaseAngle ? creaseAngle->getValue() : 0.0f);
    geometry->setTexCoordSet(texCoords);
    geometry->setTexCoordBind(csGeoSet::TEX_COORD_PER_VERTEX);
    geometry->setTexCoordIndexSet(texFaces.makeIndexSet());
}
