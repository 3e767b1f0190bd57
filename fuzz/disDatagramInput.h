// How the DIS datagram targets read an input: one flag byte, then the datagram. Flag bit 0 makes the
// datagram's header a control PDU's (kind 202, its length the datagram's), so that most inputs reach the PDU
// decoding behind the checks. Both targets read it alike, so that their corpora serve each other.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "tarvex/dtDisSocket.h"
#include "tarvex/dtPdu.h"

namespace fuzz {
// The datagram an input of size > 0 stands for, into datagram.
inline void datagramOf(const std::uint8_t* data, std::size_t size, std::vector<unsigned char>& datagram) {
  datagram.assign(data + 1, data + std::min(size, DtDisBinding::kMaxDatagram + 1));
  if ((data[0] & 1) != 0 && datagram.size() >= static_cast<std::size_t>(DtPdu::kHeaderSize)) {
    datagram[DtPdu::kKindOffset] = DtDisBinding::kPduKind;
    datagram[DtPdu::kLengthOffset] = static_cast<unsigned char>(datagram.size() >> 8);
    datagram[DtPdu::kLengthOffset + 1] = static_cast<unsigned char>(datagram.size() & 0xFF);
  }
}
}  // namespace fuzz
