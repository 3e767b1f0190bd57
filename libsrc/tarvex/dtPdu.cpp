#include "tarvex/dtPdu.h"

#include <algorithm>
#include <cstring>
#include <ostream>

#include "tarvex/dtDump.h"
#include "tarvex/dtMessage.h"

DtPdu::DtPdu(const DtPdu& other) { copyFrom(other); }

DtPdu& DtPdu::operator=(const DtPdu& other) {
  if (this != &other) copyFrom(other);
  return *this;
}

DtPdu::~DtPdu() = default;

void DtPdu::copyFrom(const DtPdu& other) {
  extent_ = 0;
  factory_ = other.factory_;
  if (other.extent_ == 0 || !reserve(other.extent_)) return;
  std::memcpy(data(), other.data(), static_cast<std::size_t>(other.extent_));
  extent_ = other.extent_;
}

void DtPdu::adoptStorage(unsigned char* bytes, int capacity) {
  if (bytes == data_ || extent_ > capacity) return;  // already there, or an image larger than it
  if (extent_ > 0) std::memcpy(bytes, data_, static_cast<std::size_t>(extent_));
  data_ = bytes;
  capacity_ = capacity;
  heap_.reset();
}

bool DtPdu::reserve(int bytes) {
  if (bytes <= capacity_) return true;
  if (bytes > kMaxLength) return false;
  // A fixed-size image is allocated at its size; an image that keeps growing doubles.
  const int newCapacity = heap_ ? std::min(std::max(bytes, 2 * capacity_), kMaxLength) : bytes;
  std::unique_ptr<unsigned char[]> bigger(new unsigned char[static_cast<std::size_t>(newCapacity)]);
  if (extent_ > 0) std::memcpy(bigger.get(), data_, static_cast<std::size_t>(extent_));
  heap_ = std::move(bigger);
  data_ = heap_.get();
  capacity_ = newCapacity;
  return true;
}

void DtPdu::setLengthField(int length) {
  DtWire::storeU16(data() + kLengthOffset, static_cast<std::uint16_t>(length));
}

void DtPdu::initPdu(int length, DtBufferPlaceHolder* /*holder*/) {
  const int size = std::clamp(length, kHeaderSize, kMaxLength);
  reserve(size);
  std::memset(data(), 0, static_cast<std::size_t>(size));
  extent_ = size;
  unsigned char* p = data();
  p[kProtocolVersionOffset] = kDefaultProtocolVersion;
  p[kExerciseIdOffset] = kDefaultExerciseId;
  p[kKindOffset] = static_cast<unsigned char>(internalGetPduKind());
  p[kProtocolFamilyOffset] = kDefaultProtocolFamily;
  setLengthField(size);
}

void DtPdu::initPdu(const void* image, DtBufferPlaceHolder* /*holder*/, DtPduFactory* factory) {
  factory_ = factory;
  extent_ = 0;
  if (image == nullptr) return;
  const auto* bytes = static_cast<const unsigned char*>(image);
  const int size = std::max<int>(DtWire::loadU16(bytes + kLengthOffset), kHeaderSize);
  reserve(size);
  std::memcpy(data(), bytes, static_cast<std::size_t>(size));
  extent_ = size;
}

bool DtPdu::changeSize(int newLength) {
  if (newLength < kHeaderSize || newLength > kMaxLength || !reserve(newLength)) return false;
  if (newLength > extent_) std::memset(data() + extent_, 0, static_cast<std::size_t>(newLength - extent_));
  extent_ = newLength;
  setLengthField(newLength);
  return true;
}

bool DtPdu::insertBytes(int offset, int count) {
  const int oldLength = length();
  if (count < 0 || offset < kHeaderSize || offset > oldLength) return false;
  if (count == 0) return true;
  const long long newLength = static_cast<long long>(oldLength) + count;
  if (newLength > kMaxLength) return false;
  if (!changeSize(static_cast<int>(newLength))) return false;
  unsigned char* p = data();
  std::memmove(p + offset + count, p + offset, static_cast<std::size_t>(oldLength - offset));
  std::memset(p + offset, 0, static_cast<std::size_t>(count));
  return true;
}

bool DtPdu::deleteBytes(int offset, int count) {
  const int oldLength = length();
  if (count < 0 || offset < kHeaderSize || offset > oldLength) return false;
  const int removed = std::min(count, oldLength - offset);
  if (removed == 0) return true;
  unsigned char* p = data();
  std::memmove(p + offset, p + offset + removed, static_cast<std::size_t>(oldLength - offset - removed));
  return changeSize(oldLength - removed);
}

int DtPdu::internalGetPduKind() const { return 0; }

void DtPdu::print() const {
  DtDumpInteger("ProtocolVersion", protocolVersion());
  DtDumpInteger("ExerciseId", exerciseId());
  DtDumpInteger("Kind", pduKind());
  DtDumpInteger("Family", protocolFamily());
  DtDumpInteger("TimeStamp", timeStamp());
  DtDumpInteger("Length", length());
  printData();
}

void DtPdu::printData() const {
  const int body = std::max(0, std::min(length(), extent_) - kHeaderSize);
  DtDumpHexBytes("Data", body > 0 ? data() + kHeaderSize : nullptr, body);
}

void DtPdu::printDataToStream(std::ostream& out) const {
  DtStreamRedirect redirect(DtDumpStream, out);
  printData();
}

unsigned char* DtPdu::writableBeyondExtent(int offset, int width) {
  if (offset < 0 || width <= 0 || offset > kMaxLength - width || !reserve(offset + width)) return nullptr;
  // A write past the initialised extent zero-fills the gap so that no byte is ever read uninitialised.
  std::memset(data() + extent_, 0, static_cast<std::size_t>(offset + width - extent_));
  extent_ = offset + width;
  return data() + offset;
}

DtVector64 DtPdu::f64VectorAt(int offset) const {
  return {f64At(offset), f64At(offset + 8), f64At(offset + 16)};
}
void DtPdu::setF64VectorAt(int offset, const DtVector64& v) {
  setF64At(offset, v.x());
  setF64At(offset + 8, v.y());
  setF64At(offset + 16, v.z());
}
DtVector64 DtPdu::f32VectorAt(int offset) const {
  return {f32At(offset), f32At(offset + 4), f32At(offset + 8)};
}
void DtPdu::setF32VectorAt(int offset, const DtVector64& v) {
  setF32At(offset, static_cast<float>(v.x()));
  setF32At(offset + 4, static_cast<float>(v.y()));
  setF32At(offset + 8, static_cast<float>(v.z()));
}
DtTaitBryan DtPdu::eulerAt(int offset) const { return {f32At(offset), f32At(offset + 4), f32At(offset + 8)}; }
void DtPdu::setEulerAt(int offset, const DtTaitBryan& a) {
  setF32At(offset, static_cast<float>(a.psi()));
  setF32At(offset + 4, static_cast<float>(a.theta()));
  setF32At(offset + 8, static_cast<float>(a.phi()));
}
DtTaitBryan DtPdu::f64EulerAt(int offset) const {
  return {f64At(offset), f64At(offset + 8), f64At(offset + 16)};
}
void DtPdu::setF64EulerAt(int offset, const DtTaitBryan& a) {
  setF64At(offset, a.psi());
  setF64At(offset + 8, a.theta());
  setF64At(offset + 16, a.phi());
}

DtString DtPdu::designatorAt(int offset) const {
  const unsigned char* p = readable(offset, DtNetGlobalObjectDesignator::kWidth);
  return p ? DtNetGlobalObjectDesignator::read(p) : DtString("");
}
void DtPdu::setDesignatorAt(int offset, const DtString& name) {
  if (unsigned char* p = writable(offset, DtNetGlobalObjectDesignator::kWidth))
    DtNetGlobalObjectDesignator::assign(p, name.c_str());
  if (touchesLengthField(offset, DtNetGlobalObjectDesignator::kWidth)) coverStatedLength();
}

void DtPdu::setTextAt(int offset, int width, const char* text) {
  unsigned char* p = writable(offset, width);
  if (p == nullptr) return;
  const std::size_t n = text ? strnlen(text, static_cast<std::size_t>(width)) : 0;
  if (n > 0) std::memcpy(p, text, n);
  std::memset(p + n, 0, static_cast<std::size_t>(width) - n);
  if (touchesLengthField(offset, width)) coverStatedLength();
}

DtString DtPdu::textAt(int offset) const {
  if (offset < 0 || offset >= extent_) return DtString("");
  const auto* start = reinterpret_cast<const char*>(data() + offset);
  return DtString(start, strnlen(start, static_cast<std::size_t>(extent_ - offset)));
}

DtString DtPdu::textAt(int offset, long long maxLength) const {
  if (offset < 0 || offset >= extent_ || maxLength <= 0) return DtString("");
  const auto* start = reinterpret_cast<const char*>(data() + offset);
  const auto room = static_cast<std::size_t>(std::min<long long>(maxLength, extent_ - offset));
  return DtString(start, strnlen(start, room));
}

void DtPdu::setBytesAt(int offset, const void* bytes, int count) {
  if (bytes == nullptr || count <= 0) return;
  if (unsigned char* p = writable(offset, count)) std::memcpy(p, bytes, static_cast<std::size_t>(count));
  if (touchesLengthField(offset, count)) coverStatedLength();
}

void DtPdu::coverStatedLength() {
  const int stated = length();
  if (stated <= extent_ || !reserve(stated)) return;
  std::memset(data() + extent_, 0, static_cast<std::size_t>(stated - extent_));
  extent_ = stated;
}

void DtPdu::copyBytesAt(int offset, void* out, int count) const {
  if (out == nullptr || count <= 0) return;
  auto* dst = static_cast<unsigned char*>(out);
  std::memset(dst, 0, static_cast<std::size_t>(count));
  const int first = std::max(offset, 0);
  const long long last = std::min<long long>(static_cast<long long>(offset) + count, extent_);
  if (last > first)
    std::memcpy(dst + (first - offset), data() + first, static_cast<std::size_t>(last - first));
}
