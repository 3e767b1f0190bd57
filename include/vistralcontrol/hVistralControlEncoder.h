// Encodes a "ViewControl" interaction: the held PDU's whole image as the value of "ViewControlPdu".
#pragma once

#include "tarvex/dtInteractionEncoder.h"
#include "vistralcontrol/vistralExport.h"

class DtVistralControlInteraction;

class VISTRAL_EXPORT DtVistralControlEncoder : public DtInteractionEncoder {
 public:
  DtVistralControlEncoder(DtExerciseConn* conn, DtInterClassDesc* classDesc);
  ~DtVistralControlEncoder() override;

  // Adds packet() with length() bytes under handle; adds nothing and gives false when there is no PDU.
  static bool encodeViewControlPdu(const DtVistralControlInteraction& inter,
                                   RTI::ParameterHandleValuePairSet* set, unsigned int handle);
};
