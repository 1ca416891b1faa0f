// The files that remote access leaves behind: cache copies and unpacked
// copies, both in the temporary directory.
#ifndef ZN_URL_FILES_H
#define ZN_URL_FILES_H

#include <sys/types.h>

#include <cstddef>
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

// A regular file: not a directory, a device or a pipe, which could not be
// read to an end, or not without blocking.
bool znIsRegularFile(const char* path);
// A local name that may be opened for reading: false, without a word, where
// there is nothing of that name, and with a report where it is no regular
// file.
bool znIsLocalFile(const char* path);

enum class znUnpacked { done, damaged, tooLarge };

// Unpacks the gzip file `from` to `to` (which may be the same file), up to
// `limit` bytes. Unless it is done, `to` stays untouched and nothing of
// the unpacked text is left: `from` is no complete gzip stream, or its text
// is longer than the limit.
znUnpacked znUnpackGzip(const std::string& from, const std::string& to, std::size_t limit);

#endif
