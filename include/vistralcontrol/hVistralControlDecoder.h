// Decodes a "ViewControl" interaction: the value of "ViewControlPdu" becomes the interaction's PDU.
#pragma once

#include "tarvex/dtInteractionDecoder.h"
#include "vistralcontrol/vistralExport.h"

class DtVistralControlInteraction;

// The decoder DtVistralControlRegister installs for "ViewControl".
class VISTRAL_EXPORT DtVistralControlDecoder : public DtInteractionDecoder {
 public:
  // For the class as the connection's FOM describes it; registers the one parameter's decoder.
  DtVistralControlDecoder(DtExerciseConn* conn, DtInterClassDesc* classDesc);
  ~DtVistralControlDecoder() override;

  // Copies the value at index into the decoding buffer and has the interaction read it as a PDU image.
  static void decodeViewControlPdu(DtVistralControlInteraction* inter,
                                   const RTI::ParameterHandleValuePairSet& set, int index);
};
