// Texture coordinates as a scene-graph set, kept equal to the node's field.
#ifndef OPTTEXTURECOORDINATE_H
#define OPTTEXTURECOORDINATE_H

#include "csDataSets.h"
#include "csRefPtr.h"
#include "vrmlnodes/TextureCoordinate.h"

class optTextureCoordinate : public TextureCoordinate {
public:
    explicit optTextureCoordinate(znInternal* pair);
    ~optTextureCoordinate() override = default;
    // The texture coordinate set, whatever the arguments.
    int action(SFTime& time, int mode, void* state) override;
    void set_point(MFVec2f& value, double time) override;

private:
    void fill(MFVec2f& value);

    csRefPtr<csTexCoordSet2f> set;
};

#endif
