#include "vrmlnodes/Appearance.h"

#include <cstring>

namespace {
// Only the first 13 characters are compared, so the misspelt tail of the
// name never matters.
constexpr const char* kTextureTransformEvent = "set_textureTransfrom";
constexpr size_t kTextureTransformCompared = 13;
}  // namespace

Appearance::Appearance(znInternal* pair)
    : BaseNode(pair),
      material(exposedField<SFNode>("material")),
      texture(sharedField<SFNode>("texture")),
      textureTransform(sharedField<SFNode>("textureTransform")),
      materialObject(childOf(material)),
      textureObject(childOf(texture)),
      textureTransformObject(childOf(textureTransform)) {}

void Appearance::processEvent(Event& event) {
    const char* name = event.getName();
    if (!name) return;
    if (nameAt(name, 4) == 'm')
        deliver(this, &Appearance::set_material, event);
    else if (std::strcmp(name, "set_texture") == 0)
        deliver(this, &Appearance::set_texture, event);
    else if (std::strncmp(name, kTextureTransformEvent, kTextureTransformCompared) == 0)
        deliver(this, &Appearance::set_textureTransform, event);
}

int Appearance::action(SFTime& time, int mode, void* state) {
    if (materialObject) materialObject->action(time, mode, state);
    if (textureObject) textureObject->action(time, mode, state);
    if (textureTransformObject) textureTransformObject->action(time, mode, state);
    return 0;
}

// Each setter also marks the node built: the appearance object exists from
// construction, and a change only asks for a part of it to be redone.
void Appearance::set_material(SFNode& value, double) {
    assign(material, value);
    materialObject = childOf(material);
    materialDirty = 1;
    built = 1;
}

void Appearance::set_texture(SFNode& value, double) {
    assign(texture, value);
    textureObject = childOf(texture);
    textureDirty = 1;
    built = 1;
}

void Appearance::set_textureTransform(SFNode& value, double) {
    assign(textureTransform, value);
    textureTransformObject = childOf(textureTransform);
    textureTransformDirty = 1;
    built = 1;
}
