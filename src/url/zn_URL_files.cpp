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

mode_t umaskedMode() {
    // As a shell redirection would create it.
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

}  // namespace

bool znWriteAll(int fd, const char* data, std::size_t size) {
    while (size > 0) {
        const ssize_t n = ::write(fd, data, size);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        data += n;
        size -= static_cast<std::size_t>(n);
    }
    return true;
}

znStagedFile::znStagedFile(const std::string& target) : target_(target) {
    const std::size_t slash = target.rfind('/');
    const std::string dir = slash == std::string::npos ? "." : target.substr(0, slash);
    name_ = dir + "/.znpartXXXXXX";
    // Not handed on to programs that the host starts meanwhile.
    fd_ = ::mkostemp(name_.data(), O_CLOEXEC);
}

znStagedFile::~znStagedFile() {
    if (fd_ >= 0) ::close(fd_);
    if (!committed_ && fd_ != -1) ::unlink(name_.c_str());
}

bool znStagedFile::commit(mode_t mode) {
    if (fd_ < 0 || ::fchmod(fd_, mode) != 0) return false;
    const int fd = fd_;
    fd_ = -2;  // closed, but the name is still ours to remove on failure
    if (::close(fd) != 0) return false;
    committed_ = ::rename(name_.c_str(), target_.c_str()) == 0;
    return committed_;
}

std::string znTmpPath() {
    const char* tmp = std::getenv(kTmpPathVariable);
    return tmp && *tmp ? tmp : kDefaultTmpPath;
}

bool znUnpackGzip(const std::string& from, const std::string& to) {
    gzFile in = ::gzopen(from.c_str(), "rb");
    if (in == nullptr) return false;
    znStagedFile staged(to);
    bool ok = staged.fd() >= 0;
    std::vector<char> block(64 * 1024);
    while (ok) {
        const int n = ::gzread(in, block.data(), static_cast<unsigned>(block.size()));
        if (n < 0) ok = false;
        if (n <= 0) break;
        ok = znWriteAll(staged.fd(), block.data(), static_cast<std::size_t>(n));
    }
    // A stream cut short shows only here.
    if (::gzclose_r(in) != Z_OK) ok = false;
    return ok && staged.commit(umaskedMode());
}
