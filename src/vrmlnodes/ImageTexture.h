// A texture read from an image file, with the process-wide cache of decoded
// images that lets textures naming one URL share one read of the file.
#ifndef IMAGETEXTURE_H
#define IMAGETEXTURE_H

#include <map>
#include <memory>
#include <string>

#include "vrmlnodes/URLNode.h"
#include "vrmlnodes/znImage.h"

class ImageTexture : public URLNode {
public:
    explicit ImageTexture(znInternal* pair);

    // Drops the image in use and reads the first URL of `value` that gives
    // one.
    virtual void set_url(MFString& value, double time);

    // The cache is keyed by the URL text exactly as the url field gives it.
    // Adds `record` (hits reset) unless `name` is cached already, which
    // costs a warning and keeps the old entry. A null record adds nothing.
    virtual void cacheImage(const char* name, std::shared_ptr<znImage> record);
    // The entry of `name`, counted as one more hit, or null.
    virtual std::shared_ptr<znImage> findCachedImage(const char* name);
    // Forgets `name`; a texture still using the entry keeps it.
    virtual void removeCachedImage(const char* name);
    virtual void printCache();

    ~ImageTexture() override;

    // 1 when an image is in place, 0 when no URL gave one.
    virtual int prepareImage() = 0;
    // Lets go of the image in use and its file name.
    virtual void cleanupImage() = 0;
    int action(SFTime& time, int mode, void* state) override = 0;
    void processEvent(Event& event) override;

    int isImageReady() const { return imageReady; }
    // The local path of the image read from a file, or null when the image
    // came from the cache or there is none.
    const char* getFileName() const { return fileName.empty() ? nullptr : fileName.c_str(); }
    const znImage* getImageRecord() const { return imageRecord.get(); }

protected:
    NodeField<SFBool> repeatS;
    NodeField<SFBool> repeatT;
    MFString* url;    // borrowed: the node's own field
    int imageReady = 0;
    std::string fileName;                 // empty when none
    std::shared_ptr<znImage> imageRecord;  // the cache entry in use, or null

private:
    static std::map<std::string, std::shared_ptr<znImage>> imgcache;
};

#endif
