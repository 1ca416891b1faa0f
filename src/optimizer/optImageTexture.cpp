#include "optimizer/optImageTexture.h"

#include <cstdlib>
#include <string>
#include <vector>

#include "base/zn_text.h"
#include "csImage.h"
#include "csString.h"
#include "csTexture.h"
#include "base/zn_memory_budget.h"
#include "base/zn_reports.h"
#include "optimizer/optHandleTable.h"
#include "optimizer/optSceneName.h"
#include "optimizer/optimizer_messages.h"

namespace {

constexpr const char* kCacheVariable = "ZN_CACHE_IMAGES";

csMFRef* imageListOf(csTexture* texture) { return dynamic_cast<csMFRef*>(texture->getField(csTexture::IMAGE)); }

csMFByte* pixelsOf(csImage* image) { return dynamic_cast<csMFByte*>(image->getField(csImage::PIXELS)); }

// Height x width x components, for sizes already known not to be negative.
size_t pixelBytes(int height, int width, int components) {
    return static_cast<size_t>(height) * static_cast<size_t>(width) * static_cast<size_t>(components);
}

bool cachingNow() { return optImageTexture::cachingImages(std::getenv(kCacheVariable)); }

}  // namespace

optImageTexture::optImageTexture(znInternal* pair) : BaseNode(pair), ImageTexture(pair) {
    texture.reset(new csTexture());
    nameInScene(texture.get(), *this, "Unnamed ImageTexture Node");
    // Read once: later changes of repeatS and repeatT do not reach the texture.
    texture->setRepeatS(repeatS && repeatS->getValue() ? csTexture::REPEAT : csTexture::CLAMP);
    texture->setRepeatT(repeatT && repeatT->getValue() ? csTexture::REPEAT : csTexture::CLAMP);
    imageReady = prepareImage();
    built = 1;
}

optImageTexture::~optImageTexture() = default;

bool optImageTexture::cachingImages(const char* setting) {
    if (!setting) return true;
    return setting[0] != 'F' && setting[0] != 'f' && setting[0] != '0';
}

int optImageTexture::action(SFTime&, int, void*) { return optHandleTable::handleOf(texture.get()); }

int optImageTexture::prepareImage() {
    imageReady = 0;
    std::vector<std::string> names;
    if (url) url->getValue(names);
    if (names.empty()) return 0;
    imageRecord.reset();
    for (const std::string& entry : names) {
        const char* name = entry.c_str();
        if (cachingNow()) imageRecord = findCachedImage(name);
        if (imageRecord && useCachedImage(*imageRecord)) return 1;
        imageRecord.reset();
        const char* path = getFile(name);
        if (path && readImageFile(path)) {
            // A small file may hold a huge picture, and the cache keeps a
            // second copy of it.
            if (!pictureFits(cachingNow() ? 2 : 1)) {
                cleanupImage();
                return 0;
            }
            if (!cachingNow()) return 1;
            imageRecord = recordOfTexture();
            cacheImage(name, imageRecord);
            return 1;
        }
        // A file that is there but holds no picture counts as not opened:
        // the next URL may do better.
        znMessage(znFormatText(kTextureCantOpen, name).c_str());
    }
    return 0;
}

bool optImageTexture::readImageFile(const char* path) {
    // The URL interface's answer lasts only until its next call.
    fileName = path;
    if (texture->setFileName(csString(fileName))) return true;
    fileName.clear();
    return false;
}

bool optImageTexture::pictureFits(int copies) {
    const csImage* picture = texture->getImage();
    if (picture == nullptr) return true;
    const int width = picture->getWidth(), height = picture->getHeight();
    const int components = static_cast<int>(picture->getMemoryFormat()) + 1;
    return znBudget().take(pixelBytes(height, width, components), static_cast<std::size_t>(copies), [&] {
        return znFormatText(kPictureOverLimit, sceneName("Unnamed ImageTexture Node"), width, height, components);
    });
}

std::shared_ptr<znImage> optImageTexture::recordOfTexture() const {
    csMFRef* images = imageListOf(texture.get());
    auto* picture = images ? dynamic_cast<csImage*>(images->get(0)) : nullptr;
    csMFByte* pixels = picture ? pixelsOf(picture) : nullptr;
    if (!pixels) return nullptr;
    picture->setMemoryType(csImage::UNSIGNED_BYTE);
    auto record = std::make_shared<znImage>();
    record->height = picture->getHeight();
    record->width = picture->getWidth();
    record->components = static_cast<int>(picture->getMemoryFormat()) + 1;
    record->bytes.resize(pixelBytes(record->height, record->width, record->components));
    if (!pixels->getRange(0, static_cast<int>(record->bytes.size()), record->bytes.data())) return nullptr;
    return record;
}

bool optImageTexture::useCachedImage(const znImage& record) {
    // Only a caller of cacheImage can hand in a record that does not
    // describe its bytes; such a one is passed over as a miss.
    const bool described = record.components >= 1 && record.components <= 4 && record.width > 0 &&
                           record.height > 0 &&
                           record.bytes.size() == pixelBytes(record.height, record.width, record.components);
    if (!described) return false;
    image.reset(new csImage());
    image->setMemoryType(csImage::UNSIGNED_BYTE);
    image->setMemoryFormat(static_cast<csImage::MemoryFormatEnum>(record.components - 1));
    texture->setFormat(static_cast<csTexture::FormatEnum>(record.components - 1));
    image->setWidth(record.width);
    image->setHeight(record.height);
    pixelsOf(image.get())->setRange(0, static_cast<int>(record.bytes.size()), record.bytes.data());
    imageListOf(texture.get())->set(0, image.get());
    texture->setMinFilter(csTexture::NEAREST);
    texture->setMinFilter(csTexture::MIPMAP_LINEAR);
    return true;
}

void optImageTexture::cleanupImage() {
    // A new url that gives no picture must not leave the old one showing.
    texture->setImage(nullptr);
    image.reset(nullptr);
    fileName.clear();
}
