// The viewer emulator's receive path alone: the input cut into received images by their headers' lengths,
// each taken by applyImage() on an emulator without a federation, then the state report. No snapshot, no
// picture, so a sequence that builds objects and then changes them runs at the rate PDUs arrive. Each image
// must be counted as received, whatever it holds.
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "fuzzCommon.h"
#include "vistralemulator/vistralEmulator.h"

namespace {
// Images per input at most, so that one input stays one short sequence.
constexpr int kMaxImages = 16;

// The length of the image at the start of bytes: its header's, at least a header, at most what is left.
std::size_t imageLength(const std::uint8_t* bytes, std::size_t left) {
  const auto header = static_cast<std::size_t>(DtPdu::kHeaderSize);
  if (left < header) return left;
  const std::size_t stated =
      (std::size_t{bytes[DtPdu::kLengthOffset]} << 8) | std::size_t{bytes[DtPdu::kLengthOffset + 1]};
  return std::min(std::max(stated, header), left);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool quiet = (fuzz::silenceStreams(), true);
  (void)quiet;
  DtVistralEmulator emulator("vistral-1");
  long images = 0;
  for (std::size_t at = 0; at < size && images < kMaxImages; ++images) {
    const std::size_t length = imageLength(data + at, size - at);
    emulator.applyImage(data + at, length);
    at += length;
  }
  if (emulator.state().counters.received != images) std::abort();
  if (const auto report = emulator.stateReport()) fuzz::readFields(*report);
  return 0;
}
