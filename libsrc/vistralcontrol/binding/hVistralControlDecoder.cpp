#include "vistralcontrol/hVistralControlDecoder.h"

#include "core/vcLayout.h"
#include "tarvex/dtWire.h"
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
  // The PDU is read by its header's length and its command words, whatever the value's own length. A value
  // that holds all of them is read where it lies; any other goes through the decoding buffer, which is zero
  // from the value's end on and never shorter than any length a header can state.
  if (length >= static_cast<RTI::ULong>(VcLayout::Fixed::classifiedBy)) {
    RTI::ULong held = 0;
    const char* value = set.getValuePointer(at, held);
    if (value != nullptr && held == length &&
        DtWire::loadU16(reinterpret_cast<const unsigned char*>(value) + DtPdu::kLengthOffset) <= length) {
      inter->setFromNetPacket(reinterpret_cast<const DtNetPduHeader*>(value));
      return;
    }
  }
  char* buffer = decodingBuffer(length);
  set.getValue(at, buffer, length);
  inter->setFromNetPacket(reinterpret_cast<const DtNetPduHeader*>(buffer));
}
