// A fast companion of disDatagram, without sockets: arbitrary datagrams through the check that every received
// datagram passes, and those it accepts through what the DIS backend does with them (one interaction of one
// value in the incoming queue, drained as processIncoming() drains it) into the "ViewControl" decoder.
//
// Input: one flag byte, then the datagram. Flag bit 0 makes the datagram's header a control PDU's (kind 202,
// its length the datagram's), so that most inputs reach the decoder; bit 1 binds an exercise (the flag byte's
// upper six bits), which the datagram must carry.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "dtIncomingQueue.h"
#include "tarvex/dtDisSocket.h"
#include "viewControlReceiver.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::ViewControlReceiver& receiver = fuzz::viewControlReceiver();
  static DtIncomingQueue queue;
  static std::vector<unsigned char> datagram;
  if (size == 0) return 0;
  datagram.assign(data + 1, data + std::min(size, DtDisBinding::kMaxDatagram + 1));
  if ((data[0] & 1) != 0 && datagram.size() >= static_cast<std::size_t>(DtPdu::kHeaderSize)) {
    datagram[DtPdu::kKindOffset] = DtDisBinding::kPduKind;
    datagram[DtPdu::kLengthOffset] = static_cast<unsigned char>(datagram.size() >> 8);
    datagram[DtPdu::kLengthOffset + 1] = static_cast<unsigned char>(datagram.size() & 0xFF);
  }
  const int exercise = (data[0] & 2) != 0 ? data[0] >> 2 : -1;
  if (DtDisSocket::check(datagram.data(), datagram.size(), exercise) != DtDisSocket::Verdict::Accepted)
    return 0;

  queue.push(receiver.classHandle(), receiver.pduHandle(), reinterpret_cast<const char*>(datagram.data()),
             static_cast<RTI::ULong>(datagram.size()));
  const std::size_t delivered =
      queue.drain([&](RTI::InteractionClassHandle cls, const RTI::ParameterHandleValuePairSet& set) {
        // The datagram comes out of the queue as it went in: one value, every byte.
        RTI::ULong length = 0;
        const char* value = set.size() == 1 ? set.getValuePointer(0, length) : nullptr;
        if (cls != receiver.classHandle() || value == nullptr || length != datagram.size() ||
            std::memcmp(value, datagram.data(), length) != 0)
          std::abort();
        receiver.take(set);
      });
  if (delivered != 1) std::abort();
  return 0;
}
