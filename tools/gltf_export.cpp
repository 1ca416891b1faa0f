#include "gltf_export.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <fstream>
#include <map>
#include <sstream>
#include <tuple>
#include <unordered_map>

#include "csAppearance.h"
#include "csBackground.h"
#include "csBillboard.h"
#include "csDirectionalLight.h"
#include "csEnvironment.h"
#include "csFog.h"
#include "csImage.h"
#include "csIndexedFaceSet.h"
#include "csLOD.h"
#include "csLineStripSet.h"
#include "csMaterial.h"
#include "csNavigationInfo.h"
#include "csPointSet.h"
#include "csRefPtr.h"
#include "csScreenAlignedText.h"
#include "csShape.h"
#include "csSpotLight.h"
#include "csTexture.h"
#include "csTransform.h"
#include "csViewpoint.h"
#include "opTessCuboidAction.h"
#include "opTessParaSurfaceAction.h"
#include "png_encoder.h"
#include "polygon_triangulation.h"
#include "shown_scene.h"

namespace {

constexpr const char* kUnlitExtension = "KHR_materials_unlit";
constexpr const char* kLightsExtension = "KHR_lights_punctual";
// The near plane of a viewpoint's camera: half the width of VRML's
// default avatar, as browsers clip; and its far plane when the world sets
// no visibility limit.
constexpr double kDefaultNear = 0.125;
constexpr double kDefaultFar = 10000.0;
constexpr double kPi = 3.14159265358979323846;

template <class T>
T* as(csObject* object) {
    return object != nullptr && object->isOfType(T::getClassType()) ? static_cast<T*>(object) : nullptr;
}

// ---- Rotations, in double precision as glTF's unit quaternions need.

struct Quaternion {
    double x = 0.0, y = 0.0, z = 0.0, w = 1.0;

    bool isIdentity() const { return x == 0.0 && y == 0.0 && z == 0.0; }
    Quaternion inverse() const { return {-x, -y, -z, w}; }
    Quaternion operator*(const Quaternion& q) const {
        return {w * q.x + x * q.w + y * q.z - z * q.y, w * q.y - x * q.z + y * q.w + z * q.x,
                w * q.z + x * q.y - y * q.x + z * q.w, w * q.w - x * q.x - y * q.y - z * q.z};
    }
    std::array<double, 3> rotate(const std::array<double, 3>& v) const {
        const Quaternion p = *this * Quaternion{v[0], v[1], v[2], 0.0} * inverse();
        return {p.x, p.y, p.z};
    }
    std::vector<double> values() const { return {x, y, z, w}; }
};

// An axis and an angle in radians; a zero axis or angle is no rotation.
Quaternion fromAxisAngle(const csVec4f& rotation) {
    const double length = std::sqrt(double(rotation[0]) * rotation[0] + double(rotation[1]) * rotation[1] +
                                    double(rotation[2]) * rotation[2]);
    if (length == 0.0 || rotation[3] == 0.0f || !std::isfinite(length) || !std::isfinite(rotation[3])) return {};
    const double s = std::sin(rotation[3] / 2.0) / length;
    return {rotation[0] * s, rotation[1] * s, rotation[2] * s, std::cos(rotation[3] / 2.0)};
}

// The rotation that turns -z, where glTF's lights shine, to `direction`.
Quaternion fromMinusZTo(const csVec3f& direction) {
    std::array<double, 3> d{direction[0], direction[1], direction[2]};
    const double length = std::sqrt(d[0] * d[0] + d[1] * d[1] + d[2] * d[2]);
    if (length == 0.0 || !std::isfinite(length)) return {};
    for (double& c : d) c /= length;
    // -z x d, and 1 + (-z . d), normalised: half the angle between them.
    Quaternion q{d[1], -d[0], 0.0, 1.0 - d[2]};
    const double norm = std::sqrt(q.x * q.x + q.y * q.y + q.z * q.z + q.w * q.w);
    if (norm < 1e-9) return {0.0, 1.0, 0.0, 0.0};  // d is +z: half a turn about y
    return {q.x / norm, q.y / norm, q.z / norm, q.w / norm};
}

std::array<double, 3> vec(const csVec3f& v) { return {v[0], v[1], v[2]}; }

void setTranslation(tinygltf::Node& node, const std::array<double, 3>& t) {
    if (t[0] != 0.0 || t[1] != 0.0 || t[2] != 0.0) node.translation = {t[0], t[1], t[2]};
}

void setRotation(tinygltf::Node& node, const Quaternion& q) {
    if (!q.isIdentity()) node.rotation = q.values();
}

// ---- Values of a geo set, corner by corner.

// Where the value of a corner lies in a set bound by `bind`: per primitive
// at the primitive's entry, per vertex at the corner's entry of the index
// set, or without one at the corner's point, as the coordinates do.
int valueIndex(int bind, const csIndexSet* indexes, int corner, int primitive, int point) {
    switch (bind) {
        case csGeoSet::OVERALL:
            return 0;
        case csGeoSet::PER_PRIM:
            return indexes != nullptr ? indexes->index().get(primitive) : primitive;
        case csGeoSet::PER_VERTEX:
            return indexes != nullptr ? indexes->index().get(corner) : point;
        default:
            return -1;
    }
}

// Everything a corner carries into glTF. Unused parts stay zero, so that
// two corners are one vertex exactly when their bytes are equal.
struct Vertex {
    float position[3];
    float normal[3];
    float colour[4];
    float uv[2];
};
static_assert(sizeof(Vertex) == 12 * sizeof(float), "vertices are compared byte for byte");

// Which values a primitive's vertices carry.
struct Carried {
    bool normals = false;
    bool colours = false;
    bool uvs = false;
    const csMatrix4f* texTransform = nullptr;  // borrowed; null: none
};

// Corners of one primitive, made into shared vertices and an index list.
class VertexList {
public:
    std::uint32_t add(const Vertex& v) {
        const std::string key(reinterpret_cast<const char*>(&v), sizeof v);
        const auto found = index_.find(key);
        if (found != index_.end()) return found->second;
        const auto index = static_cast<std::uint32_t>(vertices_.size());
        vertices_.push_back(v);
        index_.emplace(key, index);
        return index;
    }
    const std::vector<Vertex>& vertices() const { return vertices_; }

private:
    std::vector<Vertex> vertices_;
    std::unordered_map<std::string, std::uint32_t> index_;
};

// Reads the corners of a geo set with the values that `carried` asks for.
class CornerReader {
public:
    CornerReader(const csGeoSet& set, const Carried& carried) : set_(set), carried_(carried) {}

    // The point of a corner, or false when it names none or a point that
    // is not a number.
    bool point(int corner, int& point) const {
        const csIndexSet* indexes = set_.getCoordIndexSet();
        point = indexes != nullptr ? indexes->index().get(corner) : corner;
        const csCoordSet3f* coords = set_.getCoordSet();
        if (coords == nullptr || point < 0 || point >= coords->getCount()) return false;
        const csVec3f p = coords->point().get(point);
        return std::isfinite(p[0]) && std::isfinite(p[1]) && std::isfinite(p[2]);
    }

    // The vertex of a corner of `primitive`; `faceNormal` stands in for a
    // missing or zero normal.
    Vertex vertex(int corner, int primitive, int point, const csVec3f& faceNormal) const {
        Vertex v{};
        const csVec3f p = set_.getCoordSet()->point().get(point);
        std::copy(p.vec, p.vec + 3, v.position);
        if (carried_.normals) {
            csVec3f n = faceNormal;
            if (const csNormalSet3f* normals = set_.getNormalSet()) {
                const int at = valueIndex(set_.getNormalBind(), set_.getNormalIndexSet(), corner, primitive, point);
                csVec3f given = normals->vector().get(at);
                if (at >= 0 && given.normalize() > 0.0f && std::isfinite(given[0] + given[1] + given[2])) n = given;
            }
            std::copy(n.vec, n.vec + 3, v.normal);
        }
        if (carried_.colours) {
            const int at = valueIndex(set_.getColorBind(), set_.getColorIndexSet(), corner, primitive, point);
            const csVec4f c = set_.getColorSet()->color().get(at);
            for (int i = 0; i < 4; ++i) v.colour[i] = std::isfinite(c[i]) ? std::clamp(c[i], 0.0f, 1.0f) : 0.0f;
        }
        if (carried_.uvs) {
            const int at = valueIndex(csGeoSet::PER_VERTEX, set_.getTexCoordIndexSet(), corner, primitive, point);
            const csVec2f st = set_.getTexCoordSet() != nullptr ? set_.getTexCoordSet()->point().get(at) : csVec2f();
            csVec3f moved(st[0], st[1], 0.0f);
            if (carried_.texTransform != nullptr) moved = carried_.texTransform->xformPt(moved);
            // glTF's pictures start at their top row; t starts at the bottom.
            v.uv[0] = std::isfinite(moved[0]) ? moved[0] : 0.0f;
            v.uv[1] = std::isfinite(moved[1]) ? 1.0f - moved[1] : 0.0f;
        }
        return v;
    }

private:
    const csGeoSet& set_;
    Carried carried_;
};

// What a primitive needs besides its geometry: its mode and vertex lists.
struct PrimitiveData {
    int mode = TINYGLTF_MODE_TRIANGLES;
    VertexList vertices;
    std::vector<std::uint32_t> indices;
};

void readFaces(const csIndexedFaceSet& faces, const Carried& carried, PrimitiveData& out, int& skipped) {
    out.mode = TINYGLTF_MODE_TRIANGLES;
    const CornerReader reader(faces, carried);
    const csMFInt& lengths = faces.faceLength();
    int first = 0;
    std::vector<int> points;
    std::vector<csVec3f> positions;
    for (int f = 0; f < lengths.getCount(); first += std::max(lengths.get(f), 0), ++f) {
        const int length = lengths.get(f);
        if (length < 3) continue;
        points.assign(static_cast<std::size_t>(length), 0);
        positions.clear();
        bool whole = true;
        for (int k = 0; k < length && whole; ++k) {
            whole = reader.point(first + k, points[static_cast<std::size_t>(k)]);
            if (whole) positions.push_back(faces.getCoordSet()->point().get(points[static_cast<std::size_t>(k)]));
        }
        if (!whole) {
            ++skipped;
            continue;
        }
        const csVec3f normal = polygonNormal(positions);
        std::vector<std::uint32_t> corners;
        for (int k = 0; k < length; ++k)
            corners.push_back(out.vertices.add(reader.vertex(first + k, f, points[static_cast<std::size_t>(k)], normal)));
        for (const std::array<int, 3>& t : triangulatePolygon(positions, normal, faces.getConvex())) {
            const std::uint32_t a = corners[t[0]], b = corners[t[1]], c = corners[t[2]];
            if (a == b || b == c || a == c) continue;
            out.indices.insert(out.indices.end(), {a, b, c});
        }
    }
}

void readLines(const csLineStripSet& lines, const Carried& carried, PrimitiveData& out, int& skipped) {
    out.mode = TINYGLTF_MODE_LINE;
    const CornerReader reader(lines, carried);
    const csMFInt& lengths = lines.stripLength();
    int first = 0;
    for (int s = 0; s < lengths.getCount(); first += std::max(lengths.get(s), 0), ++s) {
        for (int k = 0; k + 1 < lengths.get(s); ++k) {
            int from = 0, to = 0;
            if (!reader.point(first + k, from) || !reader.point(first + k + 1, to)) {
                ++skipped;
                continue;
            }
            const std::uint32_t a = out.vertices.add(reader.vertex(first + k, s, from, csVec3f()));
            const std::uint32_t b = out.vertices.add(reader.vertex(first + k + 1, s, to, csVec3f()));
            if (a != b) out.indices.insert(out.indices.end(), {a, b});
        }
    }
}

void readPoints(const csPointSet& points, const Carried& carried, PrimitiveData& out, int& skipped) {
    out.mode = TINYGLTF_MODE_POINTS;
    const CornerReader reader(points, carried);
    for (int i = 0; i < points.getPrimCount(); ++i) {
        int point = 0;
        if (!reader.point(i, point)) {
            ++skipped;
            continue;
        }
        out.indices.push_back(out.vertices.add(reader.vertex(i, i, point, csVec3f())));
    }
}

bool isIdentity(const csMatrix4f& m) { return m == csMatrix4f(); }

bool isBlack(const csVec3f& c) { return c[0] == 0.0f && c[1] == 0.0f && c[2] == 0.0f; }

// ---- The model under construction.

class GltfBuilder {
public:
    GltfBuilder(tinygltf::Model& model, GltfNotes& notes) : model_(model), notes_(notes) {
        model_.buffers.emplace_back();
    }

    int exportNode(csNode* node);
    void setNavigation(const csNavigationInfo* navigation) { navigation_ = navigation; }
    // Drops the buffer when nothing went into it: glTF allows no empty one.
    void finish();

private:
    // Distinct geometry data: a geo set read with given values; the
    // appearance only when its texture transform moves the coordinates.
    using GeometryKey = std::tuple<const csGeometry*, bool, bool, bool, const csAppearance*>;
    struct Accessors {
        int mode = TINYGLTF_MODE_TRIANGLES;
        std::map<std::string, int> attributes;
        int indices = -1;
    };
    // Distinct materials: an appearance as unlit, vertex-coloured,
    // double-sided and textured geometry sees it.
    using MaterialKey = std::tuple<const csAppearance*, bool, bool, bool, bool>;

    void note(const std::string& text) {
        if (std::find(notes_.begin(), notes_.end(), text) == notes_.end()) notes_.push_back(text);
    }
    int addNode(tinygltf::Node node) {
        model_.nodes.push_back(std::move(node));
        return static_cast<int>(model_.nodes.size()) - 1;
    }
    int groupNode(csGroup* group);
    int transformNode(csTransform* transform);
    int lightNode(csLight* light);
    int cameraNode(csViewpoint* viewpoint);
    int meshOf(csShape* shape);
    bool addPrimitive(csGeoSet* set, csAppearance* appearance, tinygltf::Mesh& mesh);
    const Accessors* accessorsOf(csGeoSet* set, const Carried& carried, const csAppearance* transformOwner);
    int materialOf(const MaterialKey& key);
    int textureOf(csTexture* texture);
    int imageOf(const csImage* image);
    int addView(const void* data, std::size_t bytes, int target);
    int addAccessor(const std::vector<float>& values, int type, int components, bool bounds);
    int addIndices(const std::vector<std::uint32_t>& indices, std::size_t vertexCount);
    void useExtension(const char* name) {
        if (std::find(model_.extensionsUsed.begin(), model_.extensionsUsed.end(), name) == model_.extensionsUsed.end())
            model_.extensionsUsed.push_back(name);
    }

    tinygltf::Model& model_;
    GltfNotes& notes_;
    const csNavigationInfo* navigation_ = nullptr;  // borrowed from the scene
    std::vector<const csNode*> path_;               // the groups being exported, outermost first
    std::map<const csShape*, int> meshes_;
    std::map<GeometryKey, Accessors> geometry_;
    std::map<MaterialKey, int> materials_;
    std::map<const csTexture*, int> textures_;
    std::map<const csImage*, int> images_;
    // Pictures read apart from one file are one image.
    std::map<std::vector<std::uint8_t>, int> pngs_;
    std::map<std::pair<int, int>, int> samplers_;
};

int GltfBuilder::exportNode(csNode* node) {
    if (node == nullptr || std::find(path_.begin(), path_.end(), node) != path_.end()) return -1;
    if (auto* shape = as<csShape>(node)) {
        tinygltf::Node out;
        if (shape->getName()) out.name = shape->getName();
        out.mesh = meshOf(shape);
        return out.mesh >= 0 ? addNode(std::move(out)) : -1;
    }
    if (auto* light = as<csLight>(node)) return lightNode(light);
    if (auto* viewpoint = as<csViewpoint>(node)) return cameraNode(viewpoint);
    if (auto* transform = as<csTransform>(node)) return transformNode(transform);
    if (auto* group = as<csGroup>(node)) {
        tinygltf::Node out;
        if (group->getName()) out.name = group->getName();
        const int index = addNode(std::move(out));
        path_.push_back(group);
        std::vector<int> children;
        for (csNode* child : shownChildren(group))
            if (const int c = exportNode(child); c >= 0) children.push_back(c);
        path_.pop_back();
        model_.nodes[static_cast<std::size_t>(index)].children = std::move(children);
        if (as<csLOD>(group) && group->getChildCount() > 1) note("csLOD: only the finest level is exported");
        if (as<csBillboard>(group)) note("csBillboard: exported as a plain group that does not turn to the viewer");
        return index;
    }
    if (as<csBackground>(node)) note("csBackground: glTF has no background; it is not exported");
    if (as<csFog>(node)) note("csFog: glTF has no fog; it is not exported");
    return -1;
}

// T x C x R x SR x S x -SR x -C, as nodes of translation, rotation and
// scale: one node when the scale turns with no axis of its own (or is the
// same along every axis); else an outer node T + C, R x SR, S over an inner
// one that undoes SR about C.
int GltfBuilder::transformNode(csTransform* transform) {
    const Quaternion r = fromAxisAngle(transform->getRotation());
    const Quaternion sr = fromAxisAngle(transform->getScaleOrientation());
    const std::array<double, 3> t = vec(transform->getTranslation()), c = vec(transform->getCenter()),
                                s = vec(transform->getScale());
    tinygltf::Node outer;
    if (transform->getName()) outer.name = transform->getName();
    if (s[0] != 1.0 || s[1] != 1.0 || s[2] != 1.0) outer.scale = {s[0], s[1], s[2]};
    const bool plainScale = sr.isIdentity() || (s[0] == s[1] && s[1] == s[2]);
    tinygltf::Node inner;
    if (plainScale) {
        const std::array<double, 3> moved = r.rotate({s[0] * c[0], s[1] * c[1], s[2] * c[2]});
        setTranslation(outer, {t[0] + c[0] - moved[0], t[1] + c[1] - moved[1], t[2] + c[2] - moved[2]});
        setRotation(outer, r);
    } else {
        setTranslation(outer, {t[0] + c[0], t[1] + c[1], t[2] + c[2]});
        setRotation(outer, r * sr);
        const std::array<double, 3> back = sr.inverse().rotate(c);
        setTranslation(inner, {-back[0], -back[1], -back[2]});
        setRotation(inner, sr.inverse());
    }
    const int outerIndex = addNode(std::move(outer));
    const int holder = plainScale ? outerIndex : addNode(std::move(inner));
    if (!plainScale) model_.nodes[static_cast<std::size_t>(outerIndex)].children.push_back(holder);
    path_.push_back(transform);
    std::vector<int> children;
    for (csNode* child : shownChildren(transform))
        if (const int index = exportNode(child); index >= 0) children.push_back(index);
    path_.pop_back();
    model_.nodes[static_cast<std::size_t>(holder)].children = std::move(children);
    return outerIndex;
}

int GltfBuilder::lightNode(csLight* light) {
    if (!light->getOn()) {
        note("a light that is off is not exported");
        return -1;
    }
    tinygltf::Light out;
    if (light->getName()) out.name = light->getName();
    out.color = {light->getColor()[0], light->getColor()[1], light->getColor()[2]};
    out.intensity = std::max(0.0f, light->getIntensity());
    tinygltf::Node node;
    if (light->getName()) node.name = light->getName();
    if (auto* directional = as<csDirectionalLight>(light)) {
        out.type = "directional";
        setRotation(node, fromMinusZTo(directional->getDirection()));
    } else if (auto* point = as<csPointLight>(light)) {
        out.type = "point";
        setTranslation(node, vec(point->getLocation()));
        if (point->getRadius() > 0.0f) out.range = point->getRadius();
        if (auto* spot = as<csSpotLight>(light)) {
            out.type = "spot";
            setRotation(node, fromMinusZTo(spot->getDirection()));
            // glTF wants 0 <= inner < outer <= pi/2; a beam as wide as the
            // cut-off falls off at once.
            const double outerCone = std::clamp(double(spot->getCutOffAngle()), 1e-6, kPi / 2.0);
            const double innerCone = std::clamp(double(spot->getBeamWidth()), 0.0, outerCone);
            out.spot.outerConeAngle = outerCone;
            out.spot.innerConeAngle = innerCone < outerCone ? innerCone : std::nextafter(outerCone, 0.0);
        }
    } else {
        return -1;
    }
    model_.lights.push_back(std::move(out));
    tinygltf::Value::Object reference{{"light", tinygltf::Value(static_cast<int>(model_.lights.size()) - 1)}};
    node.extensions[kLightsExtension] = tinygltf::Value(reference);
    useExtension(kLightsExtension);
    return addNode(std::move(node));
}

int GltfBuilder::cameraNode(csViewpoint* viewpoint) {
    tinygltf::Camera camera;
    camera.type = "perspective";
    if (viewpoint->getName()) camera.name = viewpoint->getName();
    camera.perspective.yfov = std::clamp(double(viewpoint->getFieldOfView()), 1e-3, kPi - 1e-3);
    camera.perspective.znear = kDefaultNear;
    camera.perspective.zfar = kDefaultFar;
    if (navigation_ != nullptr) {
        const std::vector<float>& avatar = navigation_->getAvatarSize();
        if (!avatar.empty() && avatar[0] > 0.0f) camera.perspective.znear = avatar[0] / 2.0;
        if (navigation_->getVisibilityLimit() > 0.0f) camera.perspective.zfar = navigation_->getVisibilityLimit();
    }
    camera.perspective.zfar = std::max(camera.perspective.zfar, camera.perspective.znear * 2.0);
    model_.cameras.push_back(std::move(camera));
    tinygltf::Node node;
    if (viewpoint->getName()) node.name = viewpoint->getName();
    node.camera = static_cast<int>(model_.cameras.size()) - 1;
    setTranslation(node, vec(viewpoint->getPosition()));
    setRotation(node, fromAxisAngle(viewpoint->getOrientation()));
    return addNode(std::move(node));
}

int GltfBuilder::meshOf(csShape* shape) {
    const auto found = meshes_.find(shape);
    if (found != meshes_.end()) return found->second;
    tinygltf::Mesh mesh;
    if (shape->getName()) mesh.name = shape->getName();
    shape->validateField(csShape::GEOMETRY);
    for (int i = 0; i < shape->getGeometryCount(); ++i) {
        csGeometry* geometry = shape->getGeometry(i);
        if (geometry == nullptr) continue;
        if (auto* set = as<csGeoSet>(geometry))
            addPrimitive(set, shape->getAppearance(), mesh);
        else if (as<csScreenAlignedText>(geometry))
            note("csScreenAlignedText: glTF has no text; it is not exported");
        else
            note(std::string(geometry->getType()->getName()) + ": geometry of this kind is not exported");
    }
    int index = -1;
    if (!mesh.primitives.empty()) {
        model_.meshes.push_back(std::move(mesh));
        index = static_cast<int>(model_.meshes.size()) - 1;
    }
    meshes_.emplace(shape, index);
    return index;
}

bool GltfBuilder::addPrimitive(csGeoSet* set, csAppearance* appearance, tinygltf::Mesh& mesh) {
    auto* faces = as<csIndexedFaceSet>(set);
    const bool lines = as<csLineStripSet>(set) != nullptr;
    if (faces == nullptr && !lines && as<csPointSet>(set) == nullptr) {
        note(std::string(set->getType()->getName()) + ": geometry of this kind is not exported");
        return false;
    }
    // Lines and points are drawn unlit; faces as their appearance says.
    const bool lit = faces != nullptr && (appearance == nullptr || appearance->getLightEnable());
    csTexture* texture = appearance != nullptr ? appearance->getTexture() : nullptr;
    Carried carried;
    carried.normals = faces != nullptr;
    carried.uvs = faces != nullptr && appearance != nullptr && appearance->getTexEnable() && texture != nullptr &&
                  texture->hasImage() && set->getTexCoordSet() != nullptr;
    // Lit geometry shows its own colours only in the material mode.
    carried.colours = set->getColorSet() != nullptr && set->getColorSet()->getCount() > 0 &&
                      set->getColorBind() != csGeoSet::OFF &&
                      (!lit || (appearance != nullptr && appearance->getMaterialModeEnable()));
    const csAppearance* transformOwner = nullptr;
    if (carried.uvs && !isIdentity(appearance->getTexTransform())) {
        carried.texTransform = &appearance->getTexTransform();
        transformOwner = appearance;
    }
    const Accessors* accessors = accessorsOf(set, carried, transformOwner);
    if (accessors == nullptr) return false;
    tinygltf::Primitive primitive;
    primitive.mode = accessors->mode;
    primitive.attributes = accessors->attributes;
    primitive.indices = accessors->indices;
    const bool doubleSided = faces != nullptr && !faces->getSolid();
    primitive.material = materialOf(MaterialKey{appearance, !lit, carried.colours, doubleSided, carried.uvs});
    mesh.primitives.push_back(std::move(primitive));
    return true;
}

const GltfBuilder::Accessors* GltfBuilder::accessorsOf(csGeoSet* set, const Carried& carried,
                                                        const csAppearance* transformOwner) {
    const GeometryKey key{set, carried.normals, carried.colours, carried.uvs, transformOwner};
    const auto found = geometry_.find(key);
    if (found != geometry_.end()) return found->second.indices >= 0 ? &found->second : nullptr;
    Accessors& accessors = geometry_[key];
    PrimitiveData data;
    int skipped = 0;
    if (auto* faces = as<csIndexedFaceSet>(set))
        readFaces(*faces, carried, data, skipped);
    else if (auto* lines = as<csLineStripSet>(set))
        readLines(*lines, carried, data, skipped);
    else
        readPoints(*static_cast<csPointSet*>(set), carried, data, skipped);
    if (skipped > 0) note("primitives that name points the coordinates lack are left out");
    const std::vector<Vertex>& vertices = data.vertices.vertices();
    if (data.indices.empty()) return nullptr;
    std::vector<float> positions, normals, colours, uvs;
    bool opaqueColours = true;
    for (const Vertex& v : vertices) {
        positions.insert(positions.end(), v.position, v.position + 3);
        normals.insert(normals.end(), v.normal, v.normal + 3);
        colours.insert(colours.end(), v.colour, v.colour + 4);
        uvs.insert(uvs.end(), v.uv, v.uv + 2);
        opaqueColours = opaqueColours && v.colour[3] == 1.0f;
    }
    accessors.mode = data.mode;
    accessors.attributes["POSITION"] = addAccessor(positions, TINYGLTF_TYPE_VEC3, 3, true);
    if (carried.normals) accessors.attributes["NORMAL"] = addAccessor(normals, TINYGLTF_TYPE_VEC3, 3, false);
    if (carried.colours) {
        if (opaqueColours) {
            std::vector<float> rgb;
            for (std::size_t i = 0; i < colours.size(); i += 4) rgb.insert(rgb.end(), &colours[i], &colours[i] + 3);
            accessors.attributes["COLOR_0"] = addAccessor(rgb, TINYGLTF_TYPE_VEC3, 3, false);
        } else {
            accessors.attributes["COLOR_0"] = addAccessor(colours, TINYGLTF_TYPE_VEC4, 4, false);
        }
    }
    if (carried.uvs) accessors.attributes["TEXCOORD_0"] = addAccessor(uvs, TINYGLTF_TYPE_VEC2, 2, false);
    accessors.indices = addIndices(data.indices, vertices.size());
    return &accessors;
}

int GltfBuilder::materialOf(const MaterialKey& key) {
    const auto found = materials_.find(key);
    if (found != materials_.end()) return found->second;
    const auto& [appearance, unlit, vertexColours, doubleSided, textured] = key;
    const csMaterial* material = appearance != nullptr ? appearance->getMaterial() : nullptr;
    tinygltf::Material out;
    if (material != nullptr && material->getName())
        out.name = material->getName();
    else if (appearance != nullptr && appearance->getName())
        out.name = appearance->getName();
    const double alpha = material != nullptr ? std::clamp(1.0 - material->getTransparency(), 0.0, 1.0) : 1.0;
    csVec3f colour(1.0f, 1.0f, 1.0f);
    if (material != nullptr && !vertexColours) {
        // Unlit, the toolkit shows the emissive colour, or the diffuse one
        // when that is black; lit, the diffuse colour takes the light.
        colour = unlit && !isBlack(material->getEmissiveColor()) ? material->getEmissiveColor() : material->getDiffuseColor();
    }
    out.pbrMetallicRoughness.baseColorFactor = {colour[0], colour[1], colour[2], alpha};
    out.pbrMetallicRoughness.metallicFactor = 0.0;
    out.pbrMetallicRoughness.roughnessFactor =
        material != nullptr ? std::clamp(1.0 - material->getShininess(), 0.0, 1.0) : 1.0;
    out.emissiveFactor = {0.0, 0.0, 0.0};
    bool seeThrough = alpha < 1.0;
    if (!unlit && material != nullptr) {
        const csVec3f& e = material->getEmissiveColor();
        out.emissiveFactor = {std::clamp(e[0], 0.0f, 1.0f), std::clamp(e[1], 0.0f, 1.0f), std::clamp(e[2], 0.0f, 1.0f)};
    }
    if (textured) {
        csTexture* texture = appearance->getTexture();
        const int index = textureOf(texture);
        out.pbrMetallicRoughness.baseColorTexture.index = index;
        // The toolkit modulates emissive light by the picture too.
        if (!unlit && material != nullptr && !isBlack(material->getEmissiveColor())) out.emissiveTexture.index = index;
        const int components = texture->getImage()->getComponents();
        seeThrough = seeThrough || (index >= 0 && (components == 2 || components == 4));
    }
    if (seeThrough) out.alphaMode = "BLEND";
    out.doubleSided = doubleSided;
    if (unlit) {
        out.extensions[kUnlitExtension] = tinygltf::Value(tinygltf::Value::Object());
        useExtension(kUnlitExtension);
    }
    model_.materials.push_back(std::move(out));
    const int index = static_cast<int>(model_.materials.size()) - 1;
    materials_.emplace(key, index);
    return index;
}

int GltfBuilder::textureOf(csTexture* texture) {
    const auto found = textures_.find(texture);
    if (found != textures_.end()) return found->second;
    const auto wrap = [](csTexture::RepeatEnum r) {
        return r == csTexture::REPEAT ? TINYGLTF_TEXTURE_WRAP_REPEAT : TINYGLTF_TEXTURE_WRAP_CLAMP_TO_EDGE;
    };
    const std::pair<int, int> wraps{wrap(texture->getRepeatS()), wrap(texture->getRepeatT())};
    auto sampler = samplers_.find(wraps);
    if (sampler == samplers_.end()) {
        tinygltf::Sampler out;
        out.wrapS = wraps.first;
        out.wrapT = wraps.second;
        out.magFilter = TINYGLTF_TEXTURE_FILTER_LINEAR;
        out.minFilter = TINYGLTF_TEXTURE_FILTER_LINEAR_MIPMAP_LINEAR;
        model_.samplers.push_back(out);
        sampler = samplers_.emplace(wraps, static_cast<int>(model_.samplers.size()) - 1).first;
    }
    tinygltf::Texture out;
    if (texture->getName()) out.name = texture->getName();
    out.sampler = sampler->second;
    out.source = imageOf(texture->getImage());
    int index = -1;
    if (out.source >= 0) {
        model_.textures.push_back(out);
        index = static_cast<int>(model_.textures.size()) - 1;
    }
    textures_.emplace(texture, index);
    return index;
}

int GltfBuilder::imageOf(const csImage* image) {
    const auto found = images_.find(image);
    if (found != images_.end()) return found->second;
    std::vector<std::uint8_t> png;
    if (!encodePng(*image, png)) {
        images_.emplace(image, -1);
        return -1;
    }
    if (const auto same = pngs_.find(png); same != pngs_.end()) {
        images_.emplace(image, same->second);
        return same->second;
    }
    tinygltf::Image out;
    if (image->getName()) out.name = image->getName();
    out.mimeType = "image/png";
    out.bufferView = addView(png.data(), png.size(), 0);
    model_.images.push_back(out);
    const int index = static_cast<int>(model_.images.size()) - 1;
    images_.emplace(image, index);
    pngs_.emplace(std::move(png), index);
    return index;
}

int GltfBuilder::addView(const void* data, std::size_t bytes, int target) {
    std::vector<unsigned char>& buffer = model_.buffers[0].data;
    buffer.resize((buffer.size() + 3) & ~std::size_t(3), 0);  // every view starts on four bytes
    tinygltf::BufferView view;
    view.buffer = 0;
    view.byteOffset = buffer.size();
    view.byteLength = bytes;
    view.target = target;
    const auto* first = static_cast<const unsigned char*>(data);
    buffer.insert(buffer.end(), first, first + bytes);
    model_.bufferViews.push_back(view);
    return static_cast<int>(model_.bufferViews.size()) - 1;
}

int GltfBuilder::addAccessor(const std::vector<float>& values, int type, int components, bool bounds) {
    tinygltf::Accessor accessor;
    accessor.bufferView = addView(values.data(), values.size() * sizeof(float), TINYGLTF_TARGET_ARRAY_BUFFER);
    accessor.componentType = TINYGLTF_COMPONENT_TYPE_FLOAT;
    accessor.type = type;
    accessor.count = values.size() / static_cast<std::size_t>(components);
    if (bounds) {
        accessor.minValues.assign(static_cast<std::size_t>(components), HUGE_VAL);
        accessor.maxValues.assign(static_cast<std::size_t>(components), -HUGE_VAL);
        for (std::size_t i = 0; i < values.size(); ++i) {
            const std::size_t c = i % static_cast<std::size_t>(components);
            accessor.minValues[c] = std::min(accessor.minValues[c], double(values[i]));
            accessor.maxValues[c] = std::max(accessor.maxValues[c], double(values[i]));
        }
    }
    model_.accessors.push_back(accessor);
    return static_cast<int>(model_.accessors.size()) - 1;
}

int GltfBuilder::addIndices(const std::vector<std::uint32_t>& indices, std::size_t vertexCount) {
    tinygltf::Accessor accessor;
    accessor.type = TINYGLTF_TYPE_SCALAR;
    accessor.count = indices.size();
    if (vertexCount < 0xFFFF) {
        const std::vector<std::uint16_t> shorts(indices.begin(), indices.end());
        accessor.componentType = TINYGLTF_COMPONENT_TYPE_UNSIGNED_SHORT;
        accessor.bufferView = addView(shorts.data(), shorts.size() * 2, TINYGLTF_TARGET_ELEMENT_ARRAY_BUFFER);
    } else {
        accessor.componentType = TINYGLTF_COMPONENT_TYPE_UNSIGNED_INT;
        accessor.bufferView = addView(indices.data(), indices.size() * 4, TINYGLTF_TARGET_ELEMENT_ARRAY_BUFFER);
    }
    model_.accessors.push_back(accessor);
    return static_cast<int>(model_.accessors.size()) - 1;
}

void GltfBuilder::finish() {
    std::vector<unsigned char>& buffer = model_.buffers[0].data;
    if (buffer.empty()) {
        model_.buffers.clear();
        return;
    }
    buffer.resize((buffer.size() + 3) & ~std::size_t(3), 0);
}

std::string lowerCase(std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

bool endsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

}  // namespace

tinygltf::Model sceneToGltf(csNode* scene, GltfNotes& notes) {
    tinygltf::Model model;
    model.asset.version = "2.0";
    model.asset.generator = "wrlload " WRL_VERSION;
    if (scene != nullptr) {
        // The toolkit's own tessellation, for primitives not drawn yet.
        csRefPtr<opTessParaSurfaceAction> surfaces(new opTessParaSurfaceAction());
        csRefPtr<opTessCuboidAction> cuboids(new opTessCuboidAction());
        surfaces->apply(scene);
        cuboids->apply(scene);
    }
    GltfBuilder builder(model, notes);
    if (auto* environment = as<csEnvironment>(scene)) builder.setNavigation(environment->getNavigationInfo());
    tinygltf::Scene out;
    if (scene != nullptr && scene->getName()) out.name = scene->getName();
    if (const int root = builder.exportNode(scene); root >= 0) out.nodes.push_back(root);
    builder.finish();
    model.scenes.push_back(out);
    model.defaultScene = 0;
    return model;
}

bool gltfFormOf(const std::string& path, GltfForm& form) {
    const std::string name = lowerCase(path);
    if (endsWith(name, ".glb")) {
        form = GltfForm::Binary;
        return true;
    }
    if (endsWith(name, ".gltf")) {
        form = GltfForm::Text;
        return true;
    }
    return false;
}

bool writeGltf(const tinygltf::Model& model, const std::string& path, GltfForm form, std::string& error) {
    std::ostringstream text;
    tinygltf::TinyGLTF writer;
    const bool binary = form == GltfForm::Binary;
    if (!writer.WriteGltfSceneToStream(&model, text, !binary, binary)) {
        error = "the model could not be written";
        return false;
    }
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (!file) {
        error = std::strerror(errno);
        return false;
    }
    const std::string bytes = text.str();
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) {
        error = "the file could not be written whole";
        return false;
    }
    return true;
}
