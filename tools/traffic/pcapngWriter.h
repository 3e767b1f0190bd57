// Writes control PDUs into a pcapng file, each as one UDP datagram over IPv4 on a raw-IP link, so that any
// capture reader (and the kind-202 dissector) sees them as DIS traffic. A PDU that came in a datagram keeps
// its real addresses; one that came any other way (an HLA interaction) is wrapped as sent from 127.0.0.1 port
// kWrapSourcePort to 127.0.0.1 port kWrapPort.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace traffic {

// The ports of the wrapping, and its address (127.0.0.1, host byte order).
constexpr std::uint16_t kWrapPort = 3000;
constexpr std::uint16_t kWrapSourcePort = 3001;
constexpr std::uint32_t kWrapAddress = 0x7F000001;

class PcapngWriter {
 public:
  // Starts the file (its section and interface headers) on out, which the writer does not own.
  explicit PcapngWriter(std::FILE* out);
  PcapngWriter(const PcapngWriter&) = delete;
  PcapngWriter& operator=(const PcapngWriter&) = delete;

  // Adds one PDU that arrived at the given time (nanoseconds since the epoch), from and to the given IPv4
  // addresses and ports (host byte order). PDUs longer than a datagram can hold are cut, as a capture would.
  void add(std::int64_t nanoseconds, const unsigned char* bytes, std::size_t size,
           std::uint32_t source = kWrapAddress, std::uint16_t sourcePort = kWrapSourcePort,
           std::uint32_t destination = kWrapAddress, std::uint16_t destinationPort = kWrapPort);
  // Whether every write so far succeeded.
  bool ok() const { return ok_; }
  std::size_t written() const { return written_; }

 private:
  void put(const void* bytes, std::size_t size);
  std::FILE* out_;
  std::vector<unsigned char> block_;
  bool ok_ = true;
  std::size_t written_ = 0;
};

}  // namespace traffic
