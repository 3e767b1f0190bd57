#include "vistralcontrol/tetherTrackVcPdu.h"

#include "vcTwoEntity.h"
#include "vcViewLayout.h"

using VcLayout::TwoEntity;

DtTetherTrackVCPdu::DtTetherTrackVCPdu(DtBufferPlaceHolder* holder) {
  static_assert(decltype(storage_)::kCapacity == TwoEntity::length, "storage for the image");
  useStorage(storage_);
  initPdu(TwoEntity::length, holder);
  setViewerCommand(DtVcTetherTrack);
}

DtTetherTrackVCPdu::DtTetherTrackVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                                       DtPduFactory* factory) {
  useStorage(storage_);
  initPdu(image, holder, factory);
}

DtTetherTrackVCPdu::~DtTetherTrackVCPdu() = default;

const DtVector64& DtTetherTrackVCPdu::offset() const {
  offset_ = f32VectorAt(TwoEntity::offset);
  return offset_;
}
void DtTetherTrackVCPdu::setOffset(const DtVector64& offset) { setF32VectorAt(TwoEntity::offset, offset); }

const DtString& DtTetherTrackVCPdu::attachId() const {
  entityId_ = designatorAt(TwoEntity::attachId);
  return entityId_;
}
void DtTetherTrackVCPdu::setAttachId(const DtString& id) { setDesignatorAt(TwoEntity::attachId, id); }

const DtString& DtTetherTrackVCPdu::trackId() const {
  entityId_ = designatorAt(TwoEntity::trackId);
  return entityId_;
}
void DtTetherTrackVCPdu::setTrackId(const DtString& id) { setDesignatorAt(TwoEntity::trackId, id); }

const DtString& DtTetherTrackVCPdu::attachMarkingText() const {
  attachMarkingText_ = VcText::markingText(*this, TwoEntity::attachMarkingText, TwoEntity::length);
  return attachMarkingText_;
}
void DtTetherTrackVCPdu::setAttachMarkingText(const DtString& text) {
  setTextAt(TwoEntity::attachMarkingText, VcLayout::kNameWidth, text.c_str());
}

const DtString& DtTetherTrackVCPdu::trackMarkingText() const {
  trackMarkingText_ = VcText::markingText(*this, TwoEntity::trackMarkingText, TwoEntity::length);
  return trackMarkingText_;
}
void DtTetherTrackVCPdu::setTrackMarkingText(const DtString& text) {
  setTextAt(TwoEntity::trackMarkingText, VcLayout::kNameWidth, text.c_str());
}

const char* DtTetherTrackVCPdu::string() const {
  return VcTwoEntity::string(*this, textBuffer(), kTextBufferSize);
}

void DtTetherTrackVCPdu::setFromString(const char* text) { VcTwoEntity::setFromString(*this, text); }

void DtTetherTrackVCPdu::printData() const {
  DtVistralControlPdu::printData();
  VcTwoEntity::printData(*this);
}
