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
constexpr std::chrono::milliseconds kInterval(500);
// A server that is alive accepts at once; one that leaves the connection hanging this long is not serving.
constexpr std::chrono::seconds kUnanswered(3);
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
  addrinfo hints{};
  hints.ai_family = AF_UNSPEC;
  hints.ai_socktype = SOCK_STREAM;
  hints.ai_flags = AI_NUMERICSERV;
  addrinfo* found = nullptr;
  if (::getaddrinfo(host_.c_str(), std::to_string(port_).c_str(), &hints, &found) != 0 || found == nullptr)
    return "the RTI server's host " + host_ + " is not known";
  const int s = ::socket(found->ai_family, found->ai_socktype | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  int error = s < 0 ? errno : 0;
  if (s >= 0 && ::connect(s, found->ai_addr, found->ai_addrlen) != 0) {
    error = errno;
    pollfd p{s, POLLOUT, 0};
    if (error == EINPROGRESS) {
      const int waitMs = static_cast<int>(std::chrono::milliseconds(kUnanswered).count());
      error = ::poll(&p, 1, waitMs) > 0 ? 0 : ETIMEDOUT;
      socklen_t length = sizeof error;
      if (error == 0) ::getsockopt(s, SOL_SOCKET, SO_ERROR, &error, &length);
    }
  }
  ::freeaddrinfo(found);
  if (s >= 0) ::close(s);
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
  ::close(socket_);
  socket_ = -1;
  next_ = std::chrono::steady_clock::now() + kInterval;
}

std::string DtServerWatch::check() {
  if (address_.empty() || !lost_.empty()) return lost_;
  const auto now = std::chrono::steady_clock::now();
  if (socket_ < 0) {
    if (now < next_) return lost_;
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = AI_NUMERICSERV;
    addrinfo* found = nullptr;
    if (::getaddrinfo(host_.c_str(), std::to_string(port_).c_str(), &hints, &found) != 0 ||
        found == nullptr) {
      next_ = now + kInterval;  // a name service hiccup is no verdict on the server
      return lost_;
    }
    socket_ = ::socket(found->ai_family, found->ai_socktype | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (socket_ < 0) {
      ::freeaddrinfo(found);
      next_ = now + kInterval;
      return lost_;
    }
    const int rc = ::connect(socket_, found->ai_addr, found->ai_addrlen);
    const int error = rc == 0 ? 0 : errno;
    ::freeaddrinfo(found);
    started_ = now;
    if (rc == 0) {
      finishProbe();
    } else if (error != EINPROGRESS) {
      finishProbe();
      if (error == ECONNREFUSED) noteLoss("the RTI server at " + address_ + " is gone (connection refused)");
    }
    return lost_;
  }
  pollfd p{socket_, POLLOUT, 0};
  if (::poll(&p, 1, 0) > 0) {
    int error = 0;
    socklen_t length = sizeof error;
    ::getsockopt(socket_, SOL_SOCKET, SO_ERROR, &error, &length);
    finishProbe();
    if (error == ECONNREFUSED) noteLoss("the RTI server at " + address_ + " is gone (connection refused)");
  } else if (now - started_ > kUnanswered) {
    finishProbe();
    noteLoss("the RTI server at " + address_ + " has not answered for " +
             std::to_string(kUnanswered.count()) + " s");
  }
  return lost_;
}
