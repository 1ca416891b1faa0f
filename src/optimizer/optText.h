// The back-end of Text: one csScreenAlignedText that always faces the
// viewer, in the face and size of the font style and the colour of the
// shape's material.
#ifndef OPT_TEXT_H
#define OPT_TEXT_H

#include "csRefPtr.h"
#include "vrmlnodes/Text.h"

class csAppearance;
class csScreenAlignedText;

class optText : public Text {
public:
    explicit optText(znInternal* pair);
    ~optText() override;
    // Brings the text up to date; answers the csScreenAlignedText.
    int action(SFTime& time, int mode, void* state) override;

    csScreenAlignedText* getText() const { return text.get(); }

private:
    void applyFontStyle(SFTime& time);
    // The material's glow, or its diffuse colour when it does not glow: the
    // text is drawn unlit.
    void colourFrom(csAppearance* appearance);

    csRefPtr<csScreenAlignedText> text;  // holds one reference
    unsigned char coloured = 0;
};

#endif
