// The back-end of PixelTexture: a csTexture whose image is the node's own
// pixels, of one to four components, with its repeat modes.
#ifndef OPT_PIXEL_TEXTURE_H
#define OPT_PIXEL_TEXTURE_H

#include "csRefPtr.h"
#include "vrmlnodes/PixelTexture.h"

class csTexture;

class optPixelTexture : public PixelTexture {
public:
    explicit optPixelTexture(znInternal* pair);
    ~optPixelTexture() override;
    // Takes a changed image; answers the csTexture, whatever the arguments.
    int action(SFTime& time, int mode, void* state) override;

    csTexture* getTexture() const { return texture.get(); }

private:
    void makeImage();

    csRefPtr<csTexture> texture;  // holds one reference
};

#endif
