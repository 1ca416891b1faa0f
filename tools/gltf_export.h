// A loaded scene as glTF 2.0, for other tools to read.
//
// Groups become nodes (a transform as translation, rotation and scale; one
// whose scale turns about an axis of its own with a centre as two nested
// nodes), each shape a mesh (a shape used twice is one mesh that two nodes
// name), each face set, line set and point set a primitive of triangles,
// lines or points. Values bound per face or per line are split to the
// corners. A material follows the toolkit's: the diffuse colour and the
// opacity as the base colour (blended when not opaque), the emissive
// colour, and KHR_materials_unlit for what the toolkit draws unlit.
// Pictures are embedded as PNG with their repeat modes; their rows go as
// they are, top first, and texture coordinates turn over (v = 1 - t), as
// csImage.h says. Lights become KHR_lights_punctual lights, viewpoints
// cameras. What shows follows shown_scene.h; what glTF cannot carry (text,
// a background, fog) is left out with a note.
#ifndef WRL_GLTF_EXPORT_H
#define WRL_GLTF_EXPORT_H

#include <tiny_gltf.h>

#include <string>
#include <vector>

class csNode;

// What an export left out or changed, each kind said once.
using GltfNotes = std::vector<std::string>;

// The scene as a glTF model with one scene, whose one root node is the
// scene's root, and one buffer. Primitives that are still parametric are
// tessellated first, as the toolkit does.
tinygltf::Model sceneToGltf(csNode* scene, GltfNotes& notes);

enum class GltfForm { Binary, Text };
// The form that a file name asks for: ".glb" binary, ".gltf" JSON text
// (either case). False for any other name.
bool gltfFormOf(const std::string& path, GltfForm& form);

// Writes the model to `path`: binary glTF, or JSON text with its buffer
// and pictures embedded. False, with `error` in words, when the file could
// not be written whole.
bool writeGltf(const tinygltf::Model& model, const std::string& path, GltfForm form, std::string& error);

#endif
