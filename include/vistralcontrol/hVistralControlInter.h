// The "ViewControl" interaction: one control PDU, carried whole as the parameter "ViewControlPdu".
#pragma once

#include "tarvex/dtExerciseConn.h"
#include "tarvex/dtInteraction.h"
#include "vistralcontrol/vistralControlPdu.h"
#include "vistralcontrol/vistralExport.h"

class VISTRAL_EXPORT DtVistralControlInteraction : public DtInteractionWithEncDec {
 public:
  // Hears one received interaction, with the argument given when it was added; valid during the call only.
  using Callback = void (*)(DtVistralControlInteraction* inter, void* usr);
  // The FOM interaction class and its one parameter.
  static constexpr const char* kClassName = "ViewControl";
  static constexpr const char* kPduParameter = "ViewControlPdu";

  DtVistralControlInteraction();
  // The copy holds a new PDU read from the source PDU's image.
  DtVistralControlInteraction(const DtVistralControlInteraction& other);
  // Holds a new PDU read from the source PDU's image. The PDU held before is not deleted: whoever still
  // points at it keeps a valid object, and owns it.
  DtVistralControlInteraction& operator=(const DtVistralControlInteraction& other);
  ~DtVistralControlInteraction() override;

  // The factory function registered under "ViewControl".
  static DtInteraction* create();

  // The held PDU's header and data; nothing when there is none.
  void printData() const override;
  const char* name() const override;
  const char* interactionClassToUse(DtExerciseConn* conn) const override;
  DtInteractionDecoder* createDecoder(DtExerciseConn* conn) const override;
  DtInteractionEncoder* createEncoder(DtExerciseConn* conn) const override;

  // The PDU carried, owned by the interaction; null when it carries none.
  virtual const DtVistralControlPdu* vcPdu() const;
  // Holds a PDU read from the argument's image (of the class its command selects; its text buffer is not
  // carried).
  virtual void setVcPdu(const DtVistralControlPdu& pdu);
  // Holds the PDU that a received image gives (current draw-control layout), or none for another PDU kind.
  virtual DtVistralControlInteraction& setFromNetPacket(const DtNetPduHeader* image);

  // Calls cb(interaction, usr) for each "ViewControl" interaction the connection receives, and registers
  // create with the connection's interaction factory.
  static void addCallback(DtExerciseConn* conn, Callback cb, void* usr);
  // Removes a callback added with the same connection, function and argument.
  static void removeCallback(DtExerciseConn* conn, Callback cb, void* usr);

 private:
  void hold(const DtNetPduHeader* image, bool fromNet);

  DtVistralControlPdu* pdu_ = nullptr;
};
