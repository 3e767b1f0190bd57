#include "pcapngWriter.h"

#include <cstring>

namespace traffic {
namespace {

// pcapng is written in this host's byte order (its byte-order magic tells readers which); the packet's own
// headers are in network order.
template <class T>
void append(std::vector<unsigned char>& out, T value) {
  unsigned char bytes[sizeof(T)];
  std::memcpy(bytes, &value, sizeof(T));
  out.insert(out.end(), bytes, bytes + sizeof(T));
}

void appendBe16(std::vector<unsigned char>& out, unsigned value) {
  out.push_back(static_cast<unsigned char>(value >> 8));
  out.push_back(static_cast<unsigned char>(value));
}

void appendBe32(std::vector<unsigned char>& out, std::uint32_t value) {
  appendBe16(out, value >> 16);
  appendBe16(out, value & 0xFFFF);
}

void pad(std::vector<unsigned char>& out) {
  while (out.size() % 4 != 0) out.push_back(0);
}

// Sets the block's total length, at its second word and at its end.
void close(std::vector<unsigned char>& block) {
  const auto total = static_cast<std::uint32_t>(block.size() + 4);
  std::memcpy(block.data() + 4, &total, 4);
  append(block, total);
}

constexpr std::uint32_t kSectionHeader = 0x0A0D0D0A;
constexpr std::uint32_t kInterfaceDescription = 1;
constexpr std::uint32_t kEnhancedPacket = 6;
constexpr std::uint16_t kLinkRawIp = 101;
constexpr std::uint16_t kOptionTimeResolution = 9;
constexpr std::size_t kMaxPayload = 65535 - 20 - 8;

}  // namespace

PcapngWriter::PcapngWriter(std::FILE* out) : out_(out) {
  block_.clear();
  append(block_, kSectionHeader);
  append(block_, std::uint32_t{0});
  append(block_, std::uint32_t{0x1A2B3C4D});
  append(block_, std::uint16_t{1});
  append(block_, std::uint16_t{0});
  append(block_, std::int64_t{-1});  // section length not stated
  close(block_);
  put(block_.data(), block_.size());

  block_.clear();
  append(block_, kInterfaceDescription);
  append(block_, std::uint32_t{0});
  append(block_, kLinkRawIp);
  append(block_, std::uint16_t{0});
  append(block_, std::uint32_t{0});  // no snapshot length
  append(block_, kOptionTimeResolution);
  append(block_, std::uint16_t{1});
  block_.push_back(9);  // nanoseconds
  pad(block_);
  append(block_, std::uint32_t{0});  // end of options
  close(block_);
  put(block_.data(), block_.size());
}

void PcapngWriter::add(std::int64_t nanoseconds, const unsigned char* bytes, std::size_t size,
                       std::uint32_t source, std::uint16_t sourcePort, std::uint32_t destination,
                       std::uint16_t destinationPort) {
  if (size > kMaxPayload) size = kMaxPayload;
  const auto packetLength = static_cast<std::uint32_t>(20 + 8 + size);
  block_.clear();
  append(block_, kEnhancedPacket);
  append(block_, std::uint32_t{0});
  append(block_, std::uint32_t{0});  // interface 0
  const auto stamp = static_cast<std::uint64_t>(nanoseconds);
  append(block_, static_cast<std::uint32_t>(stamp >> 32));
  append(block_, static_cast<std::uint32_t>(stamp & 0xFFFFFFFF));
  append(block_, packetLength);
  append(block_, packetLength);
  // IPv4 header, no options, not fragmented, its checksum computed.
  const std::size_t ip = block_.size();
  block_.push_back(0x45);
  block_.push_back(0);
  appendBe16(block_, packetLength);
  appendBe16(block_, 0);
  appendBe16(block_, 0x4000);  // don't fragment
  block_.push_back(64);
  block_.push_back(17);  // UDP
  appendBe16(block_, 0);
  appendBe32(block_, source);
  appendBe32(block_, destination);
  std::uint32_t sum = 0;
  for (std::size_t i = 0; i < 20; i += 2)
    sum += static_cast<std::uint32_t>(block_[ip + i] << 8 | block_[ip + i + 1]);
  while (sum > 0xFFFF) sum = (sum & 0xFFFF) + (sum >> 16);
  block_[ip + 10] = static_cast<unsigned char>(~sum >> 8);
  block_[ip + 11] = static_cast<unsigned char>(~sum);
  // UDP header; a zero checksum says none was computed.
  appendBe16(block_, sourcePort);
  appendBe16(block_, destinationPort);
  appendBe16(block_, static_cast<unsigned>(8 + size));
  appendBe16(block_, 0);
  block_.insert(block_.end(), bytes, bytes + size);
  pad(block_);
  close(block_);
  put(block_.data(), block_.size());
  ++written_;
}

void PcapngWriter::put(const void* bytes, std::size_t size) {
  if (std::fwrite(bytes, 1, size, out_) != size) ok_ = false;
}

}  // namespace traffic
