#include "vistralcontrol/tetherVcPdu.h"

#include "core/vcText.h"
#include "tarvex/dtDump.h"
#include "vcOffsetAttach.h"
#include "vcViewLayout.h"

using VcLayout::Tether;

DtTetherVCPdu::DtTetherVCPdu(DtBufferPlaceHolder* holder) {
  static_assert(decltype(storage_)::kCapacity == Tether::length, "storage for the image");
  useStorage(storage_);
  initPdu(Tether::length, holder);
  setViewerCommand(DtVcTether);
}

DtTetherVCPdu::DtTetherVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                             DtPduFactory* factory) {
  useStorage(storage_);
  initPdu(image, holder, factory);
}

DtTetherVCPdu::~DtTetherVCPdu() = default;

const DtVector64& DtTetherVCPdu::topoUpOffset() const {
  offset_ = f32VectorAt(Tether::offset);
  return offset_;
}
void DtTetherVCPdu::setTopoUpOffset(const DtVector64& offset) { setF32VectorAt(Tether::offset, offset); }

const DtTaitBryan& DtTetherVCPdu::orientation() const {
  orientation_ = eulerAt(Tether::orientation);
  return orientation_;
}
void DtTetherVCPdu::setOrientation(const DtTaitBryan& orientation) {
  setEulerAt(Tether::orientation, orientation);
}

const DtString& DtTetherVCPdu::attachId() const {
  attachId_ = designatorAt(Tether::attachId);
  return attachId_;
}
void DtTetherVCPdu::setAttachId(const DtString& id) { setDesignatorAt(Tether::attachId, id); }

const DtString& DtTetherVCPdu::markingText() const {
  markingText_ = VcText::markingText(*this, Tether::markingText, Tether::length);
  return markingText_;
}
void DtTetherVCPdu::setMarkingText(const DtString& text) {
  setTextAt(Tether::markingText, VcLayout::kNameWidth, text.c_str());
}

namespace {
const VcOffsetAttach::Access<DtTetherVCPdu> kAccess{
    &DtTetherVCPdu::topoUpOffset, &DtTetherVCPdu::setTopoUpOffset, &DtTetherVCPdu::orientation,
    &DtTetherVCPdu::setOrientation, "TopoUpOffset:"};
}  // namespace

const char* DtTetherVCPdu::string() const {
  return VcOffsetAttach::string(*this, kAccess, textBuffer(), kTextBufferSize);
}

void DtTetherVCPdu::setFromString(const char* text) { VcOffsetAttach::setFromString(*this, kAccess, text); }

void DtTetherVCPdu::printData() const {
  DtVistralControlPdu::printData();
  VcOffsetAttach::printData(*this, kAccess);
}
