#include "vistralcontrol/hVistralControlInter.h"

#include <functional>
#include <memory>
#include <utility>

#include "core/vcCreate.h"
#include "tarvex/dtMessage.h"
#include "vistralcontrol/hVistralControlDecoder.h"
#include "vistralcontrol/hVistralControlEncoder.h"

namespace {
// create() returns only control PDU classes (or null), so the result is one.
DtVistralControlPdu* asControlPdu(DtPdu* pdu) { return static_cast<DtVistralControlPdu*>(pdu); }

// A new PDU read from another PDU's image, as a receiver would read it: nothing outside the source PDU's
// length decides the class or is copied.
DtVistralControlPdu* reread(const DtVistralControlPdu& pdu) {
  return asControlPdu(
      DtVistralControlPdu::create(reinterpret_cast<const DtNetPduHeader*>(pdu.packet()), nullptr, nullptr));
}
}  // namespace

DtVistralControlInteraction::DtVistralControlInteraction() = default;

DtVistralControlInteraction::DtVistralControlInteraction(const DtVistralControlInteraction& other)
    : DtInteractionWithEncDec(other), pdu_(other.pdu_ ? reread(*other.pdu_) : nullptr) {}

DtVistralControlInteraction& DtVistralControlInteraction::operator=(
    const DtVistralControlInteraction& other) {
  if (this == &other) return *this;
  DtInteractionWithEncDec::operator=(other);
  // The PDU held so far is left alone, not deleted.
  pdu_ = other.pdu_ ? reread(*other.pdu_) : nullptr;
  return *this;
}

DtVistralControlInteraction::~DtVistralControlInteraction() { delete pdu_; }

DtInteraction* DtVistralControlInteraction::create() { return new DtVistralControlInteraction(); }

void DtVistralControlInteraction::printData() const {
  if (pdu_ != nullptr) pdu_->print();
}

const char* DtVistralControlInteraction::name() const { return "DtVistralControlInteraction"; }

const char* DtVistralControlInteraction::interactionClassToUse(DtExerciseConn* /*conn*/) const {
  return kClassName;
}

DtInteractionDecoder* DtVistralControlInteraction::createDecoder(DtExerciseConn* conn) const {
  if (classDesc() != nullptr) return new DtVistralControlDecoder(conn, classDesc());
  DtWarn.message("Cannot add decoder for FOM class ViewControl\n");
  return nullptr;
}

DtInteractionEncoder* DtVistralControlInteraction::createEncoder(DtExerciseConn* conn) const {
  if (classDesc() != nullptr) return new DtVistralControlEncoder(conn, classDesc());
  DtWarn.message("Cannot add encoder for FOM class ViewControl\n");
  return nullptr;
}

const DtVistralControlPdu* DtVistralControlInteraction::vcPdu() const { return pdu_; }

// The held PDU is replaced by one read from the image; one of the same class is rebuilt where it lies. An
// image inside the held PDU is read into a new PDU before the held one goes.
void DtVistralControlInteraction::hold(const DtNetPduHeader* image, bool fromNet) {
  const std::less<const void*> before;
  const bool inHeld = pdu_ != nullptr && image != nullptr && !before(image, pdu_->packet()) &&
                      before(image, pdu_->packet() + pdu_->length());
  DtVistralControlPdu* made =
      VcCreate::recreate(image, fromNet, inHeld ? nullptr : std::exchange(pdu_, nullptr));
  delete pdu_;  // still held only when the image lay in it
  pdu_ = made;
}

void DtVistralControlInteraction::setVcPdu(const DtVistralControlPdu& pdu) {
  hold(reinterpret_cast<const DtNetPduHeader*>(pdu.packet()), false);
}

DtVistralControlInteraction& DtVistralControlInteraction::setFromNetPacket(const DtNetPduHeader* image) {
  hold(image, true);
  return *this;
}

void DtVistralControlInteraction::addCallback(DtExerciseConn* conn, Callback cb, void* usr) {
  if (conn == nullptr) return;
  conn->addInteractionCallback(kClassName, cb, usr, std::shared_ptr<DtDDMRegion>());
  conn->interactionFactory().add(kClassName, &DtVistralControlInteraction::create);
}

void DtVistralControlInteraction::removeCallback(DtExerciseConn* conn, Callback cb, void* usr) {
  if (conn == nullptr) return;
  conn->removeInteractionCallback(kClassName, cb, usr, std::shared_ptr<DtDDMRegion>());
}
