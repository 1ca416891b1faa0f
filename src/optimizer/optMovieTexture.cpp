#include "optimizer/optMovieTexture.h"

#include "csMovieTexture.h"
#include "base/zn_reports.h"
#include "optimizer/optHandleTable.h"
#include "optimizer/optSceneName.h"
#include "optimizer/optimizer_messages.h"

namespace {
// The world that was last told that movies are not decoded. Every load
// makes a browser of its own and keeps it, so no two worlds share one.
Browser* toldWorld = nullptr;
}  // namespace

optMovieTexture::optMovieTexture(znInternal* pair) : BaseNode(pair), MovieTexture(pair) {
    texture.reset(new csMovieTexture());
    nameInScene(texture.get(), *this, "Unnamed MovieTexture Node");
    texture->setRepeatS(repeatS && !repeatS->getValue() ? csTexture::CLAMP : csTexture::REPEAT);
    texture->setRepeatT(repeatT && !repeatT->getValue() ? csTexture::CLAMP : csTexture::REPEAT);
    Browser* world = getBrowser();
    if (world != toldWorld) {
        znMessage(kMoviesNotDecoded);
        toldWorld = world;
    }
    built = 1;
}

optMovieTexture::~optMovieTexture() = default;

int optMovieTexture::action(SFTime&, int, void*) {
    if (valuesDirty) {
        texture->setUrl(textsOf(url));
        texture->setLoop(loop && loop->getValue());
        texture->setSpeed(speed ? speed->getValue() : 1.0f);
        valuesDirty = 0;
    }
    return optHandleTable::handleOf(texture.get());
}
