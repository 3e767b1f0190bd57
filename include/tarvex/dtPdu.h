// The PDU base: owns one network image and gives bounded, byte-order-independent access to it.
//
// Each PDU class keeps its image in storage inside the object, sized for that class's image (DtPduStorage),
// so that building and filling a PDU costs no heap traffic and a PDU kept for long costs about its image's
// size; only an image that grows past it moves to the heap. Bytes past the image's initialised extent read
// as zero, and a write past it grows the storage only as far as a PDU can be long, so no accessor can touch
// memory outside the object, whatever offset or length a received header states.
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
  // The header's fields in their order on the wire: protocol version, exercise id, PDU kind, protocol family,
  // timestamp and the whole PDU's length in bytes, then two bytes of padding.
  unsigned char protocolVersion;
  unsigned char exerciseId;
  unsigned char kind;
  unsigned char protocolFamily;
  DtNetU32 timeStamp;
  DtNetU16 length;
  unsigned char padding[2];
};
static_assert(sizeof(DtNetPduHeader) == 12, "PDU header is 12 bytes");

// Room for an image inside a PDU object: a PDU class holds one sized for its own image and hands it to
// DtPdu::useStorage before it builds or reads an image. Copying a PDU copies its image, which DtPdu does, so
// copying the storage copies nothing. DtPdu's copy constructor runs before the class's storage exists, so a
// PDU made by copy construction keeps its image on the heap, at the image's size; assignment copies into the
// storage the PDU already has.
template <int Capacity>
class DtPduStorage {
 public:
  // The storage's size in bytes.
  static constexpr int kCapacity = Capacity;
  DtPduStorage() = default;
  // Copies nothing: the PDU copies its image.
  DtPduStorage(const DtPduStorage& /*other*/) {}
  // Copies nothing, so assigning to itself is as harmless as any other assignment.
  DtPduStorage& operator=(const DtPduStorage& /*other*/) {  // NOLINT(bugprone-unhandled-self-assignment)
    return *this;
  }
  ~DtPduStorage() = default;
  // The storage's first byte, for DtPdu::useStorage.
  unsigned char* bytes() { return bytes_; }

 private:
  alignas(8) unsigned char bytes_[Capacity];
};

// The PDU base: one network image, owned, with bounded accessors by offset and width.
class TARVEX_EXPORT DtPdu {
 public:
  // The header's length, and what new images carry in its fields unless told otherwise.
  static constexpr int kHeaderSize = 12;
  static constexpr int kMaxLength = 65535;  // the header's length field is 16 bits
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
  // Copies the other PDU's image (and records its factory).
  DtPdu(const DtPdu& other);
  // Copies the other PDU's image into this one's storage.
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

  // The PDU kind a new image's header gets: 0 here, 202 in control PDUs.
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

 protected:
  // Moves the image (if any, and if it fits) into storage inside the derived object. A constructor calls it
  // before it builds or reads an image; the storage must live as long as this PDU.
  template <int Capacity>
  void useStorage(DtPduStorage<Capacity>& storage) {
    if (extent_ == 0 && !heap_) {  // a constructor's case: nothing to move
      data_ = storage.bytes();
      capacity_ = Capacity;
    } else {
      adoptStorage(storage.bytes(), Capacity);
    }
  }

 private:
  unsigned char* data() { return data_; }
  const unsigned char* data() const { return data_; }
  void adoptStorage(unsigned char* bytes, int capacity);
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

  // The image is at data_: the derived object's storage, heap_, or nowhere yet. Bytes [0, extent_) of the
  // capacity_ bytes there are initialised; the rest is never read.
  unsigned char* data_ = nullptr;
  int capacity_ = 0;
  int extent_ = 0;
  std::unique_ptr<unsigned char[]> heap_;
  DtPduFactory* factory_ = nullptr;
};

static_assert(DtPdu::kProtocolVersionOffset == offsetof(DtNetPduHeader, protocolVersion) &&
                  DtPdu::kExerciseIdOffset == offsetof(DtNetPduHeader, exerciseId) &&
                  DtPdu::kKindOffset == offsetof(DtNetPduHeader, kind) &&
                  DtPdu::kProtocolFamilyOffset == offsetof(DtNetPduHeader, protocolFamily) &&
                  DtPdu::kTimeStampOffset == offsetof(DtNetPduHeader, timeStamp) &&
                  DtPdu::kLengthOffset == offsetof(DtNetPduHeader, length),
              "header offsets are those of DtNetPduHeader");
