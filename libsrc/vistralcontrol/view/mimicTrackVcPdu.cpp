#include "vistralcontrol/mimicTrackVcPdu.h"

#include "vcTwoEntity.h"
#include "vcViewLayout.h"

using VcLayout::TwoEntity;

DtMimicTrackVCPdu::DtMimicTrackVCPdu(DtBufferPlaceHolder* holder) {
  static_assert(decltype(storage_)::kCapacity == TwoEntity::length, "storage for the image");
  useStorage(storage_);
  initPdu(TwoEntity::length, holder);
  setViewerCommand(DtVcMimicTrack);
}

DtMimicTrackVCPdu::DtMimicTrackVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                                     DtPduFactory* factory) {
  useStorage(storage_);
  initPdu(image, holder, factory);
}

DtMimicTrackVCPdu::~DtMimicTrackVCPdu() = default;

const DtVector64& DtMimicTrackVCPdu::offset() const {
  offset_ = f32VectorAt(TwoEntity::offset);
  return offset_;
}
void DtMimicTrackVCPdu::setOffset(const DtVector64& offset) { setF32VectorAt(TwoEntity::offset, offset); }

const DtString& DtMimicTrackVCPdu::attachId() const {
  entityId_ = designatorAt(TwoEntity::attachId);
  return entityId_;
}
void DtMimicTrackVCPdu::setAttachId(const DtString& id) { setDesignatorAt(TwoEntity::attachId, id); }

const DtString& DtMimicTrackVCPdu::trackId() const {
  entityId_ = designatorAt(TwoEntity::trackId);
  return entityId_;
}
void DtMimicTrackVCPdu::setTrackId(const DtString& id) { setDesignatorAt(TwoEntity::trackId, id); }

const DtString& DtMimicTrackVCPdu::attachMarkingText() const {
  attachMarkingText_ = VcText::markingText(*this, TwoEntity::attachMarkingText, TwoEntity::length);
  return attachMarkingText_;
}
void DtMimicTrackVCPdu::setAttachMarkingText(const DtString& text) {
  setTextAt(TwoEntity::attachMarkingText, VcLayout::kNameWidth, text.c_str());
}

const DtString& DtMimicTrackVCPdu::trackMarkingText() const {
  trackMarkingText_ = VcText::markingText(*this, TwoEntity::trackMarkingText, TwoEntity::length);
  return trackMarkingText_;
}
void DtMimicTrackVCPdu::setTrackMarkingText(const DtString& text) {
  setTextAt(TwoEntity::trackMarkingText, VcLayout::kNameWidth, text.c_str());
}

const char* DtMimicTrackVCPdu::string() const {
  return VcTwoEntity::string(*this, textBuffer(), kTextBufferSize);
}

void DtMimicTrackVCPdu::setFromString(const char* text) { VcTwoEntity::setFromString(*this, text); }

void DtMimicTrackVCPdu::printData() const {
  DtVistralControlPdu::printData();
  VcTwoEntity::printData(*this);
}
