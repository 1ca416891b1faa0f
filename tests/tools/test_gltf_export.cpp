// Scenes exported as glTF, read back from the model: the nodes and their
// transforms, triangles, lines and points with their values, materials,
// and pictures the right way up.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "csImage.h"
#include "csMatrix4f.h"
#include "csRefPtr.h"
#include "csTexture.h"
#include "csTransform.h"
#include "gltf_export.h"
#include "png_files.h"
#include "test_support.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

struct Exported {
    std::shared_ptr<csNode> scene;  // holds one reference
    tinygltf::Model model;
    GltfNotes notes;
};

// Loads a world of `body` (written in `dir`, beside what it names) and
// exports its scene.
Exported exportWorld(const wrltest::TempDir& dir, const std::string& body) {
    const std::string path = dir.write("world.wrl", "#VRML V2.0 utf8\n" + body);
    wrltest::ScopedEnv images("ZN_CACHE_IMAGES", "0");
    Exported out;
    const wrltest::WorldLoad load = wrltest::loadWorld(path);
    if (csNode* scene = load.scene) {
        scene->ref();
        out.scene.reset(scene, [](csNode* s) { s->unref(); });
        out.model = sceneToGltf(scene, out.notes);
    }
    return out;
}

Exported exportWorld(const std::string& body) {
    wrltest::TempDir dir;
    return exportWorld(dir, body);
}

const unsigned char* viewBytes(const tinygltf::Model& model, int view) {
    const tinygltf::BufferView& v = model.bufferViews.at(static_cast<size_t>(view));
    return model.buffers.at(static_cast<size_t>(v.buffer)).data.data() + v.byteOffset;
}

// An accessor's values as floats, whatever their component type.
std::vector<float> values(const tinygltf::Model& model, int accessor) {
    const tinygltf::Accessor& a = model.accessors.at(static_cast<size_t>(accessor));
    const unsigned char* bytes = viewBytes(model, a.bufferView) + a.byteOffset;
    const size_t count = a.count * static_cast<size_t>(tinygltf::GetNumComponentsInType(static_cast<uint32_t>(a.type)));
    std::vector<float> out;
    for (size_t i = 0; i < count; ++i) {
        if (a.componentType == TINYGLTF_COMPONENT_TYPE_FLOAT) {
            float f;
            std::memcpy(&f, bytes + 4 * i, 4);
            out.push_back(f);
        } else if (a.componentType == TINYGLTF_COMPONENT_TYPE_UNSIGNED_SHORT) {
            std::uint16_t s;
            std::memcpy(&s, bytes + 2 * i, 2);
            out.push_back(s);
        } else {
            std::uint32_t u;
            std::memcpy(&u, bytes + 4 * i, 4);
            out.push_back(static_cast<float>(u));
        }
    }
    return out;
}

// Values `components` at a time, by the primitive's index list.
std::vector<std::vector<float>> cornerValues(const tinygltf::Model& model, const tinygltf::Primitive& p,
                                             const char* attribute, int components) {
    const std::vector<float> all = values(model, p.attributes.at(attribute));
    std::vector<std::vector<float>> out;
    for (float index : values(model, p.indices)) {
        const auto first = all.begin() + static_cast<long>(index) * components;
        out.emplace_back(first, first + components);
    }
    return out;
}

const tinygltf::Primitive& onlyPrimitive(const tinygltf::Model& model) {
    EXPECT_EQ(model.meshes.size(), 1u);
    EXPECT_EQ(model.meshes.at(0).primitives.size(), 1u);
    return model.meshes.at(0).primitives.at(0);
}

// The node's matrix for column vectors, as glTF composes T x R x S.
csMatrix4f nodeMatrix(const tinygltf::Node& node) {
    const std::vector<double> t = node.translation.empty() ? std::vector<double>{0, 0, 0} : node.translation;
    const std::vector<double> r = node.rotation.empty() ? std::vector<double>{0, 0, 0, 1} : node.rotation;
    const std::vector<double> s = node.scale.empty() ? std::vector<double>{1, 1, 1} : node.scale;
    const double x = r[0], y = r[1], z = r[2], w = r[3];
    const double rot[3][3] = {{1 - 2 * (y * y + z * z), 2 * (x * y - z * w), 2 * (x * z + y * w)},
                              {2 * (x * y + z * w), 1 - 2 * (x * x + z * z), 2 * (y * z - x * w)},
                              {2 * (x * z - y * w), 2 * (y * z + x * w), 1 - 2 * (x * x + y * y)}};
    // Stored for row vectors, as the toolkit's matrices are.
    csMatrix4f m;
    for (int row = 0; row < 3; ++row)
        for (int col = 0; col < 3; ++col) m.set(col, row, float(rot[row][col] * s[col]));
    for (int i = 0; i < 3; ++i) m.set(3, i, float(t[static_cast<size_t>(i)]));
    return m;
}

struct Picture {
    int width = 0, height = 0;
    std::vector<unsigned char> bytes;
};

// The picture that image `index` of the model embeds, read back as a file.
Picture embeddedPicture(const tinygltf::Model& model, size_t index) {
    const tinygltf::Image& image = model.images.at(index);
    EXPECT_EQ(image.mimeType, "image/png");
    const tinygltf::BufferView& view = model.bufferViews.at(static_cast<size_t>(image.bufferView));
    wrltest::TempDir dir;
    {
        std::ofstream copy(dir.path() + "/embedded.png", std::ios::binary);
        copy.write(reinterpret_cast<const char*>(viewBytes(model, image.bufferView)),
                   static_cast<std::streamsize>(view.byteLength));
    }
    csRefPtr<csTexture> read(new csTexture());
    Picture out;
    if (!read->setFileName((dir.path() + "/embedded.png").c_str()) || read->getImage() == nullptr) return out;
    const csImage* pixels = read->getImage();
    out.width = pixels->getWidth();
    out.height = pixels->getHeight();
    const unsigned char* data = pixels->pixels().getData();
    out.bytes.assign(data, data + out.width * out.height * pixels->getComponents());
    return out;
}

double area(const std::vector<float>& a, const std::vector<float>& b, const std::vector<float>& c) {
    const double u[3] = {b[0] - a[0], b[1] - a[1], b[2] - a[2]}, v[3] = {c[0] - a[0], c[1] - a[1], c[2] - a[2]};
    const double n[3] = {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
    return std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]) / 2.0;
}

}  // namespace

// ---- Nodes

TEST(GltfExport, TheRootIsTheOneSceneNodeAndGroupsStayNodes) {
    Exported e = exportWorld("DEF Outer Group { children Transform { translation 1 2 3 children Shape { geometry Box { } } } }");
    ASSERT_TRUE(e.scene);
    ASSERT_EQ(e.model.scenes.size(), 1u);
    ASSERT_THAT(e.model.scenes[0].nodes, ElementsAre(0));
    const tinygltf::Node& root = e.model.nodes[0];
    ASSERT_EQ(root.children.size(), 1u);
    const tinygltf::Node& outer = e.model.nodes[static_cast<size_t>(root.children[0])];
    EXPECT_EQ(outer.name, "Outer");
    ASSERT_EQ(outer.children.size(), 1u);
    EXPECT_THAT(e.model.nodes[static_cast<size_t>(outer.children[0])].translation, ElementsAre(1, 2, 3));
    EXPECT_EQ(e.model.asset.version, "2.0");
}

// Every part of a transform, centre and scale orientation too: the glTF
// nodes compose to the toolkit's own matrix.
TEST(GltfExport, TransformsComposeToTheToolkitsMatrix) {
    struct Parts {
        float t[3], r[4], s[3], so[4], c[3];
    } cases[] = {
        {{1, 2, 3}, {0, 1, 0, 0.5f}, {1, 1, 1}, {0, 0, 1, 0}, {0, 0, 0}},
        {{0, 0, 0}, {1, 1, 0, 1.2f}, {2, 3, 4}, {0, 0, 1, 0}, {1, -2, 0.5f}},
        {{-1, 0, 2}, {0, 0, 1, 2.0f}, {2, 2, 2}, {1, 0, 0, 0.7f}, {0.5f, 0.5f, 0}},
        {{3, -1, 0}, {0, 1, 1, -0.8f}, {1, 2, 0.5f}, {1, 1, 1, 0.6f}, {2, 0, -1}},
        {{0, 0, 0}, {0, 0, 0, 1.0f}, {1, 1, 1}, {0, 0, 0, 1.0f}, {0, 0, 0}},
    };
    for (const Parts& p : cases) {
        SCOPED_TRACE(testing::Message() << p.s[0] << " " << p.s[1] << " " << p.s[2] << " so " << p.so[3]);
        csRefPtr<csTransform> transform(new csTransform());
        transform->setTranslation(p.t[0], p.t[1], p.t[2]);
        transform->setRotation(p.r[0], p.r[1], p.r[2], p.r[3]);
        transform->setScale(p.s[0], p.s[1], p.s[2]);
        transform->setScaleOrientation(p.so[0], p.so[1], p.so[2], p.so[3]);
        transform->setCenter(p.c[0], p.c[1], p.c[2]);
        GltfNotes notes;
        const tinygltf::Model model = sceneToGltf(transform.get(), notes);
        // Down the chain of nodes the transform became, innermost first.
        csMatrix4f composed;
        for (int index = 0; index >= 0;) {
            const tinygltf::Node& node = model.nodes.at(static_cast<size_t>(index));
            composed.mult(nodeMatrix(node), composed);
            index = node.children.empty() ? -1 : node.children[0];
        }
        EXPECT_TRUE(composed.almostEqual(transform->getMatrix(), 1e-4f));
    }
}

TEST(GltfExport, SwitchShowsItsChoiceAndLodItsFinestLevel) {
    Exported e = exportWorld(
        "Switch { whichChoice 1 choice [ DEF A Shape { geometry Box { } } DEF B Shape { geometry Box { } } ] }\n"
        "Switch { whichChoice -1 choice [ DEF C Shape { geometry Box { } } ] }\n"
        "LOD { level [ DEF Fine Shape { geometry Box { } } DEF Coarse Shape { geometry Cone { } } ] }\n");
    std::vector<std::string> meshes;
    for (const tinygltf::Mesh& mesh : e.model.meshes) meshes.push_back(mesh.name);
    EXPECT_THAT(meshes, ElementsAre("B", "Fine"));
    EXPECT_THAT(e.notes, ElementsAre("csLOD: only the finest level is exported"));
}

// ---- Geometry

TEST(GltfExport, ABoxIsTwelveTrianglesWithUnitNormals) {
    Exported e = exportWorld("Shape { geometry Box { size 2 4 6 } }");
    const tinygltf::Primitive& box = onlyPrimitive(e.model);
    EXPECT_EQ(box.mode, TINYGLTF_MODE_TRIANGLES);
    EXPECT_EQ(e.model.accessors[static_cast<size_t>(box.indices)].count, 36u);
    const tinygltf::Accessor& positions = e.model.accessors[static_cast<size_t>(box.attributes.at("POSITION"))];
    EXPECT_THAT(positions.minValues, ElementsAre(-1, -2, -3));
    EXPECT_THAT(positions.maxValues, ElementsAre(1, 2, 3));
    // Each triangle faces the way its corners' normals point.
    const auto points = cornerValues(e.model, box, "POSITION", 3);
    const auto normals = cornerValues(e.model, box, "NORMAL", 3);
    for (size_t t = 0; t < points.size(); t += 3) {
        const auto &a = points[t], &b = points[t + 1], &c = points[t + 2];
        const float u[3] = {b[0] - a[0], b[1] - a[1], b[2] - a[2]}, v[3] = {c[0] - a[0], c[1] - a[1], c[2] - a[2]};
        const float n[3] = {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
        EXPECT_GT(n[0] * normals[t][0] + n[1] * normals[t][1] + n[2] * normals[t][2], 0.0f) << t;
        EXPECT_NEAR(std::hypot(normals[t][0], normals[t][1], normals[t][2]), 1.0f, 1e-6f);
    }
}

TEST(GltfExport, PerFaceColoursAreSplitToTheCorners) {
    Exported e = exportWorld(
        "Shape { geometry IndexedFaceSet {"
        "  coord Coordinate { point [ 0 0 0, 1 0 0, 1 1 0, 0 1 0, 2 0 0 ] }"
        "  coordIndex [ 0 1 2 3 -1 1 4 2 -1 ]"
        "  colorPerVertex FALSE color Color { color [ 1 0 0, 0 0 1 ] } } }");
    const tinygltf::Primitive& faces = onlyPrimitive(e.model);
    const auto colours = cornerValues(e.model, faces, "COLOR_0", 3);
    ASSERT_EQ(colours.size(), 9u);  // a quadrilateral and a triangle
    for (size_t c = 0; c < 6; ++c) EXPECT_THAT(colours[c], ElementsAre(1, 0, 0)) << c;
    for (size_t c = 6; c < 9; ++c) EXPECT_THAT(colours[c], ElementsAre(0, 0, 1)) << c;
    // Corner 1 and 2 stand in both faces, in two colours: two vertices each.
    EXPECT_EQ(e.model.accessors[static_cast<size_t>(faces.attributes.at("POSITION"))].count, 7u);
    // Colours without a Material stand in for it, unlit.
    const tinygltf::Material& material = e.model.materials.at(static_cast<size_t>(faces.material));
    EXPECT_EQ(material.extensions.count("KHR_materials_unlit"), 1u);
    EXPECT_THAT(material.pbrMetallicRoughness.baseColorFactor, ElementsAre(1, 1, 1, 1));
}

TEST(GltfExport, AFaceThatIsNotConvexIsCutIntoTrianglesInsideIt) {
    // An L of area 3, its reflex corner third.
    Exported e = exportWorld(
        "Shape { geometry IndexedFaceSet { convex FALSE"
        "  coord Coordinate { point [ 0 0 0, 2 0 0, 2 1 0, 1 1 0, 1 2 0, 0 2 0 ] }"
        "  coordIndex [ 0 1 2 3 4 5 -1 ] } }");
    const auto points = cornerValues(e.model, onlyPrimitive(e.model), "POSITION", 3);
    ASSERT_EQ(points.size(), 12u);
    double total = 0.0;
    for (size_t t = 0; t < points.size(); t += 3) total += area(points[t], points[t + 1], points[t + 2]);
    EXPECT_NEAR(total, 3.0, 1e-6);
}

TEST(GltfExport, LinesAndPointsAreUnlitLinesAndPoints) {
    Exported e = exportWorld(
        "Shape { appearance Appearance { material Material { emissiveColor 0 1 0 } }"
        "  geometry IndexedLineSet { coord Coordinate { point [ 0 0 0, 1 0 0, 1 1 0 ] } coordIndex [ 0 1 2 -1 ] } }\n"
        "Shape { geometry PointSet { coord Coordinate { point [ 0 0 0, 5 5 5 ] }"
        "  color Color { color [ 1 0 0, 0 0 1 ] } } }");
    ASSERT_EQ(e.model.meshes.size(), 2u);
    const tinygltf::Primitive& lines = e.model.meshes[0].primitives.at(0);
    EXPECT_EQ(lines.mode, TINYGLTF_MODE_LINE);
    EXPECT_THAT(values(e.model, lines.indices), ElementsAre(0, 1, 1, 2));
    EXPECT_EQ(lines.attributes.count("NORMAL"), 0u);
    const tinygltf::Primitive& points = e.model.meshes[1].primitives.at(0);
    EXPECT_EQ(points.mode, TINYGLTF_MODE_POINTS);
    EXPECT_THAT(cornerValues(e.model, points, "COLOR_0", 3),
                ElementsAre(ElementsAre(1, 0, 0), ElementsAre(0, 0, 1)));
    for (const auto* p : {&lines, &points})
        EXPECT_EQ(e.model.materials.at(static_cast<size_t>(p->material)).extensions.count("KHR_materials_unlit"), 1u);
    EXPECT_THAT(e.model.extensionsUsed, ElementsAre("KHR_materials_unlit"));
}

// A Sphere used by two Shapes is one tessellation: the two meshes share
// their accessors. A Shape used twice is one mesh in two nodes.
TEST(GltfExport, WhatTheSceneSharesTheModelShares) {
    Exported e = exportWorld(
        "Transform { children DEF S Shape { geometry DEF Ball Sphere { } } }\n"
        "Transform { translation 3 0 0 children USE S }\n"
        "Shape { appearance Appearance { material Material { } } geometry USE Ball }\n");
    ASSERT_EQ(e.model.meshes.size(), 2u);
    std::vector<int> meshOfNodes;
    for (const tinygltf::Node& node : e.model.nodes)
        if (node.mesh >= 0) meshOfNodes.push_back(node.mesh);
    EXPECT_THAT(meshOfNodes, ElementsAre(0, 0, 1));
    const tinygltf::Primitive &a = e.model.meshes[0].primitives.at(0), &b = e.model.meshes[1].primitives.at(0);
    EXPECT_EQ(a.attributes, b.attributes);
    EXPECT_EQ(a.indices, b.indices);
    EXPECT_NE(a.material, b.material);
}

TEST(GltfExport, TextIsLeftOutWithANote) {
    Exported e = exportWorld("Shape { geometry Text { string \"hi\" } }\nBackground { }\n");
    EXPECT_TRUE(e.model.meshes.empty());
    EXPECT_THAT(e.notes, ElementsAre("csScreenAlignedText: glTF has no text; it is not exported",
                                     "csBackground: glTF has no background; it is not exported"));
}

// ---- Materials and pictures

TEST(GltfExport, MaterialsCarryDiffuseEmissiveAndOpacity) {
    Exported e = exportWorld(
        "Shape { appearance Appearance { material Material { diffuseColor 1 0.5 0 emissiveColor 0 0 0.25"
        "  transparency 0.25 shininess 0.75 } } geometry IndexedFaceSet { solid FALSE"
        "  coord Coordinate { point [ 0 0 0, 1 0 0, 0 1 0 ] } coordIndex [ 0 1 2 ] } }");
    const tinygltf::Material& m = e.model.materials.at(static_cast<size_t>(onlyPrimitive(e.model).material));
    EXPECT_THAT(m.pbrMetallicRoughness.baseColorFactor, ElementsAre(1, 0.5, 0, 0.75));
    EXPECT_THAT(m.emissiveFactor, ElementsAre(0, 0, 0.25));
    EXPECT_EQ(m.pbrMetallicRoughness.metallicFactor, 0.0);
    EXPECT_NEAR(m.pbrMetallicRoughness.roughnessFactor, 0.25, 1e-6);
    EXPECT_EQ(m.alphaMode, "BLEND");
    EXPECT_TRUE(m.doubleSided);
    EXPECT_EQ(m.extensions.count("KHR_materials_unlit"), 0u);
}

// The picture goes into the model row for row, top first, and a corner's
// v is 1 - t, so that (s, t) = (0, 0) still falls on the bottom left.
TEST(GltfExport, ATexturedBoxCarriesItsPictureTheRightWayUp) {
    wrltest::TempDir dir;
    wrltest::writePng(dir.path() + "/picture.png", 3, 2, 3);
    Exported e = exportWorld(dir,
                             "Shape { appearance Appearance { material Material { }"
                             "  texture ImageTexture { url \"picture.png\" repeatS FALSE } } geometry Box { } }");
    const tinygltf::Primitive& box = onlyPrimitive(e.model);
    const tinygltf::Material& m = e.model.materials.at(static_cast<size_t>(box.material));
    const tinygltf::Texture& texture = e.model.textures.at(static_cast<size_t>(m.pbrMetallicRoughness.baseColorTexture.index));
    const tinygltf::Sampler& sampler = e.model.samplers.at(static_cast<size_t>(texture.sampler));
    EXPECT_EQ(sampler.wrapS, TINYGLTF_TEXTURE_WRAP_CLAMP_TO_EDGE);
    EXPECT_EQ(sampler.wrapT, TINYGLTF_TEXTURE_WRAP_REPEAT);
    const Picture picture = embeddedPicture(e.model, static_cast<size_t>(texture.source));
    EXPECT_EQ(picture.width, 3);
    EXPECT_EQ(picture.height, 2);
    EXPECT_EQ(picture.bytes, wrltest::pattern(3, 2, 3));
    // The front face's bottom left corner shows the picture's bottom left.
    const auto points = cornerValues(e.model, box, "POSITION", 3);
    const auto normals = cornerValues(e.model, box, "NORMAL", 3);
    const auto uvs = cornerValues(e.model, box, "TEXCOORD_0", 2);
    bool seen = false;
    for (size_t c = 0; c < points.size(); ++c) {
        if (points[c] != std::vector<float>{-1, -1, 1} || normals[c] != std::vector<float>{0, 0, 1}) continue;
        seen = true;
        EXPECT_THAT(uvs[c], ElementsAre(0, 1));
    }
    EXPECT_TRUE(seen);
}

// ---- Lights and viewpoints

TEST(GltfExport, LightsShineWhereTheWorldPointsThem) {
    Exported e = exportWorld(
        "DirectionalLight { direction 1 0 0 color 1 0.5 0 intensity 0.5 }\n"
        "PointLight { location 1 2 3 radius 10 }\n"
        "SpotLight { direction 0 -1 0 beamWidth 1.5 cutOffAngle 0.5 }\n"
        "PointLight { on FALSE }\n");
    ASSERT_EQ(e.model.lights.size(), 3u);
    EXPECT_EQ(e.model.lights[0].type, "directional");
    EXPECT_THAT(e.model.lights[0].color, ElementsAre(1, 0.5, 0));
    EXPECT_EQ(e.model.lights[1].range, 10.0);
    EXPECT_EQ(e.model.lights[2].type, "spot");
    EXPECT_LT(e.model.lights[2].spot.innerConeAngle, e.model.lights[2].spot.outerConeAngle);
    EXPECT_NEAR(e.model.lights[2].spot.outerConeAngle, 0.5, 1e-6);
    // -z turned by the node's rotation is the light's direction.
    for (const tinygltf::Node& node : e.model.nodes) {
        if (node.extensions.count("KHR_lights_punctual") == 0) continue;
        const int light = node.extensions.at("KHR_lights_punctual").Get("light").Get<int>();
        const csVec3f shines = nodeMatrix(node).xformVec(csVec3f(0, 0, -1));
        if (light == 0) {
            EXPECT_TRUE(shines.almostEqual(csVec3f(1, 0, 0), 1e-5f));
        } else if (light == 1) {
            EXPECT_THAT(node.translation, ElementsAre(1, 2, 3));
        } else {
            EXPECT_TRUE(shines.almostEqual(csVec3f(0, -1, 0), 1e-5f));
        }
    }
    EXPECT_THAT(e.notes, ElementsAre("a light that is off is not exported"));
}

TEST(GltfExport, AViewpointIsACamera) {
    Exported e = exportWorld("Viewpoint { position 0 1 5 orientation 0 1 0 0.5 fieldOfView 0.6 }");
    ASSERT_EQ(e.model.cameras.size(), 1u);
    EXPECT_NEAR(e.model.cameras[0].perspective.yfov, 0.6, 1e-6);
    EXPECT_GT(e.model.cameras[0].perspective.zfar, e.model.cameras[0].perspective.znear);
    for (const tinygltf::Node& node : e.model.nodes) {
        if (node.camera == 0) {
            EXPECT_THAT(node.translation, ElementsAre(0, 1, 5));
        }
    }
}

// ---- Files

TEST(GltfExport, TheFileNameChoosesTheForm) {
    GltfForm form = GltfForm::Text;
    EXPECT_TRUE(gltfFormOf("a/b.GLB", form));
    EXPECT_EQ(form, GltfForm::Binary);
    EXPECT_TRUE(gltfFormOf("scene.gltf", form));
    EXPECT_EQ(form, GltfForm::Text);
    EXPECT_FALSE(gltfFormOf("scene.obj", form));
    EXPECT_FALSE(gltfFormOf("glb", form));

    Exported e = exportWorld("Shape { geometry Box { } }");
    wrltest::TempDir dir;
    std::string error;
    ASSERT_TRUE(writeGltf(e.model, dir.path() + "/box.glb", GltfForm::Binary, error)) << error;
    EXPECT_EQ(wrltest::readFile(dir.path() + "/box.glb").substr(0, 4), "glTF");
    ASSERT_TRUE(writeGltf(e.model, dir.path() + "/box.gltf", GltfForm::Text, error)) << error;
    EXPECT_THAT(wrltest::readFile(dir.path() + "/box.gltf"), HasSubstr("data:application/octet-stream;base64,"));
    EXPECT_FALSE(writeGltf(e.model, dir.path() + "/none/box.glb", GltfForm::Binary, error));
    EXPECT_FALSE(error.empty());
}
