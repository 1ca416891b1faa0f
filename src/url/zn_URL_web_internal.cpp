// The socket layer under remote retrieval: address making, connecting and
// formatted writes to a descriptor, with errors reported through errno.
#include <arpa/inet.h>
#include <fcntl.h>
#include <netdb.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "url/zn_URL_web.h"

namespace {

zn_URL_web::Address inetAddress;  // answered by make_inet_addr, overwritten by each call
char lastErrorText[128];          // the text of the layer's own last error

// Sockets are written without raising SIGPIPE: a peer that has gone away is
// an error to report, not a reason to end the host.
bool sendAll(int fd, const char* data, std::size_t size) {
    bool socket = true;
    while (size > 0) {
        ssize_t n = socket ? ::send(fd, data, size, MSG_NOSIGNAL) : ::write(fd, data, size);
        if (n < 0 && socket && errno == ENOTSOCK) {
            socket = false;
            continue;
        }
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        data += n;
        size -= static_cast<std::size_t>(n);
    }
    return true;
}

}  // namespace

void zn_URL_web::seterror(int number, const char* text) {
    std::snprintf(lastErrorText, sizeof lastErrorText, "%s", text ? text : "");
    errno = number;
}

const char* zn_URL_web::sn_strerror() {
    const int number = errno;
    if (number >= kErrorBadPort && number <= kErrorUnknownHost) return lastErrorText;
    return std::strerror(number);
}

zn_URL_web::Address* zn_URL_web::make_inet_addr(const char* host, const char* port,
                                                const char* protocol) {
    in_addr_t hostAddress = 0;
    if (host) {
        hostAddress = ::inet_addr(host);
        if (hostAddress == INADDR_NONE) {
            addrinfo hints{};
            hints.ai_family = AF_INET;
            hints.ai_socktype = SOCK_STREAM;
            addrinfo* found = nullptr;
            if (::getaddrinfo(host, nullptr, &hints, &found) != 0 || found == nullptr) {
                seterror(kErrorUnknownHost, kUnknownHostText);
                return nullptr;
            }
            // Only an Internet address fits the record.
            const bool inet = found->ai_family == AF_INET && found->ai_addrlen >= sizeof(sockaddr_in);
            if (inet) {
                sockaddr_in first;
                std::memcpy(&first, found->ai_addr, sizeof first);
                hostAddress = first.sin_addr.s_addr;
            }
            ::freeaddrinfo(found);
            if (!inet) {
                seterror(kErrorFamily, kUnknownFamilyText);
                return nullptr;
            }
        }
    }

    in_port_t portNumber = 0;
    if (port) {
        if (const servent* service = ::getservbyname(port, protocol ? protocol : "tcp")) {
            portNumber = static_cast<in_port_t>(service->s_port);
        } else {
            const int value = std::atoi(port);
            if (value <= 0 || value > 65535) {
                seterror(kErrorBadPort, kBadPortText);
                return nullptr;
            }
            portNumber = htons(static_cast<uint16_t>(value));
        }
    }

    std::memset(&inetAddress, 0, sizeof inetAddress);
    inetAddress.address.inet.sin_family = AF_INET;
    inetAddress.address.inet.sin_port = portNumber;
    inetAddress.address.inet.sin_addr.s_addr = hostAddress;
    inetAddress.length = sizeof(sockaddr_in);
    return &inetAddress;
}

int zn_URL_web::sn_start_inet_stream_client(const char* host, const char* port) {
    const Address* address = make_inet_addr(host, port, "tcp");
    if (address == nullptr) return -1;
    const int fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0) return -1;
    sockaddr_in target = address->address.inet;
    if (::connect(fd, reinterpret_cast<const sockaddr*>(&target), address->length) != 0) {
        const int saved = errno;
        ::close(fd);
        errno = saved;
        return -1;
    }
    return fd;
}

int zn_URL_web::fd_printf(int fd, const char* format, ...) {
    if (format == nullptr) return 0;
    va_list args;
    va_start(args, format);
    const std::string text = znFormatText(format, args);
    va_end(args);

    const bool open = ::fcntl(fd, F_GETFD) != -1;
    if (!open || !sendAll(fd, text.data(), text.size())) {
        std::fprintf(stderr, kFdPrintfFailed, fd, format);
        return -1;
    }
    return static_cast<int>(text.size());
}
