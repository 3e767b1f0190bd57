// Arbitrary text as the text form of every control PDU class: each reads it into a new PDU and into one
// that already holds long lists and texts, then writes its own text form, reads that back and dumps.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "fuzzCommon.h"

namespace {
void exercise(DtVistralControlPdu& pdu, const std::string& text) {
  pdu.setFromString(text.c_str());
  fuzz::readEverything(pdu);
  const std::string written = pdu.string();
  pdu.setFromString(written.c_str());
  fuzz::readEverything(pdu);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool quiet = (fuzz::silenceStreams(), true);
  (void)quiet;
  // The text ends at the first zero byte, as a C string would.
  const std::string cText(std::string(reinterpret_cast<const char*>(data), size).c_str());

  for (fuzz::Maker maker : fuzz::kEveryClass) {
    const auto fresh = maker();
    exercise(*fresh, cText);
    const auto filled = maker();
    fuzz::writeEverything(*filled, std::string(300, 'x') + " " + std::string(70, 'y'));
    exercise(*filled, cText);
  }
  return 0;
}
