// A fast companion of createFromNet: the first byte picks a class (a view command, the options PDU, or a
// draw-object type), the rest is laid over a well-formed image of it after the PDU header, and the second
// byte may stretch the header's length to the input's. So most inputs reach one class's own decoding (counts
// that disagree with the length, texts without an end, odd versions) instead of failing at the header. No
// emulator, no writers: only creation, every reader and the dump on the object, and every reader on a copy
// made from its image (whose dump would print the same again at twice the cost).
#include <algorithm>
#include <cstring>
#include <functional>
#include <memory>
#include <vector>

#include "fuzzCommon.h"
#include "vistralcontrol/absoluteVcPdu.h"
#include "vistralcontrol/compassVcPdu.h"
#include "vistralcontrol/groupVcPdu.h"
#include "vistralcontrol/mimicTrackVcPdu.h"
#include "vistralcontrol/mimicVcPdu.h"
#include "vistralcontrol/modelessVcPdu.h"
#include "vistralcontrol/moveVcPdu.h"
#include "vistralcontrol/optionsPdu.h"
#include "vistralcontrol/orbitVcPdu.h"
#include "vistralcontrol/pivotVcPdu.h"
#include "vistralcontrol/tetherTrackVcPdu.h"
#include "vistralcontrol/tetherVcPdu.h"
#include "vistralcontrol/trackVcPdu.h"
#include "vistralcontrol/vistralDrawControlPdu.h"

namespace {
template <class Pdu>
DtVistralControlPdu* make() {
  return new Pdu();
}

// Every class the first byte can pick: the view commands and options, then each draw-object type that has
// a class in the current layout.
const std::vector<std::function<DtVistralControlPdu*()>>& families() {
  static const std::vector<std::function<DtVistralControlPdu*()>> theFamilies = [] {
    std::vector<std::function<DtVistralControlPdu*()>> all = {
        make<DtAbsoluteVCPdu>, make<DtCompassVCPdu>,      make<DtGroupVCPdu>,       make<DtMimicTrackVCPdu>,
        make<DtMimicVCPdu>,    make<DtOffsetMimicVCPdu>,  make<DtModelessVCPdu>,    make<DtMoveVCPdu>,
        make<DtOrbitVCPdu>,    make<DtPivotVCPdu>,        make<DtTetherTrackVCPdu>, make<DtTetherVCPdu>,
        make<DtTrackVCPdu>,    make<DtRequestStateVCPdu>, make<DtOptionsPdu>};
    for (int type = DtVdcCommand; type <= DtVdcLayer; ++type) {
      const auto command = static_cast<DtViewerCommand>(type);
      if (std::unique_ptr<DtVistralControlPdu>(DtNewDrawControlPdu(command)))
        all.emplace_back([command] { return DtNewDrawControlPdu(command); });
    }
    return all;
  }();
  return theFamilies;
}

constexpr std::size_t kHeader = DtPdu::kHeaderSize;
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool quiet = (fuzz::silenceStreams(), true);
  (void)quiet;
  if (size < 2) return 0;
  const auto& all = families();
  std::unique_ptr<DtVistralControlPdu> model(all[data[0] % all.size()]());
  static std::vector<unsigned char> image(fuzz::kImageBufferSize);
  std::fill(image.begin(), image.end(), 0);
  const auto length = static_cast<std::size_t>(model->length());
  std::memcpy(image.data(), model->packet(), std::min(length, image.size()));
  const std::size_t body = std::min(size - 2, image.size() - kHeader);
  std::memcpy(image.data() + kHeader, data + 2, body);
  // The header's length as the class has it, or stretched to the input's end.
  const std::size_t told = (data[1] & 1) != 0 ? kHeader + body : length;
  reinterpret_cast<DtNetPduHeader*>(image.data())->length = static_cast<unsigned short>(told);
  std::unique_ptr<DtPdu> made(DtVistralControlPdu::createFromNet(
      reinterpret_cast<const DtNetPduHeader*>(image.data()), nullptr, nullptr));
  if (auto* pdu = dynamic_cast<DtVistralControlPdu*>(made.get())) {
    fuzz::readEverything(*pdu);
    std::unique_ptr<DtPdu> copy(DtVistralControlPdu::createFromNet(
        reinterpret_cast<const DtNetPduHeader*>(pdu->packet()), nullptr, nullptr));
    if (auto* other = dynamic_cast<DtVistralControlPdu*>(copy.get())) fuzz::readFields(*other);
  }
  return 0;
}
