// The back-end of MovieTexture: a csMovieTexture that keeps the movie's
// URLs, how to play it and the repeat modes. Movies are not decoded, which
// the first MovieTexture of each world says once.
#ifndef OPT_MOVIE_TEXTURE_H
#define OPT_MOVIE_TEXTURE_H

#include "csRefPtr.h"
#include "vrmlnodes/MovieTexture.h"

class csMovieTexture;

class optMovieTexture : public MovieTexture {
public:
    explicit optMovieTexture(znInternal* pair);
    ~optMovieTexture() override;
    // Takes changed values; answers the texture, whatever the arguments.
    int action(SFTime& time, int mode, void* state) override;

    csMovieTexture* getTexture() const { return texture.get(); }

private:
    csRefPtr<csMovieTexture> texture;  // holds one reference
};

#endif
