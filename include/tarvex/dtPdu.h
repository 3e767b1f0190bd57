// The PDU base: owns one network image and gives bounded, byte-order-independent access to it.
//
// The image lives in storage inside the object, large enough for every fixed-size PDU, so that building and
// filling a PDU costs no heap traffic; only an image that grows past it moves to the heap. Bytes past the
// image's initialised extent read as zero, and a write that does not fit the storage is dropped, so no
// accessor can touch memory outside the object, whatever offset or length a received header states.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <memory>

#include "tarvex/dtNetTypes.h"
#include "tarvex/dtString.h"
#include "tarvex/dtVector.h"
#include "tarvex/tarvexExport.h"

// Lets a caller supply where a PDU keeps its bytes. This toolkit always keeps them inside the PDU; the
// argument is accepted so that the PDU constructors keep their customary signature.
class DtBufferPlaceHolder;
// The factory through which a received PDU was built; the PDU records it and hands it back, nothing more.
class DtPduFactory;

// The 12-byte PDU header as it travels (IEEE 1278.1 layout).
struct DtNetPduHeader {
  unsigned char protocolVersion;
  unsigned char exerciseId;
  unsigned char kind;
  unsigned char protocolFamily;
  DtNetU32 timeStamp;
  DtNetU16 length;
  unsigned char padding[2];
};
static_assert(sizeof(DtNetPduHeader) == 12, "PDU header is 12 bytes");

class TARVEX_EXPORT DtPdu {
 public:
  static constexpr int kHeaderSize = 12;
  static constexpr int kMaxLength = 65535;      // the header's length field is 16 bits
  static constexpr int kInlineCapacity = 1544;  // room for the largest fixed-size control PDU
  static constexpr int kDefaultProtocolVersion = 6;
  static constexpr int kDefaultExerciseId = 1;
  static constexpr int kDefaultProtocolFamily = 129;
  // Where the header's fields lie (DtNetPduHeader).
  static constexpr int kProtocolVersionOffset = 0;
  static constexpr int kExerciseIdOffset = 1;
  static constexpr int kKindOffset = 2;
  static constexpr int kProtocolFamilyOffset = 3;
  static constexpr int kTimeStampOffset = 4;
  static constexpr int kLengthOffset = 8;

  DtPdu() = default;
  DtPdu(const DtPdu& other);
  DtPdu& operator=(const DtPdu& other);
  virtual ~DtPdu();

  // Builds a new zero-filled image of the given length and writes its header.
  void initPdu(int length, DtBufferPlaceHolder* holder);
  // Copies a received image; its header's length field says how many bytes (never fewer than the header).
  void initPdu(const void* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);

  // The image's first byte, and its length as the header states it.
  const unsigned char* packet() const { return data(); }
  unsigned char* packet() { return data(); }
  int length() const { return u16At(kLengthOffset); }

  // Resizing keeps the image contiguous and the length field true. Each refuses (returns false and changes
  // nothing) a result that the length field cannot state or an offset outside the image.
  [[nodiscard]] bool changeSize(int newLength);
  [[nodiscard]] bool insertBytes(int offset, int count);
  [[nodiscard]] bool deleteBytes(int offset, int count);

  // Header fields.
  int protocolVersion() const { return u8At(kProtocolVersionOffset); }
  int exerciseId() const { return u8At(kExerciseIdOffset); }
  void setExerciseId(int id) { setU8At(kExerciseIdOffset, static_cast<std::uint8_t>(id)); }
  int pduKind() const { return u8At(kKindOffset); }
  int protocolFamily() const { return u8At(kProtocolFamilyOffset); }
  std::uint32_t timeStamp() const { return u32At(kTimeStampOffset); }
  void setTimeStamp(std::uint32_t stamp) { setU32At(kTimeStampOffset, stamp); }
  DtPduFactory* factory() const { return factory_; }

  virtual int internalGetPduKind() const;
  // The header's fields, then printData().
  virtual void print() const;
  // The PDU's own fields; the base dumps the bytes after the header.
  virtual void printData() const;
  // printData() into the given stream instead of DtDumpStream.
  void printDataToStream(std::ostream& out) const;

  // Bounded wire access at byte offsets. A read that does not lie wholly inside the initialised image gives
  // zero; a write that does not fit the storage is dropped.
  std::uint8_t u8At(int offset) const { return read<std::uint8_t, 1>(offset, DtWire::loadU8); }
  void setU8At(int offset, std::uint8_t value) { write<std::uint8_t, 1>(offset, value, DtWire::storeU8); }
  std::uint16_t u16At(int offset) const { return read<std::uint16_t, 2>(offset, DtWire::loadU16); }
  void setU16At(int offset, std::uint16_t value) { write<std::uint16_t, 2>(offset, value, DtWire::storeU16); }
  std::uint32_t u32At(int offset) const { return read<std::uint32_t, 4>(offset, DtWire::loadU32); }
  void setU32At(int offset, std::uint32_t value) { write<std::uint32_t, 4>(offset, value, DtWire::storeU32); }
  std::int32_t i32At(int offset) const { return read<std::int32_t, 4>(offset, DtWire::loadI32); }
  void setI32At(int offset, std::int32_t value) { write<std::int32_t, 4>(offset, value, DtWire::storeI32); }
  float f32At(int offset) const { return read<float, 4>(offset, DtWire::loadF32); }
  void setF32At(int offset, float value) { write<float, 4>(offset, value, DtWire::storeF32); }
  double f64At(int offset) const { return read<double, 8>(offset, DtWire::loadF64); }
  void setF64At(int offset, double value) { write<double, 8>(offset, value, DtWire::storeF64); }

  // Three consecutive doubles, or three floats widened to / narrowed from doubles.
  DtVector64 f64VectorAt(int offset) const;
  void setF64VectorAt(int offset, const DtVector64& v);
  DtVector64 f32VectorAt(int offset) const;
  void setF32VectorAt(int offset, const DtVector64& v);
  // Tait-Bryan angles in 32-bit (DtNetEulerAngles) or 64-bit floats, psi first.
  DtTaitBryan eulerAt(int offset) const;
  void setEulerAt(int offset, const DtTaitBryan& angles);
  DtTaitBryan f64EulerAt(int offset) const;
  void setF64EulerAt(int offset, const DtTaitBryan& angles);

  // A 64-byte name field (DtNetGlobalObjectDesignator encoding).
  DtString designatorAt(int offset) const;
  void setDesignatorAt(int offset, const DtString& name);
  // A fixed character field of the given width filled like strncpy: at most width bytes, zero-padded, with
  // no terminator when the text fills the field.
  void setTextAt(int offset, int width, const char* text);
  // Zero-terminated text starting at offset; an unterminated field reads on into the bytes after it, up to
  // the end of the initialised image.
  DtString textAt(int offset) const;
  // Text of at most maxLength bytes at offset, ending early at a zero byte or at the initialised image's end.
  DtString textAt(int offset, long long maxLength) const;
  // The image's bytes [offset, offset + width) in place, or null when they are not all initialised.
  const unsigned char* bytesAt(int offset, int width) const { return readable(offset, width); }

  // Copies raw bytes into the image at offset, under the same rule as the other writes.
  void setBytesAt(int offset, const void* bytes, int count);
  // Copies count bytes of the image from offset out; bytes outside the initialised image come out as zero.
  void copyBytesAt(int offset, void* out, int count) const;

 private:
  unsigned char* data() { return heap_ ? heap_.get() : inline_; }
  const unsigned char* data() const { return heap_ ? heap_.get() : inline_; }
  int capacity() const { return heap_ ? heapCapacity_ : kInlineCapacity; }
  // The accessors are inline: they sit on every send and receive path.
  template <typename T, int Width>
  T read(int offset, T (*load)(const unsigned char*)) const {
    const unsigned char* p = readable(offset, Width);
    return p ? load(p) : T{};
  }
  template <typename T, int Width>
  void write(int offset, T value, void (*store)(unsigned char*, T)) {
    if (unsigned char* p = writable(offset, Width)) store(p, value);
    if (touchesLengthField(offset, Width)) coverStatedLength();
  }
  const unsigned char* readable(int offset, int width) const {
    return offset >= 0 && width >= 0 && offset <= extent_ - width ? data() + offset : nullptr;
  }
  unsigned char* writable(int offset, int width) {
    if (offset >= 0 && width >= 0 && offset <= extent_ - width) return data() + offset;
    return writableBeyondExtent(offset, width);
  }
  unsigned char* writableBeyondExtent(int offset, int width);
  static constexpr bool touchesLengthField(int offset, int width) {
    return offset < kLengthOffset + 2 && offset + width > kLengthOffset;
  }
  // After a write to the length field: the image grows (zero-filled) to what the field now states, so that
  // packet() always has length() bytes behind it.
  void coverStatedLength();
  bool reserve(int bytes);
  void setLengthField(int length);
  void copyFrom(const DtPdu& other);

  // Bytes [0, extent_) of the storage are initialised; the rest is never read.
  int extent_ = 0;
  int heapCapacity_ = 0;
  std::unique_ptr<unsigned char[]> heap_;
  DtPduFactory* factory_ = nullptr;
  unsigned char inline_[kInlineCapacity];
};

static_assert(DtPdu::kProtocolVersionOffset == offsetof(DtNetPduHeader, protocolVersion) &&
                  DtPdu::kExerciseIdOffset == offsetof(DtNetPduHeader, exerciseId) &&
                  DtPdu::kKindOffset == offsetof(DtNetPduHeader, kind) &&
                  DtPdu::kProtocolFamilyOffset == offsetof(DtNetPduHeader, protocolFamily) &&
                  DtPdu::kTimeStampOffset == offsetof(DtNetPduHeader, timeStamp) &&
                  DtPdu::kLengthOffset == offsetof(DtNetPduHeader, length),
              "header offsets are those of DtNetPduHeader");
