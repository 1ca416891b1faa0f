// The interface through which every file of the system is opened: the
// world, EXTERNPROTO targets, textures, compiled scripts.
//
// A caller that opens a file whose relative references are to be resolved
// against that file's own directory passes a nonzero push flag; the
// directory goes on a stack, and later relative names are looked up under
// it until the matching close, which must be given the same flag.
#ifndef ZN_URL_H
#define ZN_URL_H

#include <cstdio>
#include <fstream>

class zn_URL {
public:
    // A stdio handle open for reading, or null.
    virtual FILE* fopenURL(const char* url, int push) = 0;
    // A new stream (the caller deletes it), or null.
    virtual std::ifstream* iopenURL(const char* url, int push) = 0;
    // The local path under which the file can be read, or null. The text
    // belongs to the object and is overwritten by its next call.
    virtual const char* getURL(const char* url, int push) = 0;
    // Pops the directory stack for a flag of exactly 1, closes; answers 0.
    virtual int fcloseURL(FILE* file, int push) = 0;
    // The same for a stream, which stays the caller's to delete.
    virtual int icloseURL(std::ifstream* stream, int push) = 0;
    // The directory on top of the stack, or null. It stays valid for the
    // object's life, also after the entry is popped.
    virtual const char* get_path() = 0;
    // From now on `url` is read from the local file `localPath`, while the
    // names in it are still looked up from `url`'s own place: a world given
    // as text has a place it stands for. A null url forgets it.
    virtual void readAs(const char* /*url*/, const char* /*localPath*/) {}

    virtual ~zn_URL() = default;
};

#endif
