#include "vistralcontrol/mimicVcPdu.h"

#include "core/vcText.h"
#include "tarvex/dtDump.h"
#include "vcOffsetAttach.h"
#include "vcViewLayout.h"

using VcLayout::Tether;

DtMimicVCPdu::DtMimicVCPdu(DtBufferPlaceHolder* holder) {
  static_assert(decltype(storage_)::kCapacity == Tether::length, "storage for the image");
  useStorage(storage_);
  initPdu(Tether::length, holder);
  setViewerCommand(DtVcMimic);
}

DtMimicVCPdu::DtMimicVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                           DtPduFactory* factory) {
  useStorage(storage_);
  initPdu(image, holder, factory);
}

DtMimicVCPdu::~DtMimicVCPdu() = default;

const DtVector64& DtMimicVCPdu::offset() const {
  offset_ = f32VectorAt(Tether::offset);
  return offset_;
}
void DtMimicVCPdu::setOffset(const DtVector64& offset) { setF32VectorAt(Tether::offset, offset); }

const DtTaitBryan& DtMimicVCPdu::bodyOrientation() const {
  orientation_ = eulerAt(Tether::orientation);
  return orientation_;
}
void DtMimicVCPdu::setBodyOrientation(const DtTaitBryan& orientation) {
  setEulerAt(Tether::orientation, orientation);
}

const DtString& DtMimicVCPdu::attachId() const {
  attachId_ = designatorAt(Tether::attachId);
  return attachId_;
}
void DtMimicVCPdu::setAttachId(const DtString& id) { setDesignatorAt(Tether::attachId, id); }

const DtString& DtMimicVCPdu::markingText() const {
  markingText_ = VcText::markingText(*this, Tether::markingText, Tether::length);
  return markingText_;
}
void DtMimicVCPdu::setMarkingText(const DtString& text) {
  setTextAt(Tether::markingText, VcLayout::kNameWidth, text.c_str());
}

namespace {
const VcOffsetAttach::Access<DtMimicVCPdu> kAccess{&DtMimicVCPdu::offset, &DtMimicVCPdu::setOffset,
                                                   &DtMimicVCPdu::bodyOrientation,
                                                   &DtMimicVCPdu::setBodyOrientation, "Offset:"};
}  // namespace

const char* DtMimicVCPdu::string() const {
  return VcOffsetAttach::string(*this, kAccess, textBuffer(), kTextBufferSize);
}

void DtMimicVCPdu::setFromString(const char* text) { VcOffsetAttach::setFromString(*this, kAccess, text); }

void DtMimicVCPdu::printData() const {
  DtVistralControlPdu::printData();
  VcOffsetAttach::printData(*this, kAccess);
}

// The mimic constructor has already built a mimic PDU; this one builds it again under its own command.
DtOffsetMimicVCPdu::DtOffsetMimicVCPdu(DtBufferPlaceHolder* holder) : DtMimicVCPdu(holder) {
  initPdu(Tether::length, holder);
  setViewerCommand(DtVcOffsetMimic);
}

DtOffsetMimicVCPdu::DtOffsetMimicVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                                       DtPduFactory* factory)
    : DtMimicVCPdu(image, holder, factory) {}

DtOffsetMimicVCPdu::~DtOffsetMimicVCPdu() = default;
