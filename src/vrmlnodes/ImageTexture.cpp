#include "vrmlnodes/ImageTexture.h"

#include <list>
#include <vector>

#include "base/zn_text.h"
#include "base/zn_reports.h"
#include "vrmlnodes/vrmlnode_messages.h"

std::map<std::string, std::shared_ptr<znImage>> ImageTexture::imgcache;

ImageTexture::ImageTexture(znInternal* pair)
    : BaseNode(pair),
      repeatS(sharedField<SFBool>("repeatS")),
      repeatT(sharedField<SFBool>("repeatT")),
      url(exposedField<MFString>("url")) {}

ImageTexture::~ImageTexture() = default;

void ImageTexture::processEvent(Event& event) {
    const char* name = event.getName();
    if (!name) return;
    if (nameAt(name, 4) == 'u') deliver(this, &ImageTexture::set_url, event);
}

void ImageTexture::set_url(MFString& value, double) {
    cleanupImage();
    std::list<std::string> names;
    addURLpath(value, names);
    std::vector<std::string> stored(names.begin(), names.end());
    if (url) url->setValue(stored);
    imageReady = prepareImage();
}

void ImageTexture::cacheImage(const char* name, std::shared_ptr<znImage> record) {
    if (!record) return;
    record->hits = 0;
    if (!imgcache.emplace(name ? name : "", std::move(record)).second) {
        znAlert(znFormatText(kImageNotCacheable, name ? name : "").c_str());
        return;
    }
    printCache();
}

std::shared_ptr<znImage> ImageTexture::findCachedImage(const char* name) {
    auto found = imgcache.find(name ? name : "");
    if (found == imgcache.end()) return nullptr;
    ++found->second->hits;
    printCache();
    return found->second;
}

void ImageTexture::removeCachedImage(const char* name) {
    imgcache.erase(name ? name : "");
    printCache();
}

// The cache's contents belong to the debug trace, which is not printed.
void ImageTexture::printCache() {}
