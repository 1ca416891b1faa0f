// Surface colours of lit geometry.
#ifndef CS_MATERIAL_H
#define CS_MATERIAL_H

#include "csContainer.h"
#include "csVec.h"

class csMaterial : public csContainer {
    CS_DECLARE_CLASS_TYPE;

    csMaterial() = default;

    void setAmbientColor(float r, float g, float b) { _ambient.set(r, g, b); }
    void setDiffuseColor(float r, float g, float b) { _diffuse.set(r, g, b); }
    void setSpecularColor(float r, float g, float b) { _specular.set(r, g, b); }
    void setEmissiveColor(float r, float g, float b) { _emissive.set(r, g, b); }
    void setShininess(float shininess) { _shininess = shininess; }
    // 0 is opaque, 1 fully clear.
    void setTransparency(float transparency) { _transparency = transparency; }

    const csVec3f& getAmbientColor() const { return _ambient; }
    const csVec3f& getDiffuseColor() const { return _diffuse; }
    const csVec3f& getSpecularColor() const { return _specular; }
    const csVec3f& getEmissiveColor() const { return _emissive; }
    void getDiffuseColor(float* r, float* g, float* b) const { copy(_diffuse, r, g, b); }
    void getEmissiveColor(float* r, float* g, float* b) const { copy(_emissive, r, g, b); }
    float getShininess() const { return _shininess; }
    float getTransparency() const { return _transparency; }

protected:
    ~csMaterial() override = default;

private:
    static void copy(const csVec3f& c, float* r, float* g, float* b) {
        if (r) *r = c[0];
        if (g) *g = c[1];
        if (b) *b = c[2];
    }

    csVec3f _ambient{0.2f, 0.2f, 0.2f};
    csVec3f _diffuse{0.8f, 0.8f, 0.8f};
    csVec3f _specular{0.0f, 0.0f, 0.0f};
    csVec3f _emissive{0.0f, 0.0f, 0.0f};
    float _shininess = 0.2f;
    float _transparency = 0.0f;
};

#endif
