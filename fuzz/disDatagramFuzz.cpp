// Arbitrary datagrams through the DIS receive path into a viewer emulator: each input is sent over the
// loopback interface to an emulator listening on a dis:// address, which takes it in processIncoming().
// Every datagram must be either delivered (and taken by the emulator) or dropped under exactly one reason.
// Inputs read as disDatagramInput.h says.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "disDatagramInput.h"
#include "fuzzCommon.h"
#include "tarvex/dtDisSocket.h"
#include "tarvex/dtExerciseConn.h"
#include "vistralemulator/vistralEmulator.h"

namespace {
// A free loopback port, as the kernel hands one out.
int freePort() {
  const int fd = socket(AF_INET, SOCK_DGRAM, 0);
  sockaddr_in a{};
  a.sin_family = AF_INET;
  a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  bind(fd, reinterpret_cast<sockaddr*>(&a), sizeof a);
  socklen_t size = sizeof a;
  getsockname(fd, reinterpret_cast<sockaddr*>(&a), &size);
  close(fd);
  return ntohs(a.sin_port);
}

struct Network {
  Network()
      : listen(freePort()),
        emulator(
            ("dis://127.0.0.1:" + std::to_string(freePort()) + "?listen=" + std::to_string(listen)).c_str(),
            "vistral-1"),
        fd(socket(AF_INET, SOCK_DGRAM, 0)) {
    to.sin_family = AF_INET;
    to.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    to.sin_port = htons(static_cast<std::uint16_t>(listen));
  }
  ~Network() { close(fd); }
  int listen;
  DtVistralEmulator emulator;
  int fd;
  sockaddr_in to{};
};

std::uint64_t handled(const DtDatagramStatistics& s) { return s.delivered + s.dropped(); }
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool quiet = (fuzz::silenceStreams(), true);
  (void)quiet;
  static Network net;
  static std::vector<unsigned char> datagram;
  if (size == 0) return 0;
  fuzz::datagramOf(data, size, datagram);
  DtExerciseConn& conn = *net.emulator.connection();
  const DtDatagramStatistics before = conn.datagramStatistics();
  const auto took = net.emulator.state().counters.received;
  if (sendto(net.fd, datagram.data(), datagram.size(), 0, reinterpret_cast<const sockaddr*>(&net.to),
             sizeof net.to) != static_cast<ssize_t>(datagram.size()))
    std::abort();
  // On loopback the datagram is there when sendto returns; a moment's grace for a loaded machine.
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(1);
  while (handled(conn.datagramStatistics()) == handled(before) && std::chrono::steady_clock::now() < deadline)
    net.emulator.processIncoming();
  const DtDatagramStatistics after = conn.datagramStatistics();
  if (handled(after) != handled(before) + 1) std::abort();  // lost, or counted twice
  const bool whole =
      DtDisSocket::check(datagram.data(), datagram.size(), -1) == DtDisSocket::Verdict::Accepted;
  if ((after.delivered == before.delivered + 1) != whole) std::abort();
  if (whole && net.emulator.state().counters.received != took + 1) std::abort();
  return 0;
}
