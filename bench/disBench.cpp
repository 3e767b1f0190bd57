// DIS over UDP on the loopback interface: a controller's command to the wire through a dis:// connection and
// through the ready-made DIS sender, beside a hand-written sendto of the same 312 bytes; and datagrams to the
// ViewControl callback, beside a hand-written recvfrom and copy of each.
#include <arpa/inet.h>
#include <benchmark/benchmark.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstring>
#include <string>
#include <vector>

#include "allocationCounter.h"
#include "orbitCommand.h"
#include "tarvex/dtExerciseConn.h"
#include "vistralcontrol/disRemoteControlSender.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/vistralControlRegister.h"
#include "vistralcontrol/vistralRemoteController.h"

namespace {
using bench::kHeading;
using bench::kOrbitLength;
using bench::kPitch;
using bench::kRadius;
using bench::kRate;
using bench::kTank;
using bench::orbitByHand;

// Datagrams queued before each timed receive, so that the sends stay outside the timing.
constexpr int kBatch = 64;

sockaddr_in loopback(int port) {
  sockaddr_in a{};
  a.sin_family = AF_INET;
  a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  a.sin_port = htons(static_cast<std::uint16_t>(port));
  return a;
}

// A UDP socket on a free loopback port; it drops what it is sent when nobody reads it.
struct Socket {
  Socket() : fd(socket(AF_INET, SOCK_DGRAM, 0)), address(loopback(0)) {
    bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address);
    socklen_t size = sizeof address;
    getsockname(fd, reinterpret_cast<sockaddr*>(&address), &size);
  }
  ~Socket() { close(fd); }
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;
  int port() const { return ntohs(address.sin_port); }
  void sendTo(const sockaddr_in& to, const unsigned char* bytes, std::size_t length) const {
    sendto(fd, bytes, length, 0, reinterpret_cast<const sockaddr*>(&to), sizeof to);
  }
  int fd;
  sockaddr_in address;
};

int freePort() { return Socket().port(); }

std::string toPort(int port, int listen) {
  return "dis://127.0.0.1:" + std::to_string(port) + "?listen=" + std::to_string(listen);
}

void BM_DisControllerOrbitToWire(benchmark::State& state) {
  const Socket sink;
  DtExerciseConn conn(toPort(sink.port(), freePort()).c_str(), "bench-controller");
  DtVistralControlRegister(&conn);
  DtVistralRemoteController controller(&conn, "vistral-1");
  controller.setControllerId("bench-controller");
  controller.reset();  // the banner goes out before timing
  const auto before = bench::allocationCount();
  for (auto _ : state) controller.setOrbitMode(&kTank, &kRadius, &kHeading, &kPitch, &kRate);
  BENCH_COUNT_ALLOCATIONS(state, before);
  if (conn.datagramStatistics().sendFailures > 0) state.SkipWithError("sends were refused");
}
BENCHMARK(BM_DisControllerOrbitToWire);

void BM_DisSenderOrbitToWire(benchmark::State& state) {
  const Socket sink;
  DtDisRemoteControlSender wire("dis://127.0.0.1:" + std::to_string(sink.port()));
  DtVistralRemoteController controller(&wire, "vistral-1");
  controller.setControllerId("bench-controller");
  controller.reset();
  const auto before = bench::allocationCount();
  for (auto _ : state) controller.setOrbitMode(&kTank, &kRadius, &kHeading, &kPitch, &kRate);
  BENCH_COUNT_ALLOCATIONS(state, before);
  if (wire.failures() > 0) state.SkipWithError("sends were refused");
}
BENCHMARK(BM_DisSenderOrbitToWire);

// The same bytes written by hand and sent with sendto.
void BM_DisOrbitToWire_Baseline(benchmark::State& state) {
  const Socket sink, out;
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    unsigned char image[kOrbitLength];
    orbitByHand(image);
    out.sendTo(sink.address, image, sizeof image);
    benchmark::ClobberMemory();
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}
BENCHMARK(BM_DisOrbitToWire_Baseline)->Name("BM_DisControllerOrbitToWire_Baseline");
BENCHMARK(BM_DisOrbitToWire_Baseline)->Name("BM_DisSenderOrbitToWire_Baseline");

void countArrival(DtVistralControlInteraction* inter, void* usr) {
  if (inter->vcPdu() != nullptr) ++*static_cast<long*>(usr);
}

void BM_DisDatagramToCallback(benchmark::State& state) {
  const int listen = freePort();
  const Socket peer;
  DtExerciseConn conn(toPort(peer.port(), listen).c_str(), "bench-viewer");
  DtVistralControlRegister(&conn);
  long arrived = 0;
  DtVistralControlInteraction::addCallback(&conn, &countArrival, &arrived);
  const sockaddr_in target = loopback(listen);
  unsigned char image[kOrbitLength];
  orbitByHand(image);
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    state.PauseTiming();
    for (int i = 0; i < kBatch; ++i) peer.sendTo(target, image, sizeof image);
    state.ResumeTiming();
    conn.processIncoming();
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
  state.SetItemsProcessed(state.iterations() * kBatch);
  if (arrived != state.iterations() * kBatch) state.SkipWithError("datagrams were lost");
  DtVistralControlInteraction::removeCallback(&conn, &countArrival, &arrived);
}
BENCHMARK(BM_DisDatagramToCallback);

// Each datagram read with recvfrom and copied out of the receive buffer, as a hand-written receiver would.
void BM_DisDatagramToCallback_Baseline(benchmark::State& state) {
  const Socket in, peer;
  unsigned char image[kOrbitLength];
  orbitByHand(image);
  std::vector<unsigned char> buffer(65536), copy(kOrbitLength);
  long arrived = 0;
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    state.PauseTiming();
    for (int i = 0; i < kBatch; ++i) peer.sendTo(in.address, image, sizeof image);
    state.ResumeTiming();
    for (int i = 0; i < kBatch; ++i) {
      sockaddr_in from{};
      socklen_t size = sizeof from;
      const ssize_t n = recvfrom(in.fd, buffer.data(), buffer.size(), MSG_DONTWAIT,
                                 reinterpret_cast<sockaddr*>(&from), &size);
      if (n <= 0) break;
      std::memcpy(copy.data(), buffer.data(), static_cast<std::size_t>(n));
      benchmark::DoNotOptimize(copy.data());
      ++arrived;
    }
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
  state.SetItemsProcessed(state.iterations() * kBatch);
  if (arrived != state.iterations() * kBatch) state.SkipWithError("datagrams were lost");
}
BENCHMARK(BM_DisDatagramToCallback_Baseline);
}  // namespace
