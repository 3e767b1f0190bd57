// A fast companion of trafficReaders: one reader per input, without the inspector's decoding and printing.
// The first byte picks the reader: hex text, binary images, pcap records behind a well-formed pcap header,
// pcapng blocks behind a well-formed section and interface, or the input as a whole capture. The second
// byte picks the capture's link type and the port filter. Every image a reader yields must be a whole
// control PDU, and every fault offset inside what the reader was given.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string>
#include <vector>

#include "traffic/trafficReader.h"

namespace {
struct Checked final : traffic::Sink {
  explicit Checked(std::size_t inputSize) : size(inputSize) {}
  void pdu(const traffic::Record& record) override {
    if (!traffic::imageFault(record.bytes, record.size).empty()) std::abort();
  }
  void fault(std::size_t offset, const std::string& what) override {
    if (offset > size || what.empty()) std::abort();
  }
  std::size_t size;
};

// The link types the capture reader knows, and one it does not: null, Ethernet, raw IP, Linux cooked, IPv4,
// and IEEE 802.11.
constexpr std::uint8_t kLinks[] = {0, 1, 101, 113, 228, 105};

void putLittle(std::vector<std::uint8_t>& out, std::uint32_t value, int bytes) {
  for (int k = 0; k < bytes; ++k) out.push_back(static_cast<std::uint8_t>(value >> (8 * k)));
}

// A pcap file header, nanosecond timestamps, little-endian.
void pcapHeader(std::vector<std::uint8_t>& out, std::uint32_t link) {
  putLittle(out, 0xA1B23C4D, 4);
  putLittle(out, 2, 2);
  putLittle(out, 4, 2);
  putLittle(out, 0, 4);
  putLittle(out, 0, 4);
  putLittle(out, 65535, 4);
  putLittle(out, link, 4);
}

// A pcapng section header block and one interface description block, little-endian.
void pcapngHeader(std::vector<std::uint8_t>& out, std::uint32_t link) {
  putLittle(out, 0x0A0D0D0A, 4);
  putLittle(out, 28, 4);
  putLittle(out, 0x1A2B3C4D, 4);
  putLittle(out, 1, 2);
  putLittle(out, 0, 2);
  putLittle(out, 0xFFFFFFFF, 4);
  putLittle(out, 0xFFFFFFFF, 4);
  putLittle(out, 28, 4);
  putLittle(out, 1, 4);
  putLittle(out, 20, 4);
  putLittle(out, link, 2);
  putLittle(out, 0, 2);
  putLittle(out, 65535, 4);
  putLittle(out, 20, 4);
}

void readCapture(std::vector<std::uint8_t>& capture, int port, traffic::Sink& sink) {
  if (capture.empty()) return;
  if (std::FILE* file = fmemopen(capture.data(), capture.size(), "rb"))
    traffic::readCapture(file, port, sink);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const std::uint8_t* body = data + 2;
  const std::size_t bodySize = size - 2;
  const std::uint32_t link = kLinks[(data[1] & 0x7F) % std::size(kLinks)];
  const int port = (data[1] & 0x80) != 0 ? 3000 : 0;
  static std::vector<std::uint8_t> capture;
  capture.clear();
  switch (data[0] % 5) {
    case 0: {
      Checked sink(bodySize);
      traffic::readHex(reinterpret_cast<const char*>(body), bodySize, sink);
      return 0;
    }
    case 1: {
      Checked sink(bodySize);
      traffic::readBinary(body, bodySize, sink);
      return 0;
    }
    case 2:
      pcapHeader(capture, link);
      break;
    case 3:
      pcapngHeader(capture, link);
      break;
    default:
      break;
  }
  capture.insert(capture.end(), body, body + bodySize);
  Checked sink(capture.size());
  readCapture(capture, port, sink);
  return 0;
}
