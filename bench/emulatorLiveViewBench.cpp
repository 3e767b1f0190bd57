// The emulator under 10,000 PDUs a second, with its live view serving a page that is open, beside the same
// traffic with no view (the baseline): each iteration is 10 ms of traffic (100 PDUs: mode commands, and lines
// drawn and redrawn over 50 ids) and one processIncoming(), of which only processIncoming() is timed. The run
// with the view also reports how far the open page lagged behind the traffic ("pageLagMaxMs": from the
// sending of a PDU to the arrival at the page of the first state that holds it).
#include <benchmark/benchmark.h>
#include <httplib.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "tarvex/dtExerciseConn.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/vdcLinePdu.h"
#include "vistralcontrol/vistralControlRegister.h"
#include "vistralcontrol/vistralRemoteController.h"
#include "vistralemulator/emulatorLiveView.h"
#include "vistralemulator/vistralEmulator.h"

namespace {

using Clock = std::chrono::steady_clock;
constexpr int kPdusPerTick = 100;
constexpr auto kTick = std::chrono::milliseconds(10);

// An open page: reads the event stream and notes when each state's version arrived.
class Page {
 public:
  explicit Page(int port) : thread_([this, port] { read(port); }) {}
  ~Page() {
    stop_ = true;
    thread_.join();
  }
  // When the page first held a state of at least this version; time_point::max() when it never did.
  Clock::time_point sawVersion(std::uint64_t version) {
    std::lock_guard<std::mutex> lock(mutex_);
    for (const auto& [v, at] : arrivals_)
      if (v >= version) return at;
    return Clock::time_point::max();
  }

 private:
  void read(int port) {
    httplib::Client client("127.0.0.1", port);
    client.set_read_timeout(30, 0);
    std::string pending;
    client.Get("/events", [&](const char* data, std::size_t length) {
      const auto now = Clock::now();
      pending.append(data, length);
      std::size_t end;
      while ((end = pending.find("\n\n")) != std::string::npos) {
        const std::size_t at = pending.find("\"version\":");
        if (at != std::string::npos && at < end) {
          const std::uint64_t version = std::strtoull(pending.c_str() + at + 10, nullptr, 10);
          std::lock_guard<std::mutex> lock(mutex_);
          arrivals_.emplace_back(version, now);
        }
        pending.erase(0, end + 2);
      }
      return !stop_;
    });
  }

  std::atomic<bool> stop_{false};
  std::mutex mutex_;
  std::vector<std::pair<std::uint64_t, Clock::time_point>> arrivals_;
  std::thread thread_;
};

double threadCpuMicroseconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}

// interleaved: the view is attached on every other tick only, and each half's processIncoming() is timed on
// its own, so that both see the same load from the rest of the machine.
void emulatorUnderLoad(benchmark::State& state, bool withView, bool interleaved = false) {
  static int run = 0;
  const std::string execution = "EmulatorLoad" + std::to_string(++run);
  DtVistralEmulator emulator(execution.c_str(), "vistral-1");
  DtExerciseConn conn(execution.c_str(), "app");
  DtVistralControlRegister(&conn);
  DtVistralRemoteController controller(&conn, "vistral-1");
  controller.setControllerId("app");
  std::unique_ptr<DtEmulatorLiveView> view;
  std::unique_ptr<Page> page;
  if (withView) {
    view = std::make_unique<DtEmulatorLiveView>("127.0.0.1:0", "<!DOCTYPE html>");
    emulator.setLiveView(view.get());
    page = std::make_unique<Page>(view->port());
  }
  DtVdcLinePdu line;
  line.setType(DtVdc2DLine);
  const char from[2] = {-80, -60}, to[2] = {60, 40};
  line.attachTo(from, to);
  DtVistralControlInteraction inter;
  const DtString tank("1:3001:12");
  std::vector<std::pair<Clock::time_point, std::uint64_t>>
      sent;  // each tick's sending, and the state holding it
  std::size_t uncovered = 0;
  std::uint64_t lastVersion = 0;
  double cpuWith = 0, cpuWithout = 0;
  auto next = Clock::now();
  unsigned id = 0;
  for (auto _ : state) {
    state.PauseTiming();
    std::this_thread::sleep_until(next);
    next += kTick;
    for (int i = 0; i < kPdusPerTick; ++i) {
      if (i % 10 == 0) {
        const float radius = static_cast<float>(100 + i);
        controller.setOrbitMode(&tank, &radius, nullptr, nullptr, nullptr);
      } else {
        line.setObjectId(1 + id++ % 50);
        inter.setVcPdu(line);
        if (!conn.sendInteraction(inter)) state.SkipWithError("the line was not sent");
      }
    }
    sent.emplace_back(Clock::now(), 0);
    const bool attached = !interleaved || sent.size() % 2 == 0;
    if (interleaved) emulator.setLiveView(attached ? view.get() : nullptr);
    const double before = threadCpuMicroseconds();
    state.ResumeTiming();
    emulator.processIncoming();
    state.PauseTiming();
    (attached ? cpuWith : cpuWithout) += threadCpuMicroseconds() - before;
    // A new version holds every tick applied since the last one.
    if (const std::uint64_t version = view ? view->version() : 0; version != lastVersion) {
      for (; uncovered < sent.size(); ++uncovered) sent[uncovered].second = version;
      lastVersion = version;
    }
    state.ResumeTiming();
  }
  state.counters["PDUs/s"] = benchmark::Counter(kPdusPerTick * 1000.0 / kTick.count());
  if (interleaved && cpuWithout > 0) state.counters["viewCostRatio"] = cpuWith / cpuWithout;
  if (!view || interleaved) {
    emulator.setLiveView(nullptr);
    return;
  }
  // The last changes are handed over once more traffic-free calls come, as the program's loop makes them.
  for (int i = 0; i < 20 && uncovered < sent.size(); ++i) {
    std::this_thread::sleep_for(kTick);
    emulator.processIncoming();
    if (const std::uint64_t version = view->version(); version != lastVersion)
      for (; uncovered < sent.size(); ++uncovered) sent[uncovered].second = version;
  }
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  double worst = 0, total = 0;
  for (const auto& [at, version] : sent) {
    const auto seen = page->sawVersion(version);
    const double lag = seen == Clock::time_point::max()
                           ? 1e9
                           : std::chrono::duration<double, std::milli>(std::max(seen, at) - at).count();
    worst = std::max(worst, lag);
    total += lag;
  }
  state.counters["pageLagMaxMs"] = worst;
  state.counters["pageLagMeanMs"] = sent.empty() ? 0 : total / static_cast<double>(sent.size());
  emulator.setLiveView(nullptr);
}

void BM_EmulatorLoad(benchmark::State& state) { emulatorUnderLoad(state, true); }
BENCHMARK(BM_EmulatorLoad)->Iterations(500)->Unit(benchmark::kMicrosecond);

void BM_EmulatorLoad_Baseline(benchmark::State& state) { emulatorUnderLoad(state, false); }
BENCHMARK(BM_EmulatorLoad_Baseline)->Iterations(500)->Unit(benchmark::kMicrosecond);

// Both in one run, tick by tick: viewCostRatio is processIncoming()'s CPU time with the view over without.
void BM_EmulatorLoadInterleaved(benchmark::State& state) { emulatorUnderLoad(state, true, true); }
BENCHMARK(BM_EmulatorLoadInterleaved)->Iterations(1000)->Unit(benchmark::kMicrosecond);

}  // namespace
