// What lies behind everything: a sky sphere and a ground hemisphere of
// colour bands, and a box of six pictures between them and the scene.
// Sky colour i lies at sky angle i - 1 from straight up (colour 0 at the
// top itself), ground colour i at ground angle i - 1 from straight down.
// Picture URLs are kept as the world wrote them, for the renderer to read.
#ifndef CS_BACKGROUND_H
#define CS_BACKGROUND_H

#include <string>
#include <vector>

#include "csNode.h"
#include "csVec.h"

class csBackground : public csNode {
    CS_DECLARE_CLASS_TYPE;

    // The six faces of the picture box.
    enum Side { BACK = 0, BOTTOM = 1, FRONT = 2, LEFT = 3, RIGHT = 4, TOP = 5 };
    static constexpr int SIDES = 6;

    csBackground() = default;

    void setGroundAngles(const std::vector<float>& angles) { _groundAngles = angles; }
    const std::vector<float>& getGroundAngles() const { return _groundAngles; }
    void setGroundColors(const std::vector<csVec3f>& colors) { _groundColors = colors; }
    const std::vector<csVec3f>& getGroundColors() const { return _groundColors; }
    void setSkyAngles(const std::vector<float>& angles) { _skyAngles = angles; }
    const std::vector<float>& getSkyAngles() const { return _skyAngles; }
    void setSkyColors(const std::vector<csVec3f>& colors) { _skyColors = colors; }
    const std::vector<csVec3f>& getSkyColors() const { return _skyColors; }
    // A side outside the enumeration is ignored, and reads empty.
    void setUrl(Side side, const std::vector<std::string>& url);
    const std::vector<std::string>& getUrl(Side side) const;

protected:
    ~csBackground() override = default;

private:
    std::vector<float> _groundAngles;
    std::vector<csVec3f> _groundColors;
    std::vector<float> _skyAngles;
    std::vector<csVec3f> _skyColors{csVec3f(0.0f, 0.0f, 0.0f)};
    std::vector<std::string> _urls[SIDES];
};

#endif
