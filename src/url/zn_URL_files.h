// The files that remote access leaves behind: cache copies and unpacked
// copies, both in the temporary directory.
#ifndef ZN_URL_FILES_H
#define ZN_URL_FILES_H

#include <sys/types.h>

#include <string>

// A private file beside a target, renamed onto it by commit() and removed
// otherwise, so that a reader never sees half a file and an existing link at
// the target is replaced rather than followed.
class znStagedFile {
public:
    explicit znStagedFile(const std::string& target);
    ~znStagedFile();
    znStagedFile(const znStagedFile&) = delete;
    znStagedFile& operator=(const znStagedFile&) = delete;

    // Open for writing, or negative when no file could be made.
    int fd() const { return fd_; }
    // Closes the file, gives it the permission bits `mode` and puts it at
    // the target.
    bool commit(mode_t mode);

private:
    std::string target_;
    std::string name_;
    int fd_ = -1;  // -1: never created; -2: closed
    bool committed_ = false;
};

// Writes all `size` bytes to `fd`, going on after interrupted writes.
bool znWriteAll(int fd, const char* data, std::size_t size);

// ZN_TMP_PATH, or "/tmp" when it is unset or empty.
std::string znTmpPath();

// Unpacks the gzip file `from` to `to` (which may be the same file). False,
// with `to` untouched, when `from` is no complete gzip stream.
bool znUnpackGzip(const std::string& from, const std::string& to);

#endif
