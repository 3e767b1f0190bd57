#include "trafficReader.h"

#include <pcap/pcap.h>

#include <cstring>
#include <memory>

#include "tarvex/dtDisSocket.h"
#include "tarvex/dtPdu.h"
#include "vistralcontrol/vistralControlPdu.h"

namespace traffic {
namespace {

unsigned be16(const unsigned char* p) { return static_cast<unsigned>(p[0]) << 8 | p[1]; }

std::string endpoint(const unsigned char* address, const unsigned char* port) {
  std::string text;
  for (int i = 0; i < 4; ++i) {
    if (i > 0) text += '.';
    text += std::to_string(address[i]);
  }
  return text + ":" + std::to_string(be16(port));
}

int hexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// The smallest control PDU, the request-state one, ends with the fixed part.
std::size_t smallestControlPdu() {
  static const std::size_t smallest = static_cast<std::size_t>(DtRequestStateVCPdu().length());
  return smallest;
}

// Where the IPv4 packet starts behind a link header, or -1 when the frame holds none.
long ipv4Start(int link, const unsigned char* frame, std::size_t size) {
  switch (link) {
    case DLT_NULL:
    case DLT_LOOP: {  // a 4-byte address family, in the capturing host's order or network order
      if (size < 4) return -1;
      const bool inet = (frame[0] == 2 && frame[1] == 0 && frame[2] == 0 && frame[3] == 0) ||
                        (frame[0] == 0 && frame[1] == 0 && frame[2] == 0 && frame[3] == 2);
      return inet ? 4 : -1;
    }
    case DLT_EN10MB: {
      std::size_t at = 12;
      while (size >= at + 2 && (be16(frame + at) == 0x8100 || be16(frame + at) == 0x88A8)) at += 4;
      return size >= at + 2 && be16(frame + at) == 0x0800 ? static_cast<long>(at + 2) : -1;
    }
    case DLT_LINUX_SLL:
      return size >= 16 && be16(frame + 14) == 0x0800 ? 16 : -1;
#ifdef DLT_LINUX_SLL2
    case DLT_LINUX_SLL2:
      return size >= 20 && be16(frame) == 0x0800 ? 20 : -1;
#endif
    case DLT_RAW:
#ifdef DLT_IPV4
    case DLT_IPV4:
#endif
    case 101:  // the raw-IP link type as some captures state it
      return 0;
    default:
      return -1;
  }
}

}  // namespace

Form guessForm(const unsigned char* bytes, std::size_t size) {
  if (size >= 4) {
    static const unsigned char kMagics[][4] = {{0xD4, 0xC3, 0xB2, 0xA1},
                                               {0xA1, 0xB2, 0xC3, 0xD4},
                                               {0x4D, 0x3C, 0xB2, 0xA1},
                                               {0xA1, 0xB2, 0x3C, 0x4D},
                                               {0x0A, 0x0D, 0x0D, 0x0A}};
    for (const auto& magic : kMagics)
      if (std::memcmp(bytes, magic, 4) == 0) return Form::Capture;
  }
  // Text when the first line is hex digits and blanks (or a comment): a later bad line is then a fault of
  // the text rather than a reason to read the whole input as binary.
  const std::size_t probe = size < 4096 ? size : 4096;
  for (std::size_t i = 0; i < probe && bytes[i] != '\n'; ++i) {
    const char c = static_cast<char>(bytes[i]);
    if (c == '#') break;
    if (hexValue(c) < 0 && c != ' ' && c != '\t' && c != '\r') return Form::Binary;
  }
  return size == 0 ? Form::Binary : Form::Hex;
}

std::string imageFault(const unsigned char* bytes, std::size_t size) {
  if (size < static_cast<std::size_t>(DtPdu::kHeaderSize))
    return std::to_string(size) + " bytes, too few for a PDU header (" + std::to_string(DtPdu::kHeaderSize) +
           ")";
  if (bytes[DtPdu::kKindOffset] != DtDisBinding::kPduKind)
    return "PDU kind " + std::to_string(bytes[DtPdu::kKindOffset]) + ", not a control PDU (" +
           std::to_string(DtDisBinding::kPduKind) + ")";
  const unsigned length = be16(bytes + DtPdu::kLengthOffset);
  if (length != size)
    return "length field says " + std::to_string(length) + " bytes, the image has " + std::to_string(size);
  if (size < smallestControlPdu())
    return std::to_string(size) + " bytes, shorter than the fixed part of a control PDU (" +
           std::to_string(smallestControlPdu()) + ")";
  return {};
}

void readHex(const char* text, std::size_t size, Sink& sink) {
  std::vector<unsigned char> image;
  std::size_t lineStart = 0;
  std::size_t images = 0;
  while (lineStart < size) {
    const void* newline = std::memchr(text + lineStart, '\n', size - lineStart);
    const std::size_t lineEnd =
        newline != nullptr ? static_cast<std::size_t>(static_cast<const char*>(newline) - text) : size;
    image.clear();
    bool comment = false;
    std::string fault;
    std::size_t faultAt = lineStart;
    int high = -1;
    std::size_t highAt = lineStart;
    for (std::size_t i = lineStart; i < lineEnd && fault.empty() && !comment; ++i) {
      const char c = text[i];
      if (c == ' ' || c == '\t' || c == '\r') continue;
      if (c == '#' && image.empty() && high < 0) {
        comment = true;
        break;
      }
      const int v = hexValue(c);
      if (v < 0) {
        fault = std::string("not a hex digit: ") +
                (c >= 0x20 && c < 0x7F ? "'" + std::string(1, c) + "'" : "byte " + std::to_string(c & 0xFF));
        faultAt = i;
      } else if (high < 0) {
        high = v;
        highAt = i;
      } else {
        image.push_back(static_cast<unsigned char>(high << 4 | v));
        high = -1;
      }
    }
    if (fault.empty() && high >= 0) {
      fault = "odd number of hex digits";
      faultAt = highAt;
    }
    if (!comment && (!image.empty() || !fault.empty())) {
      ++images;
      if (fault.empty()) fault = imageFault(image.data(), image.size());
      if (!fault.empty()) {
        sink.fault(faultAt, fault);
      } else {
        Record record;
        record.offset = lineStart;
        record.packet = images;
        record.bytes = image.data();
        record.size = image.size();
        sink.pdu(record);
      }
    }
    lineStart = lineEnd + 1;
  }
}

void readBinary(const unsigned char* bytes, std::size_t size, Sink& sink) {
  std::size_t at = 0;
  std::size_t images = 0;
  while (at < size) {
    const std::size_t left = size - at;
    if (left < static_cast<std::size_t>(DtPdu::kHeaderSize)) {
      sink.fault(at, std::to_string(left) + " bytes left, too few for a PDU header");
      return;
    }
    const std::size_t length = be16(bytes + at + DtPdu::kLengthOffset);
    if (length < static_cast<std::size_t>(DtPdu::kHeaderSize) || length > left) {
      sink.fault(at, "length field says " + std::to_string(length) + " bytes, " + std::to_string(left) +
                         " left: the images cannot be split from here on");
      return;
    }
    ++images;
    const std::string fault = imageFault(bytes + at, length);
    if (!fault.empty()) {
      sink.fault(at, fault);
    } else {
      Record record;
      record.offset = at;
      record.packet = images;
      record.bytes = bytes + at;
      record.size = length;
      sink.pdu(record);
    }
    at += length;
  }
}

void readCapture(std::FILE* file, int port, Sink& sink) {
  char error[PCAP_ERRBUF_SIZE] = {};
  pcap_t* opened = pcap_fopen_offline_with_tstamp_precision(file, PCAP_TSTAMP_PRECISION_NANO, error);
  if (opened == nullptr) {
    std::fclose(file);
    sink.fault(0, std::string("not a capture libpcap can read: ") + error);
    return;
  }
  const std::unique_ptr<pcap_t, void (*)(pcap_t*)> capture(opened, pcap_close);  // closes the file too
  const int link = pcap_datalink(opened);
  std::size_t packets = 0;
  for (;;) {
    const long before = std::ftell(file);
    const std::size_t offset = before < 0 ? 0 : static_cast<std::size_t>(before);
    pcap_pkthdr* header = nullptr;
    const unsigned char* frame = nullptr;
    const int got = pcap_next_ex(opened, &header, &frame);
    if (got == PCAP_ERROR_BREAK) return;  // the end
    if (got != 1) {
      sink.fault(offset, std::string("capture breaks off: ") + pcap_geterr(opened));
      return;
    }
    ++packets;
    const std::size_t size = header->caplen;
    const long ipAt = ipv4Start(link, frame, size);
    if (ipAt < 0) continue;
    const unsigned char* ip = frame + ipAt;
    const std::size_t ipSize = size - static_cast<std::size_t>(ipAt);
    if (ipSize < 20 || (ip[0] >> 4) != 4 || ip[9] != 17) continue;  // UDP over IPv4 only
    const std::size_t headerLength = static_cast<std::size_t>(ip[0] & 0x0F) * 4;
    if (headerLength < 20 || ipSize < headerLength + 8) continue;
    if ((be16(ip + 6) & 0x1FFF) != 0) continue;  // a later fragment: no UDP header of its own
    const unsigned char* udp = ip + headerLength;
    const unsigned sourcePort = be16(udp);
    const unsigned destinationPort = be16(udp + 2);
    if (port != 0 && sourcePort != static_cast<unsigned>(port) &&
        destinationPort != static_cast<unsigned>(port))
      continue;
    const std::size_t udpLength = be16(udp + 4);
    const std::string where = "packet " + std::to_string(packets) + ": ";
    if (udpLength < 8) {
      sink.fault(offset, where + "UDP length " + std::to_string(udpLength) + " is shorter than its header");
      continue;
    }
    const std::size_t payload = udpLength - 8;
    const std::size_t captured = ipSize - headerLength - 8;
    const unsigned char* bytes = udp + 8;
    // Other PDU kinds share DIS ports; only control PDUs are ours to read or find fault with.
    if (captured >= static_cast<std::size_t>(DtPdu::kHeaderSize) &&
        bytes[DtPdu::kKindOffset] != DtDisBinding::kPduKind)
      continue;
    if ((be16(ip + 6) & 0x2000) != 0) {
      sink.fault(offset, where + "an IP fragment: reassemble the capture first");
      continue;
    }
    if (captured < payload) {
      sink.fault(offset, where + "captured " + std::to_string(captured) + " of the datagram's " +
                             std::to_string(payload) + " bytes");
      continue;
    }
    const std::string fault = imageFault(bytes, payload);
    if (!fault.empty()) {
      sink.fault(offset, where + fault);
      continue;
    }
    Record record;
    record.offset = offset;
    record.packet = packets;
    record.hasTime = true;
    record.seconds = header->ts.tv_sec;
    record.nanoseconds = static_cast<std::uint32_t>(header->ts.tv_usec);  // nanoseconds at this precision
    record.source = endpoint(ip + 12, udp);
    record.destination = endpoint(ip + 16, udp + 2);
    record.bytes = bytes;
    record.size = payload;
    sink.pdu(record);
  }
}

void appendHex(std::string& out, const unsigned char* bytes, std::size_t size) {
  static const char kDigits[] = "0123456789abcdef";
  const std::size_t at = out.size();
  out.resize(at + 2 * size);
  for (std::size_t i = 0; i < size; ++i) {
    out[at + 2 * i] = kDigits[bytes[i] >> 4];
    out[at + 2 * i + 1] = kDigits[bytes[i] & 0x0F];
  }
}

}  // namespace traffic
