#include "csMovieTexture.h"

CS_DEFINE_CLASS_TYPE(csMovieTexture, csTexture)
