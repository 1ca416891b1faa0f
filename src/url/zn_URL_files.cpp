#include "url/zn_URL_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zlib.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "base/zn_reports.h"
#include "base/zn_text.h"
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

bool znIsRegularFile(const char* path) {
    struct stat status;
    return path != nullptr && ::stat(path, &status) == 0 && S_ISREG(status.st_mode);
}

bool znIsLocalFile(const char* path) {
    struct stat status;
    if (path == nullptr || ::stat(path, &status) != 0) return false;
    if (S_ISREG(status.st_mode)) return true;
    znAlert(znFormatText(kNotARegularFile, path).c_str());
    return false;
}

znUnpacked znUnpackGzip(const std::string& from, const std::string& to, std::size_t limit) {
    gzFile in = ::gzopen(from.c_str(), "rb");
    if (in == nullptr) return znUnpacked::damaged;
    znStagedFile staged(to);
    znUnpacked outcome = staged.fd() >= 0 ? znUnpacked::done : znUnpacked::damaged;
    std::vector<char> block(64 * 1024);
    std::size_t total = 0;
    while (outcome == znUnpacked::done) {
        const int n = ::gzread(in, block.data(), static_cast<unsigned>(block.size()));
        if (n < 0) outcome = znUnpacked::damaged;
        if (n <= 0) break;
        // A few kilobytes of zeros unpack to gigabytes: the text stops at
        // the limit, and the staged file goes with it.
        total += static_cast<std::size_t>(n);
        if (total > limit) outcome = znUnpacked::tooLarge;
        else if (!znWriteAll(staged.fd(), block.data(), static_cast<std::size_t>(n))) outcome = znUnpacked::damaged;
    }
    // A stream cut short shows only here.
    if (::gzclose_r(in) != Z_OK && outcome == znUnpacked::done) outcome = znUnpacked::damaged;
    if (outcome == znUnpacked::done && !staged.commit(umaskedMode())) outcome = znUnpacked::damaged;
    return outcome;
}
