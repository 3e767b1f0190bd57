// A fast companion of decodeViewControl: arbitrary bytes as the received value of "ViewControlPdu", through
// the registered decoder into an interaction kept from input to input, whole and then as a set of three
// values (another handle's, which is skipped, a tail of the input, then its head, which replaces the tail).
// Every field of the PDU held is read; no dump, no text form, no controller.
#include <cstdint>

#include "viewControlReceiver.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::ViewControlReceiver& receiver = fuzz::viewControlReceiver();
  const char* bytes = reinterpret_cast<const char*>(data);
  const auto length = static_cast<RTI::ULong>(size);

  static DtParameterSet set;
  set.empty();
  set.add(receiver.pduHandle(), bytes, length);
  receiver.take(set);

  const RTI::ULong cut = size > 0 ? data[0] % length : 0;
  set.empty();
  set.add(receiver.pduHandle() + 1000, bytes, length);
  set.add(receiver.pduHandle(), bytes + cut, length - cut);
  set.add(receiver.pduHandle(), bytes, cut);
  receiver.take(set);
  return 0;
}
