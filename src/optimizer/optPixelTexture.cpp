#include "optimizer/optPixelTexture.h"

#include <vector>

#include "base/zn_text.h"
#include "csImage.h"
#include "csTexture.h"
#include "base/zn_memory_budget.h"
#include "base/zn_reports.h"
#include "optimizer/optHandleTable.h"
#include "optimizer/optSceneName.h"
#include "optimizer/optimizer_messages.h"

namespace {
constexpr int kMostComponents = 4;
}

optPixelTexture::optPixelTexture(znInternal* pair) : BaseNode(pair), PixelTexture(pair) {
    texture.reset(new csTexture());
    nameInScene(texture.get(), *this, "Unnamed PixelTexture Node");
    texture->setRepeatS(repeatS && !repeatS->getValue() ? csTexture::CLAMP : csTexture::REPEAT);
    texture->setRepeatT(repeatT && !repeatT->getValue() ? csTexture::CLAMP : csTexture::REPEAT);
    built = 1;
}

optPixelTexture::~optPixelTexture() = default;

int optPixelTexture::action(SFTime&, int, void*) {
    if (imageDirty) makeImage();
    imageDirty = 0;
    return optHandleTable::handleOf(texture.get());
}

// A pixel is one number whose lowest byte is its last component. The
// world gives the rows from the bottom of the picture up; an image keeps
// them top row first (csImage.h), so they are turned over.
void optPixelTexture::makeImage() {
    texture->setImage(nullptr);
    if (!image) return;
    const int width = image->getWidth(), height = image->getHeight(), components = image->getComponents();
    // An image of no pixels is the field's default: nothing to show, and
    // nothing wrong.
    if (width <= 0 || height <= 0 || components <= 0) return;
    std::vector<int> pixels;
    image->getPixels(pixels);
    const long long count = static_cast<long long>(width) * height;
    if (components > kMostComponents || static_cast<long long>(pixels.size()) < count) {
        znMessage(znFormatText(kPixelImageBroken, sceneName("Unnamed PixelTexture Node"), width, height, components,
                               static_cast<int>(pixels.size()))
                      .c_str());
        return;
    }
    if (!znBudget().take(static_cast<std::size_t>(count), static_cast<std::size_t>(components), [&] {
            return znFormatText(kPictureOverLimit, sceneName("Unnamed PixelTexture Node"), width, height, components);
        }))
        return;
    std::vector<std::uint8_t> bytes(static_cast<size_t>(count) * static_cast<size_t>(components));
    size_t at = 0;
    for (int row = height - 1; row >= 0; --row)
        for (int column = 0; column < width; ++column) {
            const auto value = static_cast<unsigned>(pixels[static_cast<size_t>(row) * width + column]);
            for (int k = components - 1; k >= 0; --k) bytes[at++] = static_cast<std::uint8_t>(value >> (8 * k));
        }
    auto* picture = new csImage();
    picture->setWidth(width);
    picture->setHeight(height);
    picture->setMemoryType(csImage::UNSIGNED_BYTE);
    picture->setMemoryFormat(static_cast<csImage::MemoryFormatEnum>(components - 1));
    picture->pixels().setRange(0, static_cast<int>(bytes.size()), bytes.data());
    texture->setImage(picture);
    texture->setFormat(static_cast<csTexture::FormatEnum>(components - 1));
}
