// Network-byte-order value types: each stores exactly its wire width, big-endian, and converts implicitly to
// and from the host value. They are plain byte arrays, so they can overlay a received image at any offset.
#pragma once

#include <cstdint>

#include "tarvex/dtString.h"
#include "tarvex/dtWire.h"
#include "tarvex/tarvexExport.h"

namespace DtWire {
template <typename T>
struct Codec;
template <>
struct Codec<std::uint16_t> {
  static constexpr int kWidth = 2;
  static std::uint16_t load(const unsigned char* p) { return loadU16(p); }
  static void store(unsigned char* p, std::uint16_t v) { storeU16(p, v); }
};
template <>
struct Codec<std::uint32_t> {
  static constexpr int kWidth = 4;
  static std::uint32_t load(const unsigned char* p) { return loadU32(p); }
  static void store(unsigned char* p, std::uint32_t v) { storeU32(p, v); }
};
template <>
struct Codec<std::int32_t> {
  static constexpr int kWidth = 4;
  static std::int32_t load(const unsigned char* p) { return loadI32(p); }
  static void store(unsigned char* p, std::int32_t v) { storeI32(p, v); }
};
template <>
struct Codec<float> {
  static constexpr int kWidth = 4;
  static float load(const unsigned char* p) { return loadF32(p); }
  static void store(unsigned char* p, float v) { storeF32(p, v); }
};
template <>
struct Codec<double> {
  static constexpr int kWidth = 8;
  static double load(const unsigned char* p) { return loadF64(p); }
  static void store(unsigned char* p, double v) { storeF64(p, v); }
};
}  // namespace DtWire

// One big-endian value of host type T, stored in exactly its wire width.
template <typename T>
class DtNetValue {
 public:
  // The host type and the width on the wire, in bytes.
  using ValueType = T;
  static constexpr int kWidth = DtWire::Codec<T>::kWidth;

  DtNetValue() : bytes_{} {}
  DtNetValue(T value) { DtWire::Codec<T>::store(bytes_, value); }  // NOLINT: implicit by design
  // Stores a host value in network byte order.
  DtNetValue& operator=(T value) {
    DtWire::Codec<T>::store(bytes_, value);
    return *this;
  }
  operator T() const { return DtWire::Codec<T>::load(bytes_); }  // NOLINT: implicit by design
  // The host value, as the conversion gives it.
  T value() const { return *this; }

  // The value's bytes as they travel.
  const unsigned char* bytes() const { return bytes_; }

 private:
  unsigned char bytes_[kWidth];
};

// The widths control PDUs use: unsigned 16 and 32 bits, signed 32 bits, IEEE single and double precision.
using DtNetU16 = DtNetValue<std::uint16_t>;
using DtNetU32 = DtNetValue<std::uint32_t>;
using DtNetInt32 = DtNetValue<std::int32_t>;
using DtNetFloat32 = DtNetValue<float>;
using DtNetFloat64 = DtNetValue<double>;

static_assert(sizeof(DtNetU16) == 2 && sizeof(DtNetU32) == 4 && sizeof(DtNetInt32) == 4, "wire widths");
static_assert(sizeof(DtNetFloat32) == 4 && sizeof(DtNetFloat64) == 8, "wire widths");

// Three 32-bit floats: a vector carried in single precision.
struct DtNet32Vector {
  // The components, in this order on the wire.
  DtNetFloat32 x, y, z;
};

// Tait-Bryan angles as three 32-bit floats in the order psi (heading), theta (pitch), phi (roll).
struct DtNetEulerAngles {
  // The angles, in this order on the wire.
  DtNetFloat32 psi, theta, phi;
};

static_assert(sizeof(DtNet32Vector) == 12 && sizeof(DtNetEulerAngles) == 12, "wire widths");

// A 64-byte name field: text of at most 64 bytes, padded with zero bytes. Read back as the text up to the
// first zero byte or the 64th byte, whichever comes first.
class TARVEX_EXPORT DtNetGlobalObjectDesignator {
 public:
  // The field's width on the wire, in bytes.
  static constexpr int kWidth = 64;

  DtNetGlobalObjectDesignator() : bytes_{} {}
  // Stores the name, cut at 64 bytes.
  DtNetGlobalObjectDesignator& operator=(const DtString& name) {
    assign(bytes_, name.c_str());
    return *this;
  }
  // The name as text.
  DtString string() const { return read(bytes_); }

  // The same encoding applied to any 64-byte field in a buffer.
  static void assign(unsigned char* field, const char* name);
  static DtString read(const unsigned char* field);

 private:
  unsigned char bytes_[kWidth];
};

static_assert(sizeof(DtNetGlobalObjectDesignator) == 64, "wire width");
