#include "vistralcontrol/vistralControlRegister.h"

#include "tarvex/dtExerciseConn.h"
#include "tarvex/dtMessage.h"
#include "vistralcontrol/hVistralControlDecoder.h"
#include "vistralcontrol/hVistralControlEncoder.h"
#include "vistralcontrol/hVistralControlInter.h"

void DtVistralControlRegister(DtExerciseConn* conn) {
  if (conn == nullptr) return;
  DtInterClassDesc* desc = conn->interClassDescByName(DtVistralControlInteraction::kClassName);
  if (desc == nullptr) {
    DtWarn.message("Can't add decoders and encoders for interaction class ViewControl: Not in FOM.\n");
    return;
  }
  // The connection's lists own what is added to them.
  conn->decoderList().add(desc->handle(), new DtVistralControlDecoder(conn, desc));
  conn->encoderList().add(desc->handle(), new DtVistralControlEncoder(conn, desc));
  conn->interactionFactory().add(DtVistralControlInteraction::kClassName,
                                 &DtVistralControlInteraction::create);
}
