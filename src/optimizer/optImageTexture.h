// The back-end of ImageTexture: a csTexture whose image is read at node
// creation, from the file of the first URL that gives one, or rebuilt from
// the image cache when another texture has read that URL before.
#ifndef OPT_IMAGE_TEXTURE_H
#define OPT_IMAGE_TEXTURE_H

#include "csRefPtr.h"
#include "vrmlnodes/ImageTexture.h"

class csImage;
class csTexture;

class optImageTexture : public ImageTexture {
public:
    explicit optImageTexture(znInternal* pair);
    ~optImageTexture() override;

    int prepareImage() override;
    void cleanupImage() override;
    // Answers the csTexture, whatever the arguments.
    int action(SFTime& time, int mode, void* state) override;

    csTexture* getTexture() const { return texture.get(); }

    // Whether the image cache is in use for a ZN_CACHE_IMAGES text (null
    // when unset): off only for a text that begins with F, f or 0.
    static bool cachingImages(const char* setting);

private:
    // Reads the image file at `path` into the texture; false when the file
    // holds no image the toolkit can decode.
    bool readImageFile(const char* path);
    // Takes `copies` of the texture's picture from the memory budget; false,
    // with a report, when they would pass the limit.
    bool pictureFits(int copies);
    // A cache entry holding a copy of the texture's image, or null when the
    // texture has none.
    std::shared_ptr<znImage> recordOfTexture() const;
    // Gives the texture an image made from the cached bytes; false, with
    // nothing changed, for a record whose sizes do not match its bytes.
    bool useCachedImage(const znImage& record);

    csRefPtr<csTexture> texture;  // holds one reference
    csRefPtr<csImage> image;      // holds one reference; only after a cache hit
};

#endif
