// Draw-control images as the tests write them down from the field tables, to compare with what a PDU holds.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>

#include "vcTestSupport.h"

inline Bytes be16(unsigned v) { return bytes({int(v >> 8) & 0xff, int(v) & 0xff}); }
inline Bytes be32(std::uint32_t v) {
  return bytes({int(v >> 24) & 0xff, int(v >> 16) & 0xff, int(v >> 8) & 0xff, int(v) & 0xff});
}
inline Bytes chars(const std::string& text) { return Bytes(text.begin(), text.end()); }

// Zeros of the class's length with the viewer command at 146 and, in the current layout, the version mark
// and parameter version 1 at 152 and 156; fields are then put at their offsets.
class DrawImage {
 public:
  DrawImage(int length, int command, bool current) : image_(static_cast<std::size_t>(length), 0) {
    put(146, be16(static_cast<unsigned>(command)));
    if (current) put(152, be32(0x600DF00D)).put(156, be16(1));
  }
  DrawImage& put(int offset, const Bytes& value) {
    if (offset + value.size() > image_.size()) image_.resize(offset + value.size(), 0);
    std::copy(value.begin(), value.end(), image_.begin() + offset);
    return *this;
  }
  // From the viewer command to the end: what the draw classes write.
  Bytes tail() const { return Bytes(image_.begin() + 146, image_.end()); }
  int length() const { return static_cast<int>(image_.size()); }

 private:
  Bytes image_;
};

// The dump's last lines: what a subclass adds after its base's lines.
inline bool endsWith(const std::string& text, const std::string& tail) {
  return text.size() >= tail.size() && text.compare(text.size() - tail.size(), tail.size(), tail) == 0;
}

inline Bytes tailOf(const DtPdu& pdu) { return bytesAt(pdu.packet(), 146, pdu.length() - 146); }

// A received copy of the PDU with a u32 field overwritten (a hostile length, say).
template <class T>
T withU32(const T& pdu, int offset, std::uint32_t value) {
  ReceivedImage image(pdu);
  const Bytes field = be32(value);
  std::copy(field.begin(), field.end(), image.storage.begin() + offset);
  return T(image.vc(), nullptr, nullptr);
}
