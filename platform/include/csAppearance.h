// How a shape looks: material, texture and the drawing modes.
#ifndef CS_APPEARANCE_H
#define CS_APPEARANCE_H

#include <cstdint>

#include "csContainer.h"
#include "csContext.h"
#include "csMatrix4f.h"
#include "csRefPtr.h"

class csMaterial;
class csTexture;

class csAppearance : public csContainer {
    CS_DECLARE_CLASS_TYPE;

    csAppearance();

    // Both ref the new object before they unref the old; null clears.
    void setMaterial(csMaterial* material);
    csMaterial* getMaterial() const { return _material.get(); }
    void setTexture(csTexture* texture);
    csTexture* getTexture() const { return _texture.get(); }
    // Copies the matrix.
    void setTexTransform(const csMatrix4f& matrix) { _texTransform = matrix; }
    const csMatrix4f& getTexTransform() const { return _texTransform; }

    void setLightEnable(std::uint8_t on) { _lightEnable = on != 0; }
    bool getLightEnable() const { return _lightEnable; }
    void setTranspEnable(std::uint8_t on) { _transpEnable = on != 0; }
    bool getTranspEnable() const { return _transpEnable; }
    void setTexEnable(std::uint8_t on) { _texEnable = on != 0; }
    bool getTexEnable() const { return _texEnable; }
    // On: per-vertex colours of the geometry stand in for the diffuse colour.
    void setMaterialModeEnable(std::uint8_t on) { _materialModeEnable = on != 0; }
    bool getMaterialModeEnable() const { return _materialModeEnable; }

    void setTranspMode(csContext::TranspModeEnum mode) { _transpMode = mode; }
    csContext::TranspModeEnum getTranspMode() const { return _transpMode; }
    void setTexEnv(csContext::TexEnvEnum env) { _texEnv = env; }
    csContext::TexEnvEnum getTexEnv() const { return _texEnv; }
    void setTexMode(csContext::TexModeEnum mode) { _texMode = mode; }
    csContext::TexModeEnum getTexMode() const { return _texMode; }

protected:
    ~csAppearance() override;  // out of line: material and texture are only declared here

private:
    csRefPtr<csMaterial> _material;
    csRefPtr<csTexture> _texture;
    csMatrix4f _texTransform;
    bool _lightEnable = false;
    bool _transpEnable = false;
    bool _texEnable = false;
    bool _materialModeEnable = false;
    csContext::TranspModeEnum _transpMode = csContext::FAST_TRANSP;
    csContext::TexEnvEnum _texEnv = csContext::MODULATE_TENV;
    csContext::TexModeEnum _texMode = csContext::FAST_TEX;
};

#endif
