// A texture whose pictures come from a movie. The toolkit decodes no
// movies: the texture keeps where its movie is and how it is to be played,
// for a renderer that can, and has no image of its own.
#ifndef CS_MOVIE_TEXTURE_H
#define CS_MOVIE_TEXTURE_H

#include <string>
#include <vector>

#include "csTexture.h"

class csMovieTexture : public csTexture {
    CS_DECLARE_CLASS_TYPE;

    csMovieTexture() = default;

    // As the world wrote them, in order of preference.
    void setUrl(const std::vector<std::string>& url) { _url = url; }
    const std::vector<std::string>& getUrl() const { return _url; }
    void setLoop(bool loop) { _loop = loop; }
    bool getLoop() const { return _loop; }
    // Playing speed: 1 as recorded, negative backwards.
    void setSpeed(float speed) { _speed = speed; }
    float getSpeed() const { return _speed; }

protected:
    ~csMovieTexture() override = default;

private:
    std::vector<std::string> _url;
    bool _loop = false;
    float _speed = 1.0f;
};

#endif
