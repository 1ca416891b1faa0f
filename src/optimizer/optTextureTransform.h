// The back-end of TextureTransform: a matrix for the appearance's texture
// coordinates, rebuilt at every change.
#ifndef OPT_TEXTURE_TRANSFORM_H
#define OPT_TEXTURE_TRANSFORM_H

#include <memory>

#include "csMatrix4f.h"
#include "vrmlnodes/TextureTransform.h"

class optTextureTransform : public TextureTransform {
public:
    explicit optTextureTransform(znInternal* pair);
    ~optTextureTransform() override = default;
    // Builds the matrix at the first fetch; hands a changed matrix to the
    // appearance of the state. Answers the matrix.
    int action(SFTime& time, int mode, void* state) override;
    // The matrix of translation, then rotation and scale about the centre.
    void setMatrix() override;

    const csMatrix4f& getMatrix() const { return *matrix; }

private:
    std::unique_ptr<csMatrix4f> matrix;  // owning
};

#endif
