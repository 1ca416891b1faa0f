#include "optimizer/optFontStyle.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "csScreenAlignedText.h"

namespace {

constexpr int kSerifFace = 0;
constexpr int kSansFace = 4;
constexpr int kItalicFace = 1;
constexpr int kBoldFace = 2;
constexpr int kBoldItalicFace = 3;
constexpr float kPointsPerUnit = 10.0f;

}  // namespace

csScreenAlignedText* optFontStyle::target = nullptr;

optFontStyle::Target::Target(csScreenAlignedText* text) : previous(target) { target = text; }

optFontStyle::Target::~Target() { target = previous; }

optFontStyle::optFontStyle(znInternal* pair) : BaseNode(pair), FontStyle(pair) { built = 1; }

int optFontStyle::faceFor(const char* family, const char* style) {
    int face = family && std::strcmp(family, "SANS") == 0 ? kSansFace : kSerifFace;
    if (!style) return face;
    if (std::strcmp(style, "BOLD") == 0) return face + kBoldFace;
    if (std::strcmp(style, "ITALIC") == 0) return face + kItalicFace;
    if (std::strcmp(style, "BOLDITALIC") == 0) return face + kBoldItalicFace;
    return face;
}

int optFontStyle::sizeFor(float size) {
    float points = size * kPointsPerUnit;
    if (std::isnan(points)) return 0;
    // Beyond the range of int the conversion would be undefined.
    if (points >= static_cast<float>(std::numeric_limits<int>::max())) return std::numeric_limits<int>::max();
    if (points <= static_cast<float>(std::numeric_limits<int>::min())) return std::numeric_limits<int>::min();
    return static_cast<int>(points);
}

int optFontStyle::action(SFTime&, int, void* state) {
    if (!state || state != target) return 0;
    auto* text = static_cast<csScreenAlignedText*>(state);
    std::vector<std::string> families;
    if (family) family->getValue(families);
    const std::string styleName = style ? style->getValue() : std::string();
    text->setFace(faceFor(families.empty() ? nullptr : families.front().c_str(), styleName.c_str()));
    text->setSize(sizeFor(size ? size->getValue() : 1.0f));
    return 0;
}
