// Base of the light sources.
#ifndef CS_LIGHT_H
#define CS_LIGHT_H

#include "csNode.h"
#include "csVec.h"

class csLight : public csNode {
    CS_DECLARE_CLASS_TYPE;

    csLight() = default;

    void setOn(bool on) { _on = on; }
    bool getOn() const { return _on; }
    void setIntensity(float intensity) { _intensity = intensity; }
    float getIntensity() const { return _intensity; }
    void setAmbientIntensity(float intensity) { _ambientIntensity = intensity; }
    float getAmbientIntensity() const { return _ambientIntensity; }
    void setColor(float r, float g, float b) { _color.set(r, g, b); }
    const csVec3f& getColor() const { return _color; }

protected:
    ~csLight() override = default;

private:
    bool _on = true;
    float _intensity = 1.0f;
    float _ambientIntensity = 0.0f;
    csVec3f _color{1.0f, 1.0f, 1.0f};
};

#endif
