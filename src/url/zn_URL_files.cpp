#include "url/zn_URL_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zlib.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "url/url_messages.h"

namespace {

bool writeAll(int fd, const char* data, std::size_t size) {
    while (size > 0) {
        const ssize_t n = ::write(fd, data, size);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        data += n;
        size -= static_cast<std::size_t>(n);
    }
    return true;
}

// A private file beside a target, renamed onto it by commit() and removed
// otherwise.
class StagedFile {
public:
    explicit StagedFile(const std::string& target) : target_(target) {
        const std::size_t slash = target.rfind('/');
        const std::string dir = slash == std::string::npos ? "." : target.substr(0, slash);
        name_ = dir + "/.znpartXXXXXX";
        fd_ = ::mkstemp(name_.data());
    }
    ~StagedFile() {
        if (fd_ >= 0) ::close(fd_);
        if (!committed_ && fd_ != -1) ::unlink(name_.c_str());
    }
    StagedFile(const StagedFile&) = delete;
    StagedFile& operator=(const StagedFile&) = delete;

    int fd() const { return fd_; }
    bool commit(mode_t mode) {
        if (fd_ < 0 || ::fchmod(fd_, mode) != 0) return false;
        const int fd = fd_;
        fd_ = -2;  // closed, but the name is still ours to remove on failure
        if (::close(fd) != 0) return false;
        committed_ = ::rename(name_.c_str(), target_.c_str()) == 0;
        return committed_;
    }

private:
    std::string target_;
    std::string name_;
    int fd_ = -1;  // -1: never created; -2: closed
    bool committed_ = false;
};

mode_t umaskedMode() {
    // As a shell redirection would create it.
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

}  // namespace

std::string znTmpPath() {
    const char* tmp = std::getenv(kTmpPathVariable);
    return tmp && *tmp ? tmp : kDefaultTmpPath;
}

bool znReplaceFile(const std::string& target, const char* data, std::size_t size, mode_t mode) {
    StagedFile staged(target);
    return staged.fd() >= 0 && writeAll(staged.fd(), data, size) && staged.commit(mode);
}

bool znUnpackGzip(const std::string& from, const std::string& to) {
    gzFile in = ::gzopen(from.c_str(), "rb");
    if (in == nullptr) return false;
    StagedFile staged(to);
    bool ok = staged.fd() >= 0;
    std::vector<char> block(64 * 1024);
    while (ok) {
        const int n = ::gzread(in, block.data(), static_cast<unsigned>(block.size()));
        if (n < 0) ok = false;
        if (n <= 0) break;
        ok = writeAll(staged.fd(), block.data(), static_cast<std::size_t>(n));
    }
    // A stream cut short shows only here.
    if (::gzclose_r(in) != Z_OK) ok = false;
    return ok && staged.commit(umaskedMode());
}
