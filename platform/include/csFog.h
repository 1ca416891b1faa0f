// Fog that blends objects into its colour with their distance from the
// viewer: "LINEAR" or "EXPONENTIAL", complete at the visibility range
// (0: no fog).
#ifndef CS_FOG_H
#define CS_FOG_H

#include <string>

#include "csNode.h"
#include "csVec.h"

class csFog : public csNode {
    CS_DECLARE_CLASS_TYPE;

    csFog() = default;

    void setColor(float r, float g, float b) { _color.set(r, g, b); }
    const csVec3f& getColor() const { return _color; }
    void setFogType(const std::string& type) { _fogType = type; }
    const std::string& getFogType() const { return _fogType; }
    void setVisibilityRange(float range) { _visibilityRange = range; }
    float getVisibilityRange() const { return _visibilityRange; }

protected:
    ~csFog() override = default;

private:
    csVec3f _color{1.0f, 1.0f, 1.0f};
    std::string _fogType = "LINEAR";
    float _visibilityRange = 0.0f;
};

#endif
