// Arbitrary bytes as the received value of "ViewControlPdu": through the registered decoder, as a whole value
// and split into two values of one interaction (the second then replaces the first), then every accessor,
// the dump and the text form of the PDU that comes back, a copy of the interaction, and a remote controller
// hearing it.
#include <algorithm>
#include <memory>

#include "fuzzCommon.h"
#include "tarvex/dtExerciseConn.h"
#include "tarvex/dtParameterSet.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/vistralControlRegister.h"
#include "vistralcontrol/vistralRemoteController.h"

namespace {
struct Receiver {
  Receiver() : conn("decodeViewControlFuzz", "fuzz") {
    DtVistralControlRegister(&conn);
    DtInterClassDesc* desc = conn.interClassDescByName("ViewControl");
    desc->findParameter("ViewControlPdu", &pduHandle);
    decoder = conn.decoderList().find(desc->handle());
  }
  DtExerciseConn conn;
  RTI::ParameterHandle pduHandle = 0;
  DtInteractionDecoder* decoder = nullptr;
};

void heard(const DtVistralControlPdu& pdu, void*) { fuzz::readEverything(pdu); }

// A controller hearing the decoded interaction, with callbacks for every viewer, for its own target, and for
// the id a received PDU is most likely to carry (empty), own commands both dropped and heard.
struct Listener {
  Listener() : controller(&sender, "vistral-1") {
    controller.addViewModeChangeCallback(&heard, nullptr, DtVistralRemoteController::SEND_TO_ALL);
    controller.addViewModeChangeCallback(&heard, nullptr, "vistral-1");
    controller.addViewModeChangeCallback(&heard, nullptr, "");
  }
  struct : DtCustomRemoteControlSender {
    void sendPdu(const unsigned char*, int) override {}
  } sender;
  DtVistralRemoteController controller;
};

void examine(DtVistralControlInteraction& inter) {
  static Listener listener;
  listener.controller.setIgnoreCommandsSentFromUs(true);
  listener.controller.processVistralControl(&inter);
  listener.controller.setIgnoreCommandsSentFromUs(false);
  listener.controller.processVistralControl(&inter);
  inter.printData();
  if (const DtVistralControlPdu* pdu = inter.vcPdu()) fuzz::readEverything(*pdu);
  const DtVistralControlInteraction copy(inter);
  if (const DtVistralControlPdu* pdu = copy.vcPdu()) {
    fuzz::readEverything(*pdu);
    inter.setVcPdu(*pdu);  // the held PDU rebuilt in place from another of its class
    if (const DtVistralControlPdu* held = inter.vcPdu()) {
      inter.setFromNetPacket(reinterpret_cast<const DtNetPduHeader*>(held->packet()));  // from its own bytes
      if (inter.vcPdu() != nullptr) fuzz::readEverything(*inter.vcPdu());
    }
  }
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool quiet = (fuzz::silenceStreams(), true);
  (void)quiet;
  static Receiver receiver;
  const char* bytes = reinterpret_cast<const char*>(data);
  const auto length = static_cast<RTI::ULong>(size);

  DtParameterSet whole;
  whole.add(receiver.pduHandle, bytes, length);
  DtVistralControlInteraction inter;
  receiver.decoder->decode(&inter, whole);
  examine(inter);

  // Two values: a cut of the input, then the input; a value of another handle is skipped.
  DtParameterSet two;
  const RTI::ULong cut = length / 3;
  two.add(receiver.pduHandle + 1000, bytes, length);
  DtParameterSet first;
  first.add(receiver.pduHandle, bytes + cut, length - cut);
  receiver.decoder->decode(&inter, first);
  examine(inter);
  two.add(receiver.pduHandle, bytes, cut);
  receiver.decoder->decode(&inter, two);
  examine(inter);
  return 0;
}
