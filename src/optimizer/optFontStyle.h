// The back-end of FontStyle: sets the face and the point size of the text
// that an optText hands down as the state of `action`.
#ifndef OPT_FONT_STYLE_H
#define OPT_FONT_STYLE_H

#include "vrmlnodes/FontStyle.h"

class csScreenAlignedText;

class optFontStyle : public FontStyle {
public:
    // While one lives, `text` is the state that `action` takes for a text.
    // Any other state (the record of a shape that found a FontStyle where
    // its geometry belongs) is left alone, since it is no text.
    class Target {
    public:
        explicit Target(csScreenAlignedText* text);
        ~Target();
        Target(const Target&) = delete;
        Target& operator=(const Target&) = delete;

    private:
        csScreenAlignedText* previous;  // borrowed: the target before this one
    };

    explicit optFontStyle(znInternal* pair);
    ~optFontStyle() override = default;
    // Sets face and size of the text that is the state; answers 0.
    int action(SFTime& time, int mode, void* state) override;

    // The face number for a family and a style: serif faces 0 to 3, sans
    // faces 4 to 7, each as plain, italic, bold, bold italic.
    static int faceFor(const char* family, const char* style);
    // Ten points per unit of size, the fraction cut off; held to the range
    // of int, and 0 for a size that is not a number.
    static int sizeFor(float size);

private:
    static csScreenAlignedText* target;  // borrowed: set by a live Target only
};

#endif
