// A fast companion of setFromString: the first byte picks one control PDU class, the second whether its
// object starts new or holding long lists and texts; the rest is text (to its first zero byte) read as that
// class's text form. Then the object's own text form is read back. Every field is read after each; no dump.
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "fuzzCommon.h"

namespace {
constexpr std::size_t kClasses = std::size(fuzz::kEveryClass);

// One object of each class holding long lists and texts, made once.
const DtVistralControlPdu& filled(std::size_t index) {
  static const std::vector<std::unique_ptr<DtVistralControlPdu>> all = [] {
    std::vector<std::unique_ptr<DtVistralControlPdu>> made;
    for (fuzz::Maker maker : fuzz::kEveryClass) {
      made.push_back(maker());
      fuzz::writeEverything(*made.back(), std::string(300, 'x') + " " + std::string(70, 'y'));
    }
    return made;
  }();
  return *all[index];
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool quiet = (fuzz::silenceStreams(), true);
  (void)quiet;
  if (size < 2) return 0;
  const std::size_t index = data[0] % kClasses;
  const auto pdu = fuzz::kEveryClass[index]();
  if ((data[1] & 1) != 0) *pdu = filled(index);
  static std::string text;
  text.assign(reinterpret_cast<const char*>(data + 2), size - 2);
  pdu->setFromString(text.c_str());
  fuzz::readFields(*pdu);
  const std::string written = pdu->string();
  pdu->setFromString(written.c_str());
  fuzz::readFields(*pdu);
  return 0;
}
