#include "vistralcontrol/hVistralControlDecoder.h"

#include "vistralcontrol/hVistralControlInter.h"

DtVistralControlDecoder::DtVistralControlDecoder(DtExerciseConn* conn, DtInterClassDesc* classDesc)
    : DtInteractionDecoder(conn, classDesc) {
  addParameterDecoder(DtVistralControlInteraction::kPduParameter, &decodeViewControlPdu);
}

DtVistralControlDecoder::~DtVistralControlDecoder() = default;

void DtVistralControlDecoder::decodeViewControlPdu(DtVistralControlInteraction* inter,
                                                   const RTI::ParameterHandleValuePairSet& set, int index) {
  if (inter == nullptr || index < 0) return;
  const auto at = static_cast<RTI::ULong>(index);
  RTI::ULong length = set.getValueLength(at);
  // Zero from the value's end on, and never shorter than any length a header can state: the PDU is read by
  // its header's length and its command words, whatever the value's own length.
  char* buffer = decodingBuffer(length);
  set.getValue(at, buffer, length);
  inter->setFromNetPacket(reinterpret_cast<const DtNetPduHeader*>(buffer));
}
