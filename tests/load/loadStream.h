// A deterministic stream of mixed control PDUs for load runs: every view command and the options PDU, every
// draw-object type in both draw layouts, fields drawn from a seed, object ids from a bounded set (so that a
// viewer's scene stops growing early), and about one PDU in a hundred damaged the way a hostile peer could
// send it. The same seed gives the same bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "tarvex/dtString.h"
#include "vistralcontrol/vistralControlPdu.h"

// How a PDU of the stream was damaged; intact for a well-formed one.
enum class DtLoadDamage {
  intact,
  badLength,     // the header states another length than the bytes have
  truncated,     // cut short of the length its header states
  badCounts,     // shorter than its class and counts state, the header's length the bytes'
  unterminated,  // the trailing bytes (texts, where the PDU ends in one) overwritten with letters
  unknownCommand,
  flippedBytes,  // a few body bytes changed
};

// The name of a kind of damage ("badLength").
const char* DtLoadDamageName(DtLoadDamage damage);

// One PDU of the stream: its bytes as they are sent, valid until the next PDU is made.
struct DtLoadPdu {
  const unsigned char* bytes = nullptr;
  std::size_t size = 0;
  DtLoadDamage damage = DtLoadDamage::intact;
  int command = 0;  // the viewer command of the class it was built as, before any damage
  // Whether a receiver that checks datagrams (the header's length is the datagram's size) takes it.
  bool intactFrame() const;
};

class DtLoadStream {
 public:
  // PDUs for viewerId, sent as senderId; draw objects and layers use ids 1 to objectIds; one PDU in
  // hostileEvery is damaged (0: none).
  DtLoadStream(std::uint64_t seed, const DtString& viewerId, const DtString& senderId,
               unsigned objectIds = 400, unsigned hostileEvery = 100);
  ~DtLoadStream();
  DtLoadStream(const DtLoadStream&) = delete;
  DtLoadStream& operator=(const DtLoadStream&) = delete;

  // The next PDU of the stream.
  DtLoadPdu next();
  // A request for the viewer's state, well-formed, outside the random choice (for pacing a sender).
  DtLoadPdu stateRequest();

  // The classes the stream draws from: every view command and every (draw-object type, layout) the
  // library builds.
  std::size_t classCount() const { return prototypes_.size(); }

 private:
  struct Prototype {
    std::unique_ptr<DtVistralControlPdu> pdu;  // null for the options PDU, made afresh each time
    bool view;
  };
  static DtLoadPdu emit(const DtVistralControlPdu& pdu);
  void fill(DtVistralControlPdu& pdu);
  void fillView(DtVistralControlPdu& pdu);
  void fillOptions();
  void fillDraw(DtVistralControlPdu& pdu);
  DtLoadDamage damage(DtVistralControlPdu& pdu);
  DtString entity();
  std::string text(std::size_t longest);
  double real(double bound);
  unsigned below(unsigned n) { return static_cast<unsigned>(random_() % n); }

  std::mt19937_64 random_;
  DtString viewerId_;
  DtString senderId_;
  unsigned objectIds_;
  unsigned hostileEvery_;
  std::vector<Prototype> prototypes_;
  std::unique_ptr<DtVistralControlPdu> options_;
  std::unique_ptr<DtVistralControlPdu> request_;
  std::vector<unsigned char> image_;
};
