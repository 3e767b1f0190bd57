// DIS over UDP: the address a "dis://" name stands for, and the sockets that send PDUs to it and receive
// them from it.
//
// Names: dis://HOST:PORT[?OPTION=VALUE&...], HOST a dotted IPv4 address or a host name.
//   - a multicast group (224.0.0.0 to 239.255.255.255): every member binds PORT (shared) and joins the group;
//   - 255.255.255.255, or any address with broadcast=1: every member binds PORT (shared) and sends to all;
//   - any other address, unicast: this process binds PORT alone, so that two processes on one host talk
//     through two ports: one sends to 3000 and listens on 3001 (dis://127.0.0.1:3000?listen=3001), the other
//     the other way round (dis://127.0.0.1:3001?listen=3000).
// Options: listen=PORT (receive on PORT instead), interface=ADDRESS (the local interface for multicast and
// for binding), ttl=N (multicast hops, default 1), loopback=0|1 (multicast copies to this host, default 1),
// broadcast=0|1, exercise=N (1 to 255: received PDUs of other exercises are dropped, sent ones are stamped
// with it; default: any, and sent as built).
//
// Each datagram holds one PDU: its header's length is the datagram's size. Sends never block: a full socket
// buffer or a refused address fails the send and is reported (a refusal of a unicast address, which the
// network reports after the fact, fails the next send). Received datagrams are checked before anything reads
// them: see check().
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "tarvex/tarvexExport.h"

// The one interaction class that travels over DIS: the FOM class of this name, whose one parameter of this
// name holds a whole PDU of this kind.
namespace DtDisBinding {
// The class, its parameter, the PDU kind it carries, and the scheme of the names that choose DIS.
constexpr const char* kClassName = "ViewControl";
constexpr const char* kParameterName = "ViewControlPdu";
constexpr int kPduKind = 202;
constexpr const char* kScheme = "dis://";
// The largest UDP datagram over IPv4.
constexpr std::size_t kMaxDatagram = 65507;
}  // namespace DtDisBinding

// What a dis:// name says: where PDUs go, where they are received, and how.
struct TARVEX_EXPORT DtDisAddress {
  // How the address reaches its receivers.
  enum class Cast { Unicast, Broadcast, Multicast };

  // Whether a name has the dis:// form (and so is one for the DIS backend).
  static bool isDisName(const char* name);
  // Reads a dis:// name; a DtException says what is wrong with it.
  static DtDisAddress parse(const std::string& name);

  std::string name;              // as given
  std::uint32_t host = 0;        // IPv4, host byte order
  std::uint16_t port = 0;        // where PDUs are sent
  std::uint16_t listenPort = 0;  // where they are received (port unless listen= says)
  std::uint32_t interface = 0;   // 0: the system chooses
  int ttl = 1;                   // multicast hops
  bool loopback = true;          // multicast copies to this host
  int exercise = -1;             // -1: any
  Cast cast = Cast::Unicast;     // from the host and the broadcast option
};

// Lets a repeated warning out at most once a second.
class TARVEX_EXPORT DtWarningLimit {
 public:
  // Whether to warn now. When it is, occurrences() says how many there were since the last warning, this one
  // included.
  bool allow();
  unsigned long occurrences() const { return occurrences_; }

 private:
  std::int64_t last_ = 0;  // steady clock, in ms; 0: never
  unsigned long occurrences_ = 0;
  bool reset_ = false;
};

// A UDP endpoint of one DIS address, owning its socket.
class TARVEX_EXPORT DtDisSocket {
 public:
  // Address and port of a datagram's sender, IPv4 in host byte order.
  struct Endpoint {
    std::uint32_t address = 0;  // IPv4, host byte order
    std::uint16_t port = 0;     // host byte order
    // Same address and port.
    bool operator==(const Endpoint& o) const { return address == o.address && port == o.port; }
    // "A.B.C.D:PORT".
    std::string text() const;
  };
  // What check() finds in a received datagram.
  enum class Verdict { Accepted, TooShort, OtherKind, OtherExercise, BadLength };

  // A socket that sends to the address (with its TTL, loopback and interface), from a port of its own.
  static DtDisSocket sender(const DtDisAddress& address);
  // A non-blocking socket bound to the address's listen port (joined to its group when it has one).
  static DtDisSocket receiver(const DtDisAddress& address);

  // A socket moves with its descriptor; the moved-from one owns none.
  DtDisSocket(DtDisSocket&& other) noexcept;
  // Closes the socket this one held, then takes the other's.
  DtDisSocket& operator=(DtDisSocket&& other) noexcept;
  DtDisSocket(const DtDisSocket&) = delete;
  DtDisSocket& operator=(const DtDisSocket&) = delete;
  ~DtDisSocket();

  // Sends one PDU as one datagram, with the address's exercise id in its header when one is set. False when
  // the network refuses it; the reason goes to DtWarn (at most once a second) and to lastError().
  bool sendPdu(const void* bytes, std::size_t length);
  // Reads one waiting datagram into buffer (which should hold kMaxDatagram bytes) and returns its size, or -1
  // when none is waiting. A datagram larger than capacity comes back with its full size, its bytes cut.
  long receive(void* buffer, std::size_t capacity, Endpoint* from);
  // Whether a received datagram of that size holds one whole PDU of the bound kind and exercise (any: -1);
  // one larger than kMaxDatagram (cut by the receive buffer) never does.
  static Verdict check(const unsigned char* bytes, std::size_t size, int exercise);

  // Where this socket's datagrams come from, as receivers see it.
  Endpoint local() const { return local_; }
  const DtDisAddress& address() const { return address_; }
  const std::string& lastError() const { return lastError_; }
  int descriptor() const { return fd_; }

 private:
  DtDisSocket(int fd, DtDisAddress address);
  void fail(const std::string& what);

  int fd_ = -1;
  DtDisAddress address_;
  Endpoint local_;
  std::string lastError_;
  DtWarningLimit warning_;
};
