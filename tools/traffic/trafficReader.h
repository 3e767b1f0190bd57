// Readers of recorded control PDUs: hex text, raw binary images and packet captures. Each yields the images
// it finds, with where they were in the input, to a sink; what is wrong with the input goes to the same sink
// with its byte offset, and reading goes on with the rest wherever the input allows it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace traffic {

// One control PDU image found in the input.
struct Record {
  std::size_t offset = 0;    // of the image's first byte in the input (captures: of the packet's record)
  std::size_t packet = 0;    // captures: packet number, from 1; other inputs: image number, from 1
  bool hasTime = false;      // captures only
  std::int64_t seconds = 0;  // arrival time, since the epoch
  std::uint32_t nanoseconds = 0;
  std::string source;       // captures: "A.B.C.D:PORT"; empty otherwise
  std::string destination;  // captures: "A.B.C.D:PORT"; empty otherwise
  const unsigned char* bytes = nullptr;
  std::size_t size = 0;
};

// What a reader hands its findings to.
class Sink {
 public:
  virtual ~Sink() = default;
  virtual void pdu(const Record& record) = 0;
  // A fault in the input at a byte offset.
  virtual void fault(std::size_t offset, const std::string& what) = 0;
};

// The forms an input can have.
enum class Form { Hex, Binary, Capture };

// Guesses the form from the first bytes: a pcap or pcapng magic number, else hex text when the first line is
// hex digits and blanks (or a comment), else binary.
Form guessForm(const unsigned char* bytes, std::size_t size);

// Why an image cannot be a control PDU, or empty when it is one: at least a header, of the control PDU kind,
// and its length field equal to its size.
std::string imageFault(const unsigned char* bytes, std::size_t size);

// One image a line; blanks anywhere, empty lines and lines starting with '#' are skipped.
void readHex(const char* text, std::size_t size, Sink& sink);

// Images back to back, each as long as its length field says. A length that cannot be right ends the reading
// (nothing after it can be split).
void readBinary(const unsigned char* bytes, std::size_t size, Sink& sink);

// A pcap or pcapng capture (libpcap): every UDP datagram over IPv4 (Ethernet, loopback, Linux cooked or raw
// IP links) whose source or destination port is port (any, when port is 0) and that holds a control PDU.
// Datagrams of other PDU kinds are passed over; a datagram of the control PDU kind that is not whole is a
// fault. A capture that libpcap cannot open or that breaks off is a fault too. Takes ownership of file.
void readCapture(std::FILE* file, int port, Sink& sink);

// Writes bytes as pairs of lowercase hex digits, no separators.
void appendHex(std::string& out, const unsigned char* bytes, std::size_t size);

}  // namespace traffic
