#include "vistralemulator/emulatorState.h"

#include <algorithm>
#include <cstring>

#include "vistralcontrol/vistralDrawControlPdu.h"

namespace {
// A zero byte in the packed form is followed by the length of the run of zeros it stands for (1 to 255);
// every other byte stands for itself.
constexpr std::size_t kLongestRun = 255;
}  // namespace

DtEmulatorImage::DtEmulatorImage(const std::uint8_t* data, std::size_t size) { assign(data, size); }

namespace {
// The length of the run of zeros at data, at most limit; eight bytes at a time, since images are mostly
// zeros.
std::size_t zeroRun(const std::uint8_t* data, std::size_t limit) {
  std::size_t run = 0;
  for (std::uint64_t word = 0; run + sizeof word <= limit; run += sizeof word) {
    std::memcpy(&word, data + run, sizeof word);
    if (word != 0) break;
  }
  while (run < limit && data[run] == 0) ++run;
  return run;
}
}  // namespace

void DtEmulatorImage::assign(const std::uint8_t* data, std::size_t size) {
  // Packed into scratch first, so that the kept vector is allocated once and at its exact size. At worst
  // (single zeros between other bytes) the packed form is half as long again as the image.
  thread_local std::vector<std::uint8_t> scratch;
  const std::size_t worst = size + size / 2 + 1;
  if (scratch.size() < worst) scratch.resize(worst);
  std::uint8_t* out = scratch.data();
  const std::uint8_t* at = data;
  const std::uint8_t* const end = data + size;
  while (at < end) {
    const void* zero = std::memchr(at, 0, static_cast<std::size_t>(end - at));
    const auto* literalEnd = zero != nullptr ? static_cast<const std::uint8_t*>(zero) : end;
    std::memcpy(out, at, static_cast<std::size_t>(literalEnd - at));
    out += literalEnd - at;
    for (at = literalEnd; at < end && *at == 0;) {
      const std::size_t run = zeroRun(at, std::min(kLongestRun, static_cast<std::size_t>(end - at)));
      *out++ = 0;
      *out++ = static_cast<std::uint8_t>(run);
      at += run;
    }
  }
  packed_.assign(scratch.data(), out);
  size_ = size;
}

std::vector<std::uint8_t> DtEmulatorImage::bytes() const {
  std::vector<std::uint8_t> out;
  out.reserve(size_);
  for (std::size_t i = 0; i < packed_.size(); ++i) {
    if (packed_[i] != 0) {
      out.push_back(packed_[i]);
    } else if (i + 1 < packed_.size()) {
      out.insert(out.end(), packed_[++i], 0);
    }
  }
  return out;
}

bool DtEmulatorState::shown(const DtEmulatorObject& object) const {
  if (!object.visible) return false;
  for (const std::uint32_t layer : object.layers) {
    const auto found = objects.find(layer);
    if (found != objects.end() && found->second.type == DtVdcLayer && !found->second.visible) return false;
  }
  return true;
}
