// Shared by the fuzz targets: quiet streams and a walk over every accessor of a control PDU object.
#pragma once

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>

#include "tarvex/dtMessage.h"
#include "vistralcontrol/absoluteVcPdu.h"
#include "vistralcontrol/moveVcPdu.h"
#include "vistralcontrol/vistralControlPdu.h"

namespace fuzz {

// A received image as the receive path hands it over: the bytes at the start of a zero-filled buffer as
// large as the largest length a header can state.
constexpr std::size_t kImageBufferSize = DtPdu::kMaxLength + 1;

inline std::ostream& nullStream() {
  static std::ostream sink(nullptr);
  return sink;
}

inline void silenceStreams() {
  DtInfo.setStream(nullStream());
  DtWarn.setStream(nullStream());
  DtDumpStream.setStream(nullStream());
}

// Reads every field the object's class offers, through its own accessors, and prints it.
inline void readEverything(const DtVistralControlPdu& pdu) {
  const DtString viewer = pdu.viewerId();
  const DtString sender = pdu.senderId();
  (void)viewer.length();
  (void)sender.length();
  (void)pdu.viewerCommand();
  (void)pdu.ignoreFlags();
  (void)pdu.statusCommand();
  (void)pdu.length();
  if (const auto* absolute = dynamic_cast<const DtAbsoluteVCPdu*>(&pdu)) {
    (void)absolute->worldLocation();
    (void)absolute->orientation();
  }
  if (const auto* move = dynamic_cast<const DtMoveVCPdu*>(&pdu)) {
    (void)move->turn();
    (void)move->move();
    (void)move->position();
    (void)move->orientation();
    (void)move->reset();
  }
  pdu.print();
  pdu.printDataToStream(nullStream());
  (void)pdu.string();
}

// Writes through every setter, including the text form, with values taken from the input.
inline void writeEverything(DtVistralControlPdu& pdu, const std::string& text) {
  pdu.setFromString(text.c_str());
  pdu.setFromString(pdu.string());
  pdu.setViewerId(text);
  pdu.setSenderId(text);
  pdu.setIgnoreFlags(text.size());
  pdu.setStatusCommand(!pdu.statusCommand());
  (void)pdu.isNumber(text.c_str());
}

}  // namespace fuzz
