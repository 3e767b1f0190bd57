// Draw-control PDUs built, filled and received: a 16-segment line and a full area, each beside the same bytes
// written or copied by hand.
#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>

#include "allocationCounter.h"
#include "tarvex/dtWire.h"
#include "vistralcontrol/vdcAreaPdu.h"
#include "vistralcontrol/vdcLinePdu.h"

namespace {
constexpr int kSegments = 16;
constexpr int kLineLength = 392 + 16 * kSegments;
constexpr int kAreaLength = 1312;
unsigned char kColor[4] = {255, 128, 0, 255};
const DtVector64 kFrom(-2476512.25, -4665431.5, 3588000.75);
const DtVector64 kTo(-2476000.5, -4665000.25, 3588100.0);

void fillLine(DtVdcLinePdu& pdu) {
  pdu.setObjectId(1001);
  pdu.setType(DtVdc3DLine);
  pdu.attachTo(kFrom, kTo);
  pdu.setNumSegments(kSegments);
  for (unsigned i = 0; i < kSegments; ++i) {
    pdu.setPercentage(i, 100 / kSegments);
    pdu.setThickness(i, static_cast<unsigned char>(1 + i % 4));
    pdu.setPattern(i, 0xF0F0F0F0);
    pdu.setColor(i, kColor);
    pdu.setArrowStyle(
        i, i + 1 == kSegments ? DtVdcLinePdu::DtVdcStyleArrowEnd : DtVdcLinePdu::DtVdcStyleNoArrow);
  }
}

void BM_Line16BuildAndFill(benchmark::State& state) {
  delete DtNewDrawControlPdu(static_cast<DtViewerCommand>(DtVdc3DLine));  // the banner goes out before timing
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    DtVdcLinePdu pdu;
    fillLine(pdu);
    benchmark::DoNotOptimize(pdu.packet());
    benchmark::ClobberMemory();
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}
BENCHMARK(BM_Line16BuildAndFill);

void storeHeader(unsigned char* image, int length, int command) {
  std::memset(image, 0, static_cast<std::size_t>(length));
  image[0] = 6;
  image[1] = 1;
  image[2] = 202;
  image[3] = 129;
  DtWire::storeU16(image + 8, static_cast<std::uint16_t>(length));
  DtWire::storeU16(image + 146, static_cast<std::uint16_t>(command));
  DtWire::storeU32(image + 152, 0x600DF00D);
  DtWire::storeU16(image + 156, 1);
}

void storeVector(unsigned char* at, const DtVector64& v) {
  DtWire::storeF64(at, v.x());
  DtWire::storeF64(at + 8, v.y());
  DtWire::storeF64(at + 16, v.z());
}

// The same 648 bytes with plain stores into a stack buffer.
void BM_Line16BuildAndFill_Baseline(benchmark::State& state) {
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    unsigned char image[kLineLength];
    storeHeader(image, kLineLength, 2520);
    DtWire::storeU32(image + 160, 1001);
    DtWire::storeU32(image + 164, DtVdc3DLine);
    image[168] = 1;
    image[170] = 50;
    image[171] = 50;
    storeVector(image + 312, kFrom);
    storeVector(image + 336, kTo);
    DtWire::storeU32(image + 384, kSegments);
    for (unsigned i = 0; i < kSegments; ++i) {
      unsigned char* record = image + 392 + 16 * i;
      std::memcpy(record, kColor, 4);
      DtWire::storeU32(record + 4, 0xF0F0F0F0);
      DtWire::storeU32(record + 8, 1 + i % 4);
      record[12] = i + 1 == kSegments ? 1 : 0;
      record[13] = 100 / kSegments;
    }
    benchmark::DoNotOptimize(image);
    benchmark::ClobberMemory();
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}
BENCHMARK(BM_Line16BuildAndFill_Baseline);

void fillArea(DtVdcAreaPdu& pdu) {
  pdu.setObjectId(2002);
  pdu.setType(DtVdc3DArea);
  pdu.attachTo(DtString("1:3001:12"));
  pdu.setColor(kColor);
  pdu.setFill(true);
  pdu.setPattern(0x00FFFFFF);
  pdu.setScale(DtVector64(1, 1, 1));
  pdu.setNumPoints(DtVdcAreaPduBase::kMaxPoints);
  for (int i = 0; i < DtVdcAreaPduBase::kMaxPoints; ++i) pdu.setPoint(i, kFrom + DtVector64(i, 2.0 * i, 0));
  pdu.setTextureFilename("grass.png");
  pdu.setTextureDirectory("textures/ground");
  pdu.setNumTextureTiles(4);
}

void BM_AreaBuildAndFill(benchmark::State& state) {
  delete DtNewDrawControlPdu(static_cast<DtViewerCommand>(DtVdc3DArea));
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    DtVdcAreaPdu pdu;
    fillArea(pdu);
    benchmark::DoNotOptimize(pdu.packet());
    benchmark::ClobberMemory();
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}
BENCHMARK(BM_AreaBuildAndFill);

void storeText(unsigned char* at, const char* text, std::size_t width) {
  const std::size_t n = strnlen(text, width);
  std::memcpy(at, text, n);
  std::memset(at + n, 0, width - n);
}

// The same 1312 bytes with plain stores into a stack buffer.
void BM_AreaBuildAndFill_Baseline(benchmark::State& state) {
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    unsigned char image[kAreaLength];
    storeHeader(image, kAreaLength, 2553);
    image[158] = 64;
    DtWire::storeU32(image + 160, 2002);
    DtWire::storeU32(image + 164, DtVdc3DArea);
    image[168] = 2;
    image[170] = 50;
    image[171] = 50;
    std::memcpy(image + 172, kColor, 4);
    storeText(image + 176, "1:3001:12", 64);
    DtWire::storeU32(image + 384, 0x00FFFFFF);
    DtWire::storeF32(image + 388, 1.0f);
    DtWire::storeF32(image + 392, 1.0f);
    DtWire::storeF32(image + 396, 1.0f);
    for (int i = 0; i < DtVdcAreaPduBase::kMaxPoints; ++i)
      storeVector(image + 412 + 24 * i, kFrom + DtVector64(i, 2.0 * i, 0));
    storeText(image + 796, "grass.png", 256);
    storeText(image + 1052, "textures/ground", 256);
    image[1308] = DtVdcAreaPduBase::kMaxPoints;
    image[1309] = 4;
    benchmark::DoNotOptimize(image);
    benchmark::ClobberMemory();
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}
BENCHMARK(BM_AreaBuildAndFill_Baseline);

template <class T, void (*Fill)(T&)>
std::unique_ptr<unsigned char[]> receivedImage() {
  T pdu;
  Fill(pdu);
  std::unique_ptr<unsigned char[]> image(new unsigned char[DtPdu::kMaxLength + 1]());
  std::memcpy(image.get(), pdu.packet(), static_cast<std::size_t>(pdu.length()));
  return image;
}

template <class T, void (*Fill)(T&)>
void BM_CreateFromNet(benchmark::State& state) {
  const auto image = receivedImage<T, Fill>();
  const auto* header = reinterpret_cast<const DtNetPduHeader*>(image.get());
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    std::unique_ptr<DtPdu> pdu(DtVistralControlPdu::createFromNet(header, nullptr, nullptr));
    benchmark::DoNotOptimize(pdu->packet());
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}

// The same image copied with memcpy into a new heap block of the object's size.
template <class T, void (*Fill)(T&)>
void BM_CreateFromNet_Baseline(benchmark::State& state) {
  const auto image = receivedImage<T, Fill>();
  const auto length = DtWire::loadU16(image.get() + 8);
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    std::unique_ptr<unsigned char[]> copy(new unsigned char[sizeof(T)]);
    std::memcpy(copy.get(), image.get(), length);
    benchmark::DoNotOptimize(copy.get());
    benchmark::ClobberMemory();
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}

BENCHMARK(BM_CreateFromNet<DtVdcLinePdu, fillLine>)->Name("BM_CreateFromNetLine16");
BENCHMARK(BM_CreateFromNet_Baseline<DtVdcLinePdu, fillLine>)->Name("BM_CreateFromNetLine16_Baseline");
BENCHMARK(BM_CreateFromNet<DtVdcAreaPdu, fillArea>)->Name("BM_CreateFromNetArea");
BENCHMARK(BM_CreateFromNet_Baseline<DtVdcAreaPdu, fillArea>)->Name("BM_CreateFromNetArea_Baseline");
}  // namespace
