// Encodes a "ViewControl" interaction: the held PDU's whole image as the value of "ViewControlPdu".
#pragma once

#include "tarvex/dtInteractionEncoder.h"
#include "vistralcontrol/vistralExport.h"

class DtVistralControlInteraction;

// The encoder DtVistralControlRegister installs for "ViewControl".
class VISTRAL_EXPORT DtVistralControlEncoder : public DtInteractionEncoder {
 public:
  // For the class as the connection's FOM describes it; registers the one parameter's encoder.
  DtVistralControlEncoder(DtExerciseConn* conn, DtInterClassDesc* classDesc);
  ~DtVistralControlEncoder() override;

  // Adds packet() with length() bytes under handle; adds nothing and gives false when there is no PDU.
  static bool encodeViewControlPdu(const DtVistralControlInteraction& inter,
                                   RTI::ParameterHandleValuePairSet* set, unsigned int handle);
};
