// Arbitrary input through the inspector's readers and printer: as hex text, as binary images and as a
// capture (libpcap on a memory stream), with the form guessed as the program guesses it, printed as text and
// as JSON. Every image a reader yields must be a whole control PDU, and every reported offset inside the
// input.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "fuzzCommon.h"
#include "traffic/trafficInspector.h"

namespace {
// Checks what the readers hand over before the inspector prints it.
struct Checked : traffic::Sink {
  Checked(traffic::Inspector& to, std::size_t inputSize) : inspector(to), size(inputSize) {}
  void pdu(const traffic::Record& record) override {
    if (!traffic::imageFault(record.bytes, record.size).empty()) std::abort();
    inspector.pdu(record);
  }
  void fault(std::size_t offset, const std::string& what) override {
    if (offset > size || what.empty()) std::abort();
    inspector.fault(offset, what);
  }
  traffic::Inspector& inspector;
  std::size_t size;
};
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool quiet = (fuzz::silenceStreams(), true);
  (void)quiet;
  for (const bool json : {false, true}) {
    traffic::Inspector inspector(fuzz::nullStream(), fuzz::nullStream(), json);
    Checked checked(inspector, size);
    traffic::readHex(reinterpret_cast<const char*>(data), size, checked);
    traffic::readBinary(data, size, checked);
    if (size > 0) {
      if (std::FILE* file = fmemopen(const_cast<std::uint8_t*>(data), size, "rb"))
        traffic::readCapture(file, json ? 3000 : 0, checked);
    }
    inspector.read(data, size, traffic::guessForm(data, size), 0);
  }
  return 0;
}
