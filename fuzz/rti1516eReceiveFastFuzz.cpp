// The receive side of the HLA Evolved backend, less the RTI's own types: the values a link hands over for
// one interaction (parameter numbers and bytes, as DtRti1516eLink::Receiver gets them) queued as the backend
// queues them, drained as processIncoming() drains them, and decoded by the "ViewControl" decoder. The step
// before, from the RTI's handle maps to those values, needs the RTI's headers and is not fuzzed here.
//
// Input: a list of values, each a tag byte, a two-byte length (big-endian, cut to what is left) and the
// bytes. Tag bit 7 starts a new interaction (bit 6 then makes it of another class); the low six bits are
// the parameter's offset from "ViewControlPdu" (0: that parameter).
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "dtIncomingQueue.h"
#include "viewControlReceiver.h"

namespace {
struct Value {
  RTI::Handle parameter;
  const char* data;
  std::size_t length;
};
struct Interaction {
  RTI::InteractionClassHandle cls;
  std::vector<Value> values;
};

// The interactions the input describes, in order; a value before any interaction starts a ViewControl one.
void parse(const std::uint8_t* data, std::size_t size, const fuzz::ViewControlReceiver& receiver,
           std::vector<Interaction>& out) {
  out.clear();
  std::size_t at = 0;
  while (at < size) {
    const std::uint8_t tag = data[at++];
    std::size_t length = 0;
    for (int k = 0; k < 2 && at < size; ++k) length = (length << 8) | data[at++];
    length = std::min(length, size - at);
    if ((tag & 0x80) != 0 || out.empty())
      out.push_back({(tag & 0x40) != 0 ? receiver.classHandle() + 1 : receiver.classHandle(), {}});
    out.back().values.push_back(
        {receiver.pduHandle() + (tag & 0x3Fu), reinterpret_cast<const char*>(data + at), length});
    at += length;
  }
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::ViewControlReceiver& receiver = fuzz::viewControlReceiver();
  static DtIncomingQueue queue;
  static std::vector<Interaction> sent;
  parse(data, size, receiver, sent);
  for (const Interaction& inter : sent) {
    queue.pushClass(inter.cls);
    for (const Value& v : inter.values) queue.pushValue(v.parameter, v.data, v.length);
  }
  std::size_t next = 0;
  queue.drain([&](RTI::InteractionClassHandle cls, const RTI::ParameterHandleValuePairSet& set) {
    // Each interaction comes out of the queue as it went in: its class, and every value in order.
    if (next >= sent.size() || cls != sent[next].cls || set.size() != sent[next].values.size()) std::abort();
    for (RTI::ULong i = 0; i < set.size(); ++i) {
      const Value& v = sent[next].values[i];
      RTI::ULong length = 0;
      const char* value = set.getValuePointer(i, length);
      if (set.getHandle(i) != v.parameter || length != v.length ||
          (length > 0 && std::memcmp(value, v.data, length) != 0))
        std::abort();
    }
    ++next;
    if (cls == receiver.classHandle()) receiver.take(set);
  });
  if (next != sent.size()) std::abort();
  return 0;
}
