// Expected draw-control images, written field by field from the wire tables: a zero image of a length with
// its header and fixed part, and big-endian pieces put at offsets.
#pragma once

#include <algorithm>
#include <string>

#include "vcTestSupport.h"

inline Bytes be16(unsigned v) { return bytes({int(v >> 8) & 0xff, int(v) & 0xff}); }
inline Bytes chars(const std::string& text) { return Bytes(text.begin(), text.end()); }
inline Bytes be64v(double x, double y, double z) { return concat({be64(x), be64(y), be64(z)}); }

struct Image {
  // A new PDU of kind 202 as the toolkit builds it, with its length and viewer command; current-layout images
  // also carry the mark and parameter version 1.
  Image(int length, unsigned command, bool current) : b(static_cast<std::size_t>(length), 0) {
    put(0, bytes({6, 1, 202, 129}));
    put(8, be16(static_cast<unsigned>(length)));
    put(146, be16(command));
    if (current) put(152, concat({be32(0x600DF00D), be16(1)}));
  }
  Image& put(int offset, const Bytes& piece) {
    if (b.size() < offset + piece.size()) b.resize(offset + piece.size(), 0);
    std::copy(piece.begin(), piece.end(), b.begin() + offset);
    return *this;
  }
  Image& u8(int offset, int v) { return put(offset, bytes({v})); }
  Image& text(int offset, const std::string& s, int width) { return put(offset, textField(s, width)); }
  Bytes b;
};

// The dump's last lines: what a subclass adds after its base's lines.
inline bool endsWith(const std::string& text, const std::string& tail) {
  return text.size() >= tail.size() && text.compare(text.size() - tail.size(), tail.size(), tail) == 0;
}

// A received copy of the PDU with a u32 field overwritten (a hostile length, say).
template <class T>
T withU32(const T& pdu, int offset, std::uint32_t value) {
  ReceivedImage image(pdu);
  const Bytes field = be32(value);
  std::copy(field.begin(), field.end(), image.storage.begin() + offset);
  return T(image.vc(), nullptr, nullptr);
}
