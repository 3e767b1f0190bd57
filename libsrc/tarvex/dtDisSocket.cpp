#include "tarvex/dtDisSocket.h"

#include <arpa/inet.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <utility>

#include "tarvex/dtException.h"
#include "tarvex/dtMessage.h"
#include "tarvex/dtPdu.h"

namespace {
[[noreturn]] void bad(const std::string& name, const std::string& why) {
  DT_THROW("DIS address '" + name + "': " + why);
}

// A decimal number in [low, high], or a DtException naming what it was for.
long number(const std::string& name, const std::string& what, const std::string& text, long low, long high) {
  char* end = nullptr;
  errno = 0;
  const long value = text.empty() ? -1 : std::strtol(text.c_str(), &end, 10);
  if (text.empty() || *end != '\0' || errno != 0 || value < low || value > high)
    bad(name,
        what + " '" + text + "' is not a number from " + std::to_string(low) + " to " + std::to_string(high));
  return value;
}

bool flag(const std::string& name, const std::string& what, const std::string& text) {
  return number(name, what, text, 0, 1) == 1;
}

std::uint32_t ipv4(const std::string& name, const std::string& host) {
  in_addr a{};
  if (inet_pton(AF_INET, host.c_str(), &a) == 1) return ntohl(a.s_addr);
  addrinfo hints{};
  hints.ai_family = AF_INET;
  hints.ai_socktype = SOCK_DGRAM;
  addrinfo* found = nullptr;
  if (getaddrinfo(host.c_str(), nullptr, &hints, &found) != 0 || found == nullptr)
    bad(name, "cannot resolve host '" + host + "'");
  const std::uint32_t address = ntohl(reinterpret_cast<const sockaddr_in*>(found->ai_addr)->sin_addr.s_addr);
  freeaddrinfo(found);
  return address;
}

sockaddr_in socketAddress(std::uint32_t address, std::uint16_t port) {
  sockaddr_in a{};
  a.sin_family = AF_INET;
  a.sin_addr.s_addr = htonl(address);
  a.sin_port = htons(port);
  return a;
}

const sockaddr* asGeneric(const sockaddr_in& a) { return reinterpret_cast<const sockaddr*>(&a); }

// What failed and the system's reason; error is errno as the failing call left it, taken before the text is
// built, since building it may change errno.
std::string systemError(int error, const std::string& what) { return what + ": " + std::strerror(error); }

constexpr int kReceiveBufferRequest = 8 << 20;

bool isMulticast(std::uint32_t address) { return (address >> 28) == 0xE; }

void setOption(int fd, const DtDisAddress& address, int level, int option, const void* value, socklen_t size,
               const char* what) {
  if (setsockopt(fd, level, option, value, size) != 0)
    bad(address.name, systemError(errno, std::string("cannot set ") + what));
}

void setInt(int fd, const DtDisAddress& address, int level, int option, int value, const char* what) {
  setOption(fd, address, level, option, &value, sizeof value, what);
}

int openSocket(const DtDisAddress& address) {
  const int fd = socket(AF_INET, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  if (fd < 0) bad(address.name, systemError(errno, "cannot open a UDP socket"));
  return fd;
}

std::int64_t nowMs() {
  return std::chrono::duration_cast<std::chrono::milliseconds>(
             std::chrono::steady_clock::now().time_since_epoch())
      .count();
}
}  // namespace

bool DtWarningLimit::allow() {
  if (reset_) occurrences_ = 0;
  ++occurrences_;
  const std::int64_t now = nowMs();
  reset_ = last_ == 0 || now - last_ >= 1000;
  if (reset_) last_ = now;
  return reset_;
}

bool DtDisAddress::isDisName(const char* name) {
  return name != nullptr &&
         std::strncmp(name, DtDisBinding::kScheme, std::strlen(DtDisBinding::kScheme)) == 0;
}

DtDisAddress DtDisAddress::parse(const std::string& name) {
  if (!isDisName(name.c_str())) bad(name, std::string("does not begin with ") + DtDisBinding::kScheme);
  DtDisAddress a;
  a.name = name;
  const std::string rest = name.substr(std::strlen(DtDisBinding::kScheme));
  const std::size_t query = rest.find('?');
  const std::string hostPort = rest.substr(0, query);
  const std::size_t colon = hostPort.rfind(':');
  if (colon == std::string::npos || colon == 0) bad(name, "needs HOST:PORT");
  a.host = ipv4(name, hostPort.substr(0, colon));
  a.port = static_cast<std::uint16_t>(number(name, "port", hostPort.substr(colon + 1), 1, 65535));
  a.listenPort = a.port;
  bool broadcast = a.host == INADDR_BROADCAST;
  std::size_t at = query == std::string::npos ? rest.size() : query + 1;
  while (at < rest.size()) {
    const std::size_t end = std::min(rest.find('&', at), rest.size());
    const std::string option = rest.substr(at, end - at);
    at = end + 1;
    const std::size_t equals = option.find('=');
    const std::string key = option.substr(0, equals);
    const std::string value = equals == std::string::npos ? "" : option.substr(equals + 1);
    if (key == "listen") {
      a.listenPort = static_cast<std::uint16_t>(number(name, "listen port", value, 1, 65535));
    } else if (key == "interface") {
      a.interface = ipv4(name, value);
    } else if (key == "ttl") {
      a.ttl = static_cast<int>(number(name, "ttl", value, 0, 255));
    } else if (key == "loopback") {
      a.loopback = flag(name, "loopback", value);
    } else if (key == "broadcast") {
      broadcast = flag(name, "broadcast", value);
    } else if (key == "exercise") {
      a.exercise = static_cast<int>(number(name, "exercise", value, 1, 255));
    } else {
      bad(name,
          "unknown option '" + key + "' (known: listen, interface, ttl, loopback, broadcast, exercise)");
    }
  }
  a.cast = isMulticast(a.host) ? Cast::Multicast : broadcast ? Cast::Broadcast : Cast::Unicast;
  return a;
}

std::string DtDisSocket::Endpoint::text() const {
  in_addr a{};
  a.s_addr = htonl(address);
  char host[INET_ADDRSTRLEN] = "";
  inet_ntop(AF_INET, &a, host, sizeof host);
  return std::string(host) + ":" + std::to_string(port);
}

DtDisSocket::DtDisSocket(int fd, DtDisAddress address) : fd_(fd), address_(std::move(address)) {}

DtDisSocket::DtDisSocket(DtDisSocket&& other) noexcept
    : fd_(std::exchange(other.fd_, -1)),
      address_(std::move(other.address_)),
      local_(other.local_),
      lastError_(std::move(other.lastError_)),
      warning_(other.warning_) {}

DtDisSocket& DtDisSocket::operator=(DtDisSocket&& other) noexcept {
  if (this == &other) return *this;
  if (fd_ >= 0) close(fd_);
  fd_ = std::exchange(other.fd_, -1);
  address_ = std::move(other.address_);
  local_ = other.local_;
  lastError_ = std::move(other.lastError_);
  warning_ = other.warning_;
  return *this;
}

DtDisSocket::~DtDisSocket() {
  if (fd_ >= 0) close(fd_);
}

// Connected to its destination, the socket knows the source address and port its datagrams carry (which
// receivers compare to recognise their own sends), and a unicast destination's refusal comes back to it.
DtDisSocket DtDisSocket::sender(const DtDisAddress& address) {
  const int fd = openSocket(address);
  DtDisSocket s(fd, address);
  if (address.cast == DtDisAddress::Cast::Broadcast)
    setInt(fd, address, SOL_SOCKET, SO_BROADCAST, 1, "SO_BROADCAST");
  if (address.cast == DtDisAddress::Cast::Multicast) {
    setInt(fd, address, IPPROTO_IP, IP_MULTICAST_TTL, address.ttl, "IP_MULTICAST_TTL");
    setInt(fd, address, IPPROTO_IP, IP_MULTICAST_LOOP, address.loopback ? 1 : 0, "IP_MULTICAST_LOOP");
    if (address.interface != 0) {
      in_addr via{};
      via.s_addr = htonl(address.interface);
      setOption(fd, address, IPPROTO_IP, IP_MULTICAST_IF, &via, sizeof via, "IP_MULTICAST_IF");
    }
  }
  if (address.interface != 0 && address.cast != DtDisAddress::Cast::Multicast) {
    const sockaddr_in from = socketAddress(address.interface, 0);
    if (bind(fd, asGeneric(from), sizeof from) != 0) {
      const int error = errno;
      bad(address.name, systemError(error, "cannot send from " + Endpoint{address.interface, 0}.text()));
    }
  }
  const sockaddr_in to = socketAddress(address.host, address.port);
  if (connect(fd, asGeneric(to), sizeof to) != 0) {
    const int error = errno;
    bad(address.name, systemError(error, "cannot send to " + Endpoint{address.host, address.port}.text()));
  }
  sockaddr_in self{};
  socklen_t size = sizeof self;
  if (getsockname(fd, reinterpret_cast<sockaddr*>(&self), &size) != 0)
    bad(address.name, systemError(errno, "cannot read the sending socket's address"));
  s.local_ = Endpoint{ntohl(self.sin_addr.s_addr), ntohs(self.sin_port)};
  return s;
}

DtDisSocket DtDisSocket::receiver(const DtDisAddress& address) {
  const int fd = openSocket(address);
  DtDisSocket s(fd, address);
  const bool shared = address.cast != DtDisAddress::Cast::Unicast;
  if (shared) setInt(fd, address, SOL_SOCKET, SO_REUSEADDR, 1, "SO_REUSEADDR");
  // A burst waits in the kernel while the application works between polls. The system caps the request at
  // its own limit (net.core.rmem_max), which still doubles its default; a refusal leaves the default.
  const int receiveBuffer = kReceiveBufferRequest;
  (void)setsockopt(fd, SOL_SOCKET, SO_RCVBUF, &receiveBuffer, sizeof receiveBuffer);
  // A group member binds the group's address, so that other groups on the same port stay out.
  const std::uint32_t bindTo = address.cast == DtDisAddress::Cast::Multicast ? address.host
                               : address.cast == DtDisAddress::Cast::Unicast ? address.interface
                                                                             : INADDR_ANY;
  const sockaddr_in at = socketAddress(bindTo, address.listenPort);
  if (bind(fd, asGeneric(at), sizeof at) != 0) {
    const int error = errno;
    std::string why = systemError(error, "cannot listen on port " + std::to_string(address.listenPort));
    if (!shared && error == EADDRINUSE)
      why += " (two processes on one host need a port each: add ?listen=PORT to one of them)";
    bad(address.name, why);
  }
  if (address.cast == DtDisAddress::Cast::Multicast) {
    ip_mreq join{};
    join.imr_multiaddr.s_addr = htonl(address.host);
    join.imr_interface.s_addr = htonl(address.interface);
    setOption(fd, address, IPPROTO_IP, IP_ADD_MEMBERSHIP, &join, sizeof join, "IP_ADD_MEMBERSHIP");
  }
  s.local_ = Endpoint{bindTo, address.listenPort};
  return s;
}

bool DtDisSocket::sendPdu(const void* bytes, std::size_t length) {
  const auto* p = static_cast<const unsigned char*>(bytes);
  ssize_t sent = 0;
  if (address_.exercise < 0 || length <= static_cast<std::size_t>(DtPdu::kExerciseIdOffset)) {
    sent = send(fd_, p, length, MSG_DONTWAIT | MSG_NOSIGNAL);
  } else {
    // The exercise id goes in on the way out: the PDU's own bytes are the caller's and stay as they are.
    unsigned char exercise = static_cast<unsigned char>(address_.exercise);
    constexpr std::size_t at = DtPdu::kExerciseIdOffset;
    iovec parts[3] = {{const_cast<unsigned char*>(p), at},
                      {&exercise, 1},
                      {const_cast<unsigned char*>(p + at + 1), length - at - 1}};
    msghdr message{};
    message.msg_iov = parts;
    message.msg_iovlen = 3;
    sent = sendmsg(fd_, &message, MSG_DONTWAIT | MSG_NOSIGNAL);
  }
  if (sent == static_cast<ssize_t>(length)) return true;
  const int error = errno;
  fail(sent < 0 ? systemError(error, "cannot send to " + Endpoint{address_.host, address_.port}.text())
                : "sent " + std::to_string(sent) + " of " + std::to_string(length) + " bytes");
  return false;
}

void DtDisSocket::fail(const std::string& what) {
  lastError_ = what;
  if (warning_.allow())
    DtWarn.message("%s: %s (%lu refused since the last warning)\n", address_.name.c_str(), what.c_str(),
                   warning_.occurrences());
}

long DtDisSocket::receive(void* buffer, std::size_t capacity, Endpoint* from) {
  sockaddr_in source{};
  socklen_t size = sizeof source;
  const ssize_t n =
      recvfrom(fd_, buffer, capacity, MSG_DONTWAIT | MSG_TRUNC, reinterpret_cast<sockaddr*>(&source), &size);
  if (n < 0) return -1;  // nothing waiting, or an error the next datagram does not share
  if (from != nullptr) *from = Endpoint{ntohl(source.sin_addr.s_addr), ntohs(source.sin_port)};
  return static_cast<long>(n);
}

DtDisSocket::Verdict DtDisSocket::check(const unsigned char* bytes, std::size_t size, int exercise) {
  if (size < static_cast<std::size_t>(DtPdu::kHeaderSize)) return Verdict::TooShort;
  // Larger than a datagram can be: the receive buffer's extra byte caught a cut one, whatever its header
  // says.
  if (size > DtDisBinding::kMaxDatagram) return Verdict::BadLength;
  if (bytes[DtPdu::kKindOffset] != DtDisBinding::kPduKind) return Verdict::OtherKind;
  if (exercise >= 0 && bytes[DtPdu::kExerciseIdOffset] != exercise) return Verdict::OtherExercise;
  const std::size_t stated =
      (std::size_t{bytes[DtPdu::kLengthOffset]} << 8) | std::size_t{bytes[DtPdu::kLengthOffset + 1]};
  return stated == size ? Verdict::Accepted : Verdict::BadLength;
}
