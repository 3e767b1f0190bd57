// One orbit command through an RTI (HLA 1.3, and HLA Evolved in a benchmark of its own) to one subscribed
// federate that speaks the edition's raw API, from three
// senders: a remote controller; a raw sender of the controller's bytes, whose parameter set (or map) is built
// once (the RTI's own cost, the floor); and a raw sender that writes the bytes by hand and refills its set
// for every message (the same work as the controller's, done by hand). All senders subscribe too, as a
// controller listens for reports. Rounds rotate the senders; each sends a batch and the subscriber is ticked
// until the whole batch has arrived. Reported: the best and median cost per message of each, and the best
// CPU time per message that the sending thread spends in the sends alone; the library's share of each over
// the floor and over the hand-made sender; and heap allocations per message (the RTI's
// included), also per message that the controller's connection receives from the raw senders.
#include <benchmark/benchmark.h>

#include "allocationCounter.h"
#include "benchOptions.h"
#include "tarvex/tarvexConfig.h"

#if TARVEX_HAVE_RTI13 || TARVEX_HAVE_RTI1516E
#include <time.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "orbitCommand.h"
#include "rtiRawFederate.h"
#include "tarvex/dtExerciseConn.h"
#include "vistralcontrol/vistralControlRegister.h"
#include "vistralcontrol/vistralRemoteController.h"
#endif

namespace {
#if TARVEX_HAVE_RTI13 || TARVEX_HAVE_RTI1516E
using Clock = std::chrono::steady_clock;

constexpr int kBatch = 1000;
constexpr auto kArrivalLimit = std::chrono::seconds(20);

void sendOrbit(const DtVistralRemoteController& controller) {
  controller.setOrbitMode(&bench::kTank, &bench::kRadius, &bench::kHeading, &bench::kPitch, &bench::kRate);
}

// Keeps the bytes of the last command, so that the raw senders send exactly what the controller does.
struct KeepingSender : DtCustomRemoteControlSender {
  void sendPdu(const unsigned char* bytes, int length) override { image.assign(bytes, bytes + length); }
  std::vector<unsigned char> image;
};

double threadCpuNs() {
  timespec t{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) * 1e9 + static_cast<double>(t.tv_nsec);
}

// Ticks the subscriber until it has received `count` interactions; false when they do not all come.
bool awaitArrivals(RawFederate& subscriber, long count) {
  const auto deadline = Clock::now() + kArrivalLimit;
  while (subscriber.received() < count) {
    subscriber.tick();
    if (Clock::now() > deadline) return false;
  }
  return true;
}

// Declarations reach the RTI's routing some time after the calls return: a sender sends until its first
// interaction arrives, then the stragglers are let in.
bool warmUp(RawFederate& subscriber, const std::function<void()>& send) {
  const long before = subscriber.received();
  const auto deadline = Clock::now() + kArrivalLimit;
  while (subscriber.received() == before) {
    send();
    const auto pause = Clock::now() + std::chrono::milliseconds(20);
    while (Clock::now() < pause) subscriber.tick();
    if (Clock::now() > deadline) return false;
  }
  const auto settle = Clock::now() + std::chrono::milliseconds(300);
  while (Clock::now() < settle) subscriber.tick();
  return true;
}

struct Sender {
  explicit Sender(std::function<void()> sendOne) : send(std::move(sendOne)) {}

  std::function<void()> send;
  std::vector<double> nsPerMessage;
  std::vector<double> sendCpuNsPerMessage;  // this thread's CPU time in the sends alone
  std::uint64_t allocations = 0;
  long messages = 0;

  static double best(const std::vector<double>& v) { return *std::min_element(v.begin(), v.end()); }
  static double median(std::vector<double> v) {
    std::nth_element(v.begin(), v.begin() + static_cast<long>(v.size() / 2), v.end());
    return v[v.size() / 2];
  }
  double allocationsPerMessage() const {
    return static_cast<double>(allocations) / static_cast<double>(messages);
  }

  // One batch: kBatch sends, then the subscriber ticked until all have arrived.
  bool timeBatch(RawFederate& subscriber) {
    const long target = subscriber.received() + kBatch;
    const auto allocationsBefore = bench::allocationCount();
    const auto start = Clock::now();
    const double cpuStart = threadCpuNs();
    for (int i = 0; i < kBatch; ++i) send();
    sendCpuNsPerMessage.push_back((threadCpuNs() - cpuStart) / kBatch);
    if (!awaitArrivals(subscriber, target)) return false;
    const std::chrono::duration<double, std::nano> spent = Clock::now() - start;
    allocations += bench::allocationCount() - allocationsBefore;
    messages += kBatch;
    nsPerMessage.push_back(spent.count() / kBatch);
    return true;
  }
};

// Joins a raw federate of the benchmark's edition, by name, to the execution the controller made.
using JoinRaw = std::function<std::unique_ptr<RawFederate>(const std::string& name)>;

void orbitToSubscriber(benchmark::State& state, const std::string& execution, const JoinRaw& joinRaw) {
  try {
    // The controller's connection creates the execution from the built-in FOM; the raw federates join it.
    DtExerciseConn conn(execution.c_str(), "bench-controller");
    DtVistralControlRegister(&conn);
    DtVistralRemoteController controller(&conn, "vistral-1");
    controller.setControllerId("bench-controller");
    KeepingSender keeper;
    DtVistralRemoteController imageMaker(&keeper, "vistral-1");
    imageMaker.setControllerId("bench-controller");
    sendOrbit(imageMaker);
    std::array<unsigned char, bench::kOrbitLength> byHand{};
    bench::orbitByHand(byHand.data());
    if (keeper.image != std::vector<unsigned char>(byHand.begin(), byHand.end())) {
      state.SkipWithError("the hand-written orbit command differs from the controller's");
      return;
    }

    const std::unique_ptr<RawFederate> subscriber = joinRaw("bench-subscriber");
    const std::unique_ptr<RawFederate> raw = joinRaw("bench-raw-sender");
    const std::unique_ptr<RawFederate> hand = joinRaw("bench-hand-sender");
    subscriber->subscribe();
    for (RawFederate* f : {raw.get(), hand.get()}) {
      f->subscribe();
      f->publish(keeper.image.data(), keeper.image.size());
    }

    Sender library{[&] { sendOrbit(controller); }};
    Sender floor{[&] { raw->send(); }};
    Sender handMade{[&] {
      unsigned char image[bench::kOrbitLength];
      bench::orbitByHand(image);
      hand->send(image, sizeof image);
    }};
    std::array<Sender*, 3> senders{&library, &floor, &handMade};
    for (Sender* s : senders) {
      if (!warmUp(*subscriber, s->send)) {
        state.SkipWithError("the subscriber did not receive the warm-up interactions");
        return;
      }
    }
    // What the senders hear of each other is taken between batches, outside the timing.
    // The controller's connection receives what the raw senders send: its allocations per message received
    // are counted too.
    std::uint64_t receiveAllocations = 0;
    long received = 0;
    const auto drainSenders = [&] {
      raw->tick();
      hand->tick();
      const auto allocationsBefore = bench::allocationCount();
      const int delivered = conn.processIncoming();
      receiveAllocations += bench::allocationCount() - allocationsBefore;
      received += delivered;
    };

    for (auto _ : state) {
      std::rotate(senders.begin(), senders.begin() + 1, senders.end());
      for (Sender* s : senders) {
        drainSenders();
        if (!s->timeBatch(*subscriber)) {
          state.SkipWithError("a batch did not arrive in time");
          return;
        }
      }
      state.SetIterationTime(library.nsPerMessage.back() * 1e-9);
    }
    const auto share = [](double subject, double base) { return 100.0 * (subject - base) / base; };
    const auto report = [&](const char* name, const Sender& s) {
      const std::string n = name;
      state.counters[n + "_ns"] = Sender::best(s.nsPerMessage);
      state.counters[n + "_median_ns"] = Sender::median(s.nsPerMessage);
      state.counters[n + "_send_cpu_ns"] = Sender::best(s.sendCpuNsPerMessage);
      state.counters[n + "_allocs/msg"] = s.allocationsPerMessage();
    };
    report("lib", library);
    report("raw", floor);
    report("hand", handMade);
    state.counters["share_%"] = share(Sender::best(library.nsPerMessage), Sender::best(floor.nsPerMessage));
    state.counters["share_hand_%"] =
        share(Sender::best(library.nsPerMessage), Sender::best(handMade.nsPerMessage));
    state.counters["send_share_%"] =
        share(Sender::best(library.sendCpuNsPerMessage), Sender::best(floor.sendCpuNsPerMessage));
    state.counters["send_share_hand_%"] =
        share(Sender::best(library.sendCpuNsPerMessage), Sender::best(handMade.sendCpuNsPerMessage));
    state.counters["recv_allocs/msg"] =
        received > 0 ? static_cast<double>(receiveAllocations) / static_cast<double>(received) : 0.0;
    char summary[200];
    std::snprintf(
        summary, sizeof summary,
        ": per message %.0f ns, floor %.0f, by hand %.0f; sending CPU %.0f ns, floor %.0f, by hand %.0f",
        Sender::best(library.nsPerMessage), Sender::best(floor.nsPerMessage),
        Sender::best(handMade.nsPerMessage), Sender::best(library.sendCpuNsPerMessage),
        Sender::best(floor.sendCpuNsPerMessage), Sender::best(handMade.sendCpuNsPerMessage));
    state.SetLabel(execution + summary);
  } catch (const std::exception& e) {
    state.SkipWithError(e.what());
  }
}
#endif

void BM_RtiOrbitToSubscriber(benchmark::State& state) {
#if TARVEX_HAVE_RTI13
  const std::string& execution = bench::rtiExecution();
  orbitToSubscriber(state, execution,
                    [&](const std::string& name) { return RawFederate::join(execution, name); });
#else
  state.SkipWithError(
      "skipped: this build has no HLA 1.3 RTI (configure with -DVISTRAL_RTI13_ROOT=<prefix>)");
  for (auto _ : state) {
  }
#endif
}

// The same on HLA Evolved: the raw senders build a parameter map (the hand-made one a new map for each
// message, as an application without the library would).
void BM_Rti1516eOrbitToSubscriber(benchmark::State& state) {
#if TARVEX_HAVE_RTI1516E
  // "hla1516e+<settings>/<name>": the raw federates connect with the same settings to the same execution.
  const std::string& execution = bench::rti1516eExecution();
  const auto slash = execution.rfind('/');
  const std::string prefix = "hla1516e+";
  const std::string settings = execution.compare(0, prefix.size(), prefix) == 0 && slash != std::string::npos
                                   ? execution.substr(prefix.size(), slash - prefix.size())
                                   : "";
  const std::string name = execution.substr(slash == std::string::npos ? execution.find(':') + 1 : slash + 1);
  orbitToSubscriber(state, execution, [&](const std::string& federate) {
    return RawFederate::join1516e(settings, name, federate);
  });
#else
  state.SkipWithError(
      "skipped: this build has no HLA Evolved RTI (configure with -DVISTRAL_RTI1516E_ROOT=<prefix>)");
  for (auto _ : state) {
  }
#endif
}
// Each iteration is one round of every sender, kBatch messages each; the reported time is the library's.
BENCHMARK(BM_RtiOrbitToSubscriber)->Iterations(60)->UseManualTime()->Unit(benchmark::kNanosecond);
BENCHMARK(BM_Rti1516eOrbitToSubscriber)->Iterations(60)->UseManualTime()->Unit(benchmark::kNanosecond);
}  // namespace
