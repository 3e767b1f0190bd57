#include "vistralcontrol/hVistralControlEncoder.h"

#include "vistralcontrol/hVistralControlInter.h"

DtVistralControlEncoder::DtVistralControlEncoder(DtExerciseConn* conn, DtInterClassDesc* classDesc)
    : DtInteractionEncoder(conn, classDesc) {
  addParameterEncoder(DtVistralControlInteraction::kPduParameter, &encodeViewControlPdu);
}

DtVistralControlEncoder::~DtVistralControlEncoder() = default;

bool DtVistralControlEncoder::encodeViewControlPdu(const DtVistralControlInteraction& inter,
                                                   RTI::ParameterHandleValuePairSet* set,
                                                   unsigned int handle) {
  const DtVistralControlPdu* pdu = inter.vcPdu();
  if (pdu == nullptr || set == nullptr) return false;
  set->add(handle, reinterpret_cast<const char*>(pdu->packet()), static_cast<RTI::ULong>(pdu->length()));
  return true;
}
