#include "dtServerWatch.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <map>
#include <mutex>

namespace {
constexpr int kDefaultPort = 14321;
constexpr std::chrono::milliseconds kInterval(500);
// A server that is alive accepts at once; one that leaves the connection hanging this long is not serving.
constexpr std::chrono::seconds kUnanswered(3);
// What startConnect() says when the host's name finds no address.
constexpr int kUnknownHost = -1;

// How often watches of this process found each server address gone. Connections may live on several
// threads.
struct Losses {
  std::mutex mutex;
  std::map<std::string, int> byAddress;
};
Losses& losses() {
  static Losses theLosses;
  return theLosses;
}

// Starts connecting to host:port without blocking. The socket, with *error 0 (connected) or EINPROGRESS
// (under way); or -1, with *error why not (kUnknownHost when the name finds no address).
int startConnect(const std::string& host, int port, int* error) {
  addrinfo hints{};
  hints.ai_family = AF_UNSPEC;
  hints.ai_socktype = SOCK_STREAM;
  hints.ai_flags = AI_NUMERICSERV;
  addrinfo* found = nullptr;
  if (::getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &found) != 0 || found == nullptr) {
    *error = kUnknownHost;
    return -1;
  }
  int s = ::socket(found->ai_family, found->ai_socktype | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  *error = s < 0 ? errno : 0;
  if (s >= 0 && ::connect(s, found->ai_addr, found->ai_addrlen) != 0) {
    *error = errno;
    if (*error != EINPROGRESS) {
      ::close(s);
      s = -1;
    }
  }
  ::freeaddrinfo(found);
  return s;
}

// How a connection under way ended, once it is writable.
int connectError(int s) {
  int error = 0;
  socklen_t length = sizeof error;
  ::getsockopt(s, SOL_SOCKET, SO_ERROR, &error, &length);
  return error;
}
}  // namespace

DtServerWatch::DtServerWatch(const std::string& execution) {
  std::string name = execution;
  const std::string edition = "hla1516e+";
  if (name.compare(0, edition.size(), edition) == 0) name = name.substr(edition.size());
  const std::string scheme = "rti://";
  if (name.compare(0, scheme.size(), scheme) != 0) return;
  const std::string authority = name.substr(scheme.size(), name.find('/', scheme.size()) - scheme.size());
  const std::size_t colon = authority.rfind(':');
  host_ = authority.substr(0, colon);
  port_ = kDefaultPort;
  if (colon != std::string::npos) {
    char* end = nullptr;
    const long port = std::strtol(authority.c_str() + colon + 1, &end, 10);
    if (*end != '\0' || port <= 0 || port > 65535) return;
    port_ = static_cast<int>(port);
  }
  if (host_.empty()) return;
  address_ = host_ + ":" + std::to_string(port_);
  next_ = std::chrono::steady_clock::now() + kInterval;
}

std::string DtServerWatch::probe() const {
  if (address_.empty()) return {};
  int error = 0;
  const int s = startConnect(host_, port_, &error);
  if (error == EINPROGRESS) {
    pollfd p{s, POLLOUT, 0};
    const auto wait = std::chrono::duration_cast<std::chrono::milliseconds>(kUnanswered);
    error = ::poll(&p, 1, static_cast<int>(wait.count())) > 0 ? connectError(s) : ETIMEDOUT;
  }
  if (s >= 0) ::close(s);
  if (error == kUnknownHost) return "the RTI server's host " + host_ + " is not known";
  if (error == 0) return {};
  return "no RTI server answers at " + address_ + " (" + std::strerror(error) + ")";
}

std::string DtServerWatch::urlForRti(const std::string& url) const {
  if (address_.empty()) return url;
  int lost = 0;
  {
    Losses& all = losses();
    const std::lock_guard<std::mutex> lock(all.mutex);
    const auto found = all.byAddress.find(address_);
    if (found != all.byAddress.end()) lost = found->second;
  }
  if (lost == 0) return url;
  const std::size_t authority = url.find("://");
  const bool hasPath = authority != std::string::npos && url.find('/', authority + 3) != std::string::npos;
  const char* join = url.find('?') != std::string::npos ? "&" : hasPath ? "?" : "/?";
  return url + join + "rejoin=" + std::to_string(lost);
}

void DtServerWatch::noteLoss(const std::string& why) {
  lost_ = why;
  Losses& all = losses();
  const std::lock_guard<std::mutex> lock(all.mutex);
  ++all.byAddress[address_];
}

DtServerWatch::~DtServerWatch() {
  if (socket_ >= 0) ::close(socket_);
}

void DtServerWatch::finishProbe() {
  if (socket_ >= 0) ::close(socket_);
  socket_ = -1;
  next_ = std::chrono::steady_clock::now() + kInterval;
}

std::string DtServerWatch::check() {
  if (address_.empty() || !lost_.empty()) return lost_;
  const auto now = std::chrono::steady_clock::now();
  if (socket_ < 0) {
    if (now < next_) return lost_;
    int error = 0;
    socket_ = startConnect(host_, port_, &error);
    started_ = now;
    // A name service hiccup, or a socket the system would not give, is no verdict on the server.
    if (error != EINPROGRESS) finishProbe();
    if (error == ECONNREFUSED) noteLoss("the RTI server at " + address_ + " is gone (connection refused)");
    return lost_;
  }
  pollfd p{socket_, POLLOUT, 0};
  if (::poll(&p, 1, 0) > 0) {
    const int error = connectError(socket_);
    finishProbe();
    if (error == ECONNREFUSED) noteLoss("the RTI server at " + address_ + " is gone (connection refused)");
  } else if (now - started_ > kUnanswered) {
    finishProbe();
    noteLoss("the RTI server at " + address_ + " has not answered for " +
             std::to_string(kUnanswered.count()) + " s");
  }
  return lost_;
}
