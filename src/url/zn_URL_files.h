// The files that remote access leaves behind: cache copies and unpacked
// copies, both in the temporary directory.
#ifndef ZN_URL_FILES_H
#define ZN_URL_FILES_H

#include <sys/types.h>

#include <string>

// ZN_TMP_PATH, or "/tmp" when it is unset or empty.
std::string znTmpPath();

// Puts `size` bytes at `target` with permission bits `mode`. The bytes are
// written to a fresh private file beside the target first and renamed over
// it, so a reader never sees half a file and an existing link at the target
// is replaced rather than followed.
bool znReplaceFile(const std::string& target, const char* data, std::size_t size, mode_t mode);

// Unpacks the gzip file `from` to `to` (which may be the same file). False,
// with `to` untouched, when `from` is no complete gzip stream.
bool znUnpackGzip(const std::string& from, const std::string& to);

#endif
