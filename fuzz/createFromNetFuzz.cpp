// Arbitrary bytes as a received control PDU image: both creation paths, then every accessor, the dump, the
// text form and its parser on the object that comes back, and on copies of it. The same image then reaches a
// viewer emulator holding one object of its own: the emulator must take it without harm to that object unless
// the image names it, and its snapshot and picture must still be written.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "fuzzCommon.h"
#if VISTRAL_FUZZ_EMULATOR
#include "vistralcontrol/vdcCommandPdu.h"
#include "vistralcontrol/vdcTextPdu.h"
#include "vistralemulator/emulatorPicture.h"
#include "vistralemulator/emulatorSnapshot.h"
#include "vistralemulator/vistralEmulator.h"

namespace {
constexpr unsigned kBystander = 4242;

// The bystander as the emulator holds it, less what other objects decide (whether a layer hides it).
std::string bystanderState(const DtEmulatorState& state) {
  const auto found = state.objects.find(kBystander);
  if (found == state.objects.end()) return "gone";
  DtEmulatorState alone;
  alone.objects.insert(*found);
  return DtEmulatorSnapshotJson(alone);
}

// Whether a received PDU may change the bystander: a draw PDU that names it as its object, or a command that
// names it as the panel of an attribute.
bool names(const DtPdu* made) {
  const auto* draw = dynamic_cast<const DtVistralDrawControlPdu*>(made);
  if (draw == nullptr) return false;
  if (draw->objectId() == kBystander) return true;
  const auto* command = dynamic_cast<const DtVdcCommandPduBase*>(draw);
  return command != nullptr && command->layerId() == kBystander;
}

void feedEmulator(const std::uint8_t* data, std::size_t size, const DtPdu* made) {
  DtVistralEmulator emulator("vistral-1");
  DtVdcTextPdu bystander;
  bystander.setObjectId(kBystander);
  bystander.setType(DtVdc2DText);
  bystander.setText("bystander");
  emulator.apply(bystander);
  // Every input starts from the same emulator, so the bystander's state before it is the same each time.
  static const std::string before = bystanderState(emulator.state());
  emulator.applyImage(data, size);
  emulator.applyImage(data, size);  // again, now as an update of what it made
  if (!names(made) && bystanderState(emulator.state()) != before) std::abort();
  (void)emulator.stateReport();
  // The writers cost far more than the rest (the replay of the corpus would take minutes): every fourth
  // input has its state written, which still puts thousands of hostile states through them.
  static unsigned inputs = 0;
  if (inputs++ % 4 != 0) return;
  (void)DtEmulatorSnapshotJson(emulator.state());
  (void)DtEmulatorPictureSvg(emulator.state());
}
}  // namespace
#endif

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool quiet = (fuzz::silenceStreams(), true);
  (void)quiet;
  // Zeros past the input, as far as any header's length can reach; only what the last input wrote is
  // cleared again.
  static std::vector<unsigned char> image(fuzz::kImageBufferSize);
  static std::size_t written = 0;
  std::fill(image.begin(), image.begin() + static_cast<long>(written), 0);
  written = std::min(size, image.size());
  if (written > 0) std::memcpy(image.data(), data, written);
  const auto* header = reinterpret_cast<const DtNetPduHeader*>(image.data());
  const std::string text(reinterpret_cast<const char*>(data), std::min<std::size_t>(size, 2048));
#if VISTRAL_FUZZ_EMULATOR
  {
    const std::unique_ptr<DtPdu> made(DtVistralControlPdu::createFromNet(header, nullptr, nullptr));
    feedEmulator(image.data(), std::min(size, image.size()), made.get());
  }
#endif

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
