// The viewer emulator taking PDUs as they arrive (images through the library's receive path): how many a
// second for view commands and for each draw family, and the heap each drawn line costs when 10^6 of them are
// held.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "tarvex/dtString.h"
#include "vistralcontrol/absoluteVcPdu.h"
#include "vistralcontrol/orbitVcPdu.h"
#include "vistralcontrol/tetherVcPdu.h"
#include "vistralcontrol/vdcAttachablePdu.h"
#include "vistralcontrol/vdcLinePdu.h"
#include "vistralcontrol/vdcTextPdu.h"
#include "vistralcontrol/vistralDrawControlPdu.h"
#include "vistralemulator/vistralEmulator.h"

namespace {
const DtString kViewer("vistral-1");

// The process's resident memory in MB, from the kernel's own count.
double residentMb() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.compare(0, 6, "VmRSS:") == 0) return std::stod(line.substr(6)) / 1024.0;
  return 0;
}

// Images of a few view commands, each addressed to the viewer, taken in turn.
std::vector<std::vector<unsigned char>> viewImages() {
  DtAbsoluteVCPdu absolute;
  absolute.setWorldLocation(DtVector64(1000.0, 2000.0, 50.0));
  DtOrbitVCPdu orbit;
  orbit.setRadius(120);
  DtTetherVCPdu tether;
  std::vector<std::vector<unsigned char>> images;
  for (DtVistralControlPdu* pdu : std::initializer_list<DtVistralControlPdu*>{&absolute, &orbit, &tether}) {
    pdu->setViewerId(kViewer);
    images.emplace_back(pdu->packet(), pdu->packet() + pdu->length());
  }
  return images;
}

// One draw PDU of the type, as DtNewDrawControlPdu builds it, with the object id of its slot.
std::vector<unsigned char> drawImage(DtViewerCommand type, unsigned id) {
  std::unique_ptr<DtVistralControlPdu> pdu(DtNewDrawControlPdu(type));
  if (!pdu) return {};
  auto* draw = dynamic_cast<DtVistralDrawControlPdu*>(pdu.get());
  if (draw != nullptr) draw->setObjectId(id);
  pdu->setViewerId(kViewer);
  return std::vector<unsigned char>(pdu->packet(), pdu->packet() + pdu->length());
}

void BM_EmulatorViewPdu(benchmark::State& state) {
  DtVistralEmulator viewer(kViewer);
  const auto images = viewImages();
  std::size_t i = 0;
  for (auto _ : state) {
    const auto& image = images[i++ % images.size()];
    viewer.applyImage(image.data(), image.size());
  }
  benchmark::DoNotOptimize(viewer.state().view.mode);
  state.SetItemsProcessed(state.iterations());
}

// Draw PDUs of one family (by draw-object type) over a scene of 1000 objects: each PDU replaces an object's
// last one.
void BM_EmulatorDrawPdu(benchmark::State& state) {
  const auto type = static_cast<DtViewerCommand>(state.range(0));
  DtVistralEmulator viewer(kViewer);
  std::vector<std::vector<unsigned char>> images;
  for (unsigned id = 1; id <= 1000; ++id) images.push_back(drawImage(type, id));
  if (images.front().empty()) {
    state.SkipWithError("no class for the type");
    return;
  }
  std::size_t i = 0;
  for (auto _ : state) {
    const auto& image = images[i++ % images.size()];
    viewer.applyImage(image.data(), image.size());
  }
  state.counters["objects"] = static_cast<double>(viewer.state().objects.size());
  state.SetItemsProcessed(state.iterations());
  std::unique_ptr<DtVistralControlPdu> sample(DtNewDrawControlPdu(type));
  state.SetLabel(DtEnumString(sample->viewerCommand()));
}

// 10^6 lines drawn, each under an id of its own and between two world positions of its own: the time per
// line, the heap each one keeps and the heap the scene holds.
void BM_EmulatorHeldLines(benchmark::State& state) {
  const long n = state.range(0);
  std::unique_ptr<DtVistralControlPdu> line(DtNewDrawControlPdu(static_cast<DtViewerCommand>(DtVdc2DLine)));
  line->setViewerId(kViewer);
  auto* draw = dynamic_cast<DtVistralDrawControlPdu*>(line.get());
  auto* anchored = dynamic_cast<DtVdcAttachablePdu*>(line.get());
  unsigned char orange[4] = {255, 128, 0, 255};
  anchored->setColor(orange);
  double perLine = 0;
  for (auto _ : state) {
    state.PauseTiming();
    auto viewer = std::make_unique<DtVistralEmulator>(kViewer);
    const std::size_t before = mallinfo2().uordblks;
    state.ResumeTiming();
    for (long id = 1; id <= n; ++id) {
      draw->setObjectId(static_cast<unsigned>(id));
      const double east = 10.0 * static_cast<double>(id);
      anchored->attachTo(DtVector64(east, 2000.0, 30.0), DtVector64(east + 5.0, 2100.0, 30.0));
      viewer->applyImage(line->packet(), static_cast<std::size_t>(line->length()));
    }
    state.PauseTiming();
    perLine = static_cast<double>(mallinfo2().uordblks - before) / static_cast<double>(n);
    state.counters["MB resident"] = residentMb();
    if (viewer->state().objects.size() != static_cast<std::size_t>(n)) state.SkipWithError("lines were lost");
    viewer.reset();
    state.ResumeTiming();
  }
  state.counters["bytes/line"] = perLine;
  state.counters["MB held"] = perLine * static_cast<double>(n) / 1e6;
  state.SetItemsProcessed(state.iterations() * n);
}
}  // namespace

BENCHMARK(BM_EmulatorViewPdu);
BENCHMARK(BM_EmulatorDrawPdu)
    ->Arg(DtVdc2DLine)
    ->Arg(DtVdc3DSegmentedLine)
    ->Arg(DtVdcCircle)
    ->Arg(DtVdc2DTriangle)
    ->Arg(DtVdc3DArea)
    ->Arg(DtVdc2DText)
    ->Arg(DtVdcLayer);
BENCHMARK(BM_EmulatorHeldLines)->Arg(1000000)->Iterations(1)->Unit(benchmark::kMillisecond);
