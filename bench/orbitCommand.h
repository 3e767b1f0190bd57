// The orbit command that the controller and RTI benchmarks send: its arguments, and its 312 bytes as a
// hand-written encoder would produce them.
#pragma once

#include <cstring>

#include "tarvex/dtNetTypes.h"
#include "tarvex/dtString.h"
#include "tarvex/dtWire.h"

namespace bench {
inline const DtString kTank("1:3001:12");
constexpr float kRadius = 120, kHeading = 0.5f, kPitch = -0.3f, kRate = 0.1f;
constexpr int kOrbitLength = 312;

inline void orbitByHand(unsigned char* image) {
  std::memset(image, 0, kOrbitLength);
  image[0] = 6;
  image[1] = 1;
  image[2] = 202;
  image[3] = 129;
  DtWire::storeU16(image + 8, kOrbitLength);
  DtNetGlobalObjectDesignator::assign(image + 12, "vistral-1");
  DtNetGlobalObjectDesignator::assign(image + 76, "bench-controller");
  DtWire::storeU16(image + 146, 5);
  DtWire::storeU32(image + 152, 0xFFEBFDE7);
  DtWire::storeF32(image + 156, kRadius);
  DtWire::storeF32(image + 160, kRate);
  DtWire::storeF32(image + 164, kHeading);
  DtWire::storeF32(image + 168, kPitch);
  DtNetGlobalObjectDesignator::assign(image + 184, kTank.c_str());
}
}  // namespace bench
