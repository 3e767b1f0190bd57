// Small helpers shared by the tests: byte images, dump lines, a look at a PDU's text buffer.
#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "tarvex/dtDump.h"
#include "tarvex/dtException.h"
#include "vistralcontrol/vistralControlPdu.h"

using Bytes = std::vector<std::uint8_t>;

inline Bytes bytes(std::initializer_list<int> values) {
  Bytes out;
  for (int v : values) out.push_back(static_cast<std::uint8_t>(v));
  return out;
}

inline Bytes bytesAt(const unsigned char* image, int offset, int count) {
  return Bytes(image + offset, image + offset + count);
}

// Big-endian images of single values, as a test states expected bytes.
inline Bytes be64(double v) {
  std::uint64_t bits;
  static_assert(sizeof bits == sizeof v, "double is 64 bits");
  __builtin_memcpy(&bits, &v, sizeof v);
  Bytes out;
  for (int i = 7; i >= 0; --i) out.push_back(static_cast<std::uint8_t>(bits >> (8 * i)));
  return out;
}
inline Bytes be32(std::uint32_t v) {
  return bytes({int(v >> 24) & 0xff, int(v >> 16) & 0xff, int(v >> 8) & 0xff, int(v) & 0xff});
}
inline Bytes be32f(float v) {
  std::uint32_t bits;
  __builtin_memcpy(&bits, &v, sizeof v);
  return bytes({int(bits >> 24) & 0xff, int(bits >> 16) & 0xff, int(bits >> 8) & 0xff, int(bits) & 0xff});
}
inline Bytes concat(std::initializer_list<Bytes> parts) {
  Bytes out;
  for (const Bytes& p : parts) out.insert(out.end(), p.begin(), p.end());
  return out;
}

inline Bytes imageOf(const DtPdu& pdu) { return bytesAt(pdu.packet(), 0, pdu.length()); }

// The text of the DtException a call throws.
inline std::string thrown(const std::function<void()>& f) {
  try {
    f();
  } catch (const DtException& e) {
    return e.what();
  }
  return "nothing thrown";
}

// One dump line as DtDump... functions write it.
inline std::string dumpLine(const std::string& label, const std::string& value) {
  std::string line = label;
  if (line.size() < static_cast<std::size_t>(DtDumpLabelWidth)) line.resize(DtDumpLabelWidth, ' ');
  return line + " " + value + "\n";
}

// The PDU's text buffer as it stands, without calling string().
struct TextBufferPeek : DtVistralControlPdu {
  static const char* of(const DtVistralControlPdu& pdu) { return (pdu.*(&TextBufferPeek::textBuffer))(); }
};
inline const char* textBufferOf(const DtVistralControlPdu& pdu) { return TextBufferPeek::of(pdu); }

// A received image of the given bytes, as a receiver holds it: zero-filled past the bytes.
struct ReceivedImage {
  explicit ReceivedImage(const Bytes& b) : storage(70000, 0) {
    std::copy(b.begin(), b.end(), storage.begin());
  }
  explicit ReceivedImage(const DtPdu& pdu)
      : ReceivedImage(Bytes(pdu.packet(), pdu.packet() + pdu.length())) {}
  const DtNetPduHeader* header() const { return reinterpret_cast<const DtNetPduHeader*>(storage.data()); }
  DtNetViewControlPdu* vc() { return reinterpret_cast<DtNetViewControlPdu*>(storage.data()); }
  Bytes storage;
};
