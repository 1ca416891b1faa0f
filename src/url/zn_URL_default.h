// Local files only, through the directory stack.
#ifndef ZN_URL_DEFAULT_H
#define ZN_URL_DEFAULT_H

#include "url/url_messages.h"
#include "url/zn_URL.h"
#include "url/zn_URL_pathstack.h"

class zn_URL_default : public zn_URL {
public:
    FILE* fopenURL(const char* url, int push) override;
    // A stream whose file cannot be opened comes back in its failed state;
    // null only for a name that is refused outright.
    std::ifstream* iopenURL(const char* url, int push) override;
    const char* getURL(const char* url, int push) override;
    int fcloseURL(FILE* file, int push) override;
    int icloseURL(std::ifstream* stream, int push) override;
    const char* get_path() override;

    // Resolves `url` against the stack into the path buffer and answers it.
    // With a nonzero push the stack grows by one entry whatever happens
    // next, even for a name that is refused as too long (answer null), so
    // that the caller's close or delpath always has its entry to remove.
    const char* addpath(const char* url, int push);
    // Pops for a flag of exactly 1; any other flag does nothing.
    void delpath(int push);

private:
    char path[kDefaultPathBufferSize] = {};  // overwritten by each addpath
    znURLPathStack pathStack;
};

#endif
