// A text that always faces the viewer, drawn at its shape's origin.
#ifndef CS_SCREEN_ALIGNED_TEXT_H
#define CS_SCREEN_ALIGNED_TEXT_H

#include "csGeometry.h"
#include "csString.h"
#include "csVec.h"

class csScreenAlignedText : public csGeometry {
    CS_DECLARE_CLASS_TYPE;

    csScreenAlignedText() = default;

    // Copies the text; a line feed starts a new line.
    void setText(const csString& text) { _text = text; }
    const csString& getText() const { return _text; }
    // A face number of the toolkit's fonts: 0 serif, 4 sans; plus 1 for
    // italic, 2 for bold, 3 for both.
    void setFace(int face) { _face = face; }
    int getFace() const { return _face; }
    // Point size.
    void setSize(int size) { _size = size; }
    int getSize() const { return _size; }
    void setColor(float r, float g, float b, float a) { _color.set(r, g, b, a); }
    const csVec4f& getColor() const { return _color; }

    // The text has no extent in the scene: its bound is its origin.
    void getBoxBound(csBoxBound* bound) const override;

protected:
    ~csScreenAlignedText() override = default;

private:
    csString _text;
    int _face = 0;
    int _size = 50;
    csVec4f _color{1.0f, 1.0f, 1.0f, 1.0f};
};

#endif
