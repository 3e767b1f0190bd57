// Big-endian loads and stores of fixed-width values, independent of the host's byte order.
// Every network value type and every PDU accessor goes through these; nothing else swaps bytes.
#pragma once

#include <cstdint>
#include <cstring>

namespace DtWire {

// One byte.
inline std::uint8_t loadU8(const unsigned char* p) { return p[0]; }
inline void storeU8(unsigned char* p, std::uint8_t v) { p[0] = v; }

// Two bytes, most significant first.
inline std::uint16_t loadU16(const unsigned char* p) {
  return static_cast<std::uint16_t>((unsigned{p[0]} << 8) | unsigned{p[1]});
}
inline void storeU16(unsigned char* p, std::uint16_t v) {
  p[0] = static_cast<unsigned char>(v >> 8);
  p[1] = static_cast<unsigned char>(v);
}

// Four bytes, most significant first.
inline std::uint32_t loadU32(const unsigned char* p) {
  return (std::uint32_t{p[0]} << 24) | (std::uint32_t{p[1]} << 16) | (std::uint32_t{p[2]} << 8) |
         std::uint32_t{p[3]};
}
inline void storeU32(unsigned char* p, std::uint32_t v) {
  p[0] = static_cast<unsigned char>(v >> 24);
  p[1] = static_cast<unsigned char>(v >> 16);
  p[2] = static_cast<unsigned char>(v >> 8);
  p[3] = static_cast<unsigned char>(v);
}

// Eight bytes, most significant first.
inline std::uint64_t loadU64(const unsigned char* p) {
  return (std::uint64_t{loadU32(p)} << 32) | loadU32(p + 4);
}
inline void storeU64(unsigned char* p, std::uint64_t v) {
  storeU32(p, static_cast<std::uint32_t>(v >> 32));
  storeU32(p + 4, static_cast<std::uint32_t>(v));
}

// A signed 32-bit value in two's complement.
inline std::int32_t loadI32(const unsigned char* p) { return static_cast<std::int32_t>(loadU32(p)); }
inline void storeI32(unsigned char* p, std::int32_t v) { storeU32(p, static_cast<std::uint32_t>(v)); }

// IEEE single precision, as the bits of a 32-bit value.
inline float loadF32(const unsigned char* p) {
  const std::uint32_t bits = loadU32(p);
  float v;
  std::memcpy(&v, &bits, sizeof v);
  return v;
}
// The same, stored.
inline void storeF32(unsigned char* p, float v) {
  std::uint32_t bits;
  std::memcpy(&bits, &v, sizeof bits);
  storeU32(p, bits);
}

// IEEE double precision, as the bits of a 64-bit value.
inline double loadF64(const unsigned char* p) {
  const std::uint64_t bits = loadU64(p);
  double v;
  std::memcpy(&v, &bits, sizeof v);
  return v;
}
// The same, stored.
inline void storeF64(unsigned char* p, double v) {
  std::uint64_t bits;
  std::memcpy(&bits, &v, sizeof bits);
  storeU64(p, bits);
}

}  // namespace DtWire
