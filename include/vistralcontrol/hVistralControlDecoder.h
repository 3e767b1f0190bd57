// Decodes a "ViewControl" interaction: the value of "ViewControlPdu" becomes the interaction's PDU.
#pragma once

#include "tarvex/dtInteractionDecoder.h"
#include "vistralcontrol/vistralExport.h"

class DtVistralControlInteraction;

class VISTRAL_EXPORT DtVistralControlDecoder : public DtInteractionDecoder {
 public:
  DtVistralControlDecoder(DtExerciseConn* conn, DtInterClassDesc* classDesc);
  ~DtVistralControlDecoder() override;

  // Copies the value at index into the decoding buffer and has the interaction read it as a PDU image.
  static void decodeViewControlPdu(DtVistralControlInteraction* inter,
                                   const RTI::ParameterHandleValuePairSet& set, int index);
};
