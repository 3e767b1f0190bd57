// A fast companion of disDatagram, without sockets: arbitrary datagrams through the check that every received
// datagram passes, and those it accepts through what the DIS backend does with them (one interaction of one
// value in the incoming queue, drained as processIncoming() drains it) into the "ViewControl" decoder.
//
// Inputs read as disDatagramInput.h says; flag bit 1 also binds an exercise (the flag byte's upper six bits),
// which the datagram must carry.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "disDatagramInput.h"
#include "dtIncomingQueue.h"
#include "tarvex/dtDisSocket.h"
#include "viewControlReceiver.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::ViewControlReceiver& receiver = fuzz::viewControlReceiver();
  static DtIncomingQueue queue;
  static std::vector<unsigned char> datagram;
  if (size == 0) return 0;
  fuzz::datagramOf(data, size, datagram);
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
