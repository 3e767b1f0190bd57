// Arbitrary bytes as a received control PDU image: both creation paths, then every accessor, the dump, the
// text form and its parser on the object that comes back, and on copies of it.
#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "fuzzCommon.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool quiet = (fuzz::silenceStreams(), true);
  (void)quiet;
  static std::vector<unsigned char> image(fuzz::kImageBufferSize);
  std::fill(image.begin(), image.end(), 0);
  if (size > 0) std::memcpy(image.data(), data, std::min(size, image.size()));
  const auto* header = reinterpret_cast<const DtNetPduHeader*>(image.data());
  const std::string text(reinterpret_cast<const char*>(data), std::min<std::size_t>(size, 2048));

  for (auto creator : {&DtVistralControlPdu::createFromNet, &DtVistralControlPdu::create}) {
    std::unique_ptr<DtPdu> made(creator(header, nullptr, nullptr));
    auto* pdu = dynamic_cast<DtVistralControlPdu*>(made.get());
    if (pdu == nullptr) continue;
    fuzz::readEverything(*pdu);
    std::unique_ptr<DtPdu> copy(DtVistralControlPdu::create(
        reinterpret_cast<const DtNetPduHeader*>(pdu->packet()), nullptr, nullptr));
    fuzz::writeEverything(*pdu, text);
    fuzz::readEverything(*pdu);
    if (auto* other = dynamic_cast<DtVistralControlPdu*>(copy.get())) {
      *other = *pdu;
      fuzz::readEverything(*other);
    }
  }
  return 0;
}
