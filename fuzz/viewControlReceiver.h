// Shared by the fast receive targets: the "ViewControl" decoder of a connection, and what a listener reads of
// the PDU it decodes, without the dump and text form that the deep targets add.
#pragma once

#include <cstdlib>

#include "fuzzCommon.h"
#include "tarvex/dtExerciseConn.h"
#include "tarvex/dtParameterSet.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/vistralControlRegister.h"

namespace fuzz {

class ViewControlReceiver {
 public:
  ViewControlReceiver() : conn_("viewControlReceiverFuzz", "fuzz") {
    DtVistralControlRegister(&conn_);
    DtInterClassDesc* desc = conn_.interClassDescByName(DtVistralControlInteraction::kClassName);
    if (desc == nullptr || !desc->findParameter(DtVistralControlInteraction::kPduParameter, &pduHandle_))
      std::abort();
    classHandle_ = desc->handle();
    decoder_ = conn_.decoderList().find(classHandle_);
    if (decoder_ == nullptr) std::abort();
  }

  RTI::InteractionClassHandle classHandle() const { return classHandle_; }
  RTI::ParameterHandle pduHandle() const { return pduHandle_; }

  // Decodes a received set as the connection would, into one interaction kept from input to input (as a
  // listener's is), and reads every field of the PDU it then holds.
  void take(const RTI::ParameterHandleValuePairSet& set) {
    decoder_->decode(&inter_, set);
    if (const DtVistralControlPdu* pdu = inter_.vcPdu()) readFields(*pdu);
  }

 private:
  DtExerciseConn conn_;
  RTI::InteractionClassHandle classHandle_ = 0;
  RTI::ParameterHandle pduHandle_ = 0;
  DtInteractionDecoder* decoder_ = nullptr;
  DtVistralControlInteraction inter_;
};

// One receiver for the life of the process, with the library's messages silenced.
inline ViewControlReceiver& viewControlReceiver() {
  static const bool quiet = (silenceStreams(), true);
  (void)quiet;
  static ViewControlReceiver receiver;
  return receiver;
}

}  // namespace fuzz
